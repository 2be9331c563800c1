// Decorations: attributes that travel in front of a value. A decorated value is
//     { "::{" name "=" text "}" } value
#pragma once

#include <rytree_host/node.h>

#include <string_view>
#include <vector>

#include "frame/attributes.h"

/// Reads the decorated values of the nodes of one walk.
class DecoratedValues {
 public:
  /// The text of a leaf with its decorations.
  void read_leaf(const RYXmlWrapperBase& leaf, CString& value) {
    if (leaf.GetNodeStringWithBlobInfo(value, 0) == 0) value.Empty();
    decorate(leaf, value);
  }
  /// The value attribute of a branch, "Data" or "Use", with its decorations; "-1" if that attribute is
  /// missing. True if the attribute or a decoration was there.
  bool read_branch(const RYXmlWrapperBase& branch, bool from_data, CString& value);

 private:
  bool decorate(const RYXmlWrapperBase& node, CString& value) {
    bool decorated = false;
    for (const RYPropertyName& name : decorations_) {
      if (node.HasProperty(name) == 0) continue;
      put_in_front(node, name, value);
      decorated = true;
    }
    return decorated;
  }
  void put_in_front(const RYXmlWrapperBase& node, const RYPropertyName& name, CString& value);

  RYPropertyName use_{kUseName};
  RYPropertyName data_{kDataName};
  RYPropertyName decorations_[2] = {RYPropertyName(kDynamicCheckName), RYPropertyName(kAutoName)};
  CString text_;
};

/// Whether the value is long enough for a decoration and holds the start of one.
bool may_be_decorated(const CString& value);

/// A value taken apart, in views of it.
struct Undecorated {
  struct Decoration {
    std::string_view name;
    std::string_view text;
  };
  std::vector<Decoration> decorations;
  std::string_view value;
};

/// Takes the decorations off. Each that has a name and a text counts, also one inside the text of another. A
/// name comes once, at its first place and with its last text. Left out are names that hold the start of a
/// decoration: no attribute has such a name.
Undecorated take_decorations(const CString& value);
