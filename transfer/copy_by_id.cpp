// Copying values and attributes between trees by ID: a harvest of the one, an apply to the other.
#include <rytree_Utils/transfer.h>

#include <utility>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/id_index.h"
#include "transfer/records.h"

namespace {

void drop_empty_values(CArray<int, int>& ids, CStringArray& values) {
  int kept = 0;
  for (int at = 0; at < values.GetSize(); ++at) {
    if (values[at].IsEmpty()) continue;
    if (kept != at) {
      ids[kept] = ids[at];
      values[kept] = std::move(values[at]);
    }
    ++kept;
  }
  ids.SetSize(kept);
  values.SetSize(kept);
}

/// Harvests the source and applies the values to the destination.
int copy_values(RYXmlWrapperBase& source, RYXmlWrapperBase& destination, const HarvestOptions& reading,
                ApplyOptions writing, bool drop_empty) {
  CArray<int, int> ids;
  CStringArray values;
  const _VALUESWITHIDS record = {.values = &values};
  if (_tree_get_values_with_ids(source, ids, record, reading) < 1) return 0;
  if (writing.hook != nullptr) writing.hook->active = 0;
  if (drop_empty) drop_empty_values(ids, values);
  int duplicate = 0;
  writing.duplicate = &duplicate;
  const int result = _tree_set_values_by_ids(destination, ids, record, writing);
  return duplicate > 0 ? -duplicate : result;
}

/// The node IDs and DataIDs of the nodes below one.
CArray<int, int> known_ids(const RYXmlWrapperBase& node) {
  CArray<int, int> ids;
  const RYPropertyName data_id(kDataIdName);
  for (NodesBelow at(node); at; ++at) {
    int id = 0;
    if (at->GetID(id) != 0) ids.Add(id);
    if (at->GetPropertyValue(data_id, id) != 0) ids.Add(id);
  }
  return ids;
}

/// Makes the nodes that the destination lacks.
class MissingNodes {
 public:
  explicit MissingNodes(RYXmlWrapperBase& destination)
      : destination_(destination), known_(known_ids(destination)) {}

  void make_for(const RYXmlWrapperBase& source) {
    int id = 0;
    if (source.GetPropertyValue(data_id_, id) != 0 && known_.find(id) < 0 && made_.find(id) < 0) {
      make_one(source, id);
    }
  }

 private:
  void make_one(const RYXmlWrapperBase& source, int id) {
    CString tag;
    CString label;
    source.GetTagName(tag);
    source.GetPropertyValue(label_, label);
    RYXmlWrapperBase made;
    if (destination_.AddNode(made, tag, -1) == 0) return;
    made.SetPropertyValue(label_, label);
    made.SetDataID(id);
    made_.add(id, 0);
  }

  RYXmlWrapperBase& destination_;
  const RYPropertyName data_id_{kDataIdName};
  const RYPropertyName label_{kLabelName};
  const IdIndex known_;
  IdIndex made_;
};

}  // namespace

int vctree_copy_values_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination, int storeArgument,
                             const char* sourceIdAttribute, const char* destinationIdAttribute,
                             int allBranches, _SETVALUESBYIDS* hook, int keepBit18Off, int dropEmpty) {
  if (source == nullptr || destination == nullptr) return kBadArgument;
  return copy_values(*source, *destination,
                     {.id_attribute = sourceIdAttribute, .all_branches = allBranches != 0},
                     {.store_argument = storeArgument,
                      .id_attribute = destinationIdAttribute,
                      .hook = hook,
                      .keep_bit_18_off = keepBit18Off != 0},
                     dropEmpty != 0);
}

int rytree_copy_values_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination, int storeArgument,
                             const char* sourceIdAttribute, const char* destinationIdAttribute,
                             int allBranches, int keepBit18Off, int dropEmpty) {
  return vctree_copy_values_by_id(source, destination, storeArgument, sourceIdAttribute,
                                  destinationIdAttribute, allBranches, nullptr, keepBit18Off, dropEmpty);
}

int rytree_whole_copy_values_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination) {
  if (source == nullptr || destination == nullptr) return kBadArgument;
  MissingNodes missing(*destination);
  for (NodesOf at(*source); at; ++at) missing.make_for(*at);
  return copy_values(*source, *destination, {}, {}, false);
}

int rytree_copy_atts_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination, const char* attribute1,
                           const char* sourceIdAttribute, const char* destinationIdAttribute,
                           const char* attribute2, int rename) {
  if (source == nullptr || destination == nullptr) return 0;
  CArray<int, int> ids;
  CStringArray first;
  CStringArray second;
  _VALUESWITHIDS record = {.attributeName1 = attribute1, .attributeValues1 = &first};
  if (rename == 0) {
    record.attributeName2 = attribute2;
    record.attributeValues2 = &second;
  }
  if (_tree_get_values_with_ids(*source, ids, record, {.id_attribute = sourceIdAttribute}) < 1) return 0;
  if (rename != 0) record.attributeName1 = attribute2;
  int duplicate = 0;
  _tree_set_values_by_ids(*destination, ids, record,
                          {.duplicate = &duplicate, .id_attribute = destinationIdAttribute});
  return duplicate > 0 ? -duplicate : 0;
}
