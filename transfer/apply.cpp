// The apply: parallel arrays written into the nodes of a tree that have their IDs.
#include <rytree_Utils/auto_support.h>
#include <rytree_Utils/transfer.h>

#include <optional>
#include <string_view>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/host_arrays.h"
#include "frame/id_index.h"
#include "transfer/composite_id.h"
#include "transfer/decoration.h"
#include "transfer/records.h"

namespace {

constexpr unsigned kStoredAsBranch = 0x200000;  // bit of a composed ID

/// Whether the text holds a tag other than "<autoX>".
bool holds_a_tag(std::string_view text) {
  for (;;) {
    const std::size_t open = text.find('<');
    if (open == std::string_view::npos) return false;
    const std::size_t close = text.find('>', open);
    if (close == std::string_view::npos || close == open + 1) return false;
    if (text.substr(open, close + 1 - open) != "<autoX>") return true;
    text.remove_prefix(close + 1);
  }
}

/// Keeps the hook active while the walk is at the node that activates it or below that node.
class HookActivation {
 public:
  HookActivation(_SETVALUESBYIDS* hook, int id)
      : hook_(hook != nullptr && hook->active == 0 && hook->dataId == id ? hook : nullptr) {
    if (hook_ != nullptr) hook_->active = 1;
  }
  HookActivation(const HookActivation&) = delete;
  HookActivation& operator=(const HookActivation&) = delete;
  ~HookActivation() {
    if (hook_ != nullptr) hook_->active = 0;
  }

