// Inputs on which a plain way grows with the square: all equal, all different, in turns, the same start again and
// again.
#include <rytree_Utils.h>

#include <string>

#include "growth_rows.h"
#include "inputs.h"

namespace {

std::string repeated(const char* text, int times) {
  std::string all;
  for (; times > 0; --times) all += text;
  return all;
}

/// Two parents with half of the nodes each, in `made` and `found`.
void make_two_parents(Scene& scene) {
  RYXmlWrapperBase child;
  scene.empty.AddNode(scene.made, "First", -1);
  scene.empty.AddNode(scene.found, "Second", -1);
  for (int i = 0; i < scene.nodes / 2; ++i) {
    scene.made.AddNode(child, "Row", -1);
    scene.found.AddNode(child, "Row", -1);
  }
}

/// A leaf of `made` with the DataID 1, and that ID with the value.
void make_value(Scene& scene, const std::string& value) {
  RYXmlWrapperBase leaf;
  scene.made.AddNode(leaf, "Leaf", -1);
  leaf.SetDataID(1);
  scene.int_list.Add(1);
  scene.text_list.Add(CString(std::string_view(value)));
}

void apply_value(Scene& s) {
  vctree_set_values_by_ids(&s.made, &s.int_list, &s.text_list, 0, nullptr, 0, nullptr, nullptr);
}

/// "Name1", "Name2", … in `texts`, and in `labels` their capitals; a candidate for each, and below it a leaf with
/// the name.
void make_candidates(Scene& scene) {
  RYXmlWrapperBase candidate;
  RYXmlWrapperBase leaf;
  for (int i = 1; i <= scene.nodes / 3; ++i) {
    const std::string name = "Name" + std::to_string(i);
    scene.texts.array().Add(name.c_str());
    scene.labels.array().Add(("NAME" + std::to_string(i)).c_str());
    scene.made.AddNode(candidate, "Candidate", -1);
    candidate.SetDataID(7);
    candidate.AddTextNode(leaf, name.c_str(), "Leaf", -1, 0, nullptr);
    leaf.SetDataID(8);
  }
}

/// "Show" and "1" for each node.
void make_equal_attributes(Scene& scene) {
  for (int i = 0; i < scene.nodes; ++i) scene.texts.array().Add("Show"), scene.labels.array().Add("1");
  VCTreeAttributeValues(&scene.rows, "Show", 1, nullptr, 0, 0);
}

/// A different attribute of `made` for each node, with their names and values.
void make_different_attributes(Scene& scene) {
  for (int i = 0; i < scene.nodes; ++i) {
    const std::string name = "Name" + std::to_string(i);
    scene.texts.array().Add(name.c_str());
    scene.labels.array().Add("1");
    scene.made.SetPropertyValue(name.c_str(), 1);
  }
}

/// One attribute of `made` off and on again for each node, the last and the last but one in turn.
void toggle_attributes(Scene& s) {
  const CStringArray& names = s.texts.array();
  for (int i = 1; i <= s.nodes; ++i) {
    const CString& name = names[s.nodes - 1 - i % 2];
    s.made.RemoveProperty(name);
    s.made.SetPropertyValue(name, i);
  }
}

/// The texts of all rows short and long in turn, and longer each time.
void write_longer_texts(Scene& s) {
  RYXmlWrapperBase row;
  for (int length = 48; length <= 512; length += 8) {
    for (const std::string& text : {std::string(20, 'x'), std::string(static_cast<std::size_t>(length), 'x')})
      for (int there = s.rows.FirstChild(row); there != 0; there = row.NextSibling(row))
        row.CheckSetValue(0, text.c_str(), 0);
  }
}

void add_all_enumerated(Scene& s, RYXmlWrapperBase& parent) {
  s.number = 0;
  rytree_check_add_all_enumerated_nodes(&parent, "Row", &s.doubles, 1, "Label", &s.number, nullptr);
}

constexpr GrowthRow kRows[] = {
    {"GetChild, two parents in turns",
     [](Scene& s) {
       RYXmlWrapperBase child;
       for (int i = 0; i < s.nodes / 2; ++i) s.made.GetChild(child, i), s.found.GetChild(child, i);
     },
     make_two_parents},
    {"GetChild, with removals elsewhere",
     [](Scene& s) {
       RYXmlWrapperBase child;
       for (int i = 0; i < s.nodes / 2; ++i)
         s.made.GetChild(child, i), s.found.FirstChild(child), child.RemoveNode();
     },
     make_two_parents},
    {"SetPropertyValue, all different on one node", make_different_attributes},
    {"GetPropertyValue, all different on one node",
     [](Scene& s) {
       for (const CString& name : s.texts.array()) s.made.GetPropertyValue(name, s.number);
     },
     make_different_attributes},
    {"RemoveProperty, off and on again on one node", toggle_attributes, make_different_attributes},
    {"CheckSetValue, short and ever longer texts", write_longer_texts},
    {"CopyAllAttributes, all different", [](Scene& s) { s.empty.CopyAllAttributes(s.made, 0); },
     make_different_attributes},
    {"kelp_text_match, the same start",
     [](Scene& s) {
       const std::string filter = "*" + repeated("a", s.nodes / 2) + "b*";
       s.number = kelp_text_match(filter.c_str(), repeated("a", s.nodes).c_str(), 0, 0, 0);
     }},
    {"rytree_filter_by_attrib_find, the same start",
     [](Scene& s) {
       const std::string wanted = repeated("a", s.nodes / 2) + "b";
       rytree_filter_by_attrib_find(&s.made, 7, "Label", wanted.c_str(), 1, 0);
     },
     [](Scene& s) {
       s.made.SetDataID(7);
       s.made.SetLabel(repeated("a", s.nodes).c_str());
     }},
    {"rytree_filter, long lists",
     [](Scene& s) { rytree_filter(&s.made, 7, 1, 8, &s.labels, 2, 8, &s.texts); }, make_candidates},
    {"rytree_find_node_with_str_attr, all equal",
     [](Scene& s) { rytree_find_node_with_str_attr(&s.rows, &s.found, &s.texts, &s.labels, 1, 1 << 30); },
     make_equal_attributes},
    {"rytree_check_node_str_attr, all different",
     [](Scene& s) { rytree_check_node_str_attr(&s.made, &s.texts, &s.labels, 0); },
     make_different_attributes},
    {"vctree_set_values_by_ids, starts of decorations", apply_value,
     [](Scene& s) { make_value(s, repeated("::{", s.nodes) + "a=1}"); }},
    {"vctree_set_values_by_ids, decorations in each other", apply_value,
     [](Scene& s) { make_value(s, repeated("::{a=", s.nodes) + "1}"); }},
    {"vctree_set_values_by_ids, all decorations different", apply_value,
     [](Scene& s) {
       std::string value;
       for (int i = 0; i < s.nodes; ++i) value += "::{a" + std::to_string(i) + "=1}";
       make_value(s, value);
     }},
    {"vctree_set_values_by_ids, decorations in a page of double bytes",
     [](Scene& s) {
       RYXmlWrapperBase::SetDefaultCodePage(932);
       apply_value(s);
       RYXmlWrapperBase::SetDefaultCodePage(65001);
     },
     [](Scene& s) { make_value(s, repeated("::{a=\x83\x7D}", s.nodes)); }},
    {"rytree_check_add_all_enumerated_nodes, all there", [](Scene& s) { add_all_enumerated(s, s.made); },
     make_vector},
    {"rytree_check_add_all_enumerated_nodes, names elsewhere",
     [](Scene& s) {
       s.made.FirstChild(s.found);
       add_all_enumerated(s, s.found);
     },
     make_vector},
    {"vctree_copy_values_between_homologous_trees, kept names all equal",
     [](Scene& s) { vctree_copy_values_between_homologous_trees(s.other, s.tree, 1, &s.texts.array()); },
     make_equal_attributes},
    {"VCTreeSetAttributes, what matches is written",
     [](Scene& s) { VCTreeSetAttributes(&s.tree, &s.ids, "0", "DataID", nullptr, true); }},
    {"rytree_copy_values_to_attributes_by_attribute_matching, what matches is written",
     [](Scene& s) {
       rytree_copy_values_to_attributes_by_attribute_matching(&s.tree, &s.other, "DataID", "DataID", nullptr,
                                                              1, 1, 0);
     }},
};

}  // namespace

std::span<const GrowthRow> hard_input_rows() { return kRows; }
