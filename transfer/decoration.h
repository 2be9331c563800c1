// Decorations: attributes that travel in front of a value. A decorated value is
//     { "::{" name "=" text "}" } value
#pragma once

#include <rytree_host/node.h>

#include <functional>

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
  RYPropertyName decorations_[2] = {RYPropertyName("DynaUseChck"), RYPropertyName(kAutoName)};
  CString text_;
};

/// Whether the value is long enough for a decoration and holds the start of one.
bool may_be_decorated(const CString& value);

/// Takes the decorations off: passes each that has a name and a text to `take`, first to last, also one
/// inside the text of another. The result is what follows the last.
CString take_decorations(const CString& value,
                         const std::function<void(const CString& name, const CString& text)>& take);
