#include "files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "failure.h"

namespace rytesavc {

namespace {

// The error number for something that is not a regular file.
int NotAFile(mode_t mode) { return S_ISDIR(mode) ? EISDIR : EINVAL; }

}  // namespace

InputFile::~InputFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool InputFile::Fail(int error) const {
  NoteSystemFailure("cannot read", path_, error);
  return false;
}

bool InputFile::Open() {
  descriptor_ = open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  struct stat status {};
  if (descriptor_ < 0 || fstat(descriptor_, &status) != 0) return Fail(errno);
  if (!S_ISREG(status.st_mode)) return Fail(NotAFile(status.st_mode));
  size_ = static_cast<std::size_t>(status.st_size);
  return true;
}

bool InputFile::Read(char* to, std::size_t room, std::size_t& length) {
  length = 0;
  while (length < room) {
    const ssize_t got = read(descriptor_, to + length, room - length);
    if (got == 0) break;
    if (got < 0 && errno != EINTR) return Fail(errno);
    if (got > 0) length += static_cast<std::size_t>(got);
  }
  return true;
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) close(descriptor_);
  if (!unfinished_.empty()) unlink(unfinished_.c_str());
}

bool OutputFile::Open() {
  target_ = path_;
  return Ok("cannot follow the link", FollowLinks()) && Ok("cannot write", Create());
}

bool OutputFile::Write(std::string_view content) { return Ok("cannot write", Append(content)); }

bool OutputFile::Finish() {
  return Ok("cannot flush", fsync(descriptor_) == 0 ? 0 : errno) && Ok("cannot close", Close()) &&
         Ok("cannot rename to", Rename());
}

bool OutputFile::Ok(std::string_view step, int error) const {
  if (error != 0) NoteSystemFailure(step, path_, error);
  return error == 0;
}

// Follows the symbolic links at the end of the path, which may lead to a file that does not exist yet.
int OutputFile::FollowLinks() {
  constexpr int kLongestChain = 40;
  for (int i = 0; i < kLongestChain; ++i) {
    std::error_code error;
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(target_, error))) return 0;
    const std::filesystem::path next = std::filesystem::read_symlink(target_, error);
    if (error) return error.value();
    target_ = target_.parent_path() / next;
  }
  return ELOOP;
}

int OutputFile::Create() {
  if (target_.empty()) return ENOENT;
  struct stat old {};
  if (stat(target_.c_str(), &old) != 0) return errno == ENOENT ? CreateUnique(0666) : errno;
  if (!S_ISREG(old.st_mode)) return NotAFile(old.st_mode);
  if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return errno;
  // Nobody may read the new file, at any time, who may not read the old one.
  if (const int error = CreateUnique(0600)) return error;
  static_cast<void>(fchown(descriptor_, old.st_uid, old.st_gid) == 0);
  return fchmod(descriptor_, old.st_mode & 07777) == 0 ? 0 : errno;
}

int OutputFile::CreateUnique(unsigned mode) {
  static std::atomic<unsigned> calls;
  constexpr int kAttempts = 1000;
  for (int i = 0; i < kAttempts; ++i) {
    const auto now =
        static_cast<unsigned long long>(std::chrono::steady_clock::now().time_since_epoch().count());
    std::filesystem::path path = target_.parent_path() / ".save-";
    path += std::to_string(getpid()) + "-" + std::to_string(now) + "-" + std::to_string(++calls);
    descriptor_ = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    if (descriptor_ >= 0) unfinished_ = std::move(path);
    if (descriptor_ >= 0 || errno != EEXIST) break;
  }
  return descriptor_ >= 0 ? 0 : errno;
}

int OutputFile::Append(std::string_view content) const {
  while (!content.empty()) {
    const ssize_t written = write(descriptor_, content.data(), content.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int OutputFile::Close() {
  const int descriptor = std::exchange(descriptor_, -1);
  return close(descriptor) == 0 ? 0 : errno;
}

int OutputFile::Rename() {
  if (rename(unfinished_.c_str(), target_.c_str()) != 0) return errno;
  unfinished_.clear();
  // Flushes the directory's entry, where the file system can do that.
  const std::filesystem::path folder = target_.parent_path();
  const int directory = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (directory >= 0) {
    fsync(directory);
    close(directory);
  }
  return 0;
}

}  // namespace rytesavc
