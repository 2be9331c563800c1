// Arguments as callers in other languages hand them over, and strings that are in the arrays which a call fills.
#include <cstring>

#include "every_export.h"

namespace {

/// The function with a whole machine word in place of each flag.
template <class Result, class... Argument>
auto with_words(Result (*function)(Argument...)) {
  using Widened = Result (*)(std::conditional_t<std::is_same_v<Argument, bool>, unsigned, Argument>...);
  return reinterpret_cast<Widened>(reinterpret_cast<void (*)()>(function));
}

void put_byte(bool& flag, unsigned word) {
  const auto byte = static_cast<unsigned char>(word);
  std::memcpy(&flag, &byte, 1);
}

using S = ExportScene;

std::string outcome(const char* xml, int (*call)(S&, unsigned), unsigned flag) {
  S scene(xml);
  const int result = call(scene, flag);
  return std::to_string(result) + "\n" + scene.show();
}

TEST(Arguments, OnlyTheLowByteOfAFlagCounts) {
  using R = Row<const char*, int (*)(S&, unsigned)>;
  constexpr const char* kTexts = "<R Show='1'><a/><b><c>t</c><d Show='1'>t</d></b></R>";
  constexpr const char* kEmpties = "<R N='1'><a/><b><c/><D>t</D></b></R>";
  constexpr const char* kVariable = "<V><io>2</io></V>";
  constexpr const char* kIds = "<R><a DataID='1'><b DataID='11' _NodeID='10'>7</b></a><c/></R>";
  const Rows<const char*, int (*)(S&, unsigned)> rows = {
      R{kTexts, [](S& s, unsigned f) { return with_words(VCTreeGetValues)(&s.tree, &s.values, f); }},
      R{kTexts,
        [](S& s, unsigned f) { return with_words(VCTreeGetAttributes)(&s.tree, &s.values, "Show", f); }},
      R{kTexts,
        [](S& s, unsigned f) { return with_words(vctree_get_attributes)(&s.tree, &s.values, "Show", f); }},
      R{kIds,
        [](S& s, unsigned f) -> int {
          return with_words(VCTreeSetAttributes)(&s.tree, &s.ids, "v", "A", nullptr, f);
        }},
      R{kIds,
        [](S& s, unsigned f) -> int {
          return with_words(rytree_set_attributes)(&s.tree, &s.ints, "v", "A", nullptr, f);
        }},
      R{kTexts,
        [](S& s, unsigned f) {
          s.values[1].MakeUpper();
          return with_words(VCTreeGetChanged)(&s.values, &s.texts.array(), f);
        }},
      R{kEmpties, [](S& s, unsigned f) { return with_words(rytree_remove_empty_child_nodes)(&s.tree, f); }},
      R{kTexts,
        [](S& s, unsigned f) {
          with_words(rytree_set_attribute_to_all_nodes)(&s.tree, "A", "v", f, 0);
          return 0;
        }},
      R{kTexts,
        [](S& s, unsigned f) {
          with_words(rytree_set_attribute_to_all_nodes)(&s.tree, "A", "v", 0, f);
          return 0;
        }},
      R{kEmpties, [](S& s, unsigned f) { return with_words(rytree_hide_empty_nodes)(&s.tree, f, 0); }},
      R{kTexts, [](S& s, unsigned f) { return with_words(rytree_hide_empty_nodes)(&s.tree, 1, f); }},
      R{kEmpties,
        [](S& s, unsigned f) {
          return with_words(rytree_set_attribute_bit_if_not_empty)(&s.tree, "N", 2, f);
        }},
      R{kTexts,
        [](S& s, unsigned f) {
          bool value = true;
          s.integers[0] = with_words(VCTreeAccessBlockLocalization)(&value, f) ? 1 : 0;
          bool off = false;
          VCTreeAccessBlockLocalization(&off, false);
          return value ? 1 : 0;
        }},
      R{kTexts,
        [](S&, unsigned f) -> int {
          bool value = false;
          put_byte(value, f);
          const bool blocked = VCTreeAccessBlockLocalization(&value, false);
          bool off = false;
          VCTreeAccessBlockLocalization(&off, false);
          return blocked;
        }},
      R{kEmpties,
        [](S& s, unsigned f) {
          s.other = parse("<b DataID='9'><b DataID='5'><c DataID='6'/></b></b>");
          return with_words(rytree_copy_ids_by_tagname)(&s.other, &s.tree, f);
        }},
      R{kTexts,
        [](S& s, unsigned f) {
          s.out = with_words(report_make_input_data_table_var_row)(&s.made, 0, 1, 0, f, "name", 1, 0, 2, 0, 8,
                                                                   &s.tree, 0, 0);
          return 0;
        }},
      R{kIds,
        [](S& s, unsigned f) {
          return with_words(rytree_get_node)(&s.tree, &s.out, 1, &s.integers[0], -1, "DataID", f, 0, 0);
        }},
      R{kIds,
        [](S& s, unsigned f) {
          return with_words(rytree_get_node)(&s.tree, &s.out, 1, &s.integers[0], -1, nullptr, 0, f, 0);
        }},
      R{kIds, [](S& s, unsigned f) { return with_words(rytree_get_node_by_id)(&s.tree, &s.out, 10, f); }},
      R{kEmpties,
        [](S& s, unsigned f) -> int {
          return with_words(rytree_get_node_by_tagname)(&s.tree, &s.out, "c", f, 0, 0);
        }},
      R{kEmpties,
        [](S& s, unsigned f) -> int {
          return with_words(rytree_get_node_by_tagname)(&s.tree, &s.out, "d", 1, f, 0);
        }},
      R{kEmpties,
        [](S& s, unsigned f) -> int {
          return with_words(rytree_get_node_by_tagname)(&s.tree, &s.out, "b", 1, 0, f);
        }},
      R{kIds,
        [](S& s, unsigned f) {
          return with_words(rytree_find_node)(&s.tree, &s.out, "DataID", 11, f, 0, -1);
        }},
      R{"<R Label='text'/>",
        [](S& s, unsigned f) {
          s.text = with_words(rytree_get_node_label)(&s.tree, f);
          return 0;
        }},
      R{kTexts,
        [](S& s, unsigned f) {
          with_words(vctree_get_node_names)(&s.tree, &s.values, f);
          return 0;
        }},
      R{kIds,
        [](S& s, unsigned f) {
          return with_words(rytree_theme_tree_get_node_by_id)(&s.out, &s.tree, 10, 5, f);
        }},
      R{"<R><a><b DataID='7'><c/></b></a></R>",
        [](S& s, unsigned f) {
          return with_words(rytree_theme_tree_get_node_by_index)(&s.out, &s.tree, 7, 1, 5, f);
        }},
      R{kIds,
        [](S& s, unsigned f) { return with_words(vctree_GETN_reset_hidden_values)(&s.tree, &s.ids, f); }},
      R{kIds,
        [](S& s, unsigned f) { return with_words(rytree_GETN_reset_hidden_values)(&s.tree, &s.ints, f); }},
      R{kVariable, [](S& s, unsigned f) -> int { return with_words(XVarNode_IsInput)(s.tree, f); }},
      R{kVariable, [](S& s, unsigned f) -> int { return with_words(XVarNode_IsOutput)(s.tree, f); }},
      R{"<V DataID='5000'/>",
        [](S& s, unsigned f) {
          put_byte(s.bools.array()[1], f);
          rytree_value_from_vec_bool_to_tree_sub_nodes(&s.bools, &s.tree);
          s.bools.array().RemoveAll();
          return 0;
        }},
      R{"<V/>",
        [](S& s, unsigned f) {
          bool value = false;
          put_byte(value, f);
          return s.tree.NodeValue(value, 0);
        }},
  };
  for (const auto& [xml, call] : rows) {
    const std::string on = outcome(xml, call, 1);
    const std::string off = outcome(xml, call, 0);
    EXPECT_NE(on, off);
    for (const unsigned word : {2U, 128U, 255U, 0x101U}) EXPECT_EQ(outcome(xml, call, word), on) << word;
    EXPECT_EQ(outcome(xml, call, 0x100), off);
  }
}

TEST(Arguments, VariableToReadIntoMayHoldAnything) {
  RYXmlWrapperBase node = parse("<A>7</A>");
  bool value = false;
  put_byte(value, 77);
  EXPECT_EQ(node.NodeValue(value, 1), 1);
  EXPECT_TRUE(value);
}

/// The values, each in brackets.
std::string listed(const CStringArray& values) {
  std::string all;
  for (const CString& value : values) all.append("[").append(value.View()).append("]");
  return all;
}

TEST(Arguments, TextMayBeInAnArrayThatTheCallFills) {
  constexpr const char* kTree =
      "<R Comment='a comment of more than a few letters'><a DataID='1' Long_Attribute_Name='2'>one</a>"
      "<b DataID='2' Long_Attribute_Name='2'>two</b><c RepeatID='32767' "
      "Long_Attribute_Name='3'>three</c></R>";
  const std::string texts = "[one][two][three]";
  const std::string numbers = "[2][2][3]";
  const std::string name = "Long_Attribute_Name";
  using R = Row<std::string, void (*)(S&), std::string>;
  const Rows<std::string, void (*)(S&), std::string> rows = {
      R{name,
        [](S& s) {
          vctree_get_values_with_ids(&s.tree, &s.ids, &s.values, 1, 0, 0, s.values[0], 1, nullptr);
        },
        texts},
      R{name,
        [](S& s) {
          vctree_get_values_with_ids(&s.tree, &s.ids, &s.values, 1, 0, 0, nullptr, 1, &s.values[0]);
        },
        "[one][two]"},
      R{name,
        [](S& s) {
          s.text = s.values[0];
          vctree_get_values_with_ids(&s.tree, &s.ids, &s.values, 1, 0, 128, s.text, 1, &s.text);
        },
        texts},
      R{name,
        [](S& s) {
          s.labels.array() = s.values;
          rytree_get_values_with_ids(&s.tree, &s.ints, &s.texts, &s.labels, 1, 0, 0, s.labels.array()[0], 1,
                                     &s.labels.array()[0]);
          s.values = s.texts.array();
        },
        texts},
      R{name,
        [](S& s) {
          s.texts.array() = s.values;
          rytree_get_values_with_ids(&s.tree, &s.ints, &s.texts, &s.texts, 1, 0, 0, s.texts.array()[0], 1,
                                     nullptr);
          s.values = s.texts.array();
        },
        "[a][one][b][two][c][three]"},
      R{name, [](S& s) { VCTreeGetAttributes(&s.tree, &s.values, s.values[0], true); },
        "[" + name + "]" + numbers},
      R{name, [](S& s) { vctree_get_attributes(&s.tree, &s.values, s.values[0], true); },
        "[" + name + "]" + numbers},
      R{"", [](S& s) { vctree_get_theme(&s.tree, &s.ids, &s.values, &s.values[0]); },
        "[a comment of more than a few letters]" + texts},
      R{"",
        [](S& s) {
          s.values[0] = s.file.c_str();
          EXPECT_TRUE(s.tree.Save(s.values[0]) != 0 &&
                      vctree_read_values_with_ids(s.values[0], &s.ids, &s.values, &s.values[0]));
        },
        texts},
      R{"Plot_of_more_than_a_few_letters",
        [](S& s) {
          s.tree.AddNode(s.out, s.values[0], -1);
          rytree_get_enum_node_name(&s.tree, &s.values[0], s.values[0]);
        },
        "[Plot_of_more_than_a_few_letters1]"},
      R{"a longer name",
        [](S& s) { VCTreeGetFitterWeightStrings(0, &s.values[0], &s.values), s.values.SetSize(1); },
        "[No Weighting]"},
  };
  for (const auto& [first, call, filled] : rows) {
    S scene(kTree);
    scene.values.RemoveAll();
    scene.values.Add(first.c_str());
    scene.values.FreeExtra();  // so that it moves when it grows
    call(scene);
    EXPECT_EQ(listed(scene.values), filled);
  }
}

TEST(Arguments, TextWithNulStaysWhole) {
  const std::string whole("one\0two, and a third part", 25);
  const CString nul(whole);
  const auto read = [](const RYXmlWrapperBase& node, const char* attribute) {
    CString value;
    RYXmlWrapperBase handle(node);
    attribute != nullptr ? node.GetPropertyValue(attribute, value) : handle.NodeValue(value, 1, 1, nullptr);
    return std::string(value.View());
  };
  S s("<R/>");
  for (CStringArray* const array : {&s.values, &s.labels.array()}) array->SetAt(0, nul);
  EXPECT_TRUE(vctree_save_values_with_ids(&s.out, &s.ids, &s.values, nullptr, &s.labels.array()) ||
              vctree_save_values_with_ids(&s.made, &s.ids, &s.values, nullptr, &s.labels.array()));
  EXPECT_EQ(read(at(s.made, {0}), "Label"), whole);
  vctree_get_theme(&s.made, &s.ids, &s.texts.array(), nullptr);
  EXPECT_EQ(s.texts.array()[3], nul);
  EXPECT_TRUE(vctree_save_values_with_ids(s.file.c_str(), &s.ints.array(), &s.values, nullptr, nullptr));
  EXPECT_TRUE(vctree_read_values_with_ids(s.file.c_str(), &s.ids, &s.texts.array(), nullptr));
  EXPECT_EQ(s.texts.array()[0], nul);

  CStringArray tags;
  tags.Add("Input");
  VCTreeCheckAddInputDataBranch(&s.out, &s.tree, &tags, &s.values, 5, 0, -1, nullptr);
  EXPECT_EQ(read(at(s.tree, {0}), "Label"), whole);

  RYXmlWrapperBase source = parse("<S><W WeightMethod='1' DataID='9'/></S>");
  RYXmlWrapperBase weight = at(source, {0});
  weight.SetPropertyValue("Label", nul);
  weight.NodeValue(const_cast<CString&>(nul), 0, 1, nullptr);
  rytree_whole_copy_values_by_id(&source, &s.tree);
  EXPECT_EQ(read(at(s.tree, {1}), "Label"), whole);
  EXPECT_EQ(read(at(s.tree, {1}), nullptr), whole);
  vctree_fitter_data_weight_node_compact_to_expanded(s.other, weight);
  RYXmlWrapperBase data;
  s.other.FindChild("WeightData", data, 1);
  EXPECT_EQ(read(data, nullptr), whole);

  report_update_input_data_table(&s.tree, 0, 1, 0, 1, nullptr, &s.labels, 0, nullptr, nullptr, 0);
  EXPECT_EQ(read(at(s.tree, {2}), "SubHeader0"), whole);
}

}  // namespace
