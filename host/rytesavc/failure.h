// What this thread's last call left to be asked for: why a Save, load, GetXmlText or SetXmlText failed, and
// what the text of a load or SetXmlText held that is in no tree.
#pragma once

#include <string>
#include <string_view>

#include "rytree_host/code_page.h"
#include "rytree_host/node.h"

namespace rytesavc {

struct TextPosition {
  int line = 0;  // line and column from 1, the offset in bytes from 0; without a text as here
  int column = 0;
  long long offset = -1;
};

// To be called first by an operation: gives it an empty record. The one before stays readable while it runs,
// since its text may be an argument.
void BeginRecord();
void ClearFailure();
void NoteFailure(std::string_view text, TextPosition position = {});
// "step 'path': what the error number stands for". Of a long path the end is shown.
void NoteSystemFailure(std::string_view step, std::string_view path, int error);

// "U+03C0 is not in code page 1252".
std::string LackOf(char32_t code, const CodePage& page);

// The offset of the failure, which is moved where another form of the text was read than the one that was
// given.
long long FailureOffset();
void MoveFailure(long long offset);

void NotePassedOver(const RYXmlPassedOver& what);

}  // namespace rytesavc
