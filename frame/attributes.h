// The names of attributes that several folders read and write.
#pragma once

inline constexpr const char* kActionIdName = "_ACTION_OBJECT_ID";
inline constexpr const char* kAutoName = "Auto";
inline constexpr const char* kBranchName = "Branch";
inline constexpr const char* kDataIdName = "DataID";
inline constexpr const char* kDataName = "Data";
inline constexpr const char* kDynamicCheckName = "DynaUseChck";
inline constexpr const char* kInteractiveOptionsName = "InteractiveOptions";
inline constexpr const char* kLabelName = "Label";
inline constexpr const char* kRepeatIdName = "RepeatID";
inline constexpr const char* kShowName = "Show";
inline constexpr const char* kUseName = "Use";
