// The localization of texts by a module of the host that is loaded at run time.
#include "reports/localization.h"

#include <rytree_Utils/localization.h>

#include <array>
#include <atomic>
#include <mutex>

namespace {

constexpr int kBufferSize = 32768;

using LocalizeString = void(char* buffer, int size, const char* text, int option);

/// Takes the place of the entry point where that is missing.
void copy_text(char* buffer, int size, const char* text, int /*option*/) {
  rytree_host::lstrcpynA(buffer, text, size);
}

class Localization {
 public:
  Localization() = default;
  Localization(const Localization&) = delete;
  Localization& operator=(const Localization&) = delete;
  ~Localization() { release(); }

  CString localize(const char* text) {
    LocalizeString* entry = entry_.load(std::memory_order_acquire);
    if (entry == nullptr) entry = load();
    std::array<char, kBufferSize> buffer;  // each call has its own
    buffer.front() = '\0';                 // for an entry point that writes nothing
    entry(buffer.data(), kBufferSize, text, 0);
    buffer.back() = '\0';
    return buffer.data();
  }

  void release() {
    const std::lock_guard lock(loading_);
    entry_ = nullptr;
    rytree_host::FreeLibrary(module_);
    module_ = nullptr;
  }

 private:
  LocalizeString* load() {
    const std::lock_guard lock(loading_);
    if (LocalizeString* const entry = entry_) return entry;
    module_ = rytree_host::LoadLibraryA("ZANmsg.dll");
    auto* entry = reinterpret_cast<LocalizeString*>(rytree_host::GetProcAddress(module_, "LocalizeString"));
    if (entry == nullptr) {
      rytree_host::FreeLibrary(module_);
      module_ = nullptr;
      entry = copy_text;
    }
    entry_.store(entry, std::memory_order_release);
    return entry;
  }

  std::mutex loading_;
  rytree_host::HMODULE module_ = nullptr;
  std::atomic<LocalizeString*> entry_ = nullptr;  // null: not looked for yet
};

// Made by the first call; unloading the library destroys it.
Localization& localization() {
  static Localization state;
  return state;
}

}  // namespace

CString report_localized_text(const char* text) {
  return VCTreeAccessBlockLocalization(nullptr, true) ? CString(text)
                                                      : localization().localize(text != nullptr ? text : "");
}

void report_release_localization() { localization().release(); }
