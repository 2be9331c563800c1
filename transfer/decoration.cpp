#include "transfer/decoration.h"

#include <rytree_host/Kelp60.h>

#include <string>
#include <string_view>

namespace {

constexpr std::string_view kStart = "::{";
constexpr std::size_t kShortest = 7;  // a name and a text of one letter each

CString between(const char* begin, const char* end) {
  return CString(std::string_view(begin, static_cast<std::size_t>(end - begin)));
}

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

CString take_decorations(const CString& value,
                         const std::function<void(const CString&, const CString&)>& take) {
  CString copy(value);
  char* const begin = copy.GetBuffer();
  char* rest = begin;
  // A search is not repeated until the walk has passed what it found, so the value is read through once.
  char* equals = begin;
  char* closing = begin;
  const std::string_view view = value.View();
  for (std::size_t at = view.find(kStart); at != std::string_view::npos;
       at = view.find(kStart, at + kStart.size())) {
    char* const name = begin + at + kStart.size();
    int work = 0;
    if (closing < name) closing = kelp_find_closing_char(name, '}', 0, &work);
    if (closing == nullptr) break;
    if (equals < name) equals = kelp_find_char(name, '=', 1);
    if (equals == nullptr) break;
    if (equals == name || equals >= closing || equals + 1 == closing) continue;
    take(between(name, equals), between(equals + 1, closing));
    rest = closing + 1;
  }
  return between(rest, begin + view.size());
}
