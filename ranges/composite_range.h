// How the ranges of each type are made and numbered.
#pragma once

#include <rytree_host/node.h>

#include <array>

#include "frame/attributes.h"

inline constexpr int kCompositeSubNodeId = 55;

struct SubNodeLayout {
  const char* tag;  // null behind the last one
  int data_id;
  int label_message;  // 0: the tag is the label
};

struct RangeLayout {
  int type;
  int composite_id;
  int action_id;
  const char* third_tag;  // of the sub-node with the third value; null: it is the one behind "Y"
  std::array<SubNodeLayout, 4> sub_nodes;
};

/// The layout of a range type.
const RangeLayout& vctree_subrange_layout(int type);

/// The repeat number that a range takes from the sibling before it: 128 if there is none. What is no valid
/// repeat number there is handed on, -1 for a missing one.
int vctree_next_repeat_id(const RYXmlWrapperBase& range);

/// Hides "ED" and hands options down, as the options of `parent`, or else those of `range`, say.
void vctree_apply_interactive_options(RYXmlWrapperBase& range, const RYXmlWrapperBase& parent);
