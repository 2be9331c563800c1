// The records that the harvest, the apply and the prune pass down through their walks.
#pragma once

#include <rytree_Utils/transfer.h>

#include <utility>
#include <vector>

/// What travels beside an array of IDs: the same index is the same node. A column is an attribute of every
/// node.
struct _VALUESWITHIDS {
  CStringArray* values = nullptr;
  const char* attributeName1 = nullptr;
  CStringArray* attributeValues1 = nullptr;
  const char* attributeName2 = nullptr;
  CStringArray* attributeValues2 = nullptr;
  CStringArray* labels = nullptr;  // filled by the harvest, read by nobody
};

/// What one apply shares across its recursion.
struct _IDWALKSTATE {
  int duplicatesTested = 0;
  _SETVALUESBYIDS* hook = nullptr;
  DWORD options = 0;
};

inline constexpr DWORD kResetAutoSupport = 0x10000;
inline constexpr DWORD kSetDynamicCheck = 0x20000;

// The attribute that steers both walks, and its bits.
inline constexpr const char* kThemeName = "ThemeApplicability";
inline constexpr unsigned kThemeKeepsValue = 0x10000;
inline constexpr unsigned kThemeKeepsAttributes = 0x20000;
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

/// Reads the values below `node`, which is valid, as vctree_get_values_with_ids tells; with a record without
/// values only nodes that have an attribute of a column.
int _tree_get_values_with_ids(RYXmlWrapperBase& node, CArray<int, int>& ids, const _VALUESWITHIDS& record,
                              int recursive, int changedOnly, int repeat, const char* idAttribute,
                              int allBranches, CString* error);

/// Writes a record into the nodes below `node` as vctree_set_values_by_ids tells. `theme` (may be null) is
/// the "ThemeApplicability" in force at `node`; a null `state` means a fresh one.
int _tree_set_values_by_ids(RYXmlWrapperBase& node, const CArray<int, int>& ids, const _VALUESWITHIDS& record,
                            const int* theme, int repeat, int* duplicate, int storeArgument,
                            const char* idAttribute, CString* error, _IDWALKSTATE* state, int keepBit18Off);
