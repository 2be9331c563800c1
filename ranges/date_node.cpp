// Date nodes.
#include <rytree_Utils/date_node.h>

#include "frame/node_text.h"

namespace {

constexpr int kDateId = 14;

}  // namespace

int rytree_set_date_node(RYXmlWrapperBase* node, double value) {
  if (node == nullptr) return 0;
  node->SetID(kDateId, false);
  node->SetPropertyValue("NumFormat", "D9");
  return write_number(*node, value);
}
