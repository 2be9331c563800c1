#include "platform/streams.h"

#include <array>

#include "platform/windows.h"

namespace platform {

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

int Open(const std::string& name, DWORD access, int flags) {
  const std::wstring path = FullPath(name);
  Handle file(CreateFileW(path.c_str(), access, kShared, nullptr, OPEN_EXISTING, 0, nullptr));
  if (file.is_open()) return file.ToDescriptor(flags);
  errno = ErrorNumber(GetLastError());
  return -1;
}

}  // namespace

int OpenToRead(const std::string& name) { return Open(name, GENERIC_READ, _O_RDONLY); }
int OpenToWrite(const std::string& name) { return Open(name, GENERIC_WRITE, _O_WRONLY); }
int Duplicate(int descriptor) {
  const std::intptr_t original = _get_osfhandle(descriptor);
  if (original < 0) {  // there is no such stream
    errno = EBADF;
    return -1;
  }
  HANDLE const process = GetCurrentProcess();
  HANDLE copy = INVALID_HANDLE_VALUE;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system gives it as a number
  if (DuplicateHandle(process, reinterpret_cast<HANDLE>(original), process, &copy, 0, FALSE,
                      DUPLICATE_SAME_ACCESS) == 0) {
    errno = ErrorNumber(GetLastError());
    return -1;
  }
  return Handle(copy).ToDescriptor(_O_RDWR);
}
void Close(int descriptor) {
  if (descriptor >= 0) _close(descriptor);
}

int CopyAll(int from, int to) {
  std::array<char, 1U << 16U> bytes{};
  for (;;) {
    const int got = _read(from, bytes.data(), bytes.size());
    if (got <= 0) return got == 0 ? 0 : errno;
    for (int done = 0; done < got;) {
      const int written = _write(to, bytes.data() + done, static_cast<unsigned>(got - done));
      if (written < 0) return errno;
      done += written;
    }
  }
}

int DescriptorOf(const std::string& name) {
  if (name == "/dev/stdin") return kStandardInput;
  if (name == "/dev/stdout") return kStandardOutput;
  return name == "/dev/stderr" ? kStandardError : -1;
}

PassingFile::PassingFile() : path_(MakeTemporaryFile()) {
  if (path_.empty()) return;
  Handle file(CreateFileW(FullPath(path_).c_str(), GENERIC_WRITE | DELETE, kShared, nullptr, OPEN_EXISTING,
                          FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  if (file.is_open()) {
    descriptor_ = file.ToDescriptor(_O_WRONLY);
  } else {
    errno = ErrorNumber(GetLastError());
  }
}

std::string MakeTemporaryFile() {
  std::array<wchar_t, MAX_PATH + 1> folder{};
  std::array<wchar_t, MAX_PATH + 1> file{};
  if (GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()) != 0 &&
      GetTempFileNameW(folder.data(), L"ryt", 0, file.data()) != 0)
    return Narrow(file.data());
  errno = ErrorNumber(GetLastError());
  return {};
}

int ProgramNumber() { return static_cast<int>(GetCurrentProcessId()); }

}  // namespace platform
