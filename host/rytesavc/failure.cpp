#include "failure.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/errors.h"
#include "rytree_host/node.h"

namespace rytesavc {

namespace {

struct Failure {
  char text[512];
  TextPosition position;
};

// They need no destructor, so threads may outlive the library.
thread_local Failure failures[2]{};  // used in turns
thread_local unsigned present = 0;
Failure& last() { return failures[present]; }

thread_local RYXmlPassedOver passed_over{};

}  // namespace

void BeginRecord() {
  present ^= 1U;
  ClearFailure();
}

void ClearFailure() { NoteFailure({}); }

void NoteFailure(std::string_view text, TextPosition position) {
  Failure& failure = last();
  const std::size_t length = std::min(text.size(), sizeof failure.text - 1);
  std::copy_n(text.data(), length, failure.text);
  failure.text[length] = '\0';
  failure.position = position;
}

void NoteSystemFailure(std::string_view step, std::string_view path, int error) {
  constexpr std::size_t kShown = 320;
  std::string text(step);
  text += path.size() > kShown ? " '..." : " '";
  text += path.substr(path.size() - std::min(path.size(), kShown));
  text += "': ";
  text += platform::ErrorText(error);
  NoteFailure(text);
}

std::string LackOf(char32_t code, const CodePage& page) {
  char text[64];
  std::snprintf(text, sizeof text, "U+%04X is not in code page %d", static_cast<unsigned>(code),
                page.number());
  return text;
}

long long FailureOffset() { return last().position.offset; }
void MoveFailure(long long offset) { last().position.offset = offset; }

void NotePassedOver(const RYXmlPassedOver& what) { passed_over = what; }

}  // namespace rytesavc

RYXmlFailure RYXmlWrapperBase::LastFailure() {
  const auto& [text, position] = rytesavc::last();
  return {text, position.line, position.column, position.offset};
}

RYXmlPassedOver RYXmlWrapperBase::LastPassedOver() { return rytesavc::passed_over; }
