// Whether two nodes are equal.
#pragma once

#include <rytree_host/node.h>

namespace rytree::detail {

/// Compares nodes, without what is below them. Uses its buffers again.
class NodeComparison {
 public:
  bool are_equal(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right) {
    return have_equal_ids(left, right) && have_equal_tags(left, right) && have_equal_texts(left, right) &&
           have_equal_attributes(left, right);
  }

 private:
  static bool have_equal_ids(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right) {
    int left_id = -1;
    int right_id = -1;
    left.GetID(left_id);
    right.GetID(right_id);
    return left_id == right_id;
  }
  bool have_equal_tags(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right) {
    left_.Empty();
    right_.Empty();
    return left.GetTagName(left_) == right.GetTagName(right_) && left_ == right_;
  }
  bool have_equal_texts(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right) {
    left.GetNodeStringWithBlobInfo(left_, 0);
    right.GetNodeStringWithBlobInfo(right_, 0);
    return left_ == right_;
  }
  bool have_equal_attributes(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right) {
    const int count = left.GetPropertyCount();
    if (right.GetPropertyCount() != count) return false;
    for (int i = 0; i < count; ++i) {
      if (left.GetPropertyAt(i, name_, left_) == 0) continue;
      if (right.GetPropertyValue(name_, right_) == 0 || left_ != right_) return false;
    }
    return true;
  }

  CString name_;
  CString left_;
  CString right_;
};

}  // namespace rytree::detail
