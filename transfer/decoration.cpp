#include "transfer/decoration.h"

#include <rytree_host/Kelp60.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "frame/text_index.h"

namespace {

constexpr std::string_view kStart = "::{";
constexpr std::size_t kShortest = 7;  // a name and a text of one letter each

/// Collects decorations by their names.
class Decorations {
 public:
  using Decoration = Undecorated::Decoration;

  void add(const Decoration& decoration) {
    Decoration* const known = find(decoration.name);
    if (known != nullptr) {
      known->text = decoration.text;
    } else {
      all_.push_back(decoration);
    }
  }
  std::vector<Decoration> take() { return std::move(all_); }

 private:
  static constexpr std::size_t kFew = 8;

  Decoration* find(std::string_view name) {
    std::size_t place = 0;
    if (all_.size() < kFew) {
      while (place < all_.size() && all_[place].name != name) ++place;
    } else {
      if (!names_) index_names();
      place = static_cast<std::size_t>(names_->add(name));
    }
    return place < all_.size() ? &all_[place] : nullptr;
  }

  void index_names() {
    names_.emplace();
    for (const Decoration& decoration : all_) names_->add(decoration.name);
  }

  std::vector<Decoration> all_;
  std::optional<TextIndex> names_;  // made when they are no longer few
};

}  // namespace

bool DecoratedValues::read_branch(const RYXmlWrapperBase& branch, bool from_data, CString& value) {
  const bool found = branch.GetPropertyValue(from_data ? data_ : use_, value) != 0;
  if (!found) value = "-1";
  return decorate(branch, value) || found;
}

void DecoratedValues::put_in_front(const RYXmlWrapperBase& node, const RYPropertyName& name, CString& value) {
  if (node.GetPropertyValue(name, text_) == 0) text_.Empty();
  std::string whole;
  whole.reserve(kStart.size() + name.view().size() + text_.View().size() + value.View().size() + 2);
  whole.append(kStart)
      .append(name.view())
      .append(1, '=')
      .append(text_.View())
      .append(1, '}')
      .append(value.View());
  value = CString(std::move(whole));
}

bool may_be_decorated(const CString& value) {
  return value.View().size() >= kShortest && value.View().find(kStart) != std::string_view::npos;
}

Undecorated take_decorations(const CString& value) {
  CString copy(value);
  char* const begin = copy.GetBuffer();
  const std::string_view view = value.View();
  const auto between = [&](const char* from, const char* to) {
    return view.substr(static_cast<std::size_t>(from - begin), static_cast<std::size_t>(to - from));
  };
  Decorations decorations;
  const char* rest = begin;
  // A search is not repeated until the walk has passed what it found, so the value is read through once.
  const char* equals = begin;
  const char* closing = begin;
  std::size_t next = view.find(kStart);
  while (next != std::string_view::npos) {
    char* const name = begin + next + kStart.size();
    next = view.find(kStart, next + kStart.size());
    int work = 0;
    if (closing < name) closing = kelp_find_closing_char(name, '}', 0, &work);
    if (closing == nullptr) break;
    if (equals < name) equals = kelp_find_char(name, '=', 1);
    if (equals == nullptr) break;
    if (equals == name || equals >= closing || equals + 1 == closing) continue;
    rest = closing + 1;
    if (next == std::string_view::npos || begin + next > equals) {
      decorations.add({between(name, equals), between(equals + 1, closing)});
    }
  }
  return {decorations.take(), between(rest, begin + view.size())};
}
