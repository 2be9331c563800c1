// Why the last Save, load or SetXmlText of this thread failed.
#pragma once

#include <string_view>

namespace rytesavc {

struct TextPosition {
  int line = 0;  // line and column from 1, the offset in bytes from 0; without a text as here
  int column = 0;
  long long offset = -1;
};

void ClearFailure();
void NoteFailure(std::string_view text, TextPosition position = {});
// "step 'path': what the error number stands for". Of a long path the end is shown.
void NoteSystemFailure(std::string_view step, std::string_view path, int error);

}  // namespace rytesavc
