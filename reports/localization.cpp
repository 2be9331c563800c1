// The localization of texts by a module of the host that is loaded at run time.
#include "reports/localization.h"

#include <rytree_Utils/localization.h>
#include <rytree_host/framework.h>

#include <array>

namespace {

constexpr int kBufferSize = 32768;

class Localization {
 public:
  Localization() = default;
  Localization(const Localization&) = delete;
  Localization& operator=(const Localization&) = delete;
  ~Localization() { release(); }

  const char* localize(const char* text) {
    if (is_there()) {
      localize_string_(buffer_.data(), kBufferSize, text, 0);
      buffer_.back() = '\0';
    } else {
      lstrcpynA(buffer_.data(), text, kBufferSize);
    }
    return buffer_.data();
  }

  void release() {
    FreeLibrary(module_);
    module_ = nullptr;
    localize_string_ = nullptr;
    failed_ = false;
  }

 private:
  using LocalizeString = void(char* buffer, int size, const char* text, int option);

  bool is_there() {
    if (localize_string_ == nullptr && !failed_) load();
    return localize_string_ != nullptr;
  }

  void load() {
    module_ = LoadLibraryA("ZANmsg.dll");
    localize_string_ = reinterpret_cast<LocalizeString*>(GetProcAddress(module_, "LocalizeString"));
    if (localize_string_ != nullptr) return;
    release();
    failed_ = true;
  }

  HMODULE module_ = nullptr;
  LocalizeString* localize_string_ = nullptr;
  bool failed_ = false;
  std::array<char, kBufferSize> buffer_{};
};

// Made by the first call; unloading the library destroys it.
Localization& localization() {
  static Localization state;
  return state;
}

}  // namespace

const char* report_localized_text(const char* text) {
  Localization& state = localization();
  return VCTreeAccessBlockLocalization(nullptr, true) ? text : state.localize(text != nullptr ? text : "");
}

void report_release_localization() { localization().release(); }
