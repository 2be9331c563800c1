// The harvest: the values of a tree read into parallel arrays.
#include <rytree_Utils/transfer.h>

#include "frame/aliasing.h"
#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/host_arrays.h"
#include "transfer/composite_id.h"
#include "transfer/decoration.h"
#include "transfer/records.h"

namespace {

class Harvest {
 public:
  Harvest(CArray<int, int>& ids, const _VALUESWITHIDS& record, const HarvestOptions& options)
      : ids_(ids),
        record_(record),
        columns_(columns_of(record)),
        options_(options),
        node_ids_(options.id_attribute) {}

  /// Reads what is below the node; the number of nodes read.
  int walk(const RYXmlWrapperBase& node, int repeat, bool all_branches) {
    int count = 0;
    for (Children child(node); child; ++child) {
      int id = node_ids_.plain(*child);
      int child_repeat = repeat;
      combine(*child, repeat, id, child_repeat);
      if (child->GetNodeCount() < 1) {
        if (id >= 0 && read_node(*child, id, kLeaf, false)) ++count;
        continue;
      }
      const bool one_value = is_one_value(*child);
      if (one_value) all_branches = false;
      if (id != -1 && read_node(*child, id, one_value ? kBranchOfData : kBranch, all_branches)) ++count;
      if (options_.recursive && !one_value) count += walk(*child, child_repeat, all_branches);
    }
    return count;
  }

 private:
  enum Kind { kLeaf, kBranch, kBranchOfData };

  void combine(const RYXmlWrapperBase& node, int repeat, int& id, int& child_repeat) {
    if (id == -1 && options_.error != nullptr) report_missing_id(node);
    const int code = node_ids_.combine(node, repeat, id, child_repeat);
    if (code < 0) report_conflict(code, node, id, repeat, options_.error);
  }

  void report_missing_id(const RYXmlWrapperBase& node) const {
    if (options_.id_attribute != nullptr || !options_.error->IsEmpty()) return;
    CString name;
    CString label;
    node.GetPropertyValue("Name", name);
    node.GetPropertyValue(kLabelName, label);
    options_.error->Format("Missing DataID for Node with Name = %s, Label = %s", name.GetString(),
                           label.GetString());
  }

  bool is_one_value(const RYXmlWrapperBase& branch) const {
    int theme = 0;
    branch.GetPropertyValue(theme_, theme);
    return (static_cast<unsigned>(theme) & kThemeUsesData) != 0;
  }

  /// Makes the entry of a node, if it is to have one.
  bool read_node(RYXmlWrapperBase& node, int id, Kind kind, bool all_branches) {
    const bool has_value = record_.values != nullptr && read_value(node, kind, all_branches);
    if (has_value) {
      if (record_.labels != nullptr) add_label(node);
      ids_.Add(id);
      record_.values->Add(std::move(value_));
    }
    return columns_.empty() ? has_value : read_columns(node, id, has_value);
  }

  /// Makes the entry for a node without a value too, if an attribute of a column has a text.
  bool read_columns(const RYXmlWrapperBase& node, int id, bool has_value) {
    bool has_text = false;
    for (Column& column : columns_) {
      column.read.Empty();
      if (!column.name.empty() && node.GetPropertyValue(column.name, column.read) != 0)
        has_text = has_text || !column.read.IsEmpty();
    }
    if (!has_value && !has_text) return false;
    if (!has_value) {
      ids_.Add(id);
      if (record_.values != nullptr) record_.values->Add(CString());
    }
    for (Column& column : columns_) column.values.Add(std::move(column.read));
    return true;
  }

  bool read_value(RYXmlWrapperBase& node, Kind kind, bool all_branches) {
    if (kind == kLeaf) {
      values_.read_leaf(node, value_);
    } else if (!values_.read_branch(node, kind == kBranchOfData, value_) && !all_branches) {
      return false;
    }
    return !options_.changed_only || note_change(node);
  }

  /// The change test: a value that differs from the old one becomes the old one.
  bool note_change(RYXmlWrapperBase& node) {
    CString old;
    if (node.GetPropertyValue(old_value_, old) == 0 || old == value_) return false;
    node.SetPropertyValue(old_value_, value_);
    return true;
  }

  void add_label(const RYXmlWrapperBase& node) {
    CString label;
    if (node.GetPropertyValue(label_, label) == 0) node.GetTagName(label);
    record_.labels->Add(std::move(label));
  }

  CArray<int, int>& ids_;
  const _VALUESWITHIDS& record_;
  std::vector<Column> columns_;
  const HarvestOptions& options_;
  const NodeIds node_ids_;
  const RYPropertyName theme_{kApplicabilityName};
  const RYPropertyName old_value_{"OldValue"};
  const RYPropertyName label_{kLabelName};
  DecoratedValues values_;
  CString value_;  // of the node at hand
};

}  // namespace

int _tree_get_values_with_ids(RYXmlWrapperBase& node, CArray<int, int>& ids, const _VALUESWITHIDS& record,
                              const HarvestOptions& asked) {
  const OwnText id_attribute(asked.id_attribute);
  HarvestOptions options = asked;
  options.id_attribute = id_attribute;
  options.error = unless_element(unless_element(asked.error, record.values), record.labels);
  ids.RemoveAll();
  if (record.values != nullptr) record.values->RemoveAll();
  make_room(ids, node, options.recursive);
  if (record.values != nullptr) make_room(*record.values, node, options.recursive);
  return Harvest(ids, record, options).walk(node, options.repeat, options.all_branches);
}

int vctree_get_values_with_ids(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                               int recursive, int changedOnly, int repeat, const char* idAttribute,
                               int allBranches, CString* error) {
  if (node == nullptr || node->IsValid() == 0 || ids == nullptr) return kBadArgument;
  return _tree_get_values_with_ids(*node, *ids, {.values = values},
                                   {.recursive = recursive != 0,
                                    .changed_only = changedOnly != 0,
                                    .repeat = repeat,
                                    .id_attribute = idAttribute,
                                    .all_branches = allBranches != 0,
                                    .error = error});
}

int rytree_get_values_with_ids(RYXmlWrapperBase* node, HostArrayObject* ids, HostArrayObject* values,
                               HostArrayObject* labels, int recursive, int changedOnly, int repeat,
                               const char* idAttribute, int allBranches, CString* error) {
  if (node == nullptr || node->IsValid() == 0) return kBadArgument;
  CArray<int, int>* const id_array = open_ints(ids);
  const _VALUESWITHIDS record = {.values = open_strings(values), .labels = open_strings(labels)};
  if (id_array == nullptr || record.values == nullptr) return kBadArgument;
  if (labels != nullptr && record.labels == nullptr) return kBadArgument;
  return _tree_get_values_with_ids(*node, *id_array, record,
                                   {.recursive = recursive != 0,
                                    .changed_only = changedOnly != 0,
                                    .repeat = repeat,
                                    .id_attribute = idAttribute,
                                    .all_branches = allBranches != 0,
                                    .error = error});
}