 private:
  _SETVALUESBYIDS* const hook_;
};

/// Shows a value to the hook, which may change it.
void call_hook(_SETVALUESBYIDS& hook, CString& value) {
  struct Showing {
    Showing(_SETVALUESBYIDS& shown_to, CString& shown) : hook(shown_to) { hook.value = &shown; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
    ~Showing() { hook.value = nullptr; }
    _SETVALUESBYIDS& hook;
  } const showing(hook, value);
  if (hook.callback != nullptr) hook.callback(&hook);
}

class Apply {
 public:
  Apply(const IdIndex& index, const _VALUESWITHIDS& record, const ApplyOptions& options)
      : index_(index),
        values_(record.values),
        columns_(columns_of(record)),
        options_(options),
        asks_for_tag_(options.keep_bit_18_off ? 0 : kThemeNeedsTag),
        node_ids_(options.id_attribute) {}

  /// Writes what is below the node; the number of nodes matched or a code.
  int walk(const RYXmlWrapperBase& node, int theme, int repeat) {
    int count = 0;
    for (Children child(node); child; ++child) {
      int id = node_ids_.plain(*child);
      const HookActivation activation(options_.hook, id);
      int child_repeat = repeat;
      const int code = node_ids_.combine(*child, repeat, id, child_repeat);
      if (code < 0) {
        report_conflict(code, *child, id, repeat, options_.error);
        return kIdConflict;
      }
      int child_theme = theme;
      child->GetPropertyValue(theme_, child_theme);
      const bool branch = child->GetNodeCount() > 0;
      if (id >= 0 && write(*child, id, branch, static_cast<unsigned>(child_theme))) ++count;
      if (!branch) continue;
      const int below = walk(*child, child_theme, child_repeat);
      if (below < 0) return below;
      count += below;
    }
    return count;
  }

 private:
  bool write(RYXmlWrapperBase& node, int id, bool branch, unsigned theme) {
    const int place = index_.find(id);
    if (place < 0) return false;
    if (values_ != nullptr) {
      const bool as_branch = branch || (static_cast<unsigned>(id) & kStoredAsBranch) != 0;
      store(node, values_->GetAt(place), as_branch, theme);
    }
    for (const Column& column : columns_) {
      const CString& text = column.values.GetAt(place);
      if (text.IsEmpty()) {
        node.RemoveProperty(column.name);
      } else {
        node.SetPropertyValue(column.name, text);
      }
    }
    return true;
  }

  struct Written {
    bool automatic = false;
    bool dynamic = false;
  };
  static Written write_attributes(RYXmlWrapperBase& node, const Undecorated& parts) {
    Written written;
    for (const auto& decoration : parts.decorations) {
      const CString name(decoration.name);
      node.SetPropertyValue(name, CString(decoration.text));
      written.automatic = written.automatic || rytree_host::lstrcmpiA(name, kAutoName) == 0;
      written.dynamic = written.dynamic || rytree_host::lstrcmpiA(name, kDynamicCheckName) == 0;
    }
    return written;
  }

  void store(RYXmlWrapperBase& node, const CString& value, bool as_branch, unsigned theme) {
    std::optional<CString> own;  // made only where the value is not stored as it came
    Written written;
    if (may_be_decorated(value)) {
      const Undecorated parts = take_decorations(value);
      if ((theme & kThemeSkipsDecorations) == 0) written = write_attributes(node, parts);
      own = CString(parts.value);
    }
    reset_undecorated(node, written);
    if ((theme & kThemeSkipsValue) != 0) return;
    if ((theme & asks_for_tag_) != 0 && !holds_a_tag((own ? *own : value).View())) return;
    if (options_.hook != nullptr && options_.hook->active != 0) {
      if (!own) own = value;
      call_hook(*options_.hook, *own);
    }
    const CString& stored = own ? *own : value;
    if ((theme & kThemeUsesData) == 0 || !as_branch) {
      node.CheckSetValue(options_.store_argument, stored, as_branch ? 1 : 0);
    } else if (!stored.IsEmpty()) {
      node.SetPropertyValue(data_, stored);
    }
  }

  /// What the options ask of a node whose value had no such decoration.
  void reset_undecorated(RYXmlWrapperBase& node, Written written) const {
    if ((options_.resets & kResetAutoSupport) != 0 && !written.automatic)
      vctree_check_reset_auto_support(node);
    if ((options_.resets & kSetDynamicCheck) == 0 || written.dynamic) return;
    int check = 0;
    if (node.GetPropertyValue(dynamic_check_, check) != 0) node.SetPropertyValue(dynamic_check_, 1);
  }

  const IdIndex& index_;
  const CStringArray* const values_;
  const std::vector<Column> columns_;
  const ApplyOptions& options_;
  const unsigned asks_for_tag_;
  const NodeIds node_ids_;
  const RYPropertyName theme_{kApplicabilityName};
  const RYPropertyName data_{kDataName};
  const RYPropertyName dynamic_check_{kDynamicCheckName};
};

/// 0, or the code of arrays that are empty or not of one size.
int test_arrays(const CArray<int, int>& ids, const _VALUESWITHIDS& record) {
  const int size = ids.GetSize();
  if (size == 0 || (record.values != nullptr && record.values->IsEmpty())) return kNoEntries;
  for (const CStringArray* strings : {record.values, record.attributeValues1, record.attributeValues2}) {
    if (strings != nullptr && strings->GetSize() != size) return kSizesDiffer;
  }
  return 0;
}

void report_duplicate(int id, int repeat, CString* error) {
  if (error == nullptr) return;
  error->Format("\n******  _tree_set_values_by_ids found dup id = %d, %X. RepeatID = %d\n", id,
                static_cast<unsigned>(id), repeat);
}

}  // namespace

int _tree_set_values_by_ids(RYXmlWrapperBase& node, const CArray<int, int>& ids, const _VALUESWITHIDS& record,
                            const ApplyOptions& options) {
  if (const int code = test_arrays(ids, record)) return code;
  const IdIndex index(ids);
  if (options.duplicate != nullptr && index.first_duplicate() >= 0) {
    *options.duplicate = ids[index.first_duplicate()];
    report_duplicate(*options.duplicate, options.repeat, options.error);
    return kDuplicateId;
  }
  return Apply(index, record, options).walk(node, 0, options.repeat);
}

int vctree_set_values_by_ids(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values, int repeat,
                             int* duplicate, int storeArgument, const char* idAttribute, CString* error) {
  if (node == nullptr || node->IsValid() == 0 || ids == nullptr || values == nullptr) return kBadArgument;
  return _tree_set_values_by_ids(*node, *ids, {.values = values},
                                 {.repeat = repeat,
                                  .duplicate = duplicate,
                                  .store_argument = storeArgument,
                                  .id_attribute = idAttribute,
                                  .error = error});
}

int rytree_set_values_by_ids(RYXmlWrapperBase* node, HostArrayObject* ids, HostArrayObject* values,
                             int repeat, int* duplicate, int storeArgument, const char* idAttribute,
                             CString* error, DWORD options) {
  if (node == nullptr || node->IsValid() == 0) return kBadArgument;
  const CArray<int, int>* const id_array = open_ints(ids);
  const _VALUESWITHIDS record = {.values = open_strings(values)};
  if (id_array == nullptr || record.values == nullptr) return kBadArgument;
  return _tree_set_values_by_ids(*node, *id_array, record,
                                 {.repeat = repeat,
                                  .duplicate = duplicate,
                                  .store_argument = storeArgument,
                                  .id_attribute = idAttribute,
                                  .error = error,
                                  .resets = options});
}
