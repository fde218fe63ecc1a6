#include "host/file_replace.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarnbrook {
namespace {

namespace fs = std::filesystem;

// Temporaries are named after their file, so that one left by a save cut off is plainly ours.
constexpr const char* TemporaryMark = ".tarnbrook-save-";
constexpr int MostLinks = 40;

bool WriteAll(int fd, const std::string& text) {
  for (size_t done = 0; done < text.size();) {
    ssize_t n = ::write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR)
      continue;
    if (n <= 0)
      return false;
    done += size_t(n);
  }
  return true;
}

// The file a path names once its symlinks are followed; a path that does not exist yet names
// itself.
fs::path TargetOf(fs::path path, std::error_code& error) {
  for (int links = 0; links < MostLinks; ++links) {
    const fs::file_status status = fs::symlink_status(path, error);
    if (error || !fs::is_symlink(status)) {
      if (error == std::errc::no_such_file_or_directory)
        error.clear();
      return path;
    }
    const fs::path link = fs::read_symlink(path, error);
    if (error)
      return path;
    path = link.is_absolute() ? link : path.parent_path() / link;
  }
  error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
  return path;
}

// The mode a new file gets from this process: what the user's umask lets through.
mode_t NewFileMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

} // namespace

Descriptor::~Descriptor() {
  if (fd >= 0)
    ::close(fd);
}

std::string ReplaceFile(const std::string& path, const std::string& text) {
  std::error_code error;
  const fs::path target = TargetOf(path, error);
  if (error)
    return error.message();
  struct stat old {};
  const bool existed = ::stat(target.c_str(), &old) == 0;
  // A file without write permission is read-only, even for a user the system would let in.
  if (existed && (::access(target.c_str(), W_OK) != 0 || (old.st_mode & 0222) == 0))
    return std::strerror(EACCES);

  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  const std::string prefix = "." + target.filename().string() + TemporaryMark;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    std::error_code ignored;
    if (entry.path().filename().string().starts_with(prefix))
      fs::remove(entry.path(), ignored);
  }
  std::string temporary = (folder / (prefix + "XXXXXX")).string();
  Descriptor file{::mkstemp(temporary.data())};
  if (file.fd < 0)
    return std::strerror(errno);
  if (existed) {
    ::fchmod(file.fd, old.st_mode & 07777);
    (void)!::fchown(file.fd, old.st_uid, old.st_gid); // only where we may
  } else {
    ::fchmod(file.fd, NewFileMode());
  }
  bool written = WriteAll(file.fd, text) && ::fsync(file.fd) == 0;
  int failure = errno;
  if (written) {
    written = ::close(std::exchange(file.fd, -1)) == 0;
    failure = errno;
  }
  if (written && ::rename(temporary.c_str(), target.c_str()) != 0) {
    written = false;
    failure = errno;
  }
  if (!written) {
    ::unlink(temporary.c_str());
    return std::strerror(failure);
  }
  // The new name reaches the disk with the folder.
  if (Descriptor directory{::open(folder.c_str(), O_RDONLY | O_DIRECTORY)}; directory.fd >= 0)
    ::fsync(directory.fd);
  return {};
}

} // namespace tarnbrook
