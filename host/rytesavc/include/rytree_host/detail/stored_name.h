// The names that callers give, as trees hold them.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "rytree_host/code_page.h"

namespace rytesavc {

// A name given in the default page, in UTF-8; empty, which no name is, if it cannot be converted.
class StoredName {
 public:
  explicit StoredName(std::string_view name) : view_(name) {
    if (const CodePage* const page = CodePage::Default()) Convert(*page);
  }
  StoredName(const StoredName&) = delete;
  StoredName& operator=(const StoredName&) = delete;

  std::string_view view() const { return view_; }

 private:
  void Convert(const CodePage& page) {
    if (std::all_of(view_.begin(), view_.end(), [](char c) { return static_cast<signed char>(c) >= 0; }))
      return;
    const bool whole = page.ToUtf8(view_, converted_) == view_.size();
    view_ = whole ? converted_ : std::string_view();
  }

  std::string converted_;
  std::string_view view_;
};

}  // namespace rytesavc
