#include "system/process.h"

#include <cstdlib>

#include "host/platform/windows.h"

namespace {

// As a program takes its command line apart: in quotes, with a backslash before each quote and each backslash before it.
std::wstring quoted(const std::string& word) {
  std::wstring all = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : platform::Wide(word)) {
    if (c == L'"') all.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    all += c;
  }
  return all.append(backslashes, L'\\') + L'"';
}

// A file that the started program takes over.
HANDLE opened(const std::string& file, DWORD stream) {
  if (file.empty()) return GetStdHandle(stream);
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  const bool reads = stream == STD_INPUT_HANDLE;
  return CreateFileW(platform::FullPath(file).c_str(), reads ? GENERIC_READ : GENERIC_WRITE, FILE_SHARE_READ,
                     &inherited, reads ? OPEN_EXISTING : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

void set_environment(const std::string& name, const std::string& value) {
  _putenv_s(name.c_str(), value.c_str());
}

double processor_seconds() {
  constexpr double kTick = 1e-7;
  FILETIME start{}, end{}, in_system{}, in_program{};
  GetProcessTimes(GetCurrentProcess(), &start, &end, &in_system, &in_program);
  const auto ticks = [](const FILETIME& time) {
    return static_cast<double>(time.dwHighDateTime) * 0x1p32 + time.dwLowDateTime;
  };
  return kTick * (ticks(in_system) + ticks(in_program));
}

int run_program(const Start& start) {
  std::wstring line = quoted(start.program);
  for (const std::string& word : start.words) line += L' ' + quoted(word);
  STARTUPINFOW info{};
  info.cb = sizeof info;
  info.dwFlags = STARTF_USESTDHANDLES;
  info.hStdInput = opened(start.in, STD_INPUT_HANDLE);
  info.hStdOutput = opened(start.out, STD_OUTPUT_HANDLE);
  info.hStdError = opened(start.err, STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  DWORD status = DWORD(-1);
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                     platform::Wide(start.folder).c_str(), &info, &process) != 0) {
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
  }
  if (!start.in.empty()) CloseHandle(info.hStdInput);
  if (!start.out.empty()) CloseHandle(info.hStdOutput);
  if (!start.err.empty()) CloseHandle(info.hStdError);
  return static_cast<int>(status);
}
