// Copying single attributes from node to node.
#include <rytree_Utils/homologous.h>

#include "frame/attributes.h"
#include "frame/children.h"

namespace {

/// One attribute, from node to node.
struct AttributeCopy {
  const RYPropertyName from;
  const RYPropertyName to;
  CString text{};

  int copy(const RYXmlWrapperBase& source, RYXmlWrapperBase& dest) {
    if (source.GetPropertyValue(from, text) == 0) return 0;
    dest.SetPropertyValue(to, text);
    return 1;
  }
  int copy_below(const RYXmlWrapperBase& source, const RYXmlWrapperBase& dest) {
    int copied = 0;
    Children child(dest);
    for (Children source_child(source); source_child && child; ++source_child, ++child) {
      copied += copy(*source_child, *child);
      copied += copy_below(*source_child, *child);
    }
    return copied;
  }
};

AttributeCopy copy_of(const char* attribute) {
  return {.from = RYPropertyName(attribute), .to = RYPropertyName(attribute)};
}

}  // namespace

int vctree_copy_branch_options(RYXmlWrapperBase* dest, RYXmlWrapperBase* source, unsigned long mask) {
  int options = 0;
  if (dest == nullptr || source == nullptr || source->GetPropertyValue(kBranchName, options) == 0) return 0;
  return dest->SetPropertyValue(kBranchName, static_cast<int>(static_cast<DWORD>(options) & mask));
}

int rytree_node_copy_attribute(RYXmlWrapperBase* source, RYXmlWrapperBase* dest, const char* attribute) {
  return source != nullptr && dest != nullptr ? copy_of(attribute).copy(*source, *dest) : 0;
}

int rytree_copy_atts(RYXmlWrapperBase* source, RYXmlWrapperBase* dest, const char* attribute, int skipTop) {
  if (source == nullptr || dest == nullptr) return 0;
  AttributeCopy copying = copy_of(attribute);
  const int top = skipTop == 0 ? copying.copy(*source, *dest) : 0;
  return top + copying.copy_below(*source, *dest);
}
