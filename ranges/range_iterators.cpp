// The walks over range trees.
#include <rytree_Utils/range_iterators.h>

namespace {

constexpr const char* kSeparator = "S";

}  // namespace

VCRangeTreeIterator::VCRangeTreeIterator(RYXmlWrapperBase& tree) : nested_(0) {
  tree.FirstChild(cursor_);
  nested_ = cursor_.GetNodeCount() > 0 ? 1 : 0;
}

VCRangeTreeIterator::VCRangeTreeIterator(VCRangeTreeIterator& other) = default;
VCRangeTreeIterator::VCRangeTreeIterator(const VCRangeTreeIterator& other) = default;
VCRangeTreeIterator& VCRangeTreeIterator::operator=(const VCRangeTreeIterator& other) = default;
VCRangeTreeIterator::~VCRangeTreeIterator() = default;

int VCRangeTreeIterator::Get(RYXmlWrapperBase& out) {
  if (cursor_.IsNodeValid() == 0) return 0;
  if (nested_ != 0) {
    cursor_.FirstChild(out);
    cursor_.NextSibling(cursor_);
    return out.IsNodeValid();
  }
  const RYPropertyName separator(kSeparator);
  while (cursor_.HasTagName(separator) != 0) cursor_.NextSibling(cursor_);
  if (cursor_.IsNodeValid() == 0) return 0;
  out = cursor_;
  do {
    cursor_.NextSibling(cursor_);
  } while (cursor_.IsNodeValid() != 0 && cursor_.HasTagName(separator) == 0);
  return 1;
}

VCSubRangeTreeIterator::VCSubRangeTreeIterator(RYXmlWrapperBase& first) : cursor_(first) {}

VCSubRangeTreeIterator::VCSubRangeTreeIterator(VCSubRangeTreeIterator& other) = default;
VCSubRangeTreeIterator::VCSubRangeTreeIterator(const VCSubRangeTreeIterator& other) = default;
VCSubRangeTreeIterator& VCSubRangeTreeIterator::operator=(const VCSubRangeTreeIterator& other) = default;
VCSubRangeTreeIterator::~VCSubRangeTreeIterator() = default;

int VCSubRangeTreeIterator::Get(RYXmlWrapperBase& out) {
  if (cursor_.IsNodeValid() == 0 || cursor_.HasTagName(RYPropertyName(kSeparator)) != 0) return 0;
  out = cursor_;
  cursor_.NextSibling(cursor_);
  return 1;
}
