#include "platform/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "platform/paths.h"

namespace platform {

namespace {

// Repeats a call that gives a negative number, for as long as signals interrupt it. Gives an error number.
template <class Call>
int Repeated(const Call& call) {
  while (call() < 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

// The error number for something that is not a regular file.
int NotAFile(mode_t mode) { return S_ISDIR(mode) ? EISDIR : EINVAL; }

std::filesystem::path FolderOf(const std::filesystem::path& path) {
  return path.has_parent_path() ? path.parent_path() : ".";
}

// Whether the path, not followed, names the open file.
bool IsAt(int descriptor, const std::filesystem::path& path) {
  struct stat file {};
  struct stat found {};
  return fstat(descriptor, &file) == 0 && lstat(path.c_str(), &found) == 0 && file.st_dev == found.st_dev &&
         file.st_ino == found.st_ino;
}

// Nobody may read the new file, at any time, who may not read the old one.
mode_t FirstMode(bool replaces) { return replaces ? 0600 : 0666; }

// Removes what a process that was killed left at the path. False if it is not there or is in use.
bool RemoveLeftover(const std::filesystem::path& path) {
  int file = -1;
  Repeated(
      [&] { return file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC); });
  if (file < 0) return false;
  const bool gone = flock(file, LOCK_EX | LOCK_NB) == 0 && IsAt(file, path) && unlink(path.c_str()) == 0;
  close(file);
  return gone;
}

}  // namespace

InputFile::~InputFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

int InputFile::Open(const std::string& path) {
  const int error = Repeated(
      [&] { return descriptor_ = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
  if (error != 0) return error;
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return NotAFile(status.st_mode);
  size_ = static_cast<std::size_t>(status.st_size);
  return 0;
}

int InputFile::Read(char* to, std::size_t room, std::size_t& length) {
  length = 0;
  while (length < room) {
    const ssize_t got = read(descriptor_, to + length, room - length);
    if (got == 0) break;
    if (got < 0 && errno != EINTR) return errno;
    if (got < 0) continue;
    const auto bytes = static_cast<std::size_t>(got);
    const bool cut = bytes < room - length;
    length += bytes;
    done_ += bytes;
    if (cut && done_ == size_) break;  // the end: nothing is gained by another call that says so
  }
  return 0;
}

int InputFile::Rewind() {
  done_ = 0;
  return lseek(descriptor_, 0, SEEK_SET) == 0 ? 0 : errno;
}

// Until it is whole the file has no name, where the system can do that, else one beside the target. The
// system cannot put a file without a name in the place of another: it gets the name beside the target for the
// moment before it is renamed. While a file has that name it is locked; one that is not was left by a process
// that was killed.
class OutputFile::Work {
 public:
  explicit Work(const char* path) : target_(path) {}
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work();

  bool Open();
  bool Write(std::string_view content) { return Ok("cannot write", Append(content)); }
  bool Finish();
  const FileFault& fault() const { return fault_; }
  std::string unfinished() const { return beside_.string(); }

 private:
  // These give an error number, 0 for success.
  int LookAtTarget();
  int CreateUnnamed();
  int CreateNamed();
  int KeepMode() const;
  int Append(std::string_view content) const;
  int Flush() const;
  int Close();
  int Link(const std::filesystem::path& path) const;
  int TakeName();
  int CopyToNamed();
  int TakeTarget();
  template <class Make>
  int MakeBeside(const Make& make);

  bool Ok(std::string_view step, int error) {
    if (error != 0) fault_ = {step, error};
    return error == 0;
  }
  bool Settle() { return Ok("cannot flush", Flush()) && Ok("cannot close", Close()); }

  FileFault fault_;
  std::filesystem::path target_;
  std::filesystem::path folder_;  // of the target
  bool replaces_ = false;         // whether there is an old file
  mode_t mode_ = 0;               // of the old file
  uid_t owner_ = 0;               // of the old file
  gid_t group_ = 0;               // of the old file
  std::filesystem::path beside_;  // the name beside the target, while the file has it
  int descriptor_ = -1;
};

OutputFile::Work::~Work() {
  if (!beside_.empty()) unlink(beside_.c_str());
  if (descriptor_ >= 0) close(descriptor_);
}

bool OutputFile::Work::Open() {
  if (!Ok("cannot follow the link", FollowLinks(target_))) return false;
  folder_ = FolderOf(target_);
  return Ok("cannot write", LookAtTarget()) && (CreateUnnamed() == 0 || Ok("cannot write", CreateNamed()));
}

bool OutputFile::Work::Finish() {
  const bool named = !beside_.empty();
  return Settle() && (named || TakeName() == 0 || (Ok("cannot write", CopyToNamed()) && Settle())) &&
         Ok("cannot rename to", TakeTarget());
}

int OutputFile::Work::LookAtTarget() {
  if (target_.empty()) return ENOENT;
  struct stat old {};
  if (stat(target_.c_str(), &old) != 0) return errno == ENOENT ? 0 : errno;
  if (!S_ISREG(old.st_mode)) return NotAFile(old.st_mode);
  replaces_ = true;
  mode_ = old.st_mode & 07777;
  owner_ = old.st_uid;
  group_ = old.st_gid;
  return faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

int OutputFile::Work::CreateUnnamed() {
  const int error = Repeated([&] {
    return descriptor_ = open(folder_.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, FirstMode(replaces_));
  });
  if (error != 0) return error;
  flock(descriptor_, LOCK_EX | LOCK_NB);
  return KeepMode();
}

int OutputFile::Work::CreateNamed() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
  const int error = MakeBeside([this](const std::filesystem::path& path) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    const int failed =
        Repeated([&] { return descriptor_ = open(path.c_str(), kFlags, FirstMode(replaces_)); });
    if (failed != 0) return failed;
    // Before it was locked, another process may have removed it.
    const bool locked = flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (locked && IsAt(descriptor_, path)) return 0;
    close(std::exchange(descriptor_, -1));
    return EEXIST;
  });
  return error != 0 ? error : KeepMode();
}

int OutputFile::Work::KeepMode() const {
  if (!replaces_) return 0;
  static_cast<void>(fchown(descriptor_, owner_, group_) == 0);
  return Repeated([this] { return fchmod(descriptor_, mode_); });
}

int OutputFile::Work::Append(std::string_view content) const {
  while (!content.empty()) {
    const ssize_t written = write(descriptor_, content.data(), content.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int OutputFile::Work::Flush() const {
  return Repeated([this] { return fsync(descriptor_); });
}

// What failed may show only now. Another descriptor keeps the file and its lock.
int OutputFile::Work::Close() {
  const int kept = fcntl(descriptor_, F_DUPFD_CLOEXEC, 0);
  if (kept < 0) return errno;
  return close(std::exchange(descriptor_, kept)) == 0 || errno == EINTR ? 0 : errno;
}

// Gives a file without a name that of the target, or where that is taken, one beside it.
int OutputFile::Work::TakeName() {
  if (!replaces_ && Link(target_) == 0) return 0;
  return MakeBeside([this](const std::filesystem::path& path) { return Link(path); });
}

int OutputFile::Work::Link(const std::filesystem::path& path) const {
  const std::string self = "/proc/self/fd/" + std::to_string(descriptor_);
  const int error =
      Repeated([&] { return linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW); });
  return error == EEXIST && IsAt(descriptor_, path) ? 0 : error;  // it was done, and interrupted all the same
}

// For the systems that make a file without a name and then do not give it one.
int OutputFile::Work::CopyToNamed() {
  constexpr std::size_t kAtOnce = std::size_t{1} << 30U;
  const struct Unnamed {
    int descriptor;
    ~Unnamed() { close(descriptor); }
  } unnamed{std::exchange(descriptor_, -1)};
  int error = CreateNamed();
  off_t at = 0;
  for (ssize_t copied = 1; error == 0 && copied != 0;) {
    error = Repeated([&] { return copied = sendfile(descriptor_, unnamed.descriptor, &at, kAtOnce); });
  }
  return error;
}

// Makes the file at a name beside the target. Others that replace the same target may have the first names.
template <class Make>
int OutputFile::Work::MakeBeside(const Make& make) {
  constexpr int kMostNames = 1000;
  constexpr std::size_t kMostShown = 200;  // a name has at most 255 bytes
  const std::string name = target_.filename().string();
  const std::string start = '.' + (name.size() <= kMostShown ? name : "") + ".unfinished-save-";
  for (int i = 0; i < kMostNames; ++i) {
    std::filesystem::path path = target_.parent_path() / (start + std::to_string(i));
    int error = make(path);
    if (error == EEXIST && RemoveLeftover(path)) error = make(path);
    if (error == 0) beside_ = std::move(path);
    if (error != EEXIST) return error;
  }
  return EEXIST;
}

int OutputFile::Work::TakeTarget() {
  if (!beside_.empty()) {
    const int error = Repeated([this] { return rename(beside_.c_str(), target_.c_str()); });
    const bool done = error == 0 || (error == ENOENT && IsAt(descriptor_, target_));
    if (!done) return error;
    beside_.clear();
  }
  // Flushes the folder's entry, where the file system can do that.
  int folder = -1;
  Repeated([&] { return folder = open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (folder < 0) return 0;
  Repeated([&] { return fsync(folder); });
  close(folder);
  return 0;
}

OutputFile::OutputFile(const char* path) : work_(std::make_unique<Work>(path)) {}
OutputFile::~OutputFile() = default;

FileFault OutputFile::Open() { return work_->Open() ? FileFault() : work_->fault(); }
FileFault OutputFile::Write(std::string_view content) {
  return work_->Write(content) ? FileFault() : work_->fault();
}
FileFault OutputFile::Finish() { return work_->Finish() ? FileFault() : work_->fault(); }
std::string OutputFile::Unfinished() const { return work_->unfinished(); }

}  // namespace platform
