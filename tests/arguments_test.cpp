// Arguments as callers in other languages hand them over, and strings that are in the arrays which a call fills.
#include <rytree_Utils.h>

#include <cstring>
#include <filesystem>
#include <functional>

#include "tree_text.h"

namespace {

using Word = unsigned;

std::string shown(int result) { return std::to_string(result); }
std::string shown(const CString& result) { return result.GetString(); }
std::string shown(const RYXmlWrapperBase& result) { return text(result); }

// Makes the call with a whole machine word in place of each flag.
template <class Result, class... Argument, class... Given>
std::string call(Result (*function)(Argument...), Given... given) {
  using Widened = Result (*)(std::conditional_t<std::is_same_v<Argument, bool>, Word, Argument>...);
  const auto widened = reinterpret_cast<Widened>(reinterpret_cast<void (*)()>(function));
  if constexpr (std::is_void_v<Result>) {
    return widened(given...), "";
  } else {
    return shown(widened(given...));
  }
}

void put_byte(bool& flag, Word word) {
  const auto byte = static_cast<unsigned char>(word);
  std::memcpy(&flag, &byte, 1);
}

// Gives whether localization was blocked, and unblocks it.
bool unblock() {
  bool off = false;
  const bool was = VCTreeAccessBlockLocalization(nullptr, false);
  VCTreeAccessBlockLocalization(&off, false);
  return was;
}

// What calls work on. Plain and typed calls see the same arrays.
struct Arguments : testing::Test {
  void begin(const std::string& xml) {
    tree = parse(xml), out = {}, other = parse("<b DataID='9'><b DataID='5'><c DataID='6'/></b></b>");
    ids.RemoveAll(), values.RemoveAll(), bools.array().RemoveAll(), number = 0;
    for (const int id : {11, 12, 14}) ids.Add(id);
    for (const char* const one : {"one", "two", "three"}) values.Add(one);
    for (const bool one : {true, false, true}) bools.array().Add(one);
    others = values;
  }

