// The localized texts of the host, from the message catalogues "rytree" of the platform's translation
// service.
#include <string>
#include <string_view>

#include "platform/catalogues.h"
#include "rytree_host/code_page.h"
#include "rytree_host/multibyte.h"

namespace {

// The localized text in the encoding of narrow strings, or the text itself where there is none.
std::string Localized(const char* text) {
  const char* const localized = platform::LocalizedText(text);
  const CodePage* const page = CodePage::Default();
  if (localized == text || page == nullptr) return localized;
  std::string in_page;
  return page->FromUtf8(localized, in_page) == std::string_view(localized).size() ? in_page : text;
}

}  // namespace

/// Fills `buffer` of `size` bytes with the localized text, or the text itself where there is none or the default
/// page lacks one of its characters: always ended with a NUL, and cut where it is too long, but never inside a
/// character. Null `text` counts as empty.
extern "C" RYTREE_EXPORT void LocalizeString(char* buffer, int size, const char* text, int /*option*/) {
  // An empty text would ask for the head of the catalogue.
  rytree_host::lstrcpynA(buffer, text && *text ? Localized(text).c_str() : "", size);
}
