#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace tarnbrook {

// The bytes of a regular file of at most `maxBytes`: a folder, a device or a pipe could give
// bytes for ever, or none. Empty when the file cannot be read, with `problem` saying why:
// "cannot be opened (No such file or directory)", "is a folder", "is not a regular file (a
// device, pipe or socket)", "is larger than 64 MiB". `missing` tells a file that is not there.
struct FileRead {
  std::optional<std::string> bytes;
  std::string problem;
  bool missing = false;
};
FileRead ReadRegularFile(const std::string& path, uint64_t maxBytes);

} // namespace tarnbrook
