#pragma once
#include <string>

namespace tarnbrook {

// Closes a file descriptor when it goes.
struct Descriptor {
  int fd;
  ~Descriptor();
};

// Replaces the file at `path` with `text` in one step: written to a temporary beside the
// file, flushed, given the old file's mode and owner, then renamed over it. A symlink is
// written through to its target, and a file that nobody may write is refused. Returns what
// went wrong, empty when the file was replaced.
std::string ReplaceFile(const std::string& path, const std::string& text);

} // namespace tarnbrook
