#include "platform/files.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "platform/windows.h"

namespace platform {

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Repeats for about a second what fails because another program has the file for a moment. `also` is another
// error that may have this reason.
template <class Call>
DWORD Repeated(const Call& call, DWORD also = ERROR_SHARING_VIOLATION) {
  constexpr DWORD kStep = 20;
  constexpr DWORD kMost = 1000;
  for (DWORD waited = 0;; waited += kStep) {
    const DWORD error = call() ? ERROR_SUCCESS : GetLastError();
    const bool is_held = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
                         error == ERROR_USER_MAPPED_FILE || error == also;
    if (!is_held || waited >= kMost) return error;
    Sleep(kStep);
  }
}

// The error number for something that is not a regular file, 0 for a regular file.
int NotAFile(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION about{};
  if (GetFileType(file) != FILE_TYPE_DISK) return EINVAL;
  if (GetFileInformationByHandle(file, &about) == 0) return ErrorNumber(GetLastError());
  return (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EISDIR : 0;
}

// The path of what is there, without links; as it is where nothing is. A link that leads nowhere is refused.
int FollowLinks(std::wstring& path) {
  Handle file(
      CreateFileW(path.c_str(), 0, kShared, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file.is_open()) {
    const DWORD error = GetLastError();
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool is_link =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return is_link ? ErrorNumber(error) : 0;
  }
  std::wstring found(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  found.resize(GetFinalPathNameByHandleW(file.get(), found.data(), static_cast<DWORD>(found.size()),
                                         FILE_NAME_NORMALIZED));
  if (!found.empty()) path = found;
  return 0;
}

// A device or a pipe: opening it might wait.
bool IsDevice(const std::wstring& path) { return path.rfind(L"\\\\.\\", 0) == 0; }

}  // namespace

InputFile::~InputFile() {
  if (descriptor_ >= 0) _close(descriptor_);
}

int InputFile::Open(const std::string& path) {
  if (path.empty()) return ENOENT;
  const std::wstring wide = FullPath(path);
  if (wide.empty()) return EILSEQ;
  if (IsDevice(wide)) return EINVAL;
  Handle file;
  const DWORD error = Repeated([&] {
    file.Take(CreateFileW(wide.c_str(), GENERIC_READ, kShared, nullptr, OPEN_EXISTING,
                          FILE_FLAG_SEQUENTIAL_SCAN | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return file.is_open();
  });
  if (error != ERROR_SUCCESS) return ErrorNumber(error);
  if (const int refused = NotAFile(file.get()); refused != 0) return refused;
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.get(), &size) == 0) return ErrorNumber(GetLastError());
  size_ = static_cast<std::size_t>(size.QuadPart);
  descriptor_ = file.ToDescriptor(_O_RDONLY);
  return descriptor_ < 0 ? errno : 0;
}

int InputFile::Read(char* to, std::size_t room, std::size_t& length) {
  length = 0;
  while (length < room) {
    const auto piece = static_cast<unsigned>(std::min<std::size_t>(room - length, INT_MAX));
    const int got = _read(descriptor_, to + length, piece);
    if (got < 0) return errno;
    if (got == 0) break;
    const auto bytes = static_cast<std::size_t>(got);
    length += bytes;
    done_ += bytes;
    if (bytes < piece && done_ == size_) break;  // the end
  }
  return 0;
}

int InputFile::Rewind() {
  done_ = 0;
  return _lseeki64(descriptor_, 0, SEEK_SET) == 0 ? 0 : errno;
}

// It is written beside the target. While it has that name nobody else may open it to write or to remove it; one
// that can be removed was left by a process that was killed.
class OutputFile::Work {
 public:
  explicit Work(const char* path) : path_(path) {}
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work() {
    file_.Take(INVALID_HANDLE_VALUE);
    if (!beside_.empty()) DeleteFileW(beside_.c_str());
  }

  FileFault Open();
  FileFault Write(std::string_view content);
  FileFault Finish();

 private:
  int LookAtTarget();
  int Create();
  int TakeTarget();

  std::string path_;
  std::wstring target_;
  std::wstring beside_;  // the name beside the target, while the file has it
  Handle file_;
};

FileFault OutputFile::Work::Open() {
  if (path_.empty()) return {"cannot write", ENOENT};
  target_ = FullPath(path_);
  if (target_.empty()) return {"cannot write", EILSEQ};
  if (IsDevice(target_)) return {"cannot write", EINVAL};
  if (const int error = FollowLinks(target_); error != 0) return {"cannot follow the link", error};
  int error = LookAtTarget();
  if (error == 0) error = Create();
  return {"cannot write", error};
}

int OutputFile::Work::LookAtTarget() {
  const DWORD attributes = GetFileAttributesW(target_.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND ? 0 : ErrorNumber(error);
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? EACCES : 0;
}

// Others that replace the same target may have the first names.
int OutputFile::Work::Create() {
  constexpr int kMostNames = 1000;
  constexpr std::size_t kMostShown = 200;  // a name has at most 255 characters
  const std::size_t name = target_.rfind(L'\\') + 1;
  const std::wstring shown = target_.size() - name <= kMostShown ? target_.substr(name) : L"";
  for (int i = 0; i < kMostNames; ++i) {
    std::wstring path = target_.substr(0, name) + L'.' + shown + L".unfinished-save-" + std::to_wstring(i);
    const auto create = [&] {
      file_.Take(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_NORMAL, nullptr));
      return file_.is_open() ? ERROR_SUCCESS : GetLastError();
    };
    DWORD error = create();
    if (error == ERROR_FILE_EXISTS && DeleteFileW(path.c_str()) != 0) error = create();
    if (error == ERROR_SUCCESS) beside_ = std::move(path);
    if (error != ERROR_FILE_EXISTS) return ErrorNumber(error);
  }
  return EEXIST;
}

FileFault OutputFile::Work::Write(std::string_view content) {
  while (!content.empty()) {
    DWORD written = 0;
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(content.size(), INT_MAX));
    if (WriteFile(file_.get(), content.data(), piece, &written, nullptr) == 0)
      return {"cannot write", ErrorNumber(GetLastError())};
    content.remove_prefix(written);
  }
  return {};
}

FileFault OutputFile::Work::Finish() {
  if (FlushFileBuffers(file_.get()) == 0) return {"cannot flush", ErrorNumber(GetLastError())};
  if (const int error = TakeTarget(); error != 0) return {"cannot rename to", error};
  return {"cannot close", file_.Close() ? 0 : ErrorNumber(GetLastError())};
}

// By the open handle: a file that is closed could be taken by another save of the same target for one that was left.
// While another program has the target without sharing, the system only says that access is denied.
int OutputFile::Work::TakeTarget() {
  const std::size_t bytes = target_.size() * sizeof(wchar_t);
  std::vector<std::uint64_t> room((sizeof(FILE_RENAME_INFO) + bytes) / sizeof(std::uint64_t) + 1);
  auto* const info = new (room.data()) FILE_RENAME_INFO{};
  info->ReplaceIfExists = TRUE;
  info->FileNameLength = static_cast<DWORD>(bytes);
  std::memcpy(reinterpret_cast<char*>(info) + offsetof(FILE_RENAME_INFO, FileName), target_.c_str(), bytes);
  const auto rename = [&] {
    return SetFileInformationByHandle(file_.get(), FileRenameInfo, info,
                                      static_cast<DWORD>(sizeof(FILE_RENAME_INFO) + bytes)) != 0;
  };
  const DWORD error = Repeated(rename, ERROR_ACCESS_DENIED);
  if (error == ERROR_SUCCESS) beside_.clear();
  return ErrorNumber(error);
}

OutputFile::OutputFile(const char* path) : work_(std::make_unique<Work>(path)) {}
OutputFile::~OutputFile() = default;

FileFault OutputFile::Open() { return work_->Open(); }
FileFault OutputFile::Write(std::string_view content) { return work_->Write(content); }
FileFault OutputFile::Finish() { return work_->Finish(); }

}  // namespace platform
