// Repeat numbers, for walks that read them on many nodes.
#pragma once

#include <rytree_host/node.h>

#include "frame/attributes.h"

inline constexpr int kMaxRepeatId = 32767;

/// VCTreeGetRepeatId with the attribute name prepared by the walk as RYPropertyName(kRepeatIdName).
inline bool read_repeat_id(const RYXmlWrapperBase& node, const RYPropertyName& name, int& id) {
  id = -1;
  node.GetPropertyValue(name, id);
  return id >= 1 && id <= kMaxRepeatId;
}
