#include "platform/signals.h"

#include <atomic>
#include <cstdlib>

#include "platform/console_windows.h"
#include "platform/windows.h"

namespace platform {

namespace {

std::atomic<bool> is_one_waiting = false;
std::atomic<bool> is_let_through = false;
std::atomic<bool> is_all_written = false;
int last_status = 0;
std::array<std::wstring, 2> left_files;

// The console asks on a thread of its own. When its window is closed the program has some seconds left.
BOOL WINAPI Wait(DWORD event) {
  if (is_let_through) {
    for (const std::wstring& file : left_files) {
      if (!file.empty()) DeleteFileW(file.c_str());
    }
    return FALSE;  // which ends the program
  }
  is_one_waiting = true;
  constexpr DWORD kWait = 5000;
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(kWait);
  return TRUE;
}

}  // namespace

class HeldSignals::Work {};

HeldSignals::HeldSignals() {
  is_one_waiting = false;
  SetConsoleCtrlHandler(Wait, TRUE);
}

HeldSignals::~HeldSignals() {
  SetConsoleCtrlHandler(Wait, FALSE);
  constexpr UINT kInterrupted = 0xC000013A;
  if (!is_one_waiting) return;
  RestoreConsole();
  ExitProcess(is_all_written ? static_cast<UINT>(last_status) : kInterrupted);
}

bool HeldSignals::IsOneWaiting() const { return is_one_waiting; }

void HeldSignals::LetThrough(const std::array<std::string, 2>& files) {
  for (std::size_t i = 0; i < files.size(); ++i) left_files[i] = files[i].empty() ? L"" : FullPath(files[i]);
  is_let_through = true;
}

void HeldSignals::HoldAgain() { is_let_through = false; }

void HeldSignals::AllIsWritten(int status) {
  last_status = status;
  is_all_written = true;
}

}  // namespace platform
