#include "declared_entities.h"

#include <algorithm>
#include <array>
#include <utility>

namespace rytesavc {

bool DeclaredEntities::Cover(std::string_view markup) {
  constexpr std::array<std::string_view, 5> kPredefined = {"amp", "lt", "gt", "quot", "apos"};
  for (std::size_t at = 0; (at = markup.find('&', at)) != markup.npos;) {
    const std::string_view name = markup.substr(at + 1, markup.find(';', at) - at - 1);
    at += 1 + name.size();
    if (name.starts_with('#') || std::find(kPredefined.begin(), kPredefined.end(), name) != kPredefined.end())
      continue;
    const auto found = texts_.find(name);
    if (found == texts_.end() || !Cover(std::exchange(found->second, {}))) return false;
  }
  return true;
}

}  // namespace rytesavc
