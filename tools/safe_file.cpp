#include "safe_file.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace glyphwright::cli {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& file, int reason) {
  throw std::runtime_error("cannot write " + file + ": " + std::strerror(reason));
}

/// Writes all and closes. Gives the reason where something fails, otherwise 0.
int writeAndClose(int descriptor, std::span<const std::uint8_t> bytes) {
  int reason = 0;
  while (!bytes.empty() && reason == 0) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      reason = errno;
    }
  }
  if (close(descriptor) != 0 && reason == 0) reason = errno;
  return reason;
}

void writeInPlace(const std::string& file, std::span<const std::uint8_t> bytes) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  const int reason = descriptor < 0 ? errno : writeAndClose(descriptor, bytes);
  if (reason != 0) fail(file, reason);
}

/// A short name of its own in the file's folder: the file's name may be as long as names can be.
std::string nameBeside(const fs::path& file) {
  static std::atomic<unsigned> count = 0;
  const std::string name =
      ".glyphwright-" + std::to_string(getpid()) + '-' + std::to_string(count++) + ".part";
  return (file.parent_path() / name).string();
}

/// The file that a symbolic link leads to; the name itself where it is none or leads nowhere.
fs::path targetOf(const std::string& file) {
  std::error_code error;
  const fs::path target = fs::is_symlink(file, error) ? fs::canonical(file, error) : fs::path();
  return error || target.empty() ? fs::path(file) : target;
}

}  // namespace

void writeWholeFile(const std::string& file, std::span<const std::uint8_t> bytes,
                    PendingFiles* pending) {
  struct stat status {};
  const bool exists = stat(file.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) fail(file, EISDIR);
  if (exists && !S_ISREG(status.st_mode)) return writeInPlace(file, bytes);
  if (exists && access(file.c_str(), W_OK) != 0) fail(file, errno);
  const fs::path target = targetOf(file);
  const std::string part = nameBeside(target);
  if (pending) pending->add(part);
  const int descriptor = open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  int reason = descriptor < 0 ? errno : 0;
  if (descriptor >= 0) {
    // Where a file system knows no permissions, there are none to keep.
    if (exists) static_cast<void>(fchmod(descriptor, status.st_mode & 07777));
    reason = writeAndClose(descriptor, bytes);
    if (reason == 0 && rename(part.c_str(), target.c_str()) != 0) reason = errno;
    if (reason != 0) unlink(part.c_str());
  }
  if (pending) pending->remove(part);
  if (descriptor < 0 && exists && (reason == EACCES || reason == EPERM)) {
    return writeInPlace(file, bytes);
  }
  if (reason != 0) fail(file, reason);
}

}  // namespace glyphwright::cli