  RYXmlWrapperBase tree, out, other;
  HostIntArray ints;
  HostStringArray texts, labels;
  HostBoolArray bools;
  CArray<int, int>& ids = ints.array();
  CStringArray& values = texts.array();
  CStringArray& others = labels.array();
  CString string;
  int number = 0;
  bool value = false;
  Word flag = 0;
};

TEST_F(Arguments, OnlyTheLowByteOfAFlagCounts) {
  constexpr const char* kTexts = "<R Show='1'><a/><b><c>t</c><d Show='1'>t</d></b></R>";
  constexpr const char* kEmpties = "<R N='1'><a/><b><c/><D>t</D></b></R>";
  constexpr const char* kVariable = "<V><io>2</io></V>";
  constexpr const char* kIds = "<R><a DataID='1'><b DataID='11' _NodeID='10'>7</b></a><c/></R>";
  constexpr const char* kIndex = "<R><a><b DataID='7'><c/></b></a></R>";
  const Rows<const char*, std::function<std::string()>> rows = {
      {kTexts, [&] { return call(VCTreeGetValues, &tree, &values, flag); }},
      {kTexts, [&] { return call(VCTreeGetAttributes, &tree, &values, "Show", flag); }},
      {kTexts, [&] { return call(vctree_get_attributes, &tree, &values, "Show", flag); }},
      {kIds, [&] { return call(VCTreeSetAttributes, &tree, &ids, "v", "A", nullptr, flag); }},
      {kIds, [&] { return call(rytree_set_attributes, &tree, &ints, "v", "A", nullptr, flag); }},
      {kTexts, [&] { return others[1] = "TWO", call(VCTreeGetChanged, &values, &others, flag); }},
      {kEmpties, [&] { return call(rytree_remove_empty_child_nodes, &tree, flag); }},
      {kTexts, [&] { return call(rytree_set_attribute_to_all_nodes, &tree, "A", "v", flag, 0); }},
      {kTexts, [&] { return call(rytree_set_attribute_to_all_nodes, &tree, "A", "v", 0, flag); }},
      {kEmpties, [&] { return call(rytree_hide_empty_nodes, &tree, flag, 0); }},
      {kTexts, [&] { return call(rytree_hide_empty_nodes, &tree, 1, flag); }},
      {kEmpties, [&] { return call(rytree_set_attribute_bit_if_not_empty, &tree, "N", 2, flag); }},
      {kEmpties, [&] { return call(rytree_copy_ids_by_tagname, &other, &tree, flag); }},
      {kTexts,
       [&] {
         return call(report_make_input_data_table_var_row, &other, 0, 1, 0, flag, "name", 1, 0, 2, 0, 8,
                     &tree, 0, 0);
       }},
      {kIds, [&] { return call(rytree_get_node, &tree, &out, 1, &number, -1, "DataID", flag, 0, 0); }},
      {kIds, [&] { return call(rytree_get_node, &tree, &out, 1, &number, -1, nullptr, 0, flag, 0); }},
      {kIds, [&] { return call(rytree_get_node_by_id, &tree, &out, 10, flag); }},
      {kEmpties, [&] { return call(rytree_get_node_by_tagname, &tree, &out, "c", flag, 0, 0); }},
      {kEmpties, [&] { return call(rytree_get_node_by_tagname, &tree, &out, "d", 1, flag, 0); }},
      {kEmpties, [&] { return call(rytree_get_node_by_tagname, &tree, &out, "b", 1, 0, flag); }},
      {kIds, [&] { return call(rytree_find_node, &tree, &out, "DataID", 11, flag, 0, -1); }},
      {"<R Label='text'/>", [&] { return call(rytree_get_node_label, &tree, flag); }},
      {kTexts, [&] { return call(vctree_get_node_names, &tree, &values, flag); }},
      {kIds, [&] { return call(rytree_theme_tree_get_node_by_id, &out, &tree, 10, 5, flag); }},
      {kIndex, [&] { return call(rytree_theme_tree_get_node_by_index, &out, &tree, 7, 1, 5, flag); }},
      {kIds, [&] { return call(vctree_GETN_reset_hidden_values, &tree, &ids, flag); }},
      {kIds, [&] { return call(rytree_GETN_reset_hidden_values, &tree, &ints, flag); }},
      {kVariable, [&] { return call(XVarNode_IsInput, tree, flag); }},
      {kVariable, [&] { return call(XVarNode_IsOutput, tree, flag); }},
      {kTexts,
       [&] {
         value = true;
         const std::string was = call(VCTreeAccessBlockLocalization, &value, flag);
         return was + shown(value) + shown(unblock());
       }},
      {kTexts,
       [&] {
         put_byte(value, flag);
         VCTreeAccessBlockLocalization(&value, false);
         return shown(unblock());
       }},
      {"<V DataID='5000'/>",
       [&] {
         put_byte(bools.array()[1], flag);
         return call(rytree_value_from_vec_bool_to_tree_sub_nodes, &bools, &tree);
       }},
      {"<V/>", [&] { return put_byte(value, flag), shown(tree.NodeValue(value, 0)); }},
  };
  for (const auto& [xml, act] : rows) {
    const auto outcome = [&](Word word) {
      begin(xml), flag = word;
      const std::string result = act();
      return result + text(tree) + text(other) + text(out) + listed(values) + shown(number);
    };
    const std::string on = outcome(1);
    EXPECT_NE(on, outcome(0));
    for (const Word word : {2U, 128U, 255U, 0x101U}) EXPECT_EQ(outcome(word), on) << word;
    EXPECT_EQ(outcome(0x100), outcome(0));
  }
}

TEST_F(Arguments, VariableToReadIntoMayHoldAnything) {
  put_byte(value, 77);
  EXPECT_EQ(parse("<A>7</A>").NodeValue(value, 1), 1);
  EXPECT_TRUE(value);
}

TEST_F(Arguments, TextMayBeInAnArrayThatTheCallFills) {
  constexpr const char* kTree =
      "<R Comment='a comment of some length'><a DataID='1' Long_Attribute_Name='2'>one</a><b DataID='2' "
      "Long_Attribute_Name='2'>two</b><c RepeatID='32767' Long_Attribute_Name='3'>three</c></R>";
  const std::string all = "[one][two][three]";
  const std::string name = "Long_Attribute_Name";
  const std::string file = testing::TempDir() + "values_of_more_than_a_few_letters.xml";
  EXPECT_NE(parse(kTree).Save(file.c_str()), 0);
  const Rows<std::string, std::string, std::function<void()>> rows = {
      {name, all, [&] { vctree_get_values_with_ids(&tree, &ids, &values, 1, 0, 0, values[0], 1, nullptr); }},
      {name, "[one][two]",
       [&] { vctree_get_values_with_ids(&tree, &ids, &values, 1, 0, 0, nullptr, 1, &values[0]); }},
      {name, all,
       [&] {
         string = values[0];
         vctree_get_values_with_ids(&tree, &ids, &values, 1, 0, 128, string, 1, &string);
       }},
      {name, all,
       [&] { rytree_get_values_with_ids(&tree, &ints, &texts, &labels, 1, 0, 0, others[0], 1, &others[0]); }},
      {name, "[a][one][b][two][c][three]",
       [&] { rytree_get_values_with_ids(&tree, &ints, &texts, &texts, 1, 0, 0, values[0], 1, nullptr); }},
      {name, "[" + name + "][2][2][3]", [&] { VCTreeGetAttributes(&tree, &values, values[0], true); }},
      {name, "[" + name + "][2][2][3]", [&] { vctree_get_attributes(&tree, &values, values[0], true); }},
      {"", "[a comment of some length]" + all, [&] { vctree_get_theme(&tree, &ids, &values, &values[0]); }},
      {file, all, [&] { EXPECT_TRUE(vctree_read_values_with_ids(values[0], &ids, &values, &values[0])); }},
      {"A_tag_of_some_length", "[A_tag_of_some_length1]",
       [&] { tree.AddNode(out, values[0], -1), rytree_get_enum_node_name(&tree, &values[0], values[0]); }},
      {"a longer name", "[No Weighting]",
       [&] { VCTreeGetFitterWeightStrings(0, &values[0], &values), values.SetSize(1); }},
  };
  for (const auto& [first, filled, act] : rows) {
    begin(kTree);
    for (CStringArray* const array : {&values, &others}) {
      array->RemoveAll(), array->Add(first.c_str());
      array->FreeExtra();  // so that it moves when it grows
    }
    act();
    EXPECT_EQ(listed(values), filled);
  }
  std::filesystem::remove(file);
}

TEST_F(Arguments, TextWithNulStaysWhole) {
  const std::string whole("one\0two, and a third part", 25);
  const std::string file = testing::TempDir() + "text_with_nul.xml";
  CString nul(whole);
  const auto read = [](RYXmlWrapperBase node, const char* attribute) {
    CString held;
    attribute != nullptr ? node.GetPropertyValue(attribute, held) : node.NodeValue(held, 1, 1, nullptr);
    return std::string(held.View());
  };
  begin("<R/>");
  RYXmlWrapperBase made = parse("<Made/>");
  CStringArray got;
  CArray<int, int> got_ids;
  for (CStringArray* const array : {&values, &others}) array->SetAt(0, nul);
  EXPECT_TRUE(vctree_save_values_with_ids(&made, &ids, &values, nullptr, &others));
  EXPECT_EQ(read(at(made, {0}), "Label"), whole);
  vctree_get_theme(&made, &got_ids, &got, nullptr);
  EXPECT_EQ(got[0], nul);
  EXPECT_TRUE(vctree_save_values_with_ids(file.c_str(), &ids, &values, nullptr, nullptr));
  EXPECT_TRUE(vctree_read_values_with_ids(file.c_str(), &got_ids, &got, nullptr));
  EXPECT_EQ(got[0], nul);
  std::filesystem::remove(file);

  CStringArray tags;
  tags.Add("Input");
  VCTreeCheckAddInputDataBranch(&out, &tree, &tags, &values, 5, 0, -1, nullptr);
  EXPECT_EQ(read(at(tree, {0}), "Label"), whole);

  RYXmlWrapperBase source = parse("<S><W WeightMethod='1' DataID='9'/></S>");
  RYXmlWrapperBase weight = at(source, {0});
  weight.SetPropertyValue("Label", nul);
  weight.NodeValue(nul, 0, 1, nullptr);
  rytree_whole_copy_values_by_id(&source, &tree);
  EXPECT_EQ(read(at(tree, {1}), "Label"), whole);
  EXPECT_EQ(read(at(tree, {1}), nullptr), whole);
  vctree_fitter_data_weight_node_compact_to_expanded(made, weight);
  EXPECT_NE(made.FindChild("WeightData", made, 1), 0);
  EXPECT_EQ(read(made, nullptr), whole);

  report_update_input_data_table(&tree, 0, 1, 0, 1, nullptr, &labels, 0, nullptr, nullptr, 0);
  EXPECT_EQ(read(at(tree, {2}), "SubHeader0"), whole);
}

}  // namespace
