#include "platform/variants.h"

#include <rytree_host/variant.h>

#include "platform/windows.h"
#include "rytree_host/code_page.h"

namespace platform {

namespace {

// The text in the encoding of narrow strings; empty if that lacks one of its characters.
CString NarrowText(BSTR text) {
  std::string utf8 = Narrow({text, SysStringLen(text)});
  const CodePage* const page = CodePage::Default();
  if (page == nullptr) return CString(std::move(utf8));
  std::string narrow;
  return page->FromUtf8(utf8, narrow) == utf8.size() ? CString(std::move(narrow)) : CString();
}

}  // namespace

const VariantValue& ValueOf(const _variant_t& variant, VariantValue& room) {
  VARIANT held;
  VariantInit(&held);
  const auto is_made = [&](VARTYPE kind) {  // what is read is not changed, though it is not said so
    return SUCCEEDED(
        VariantChangeTypeEx(&held, const_cast<_variant_t*>(&variant), LOCALE_INVARIANT, 0, kind));
  };
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      break;
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
      if (is_made(VT_R8)) room = held.dblVal;
      break;
    case VT_BSTR:
      room = NarrowText(variant.bstrVal);
      break;
    default:
      if (variant.vt != VT_BOOL && is_made(VT_I4)) {
        room = static_cast<int>(held.lVal);
      } else if (variant.vt == VT_BOOL) {
        room = variant.boolVal != VARIANT_FALSE ? 1 : 0;
      } else if (is_made(VT_BSTR)) {
        room = NarrowText(held.bstrVal);
      }
  }
  VariantClear(&held);
  return room;
}

}  // namespace platform
