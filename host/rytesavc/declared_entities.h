// The entities that a DOCTYPE declares.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace rytesavc {

class DeclaredEntities {
 public:
  // The first declaration of a name holds.
  void Add(std::string_view name, std::string_view text) { texts_.emplace(name, text); }
  // Whether all entities that the markup names are declared, and all that their texts name.
  bool Cover(std::string_view markup);

 private:
  std::map<std::string, std::string, std::less<>> texts_;  // empty after a look at what it names
};

}  // namespace rytesavc
