// Setting an attribute on the nodes that a list of IDs names.
#include <rytree_Utils/bulk.h>
#include <rytree_host/Kelp60.h>

#include "frame/host_arrays.h"
#include "transfer/attribute_matching.h"

bool VCTreeSetAttributes(RYXmlWrapperBase* tree, const CArray<int, int>* ids, const char* value,
                         const char* attribute, const char* matchAttribute, bool recursive) {
  if (tree == nullptr || ids == nullptr) return false;
  const MatchRule rule = match_rule(attribute, matchAttribute, nullptr, recursive, true, false);
  MatchTarget target(*tree, rule);
  MatchTexts texts = {.written = {.value = CString(value)}};
  int result = 0;
  for (const int id : *ids) {
    texts.match = kelp_number_to_text(id);
    result = target.write(texts);
  }
  target.finish();
  return result != 0;
}

bool rytree_set_attributes(RYXmlWrapperBase* tree, HostArrayObject* ids, const char* value,
                           const char* attribute, const char* matchAttribute, bool recursive) {
  return VCTreeSetAttributes(tree, open_ints(ids), value, attribute, matchAttribute, recursive);
}
