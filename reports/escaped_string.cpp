// Escaped data strings.
#include <rytree_Utils/escaped_string.h>
#include <rytree_host/Kelp60.h>

#include "frame/words.h"

namespace {

constexpr const char* kMarker = "?$OP:";
constexpr int kMarkerLength = 5;

CString kind_text(char kind, int option) {
  CString text(kind != '\0' ? kind : 'A', 1);
  if (option <= 0) return text;
  if ((option & 0xFFFF) == 1) text += " G";
  if ((option & 0xFFFF) == 2) text = text + " (" + kelp_number_to_text(option >> 16) + ")";
  return text;
}

}  // namespace

void report_get_escaped_data_string(CString* out, int number, int dot, char kind, char suffix, int option,
                                    char type, int suffixNumber) {
  if (out == nullptr) return;
  const CString kind_part = kind_text(kind, option);
  if (type != '\0') {
    out->Format("%s%s=%c%d", kMarker, kind_part.GetString(), type, number);
  } else if (dot != 0) {
    out->Format("%s%s=.%d", kMarker, kind_part.GetString(), number);
  } else {
    out->Format("%s%s=%d", kMarker, kind_part.GetString(), number);
  }
  if (suffix == '\0') return;
  *out += suffix;
  if (suffixNumber > 0) *out += kelp_number_to_text(suffixNumber);
}

int report_get_set_data_string(CString* out, int index) {
  report_get_escaped_data_string(out, one_more(index), /*dot=*/0, 'F', 'Y', /*option=*/0, /*type=*/'\0',
                                 /*suffixNumber=*/0);
  return 1;
}

int report_set_escaped_data_string_type(CString* text, char type) {
  if (text == nullptr || text->Find(kMarker) < 0 || text->GetLength() <= kMarkerLength) return 0;
  text->SetAt(kMarkerLength, type);
  return 1;
}
