// What the sources for Windows share. Names inside the program are UTF-8.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

// Empty if the text is not UTF-8.
inline std::wstring Wide(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  const auto convert = [&](wchar_t* to, int room) {
    return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), bytes, to, room);
  };
  std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
  convert(wide.data(), static_cast<int>(wide.size()));
  return wide;
}

inline std::string Narrow(std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, text.data(), bytes, nullptr, nullptr);
  return text;
}

// The number of <cerrno> for an error of the system; 0 for none. It is in the source of errors.h.
int ErrorNumber(DWORD error);

// The path from its root on, with the head that lets it have more than 260 characters. Empty if the name is not UTF-8.
inline std::wstring FullPath(std::string_view name) {
  const std::wstring wide = Wide(name);
  std::wstring full(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  if (full.rfind(L"\\\\?\\", 0) == 0 || full.rfind(L"\\\\.\\", 0) == 0) return full;
  if (full.rfind(L"\\\\", 0) == 0) return L"\\\\?\\UNC" + full.substr(1);
  return full.empty() ? wide : L"\\\\?\\" + full;
}

// A device or a pipe, from its full path: opening it might wait.
inline bool IsDevice(std::wstring_view path) { return path.rfind(L"\\\\.\\", 0) == 0; }

// An open handle, closed in the end.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  bool is_open() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }
  void Take(HANDLE handle) {
    Close();
    handle_ = handle;
  }
  bool Close() {
    const HANDLE old = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return old == INVALID_HANDLE_VALUE || CloseHandle(old) != 0;
  }
  // Makes a descriptor of it, which owns it from then on; -1 and errno on a failure.
  int ToDescriptor(int flags) {
    const int descriptor =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(handle_), flags | _O_BINARY | _O_NOINHERIT);
    if (descriptor >= 0) handle_ = INVALID_HANDLE_VALUE;
    return descriptor;
  }

 private:
  HANDLE handle_;
};

}  // namespace platform
