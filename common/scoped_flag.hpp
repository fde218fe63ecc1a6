#pragma once
#include <utility>

namespace tarnbrook {

// Raises a flag for the life of a scope and puts back what it held when the scope ends, by an
// error too, so that a guard can never be left up. Nested guards of one flag work.
class ScopedFlag {
public:
  explicit ScopedFlag(bool& flag) : flag_(flag), old_(std::exchange(flag, true)) {}
  ~ScopedFlag() { flag_ = old_; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
  bool& flag_;
  bool old_;
};

} // namespace tarnbrook
