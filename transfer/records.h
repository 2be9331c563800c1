// The two walks that the whole transfer by ID is made of, harvest and apply, and the records they take.
#pragma once

#include <rytree_Utils/transfer.h>

#include <utility>
#include <vector>

/// What goes with an array of IDs: the same index is the same node. A column holds one attribute of each.
struct _VALUESWITHIDS {
  CStringArray* values = nullptr;
  const char* attributeName1 = nullptr;
  CStringArray* attributeValues1 = nullptr;
  const char* attributeName2 = nullptr;
  CStringArray* attributeValues2 = nullptr;
  CStringArray* labels = nullptr;  // output of the harvest only
};

/// How a tree is read; vctree_get_values_with_ids explains each.
struct HarvestOptions {
  bool recursive = true;
  bool changed_only = false;
  int repeat = 0;
  const char* id_attribute = nullptr;
  bool all_branches = true;
  CString* error = nullptr;
};

/// How a tree is written; vctree_set_values_by_ids and vctree_copy_values_by_id explain each.
struct ApplyOptions {
  int repeat = 0;
  int* duplicate = nullptr;
  int store_argument = 0;
  const char* id_attribute = nullptr;
  CString* error = nullptr;
  _SETVALUESBYIDS* hook = nullptr;
  DWORD resets = 0;  // the two bits below
  bool keep_bit_18_off = false;
};
inline constexpr DWORD kResetAutoSupport = 0x10000;
inline constexpr DWORD kSetDynamicCheck = 0x20000;

// The attribute that steers both walks, and its bits.
inline constexpr const char* kApplicabilityName = "ThemeApplicability";
inline constexpr unsigned kThemeSkipsValue = 0x10000;
inline constexpr unsigned kThemeSkipsDecorations = 0x20000;
inline constexpr unsigned kThemeNeedsTag = 0x40000;
inline constexpr unsigned kThemeUsesData = 0x100000;

// Results of the walks that write.
inline constexpr int kBadArgument = -1;
inline constexpr int kNoEntries = -2;
inline constexpr int kSizesDiffer = -3;
inline constexpr int kDuplicateId = -4;
inline constexpr int kIdConflict = -5;

/// A column of a record with its attribute name made ready for a walk.
struct Column {
  RYPropertyName name;
  CStringArray& values;
  CString read{};  // from the node at hand
};
inline std::vector<Column> columns_of(const _VALUESWITHIDS& record) {
  std::vector<Column> columns;
  for (const auto& [name, values] : {std::pair(record.attributeName1, record.attributeValues1),
                                     std::pair(record.attributeName2, record.attributeValues2)}) {
    if (values != nullptr) columns.push_back({RYPropertyName(name), *values});
  }
  return columns;
}

/// The harvest: reads the values below `node`, which is valid, as vctree_get_values_with_ids does. With a
/// record without values it reads only nodes that have an attribute of a column.
int _tree_get_values_with_ids(RYXmlWrapperBase& node, CArray<int, int>& ids, const _VALUESWITHIDS& record,
                              const HarvestOptions& options);

/// The apply: writes a record into the nodes below `node` as vctree_set_values_by_ids does. An empty text in
/// a column removes the attribute.
int _tree_set_values_by_ids(RYXmlWrapperBase& node, const CArray<int, int>& ids, const _VALUESWITHIDS& record,
                            const ApplyOptions& options);
