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

struct Held {
  Held() { VariantInit(&variant); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() { VariantClear(&variant); }

  VARIANT variant;
};

}  // namespace

const VariantValue& ValueOf(const _variant_t& variant, VariantValue& room) {
  Held value;  // what a reference leads to
  Held held;
  // The system only reads what it is given here, though it does not declare it const.
  const auto is_made = [&](VARTYPE kind) {
    return SUCCEEDED(VariantChangeTypeEx(&held.variant, &value.variant, LOCALE_INVARIANT, 0, kind));
  };
  if (FAILED(VariantCopyInd(&value.variant, const_cast<_variant_t*>(&variant)))) return room;
  switch (value.variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      break;
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
      if (is_made(VT_R8)) room = held.variant.dblVal;
      break;
    case VT_BSTR:
      room = NarrowText(value.variant.bstrVal);
      break;
    case VT_BOOL:
      room = value.variant.boolVal != VARIANT_FALSE ? 1 : 0;
      break;
    default:
      if (is_made(VT_I4)) {
        room = static_cast<int>(held.variant.lVal);
      } else if (is_made(VT_BSTR)) {
        room = NarrowText(held.variant.bstrVal);
      }
  }
  return room;
}

}  // namespace platform
