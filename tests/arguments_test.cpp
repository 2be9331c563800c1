// Arguments as callers in other languages hand them over, and strings that are in the arrays which a call fills.
#include <cstring>
#include <filesystem>
#include <functional>

#include "fuzz/calls/call.h"
#include "tree_text.h"

namespace {

// What calls work on. Plain and typed calls see the same arrays.
struct Arguments : testing::Test {
  void begin(const std::string& xml) {
    tree = parse(xml), out = {};
    ids.RemoveAll(), values.RemoveAll();
    for (const int id : {11, 12, 14}) ids.Add(id);
    for (const char* const one : {"one", "two", "three"}) values.Add(one);
    others = values;
  }

  RYXmlWrapperBase tree, out;
  HostIntArray ints;
  HostStringArray texts, labels;
  CArray<int, int>& ids = ints.array();
  CStringArray& values = texts.array();
  CStringArray& others = labels.array();
  CString string;
};

TEST_F(Arguments, OnlyTheLowByteOfAFlagCounts) {
  for (const calls::Opcode& opcode : calls::opcodes()) {
    if (&opcode == &calls::opcodes()[calls::export_count()]) break;
    SCOPED_TRACE(opcode.name);
    int flags = 0;
    const auto outcome = [&](const calls::Way& way, int flag, unsigned word) {
      calls::Scene scene;
      scene.flag.emplace(flag, word);
      const std::string shown = calls::outcome(scene, opcode, way);
      flags = scene.flags_passed;
      return shown;
    };
    for (int flag = 0; flag == 0 || flag < flags; ++flag) {
      bool matters = false;
      for (const calls::Way& way : opcode.ways) {
        const std::string on = outcome(way, flag, 1);
        const std::string off = outcome(way, flag, 0);
        matters = matters || on != off;
        for (const unsigned word : {2U, 128U, 255U, 0x101U}) EXPECT_EQ(outcome(way, flag, word), on) << word;
        EXPECT_EQ(outcome(way, flag, 0x100), off);
      }
      EXPECT_EQ(matters, flag < flags) << "flag " << flag;
    }
  }
}

TEST_F(Arguments, VariablesMayHoldAnything) {
  RYXmlWrapperBase node = parse("<A>7</A>");
  const unsigned char byte = 77;
  bool value = false;
  std::memcpy(&value, &byte, 1);
  EXPECT_EQ(node.NodeValue(value, 0), 1);
  EXPECT_EQ(text(node), "<A>1</A>");
  std::memcpy(&value, &byte, 1);
  EXPECT_EQ(node.NodeValue(value, 1), 1);
  EXPECT_TRUE(value);

  RYXmlWrapperBase vector = parse("<V DataID='5000'/>");
  HostBoolArray flags;
  flags.array().Add(false);
  std::memcpy(&flags.array()[0], &byte, 1);
  rytree_value_from_vec_bool_to_tree_sub_nodes(&flags, &vector);
  EXPECT_NE(text(vector).find(">1<"), std::string::npos);
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

  RYXmlWrapperBase marked = parse("<R><A>one</A></R>");
  EXPECT_EQ(rytree_update_changes(&marked, &texts), 1);
  EXPECT_EQ(read(at(marked, {0}), "OldValue"), whole);

  RYXmlWrapperBase base =
      parse_ids(R"(<R><a #1 _NodeEscape='1'>x\00y</a><a #2 _NodeEscape='1'>x\00y</a></R>)");
  RYXmlWrapperBase now =
      parse_ids(R"(<R><a #1 _NodeEscape='1'>X\00Y</a><a #2 _NodeEscape='1'>x\00z</a></R>)");
  EXPECT_EQ(rytree_remove_unchange_nodes_by_id(&base, &now, nullptr, nullptr), 1);
  EXPECT_EQ(text(now), R"(<R><a _NodeEscape="1" DataID="2">x\00z</a></R>)");

  report_update_input_data_table(&tree, 0, 1, 0, 1, nullptr, &labels, 0, nullptr, nullptr, 0);
  EXPECT_EQ(read(at(tree, {2}), "SubHeader0"), whole);
}

}  // namespace
