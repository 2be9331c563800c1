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

#include "platform/paths.h"
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

// What describes who may do what with the file, which is empty where the file system has no such thing. An error of the
// system.
DWORD ReadAccess(const std::wstring& path, std::vector<char>& access) {
  DWORD size = 0;
  GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  access.resize(size);
  if (GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, access.data(), size, &size) != 0) return 0;
  access.clear();
  const DWORD error = GetLastError();
  return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION ? ERROR_SUCCESS : error;
}

// Sets it as it was, with what the file once got from another folder.
void SetAccess(const std::wstring& path, std::vector<char>& access) {
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (access.empty() || GetSecurityDescriptorControl(access.data(), &control, &revision) == 0) return;
  if ((control & SE_DACL_AUTO_INHERITED) != 0)
    SetSecurityDescriptorControl(access.data(), SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
  SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, access.data());
}

// False for a name that nothing has. One whose file is being deleted is not free yet.
bool IsTaken(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES ||
         GetLastError() != ERROR_FILE_NOT_FOUND;
}

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

// It is written beside the target. While it has that name nobody else may open it to write or to remove it, and the
// system deletes it when the process ends; one that can be removed is left from a crash of the system.
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
  // These give an error number, 0 for success.
  int LookAtTarget();
  int CreateBeside();
  int TakeTarget();

  DWORD Create(const std::wstring& path);
  void DeleteAtEnd(bool deletes) const;

  std::string path_;
  std::wstring target_;
  std::wstring beside_;       // the name beside the target, while the file has it
  FILE_BASIC_INFO kept_{};    // of the old file; zeros if there is none
  std::vector<char> access_;  // the same
  Handle file_;
};

FileFault OutputFile::Work::Open() {
  if (path_.empty()) return {"cannot write", ENOENT};
  std::filesystem::path target = FullPath(path_);
  if (target.empty()) return {"cannot write", EILSEQ};
  if (IsDevice(target.native())) return {"cannot write", EINVAL};
  if (const int error = FollowLinks(target); error != 0) return {"cannot follow the link", error};
  target_ = target.native();
  int error = LookAtTarget();
  if (error == 0) error = CreateBeside();
  return {"cannot write", error};
}

int OutputFile::Work::LookAtTarget() {
  WIN32_FILE_ATTRIBUTE_DATA old{};
  if (GetFileAttributesExW(target_.c_str(), GetFileExInfoStandard, &old) == 0) {
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND ? 0 : ErrorNumber(error);
  }
  if ((old.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
  if ((old.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) return EACCES;
  // That it is held does not matter before it is replaced.
  Handle writable(CreateFileW(target_.c_str(), FILE_WRITE_DATA, kShared, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!writable.is_open() && GetLastError() == ERROR_ACCESS_DENIED) return EACCES;
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED |
                          FILE_ATTRIBUTE_ENCRYPTED;
  kept_.FileAttributes = FILE_ATTRIBUTE_ARCHIVE | (old.dwFileAttributes & kKept);
  kept_.CreationTime.LowPart = old.ftCreationTime.dwLowDateTime;
  kept_.CreationTime.HighPart = static_cast<LONG>(old.ftCreationTime.dwHighDateTime);
  return ErrorNumber(ReadAccess(target_, access_));
}

// Nobody may read the new file, at any time, who may not read the old one.
DWORD OutputFile::Work::Create(const std::wstring& path) {
  SECURITY_ATTRIBUTES access{sizeof(SECURITY_ATTRIBUTES), access_.empty() ? nullptr : access_.data(), FALSE};
  const DWORD attributes = FILE_ATTRIBUTE_ARCHIVE | (kept_.FileAttributes & FILE_ATTRIBUTE_ENCRYPTED);
  file_.Take(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, &access, CREATE_NEW,
                         attributes, nullptr));
  return file_.is_open() ? ERROR_SUCCESS : GetLastError();
}

// Others that replace the same target may have the first names.
int OutputFile::Work::CreateBeside() {
  constexpr int kMostNames = 1000;
  constexpr std::size_t kMostShown = 200;  // a name has at most 255 characters
  const std::size_t name = target_.rfind(L'\\') + 1;
  const std::wstring shown = target_.size() - name <= kMostShown ? target_.substr(name) : L"";
  DWORD error = ERROR_FILE_EXISTS;
  for (int i = 0; i < kMostNames; ++i) {
    std::wstring path = target_.substr(0, name) + L'.' + shown + L".unfinished-save-" + std::to_wstring(i);
    error = Create(path);
    const bool is_removed = error == ERROR_FILE_EXISTS && DeleteFileW(path.c_str()) != 0;
    const bool is_free_now = error == ERROR_ACCESS_DENIED && !IsTaken(path);
    if (is_removed || is_free_now) error = Create(path);
    if (error == ERROR_SUCCESS) {
      SetAccess(path, access_);
      if (kept_.FileAttributes != 0)
        SetFileInformationByHandle(file_.get(), FileBasicInfo, &kept_, sizeof kept_);
      DeleteAtEnd(true);
      beside_ = std::move(path);
      return 0;
    }
    if (error != ERROR_FILE_EXISTS && (error != ERROR_ACCESS_DENIED || !IsTaken(path))) break;
  }
  return ErrorNumber(error);
}

void OutputFile::Work::DeleteAtEnd(bool deletes) const {
  FILE_DISPOSITION_INFO info{deletes};
  SetFileInformationByHandle(file_.get(), FileDispositionInfo, &info, sizeof info);
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
  DeleteAtEnd(false);
  const DWORD error = Repeated(rename, ERROR_ACCESS_DENIED);
  if (error == ERROR_SUCCESS) beside_.clear();
  return ErrorNumber(error);
}

OutputFile::OutputFile(const char* path) : work_(std::make_unique<Work>(path)) {}
OutputFile::~OutputFile() = default;

FileFault OutputFile::Open() { return work_->Open(); }
FileFault OutputFile::Write(std::string_view content) { return work_->Write(content); }
FileFault OutputFile::Finish() { return work_->Finish(); }
std::string OutputFile::Unfinished() const { return {}; }

}  // namespace platform
