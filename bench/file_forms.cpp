#include "file_forms.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kLonger = "OfTheSettingsOfThisGraph";

bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

class Rewriter {
 public:
  Rewriter(std::string_view xml, FileForm form) : rest_(xml), form_(form) { made_.reserve(2 * xml.size()); }

  std::string rewrite() {
    take(rest_.find("?>") + 2);
    while (!rest_.empty()) {
      put_text(rest_.substr(0, rest_.find('<')));
      if (!rest_.empty()) put_tag();
    }
    return std::move(made_);
  }

 private:
  void take(std::size_t length) {
    made_ += rest_.substr(0, length);
    rest_.remove_prefix(length);
  }

  void put_tag() {
    const bool closing = rest_[1] == '/';
    take(closing ? 2 : 1);
    take(std::min(rest_.find(' '), rest_.find('>')));
    if (form_ == FileForm::kLongNames) made_ += kLonger;
    if (form_ == FileForm::kOwnTags) put_number(closing);
    while (rest_[0] != '>') put_attribute();
    take(1);
  }

  // The number of the element, which its end tag has too.
  void put_number(bool closing) {
    if (!closing) open_.push_back(++elements_);
    made_ += std::to_string(open_.back());
    if (closing) open_.pop_back();
  }

  void put_attribute() {
    const bool id = rest_.starts_with(" DataID=");
    take(rest_.find('='));
    if (form_ == FileForm::kLongNames && !id) made_ += kLonger;
    take(2);
    put_text(rest_.substr(0, rest_.find('"')));
    take(1);
  }

  void put_text(std::string_view text) {
    rest_.remove_prefix(text.size());
    while (!text.empty()) {
      const std::size_t length = text[0] == '&' ? text.find(';') + 1 : 1;
      length == 1 ? put_character(text[0]) : static_cast<void>(made_ += text.substr(0, length));
      text.remove_prefix(length);
    }
  }

  void put_character(char c) {
    if (form_ == FileForm::kCrLf && c == '\n') made_ += '\r';
    if (form_ == FileForm::kCyrillic && is_letter(c)) {
      made_ += '\xD0';
      made_ += static_cast<char>(0x90 + (c & 0x1F));
    } else if (form_ == FileForm::kReferences && c == 'a') {
      made_ += "&#228;";
    } else if (form_ == FileForm::kReferences && c == 'e') {
      made_ += "&#xEB;";
    } else if (form_ == FileForm::kReferences && c == ' ') {
      made_ += "&quot;";
    } else {
      made_ += c;
    }
  }

  std::string_view rest_;
  FileForm form_;
  std::string made_;
  std::vector<int> open_;
  int elements_ = 0;
};

}  // namespace

std::string in_form(const std::string& xml, FileForm form) {
  std::string made = Rewriter(xml, form).rewrite();
  if (form == FileForm::kCut) made.erase(made.rfind('<'));
  return made;
}
