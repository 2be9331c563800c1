// Copying values between nodes at the same place in two trees.
#include <rytree_Utils/homologous.h>

#include <utility>
#include <vector>

#include "frame/children.h"
#include "frame/node_text.h"
#include "frame/text_index.h"

namespace {

/// The attributes to keep.
class KeptNames {
 public:
  struct Text {
    const RYPropertyName* name;
    CString text;
  };

  explicit KeptNames(const CStringArray* keep) {
    if (keep == nullptr) return;
    TextIndex different;
    for (const CString& name : *keep) {
      if (different.add(name.GetString()) == static_cast<int>(names_.size()))
        names_.emplace_back(name.GetString());
    }
  }

  /// Those on a node that are not empty.
  std::vector<Text> texts_on(const RYXmlWrapperBase& node) const {
    std::vector<Text> texts;
    CString text;
    for (const RYPropertyName& name : names_) {
      if (node.GetPropertyValue(name, text) != 0 && !text.IsEmpty()) texts.push_back({&name, text});
    }
    return texts;
  }
  static void restore(RYXmlWrapperBase& node, const std::vector<Text>& texts) {
    for (const Text& kept : texts) node.SetPropertyValue(*kept.name, kept.text);
  }

 private:
  std::vector<RYPropertyName> names_;
};

class HomologousCopy {
 public:
  HomologousCopy(bool copy_attributes, const CStringArray* keep)
      : copy_attributes_(copy_attributes), kept_(copy_attributes ? keep : nullptr) {}

  /// Copies between the two nodes and the siblings that follow them, with all below. False at the first difference in shape.
  bool copy_row(RYXmlWrapperBase dest, RYXmlWrapperBase source) const {
    for (; source.IsNodeValid() != 0; dest.NextSibling(dest), source.NextSibling(source)) {
      if (dest.IsNodeValid() == 0 || !copy_branch(dest, source)) return false;
    }
    return dest.IsNodeValid() == 0;
  }

 private:
  bool copy_branch(RYXmlWrapperBase& dest, RYXmlWrapperBase& source) const {
    const std::vector<KeptNames::Text> texts = kept_.texts_on(dest);
    if (copy_attributes_) dest.CopyAllAttributes(source, 1);
    const bool leaf = source.HasChildren(0) == 0;
    if (leaf != (dest.HasChildren(0) == 0)) return false;
    if (leaf) {
      CString value;
      read_text(source, value);
      write_text(dest, value);
    } else {
      RYXmlWrapperBase first;
      RYXmlWrapperBase source_first;
      dest.FirstChild(first);
      source.FirstChild(source_first);
      if (!copy_row(std::move(first), std::move(source_first))) return false;
    }
    KeptNames::restore(dest, texts);
    return true;
  }

  const bool copy_attributes_;
  const KeptNames kept_;
};

}  // namespace

int vctree_copy_values_between_homologous_trees(RYXmlWrapperBase& dest, RYXmlWrapperBase& source,
                                                int copyAttributes, CStringArray* keep) {
  return HomologousCopy(copyAttributes != 0, keep).copy_row(dest, source) ? 0 : 1;
}

int rytree_copy_values_between_homologous_trees(RYXmlWrapperBase* dest, RYXmlWrapperBase* source,
                                                int copyAttributes) {
  if (dest == nullptr || source == nullptr) return -1;
  return vctree_copy_values_between_homologous_trees(*dest, *source, copyAttributes, nullptr);
}
