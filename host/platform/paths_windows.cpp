#include "platform/paths.h"

#include "platform/windows.h"

namespace platform {

namespace {

// Without access to its content: it does not matter who has it open.
bool Open(Handle& file, const std::wstring& path) {
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  if (path.empty() || IsDevice(path)) return false;
  file.Take(
      CreateFileW(path.c_str(), 0, kShared, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  return file.is_open();
}

bool AreOne(const std::wstring& left, const std::wstring& right) {
  Handle one;
  Handle other;
  BY_HANDLE_FILE_INFORMATION first{};
  BY_HANDLE_FILE_INFORMATION second{};
  return Open(one, left) && Open(other, right) && GetFileInformationByHandle(one.get(), &first) != 0 &&
         GetFileInformationByHandle(other.get(), &second) != 0 &&
         first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
         first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

bool AreEqual(std::wstring_view left, std::wstring_view right) {
  return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

std::filesystem::path ToPath(const std::string& name) { return Wide(name); }
std::string FromPath(const std::filesystem::path& path) { return Narrow(path.native()); }

Kind KindOf(const std::string& name) {
  const std::wstring path = FullPath(name);
  if (path.empty()) return Kind::kNothing;
  if (IsDevice(path)) return Kind::kStream;
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return Kind::kNothing;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Kind::kFolder : Kind::kFile;
}

std::uintmax_t SizeOf(const std::string& name) {
  Handle file;
  LARGE_INTEGER size{};
  const bool is_known = Open(file, FullPath(name)) && GetFileSizeEx(file.get(), &size) != 0;
  return is_known ? static_cast<std::uintmax_t>(size.QuadPart) : 0;
}

bool IsSameFile(const std::string& left, const std::string& right) {
  return AreOne(FullPath(left), FullPath(right));
}

bool IsSamePlace(const std::string& left, const std::string& right) {
  const std::wstring one = FullPath(left);
  const std::wstring other = FullPath(right);
  if (AreEqual(one, other) || AreOne(one, other)) return true;
  const std::size_t name = one.rfind(L'\\') + 1;
  const std::size_t other_name = other.rfind(L'\\') + 1;
  return AreEqual(std::wstring_view(one).substr(name), std::wstring_view(other).substr(other_name)) &&
         AreOne(one.substr(0, name), other.substr(0, other_name));
}

void RemoveFile(const std::string& name) { DeleteFileW(FullPath(name).c_str()); }

int FollowLinks(std::filesystem::path& path) {
  const std::wstring& name = path.native();
  const DWORD attributes = GetFileAttributesW(name.c_str());
  const bool is_link =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  Handle file;
  if (!Open(file, name)) return is_link ? ErrorNumber(GetLastError()) : 0;
  std::wstring found(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  const DWORD length = GetFinalPathNameByHandleW(file.get(), found.data(), static_cast<DWORD>(found.size()),
                                                 FILE_NAME_NORMALIZED);
  // Some file systems cannot tell it. Then what is no link has the name that it was opened by.
  if (length == 0 || length >= found.size()) return is_link ? ErrorNumber(GetLastError()) : 0;
  found.resize(length);
  path = found;
  return 0;
}

}  // namespace platform
