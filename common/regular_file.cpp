#include "common/regular_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tarnbrook {

namespace {

std::string Because(const char* what) {
  return std::string(what) + " (" + std::strerror(errno) + ")";
}

std::string LargerThan(uint64_t maxBytes) {
  return maxBytes >= (1u << 20) ? "is larger than " + std::to_string(maxBytes >> 20) + " MiB"
                                : "is larger than " + std::to_string(maxBytes) + " bytes";
}

} // namespace

FileRead ReadRegularFile(const std::string& path, uint64_t maxBytes) {
  FileRead read;
  // Non-blocking, so that opening a pipe with no writer does not wait.
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) {
    read.missing = errno == ENOENT;
    read.problem = Because("cannot be opened");
    return read;
  }
  struct stat status {};
  std::string bytes;
  if (::fstat(fd, &status) != 0)
    read.problem = Because("cannot be read");
  else if (S_ISDIR(status.st_mode))
    read.problem = "is a folder";
  else if (!S_ISREG(status.st_mode))
    read.problem = "is not a regular file (a device, pipe or socket)";
  else if (uint64_t(status.st_size) > maxBytes)
    read.problem = LargerThan(maxBytes);
  char buffer[65536];
  while (read.problem.empty()) {
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR)
      continue;
    if (n == 0) {
      read.bytes = std::move(bytes);
      break;
    }
    if (n < 0)
      read.problem = Because("cannot be read");
    else if (bytes.size() + size_t(n) > maxBytes) // it grew while being read
      read.problem = LargerThan(maxBytes);
    else
      bytes.append(buffer, size_t(n));
  }
  ::close(fd);
  return read;
}

} // namespace tarnbrook
