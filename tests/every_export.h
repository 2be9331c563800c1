// One working call of every export, for tests that hold for all of them.
#pragma once

#include <rytree_Utils.h>
#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

#include "tree_text.h"

/// What a call works on, and where its results go. Texts are so long that they need memory of their own.
struct ExportScene {
  explicit ExportScene(const char* xml = nullptr) : tree(parse(with_ids(xml != nullptr ? xml : kTree))) {
    made.CreateNew(0, "Made");
    for (const int id : {11, 12, 14}) ids.Add(id), ints.array().Add(id);
    for (const char* const value :
         {"a new value for the width", "a new title, longer than before", "dashed, not dotted"})
      values.Add(value), texts.array().Add(value), labels.array().Add(value);
    for (const double number : {0.5, 1.25, -1.0 / 3}) doubles.array().Add(number), vector.values.Add(number);
    for (const bool flag : {true, false, true}) bools.array().Add(flag);
    for (double& number : numbers) number = 1.0 / ++counter;
  }
  ExportScene(const ExportScene&) = delete;
  ExportScene& operator=(const ExportScene&) = delete;
  ~ExportScene() { std::remove(file.c_str()); }

  static constexpr const char* kTree =
      R"(<Root@1 DataID="1" Label="the top of the tree" Branch="3" PlotObjUID="7" DataMarkerID="8" ThemeType="2")"
      R"( ThemeFile="themes/a file name of some length.xml" _ACTION_OBJECT_ID="1001" _EntireWorksheet="1")"
      R"( Auto="1|by the program itself|3" InteractiveOptions="32">)"
      R"(<Plot@2 DataID="20" Label="a plot with a long label" Use="1">)"
      R"(<Width@3 DataID="11" Label="the width of the line" Auto="1|Auto|1" DynaUseChck="1">2.5 points or more</Width>)"
      R"(<Title@4 DataID="12" Label="the title of the plot">a title of more than a few bytes</Title>)"
      R"(<Empty@13 DataID="13" Label="a leaf without a text" Show="1"/></Plot>)"
      R"(<Plot1@5 DataID="420" RepeatID="256" Label="another plot with a label">)"
      R"(<Style@6 DataID="14" NodeID="11" Label="the style of the line">solid, with round corners</Style></Plot1>)"
      R"(<Note@7 DataID="15" NodeID="12" OldValue="what was noted before">what is noted now, at length</Note></Root>)";
  /// The same shape, other values, some of the attributes.
  static constexpr const char* kOther =
      R"(<Root@1 Branch="1"><Plot@2 DataID="20" Use="0"><Width DataID="11" Label="how wide the line is">1</Width>)"
      R"(<Title DataID="12">the former title of the plot</Title><Empty/></Plot>)"
      R"(<Plot1 DataID="420" RepeatID="256"><Style DataID="14">solid, with round corners</Style></Plot1>)"
      R"(<Note DataID="15"/></Root>)";

  /// Everything that a call can have changed, as one text.
  std::string show() const {
    std::string shown;
    for (const RYXmlWrapperBase* node : {&tree, &other, &made, &out}) shown += text_of(*node) + "\n";
    shown += tag(out) + "\n";
    for (const CStringArray* array : {&values, &texts.array(), &labels.array()})
      for (const CString& value : *array) shown.append(value.View()).append("|");
    for (const CString* string : {&text, &text2, &text3}) shown.append(string->View()).append("\n");
    for (const CArray<int, int>* array : {&ids, &ints.array()})
      for (const int id : *array) shown += std::to_string(id) + " ";
    for (const CArray<double, double>* array : {&doubles.array(), &vector.values})
      for (const double value : *array) shown += std::to_string(value) + " ";
    for (const bool flag : bools.array()) shown += flag ? "1" : "0";
    for (const int value : integers) shown += " " + std::to_string(value);
    for (const double value : numbers) shown += " " + std::to_string(value);
    std::ifstream saved(file);
    return shown.append(std::istreambuf_iterator<char>(saved), {});
  }

  RYXmlWrapperBase tree;
  RYXmlWrapperBase other = parse(with_ids(kOther));
  RYXmlWrapperBase made;  // a bare root
  RYXmlWrapperBase out;   // an invalid handle
  CArray<int, int> ids;
  CStringArray values;
  HostIntArray ints;
  HostStringArray texts, labels;
  HostDoubleArray doubles;
  HostBoolArray bools;
  tagRYSOBJVECT vector;
  CString text = "what the text was before";
  CString text2, text3;
  int integers[5] = {};
  double numbers[5] = {};
  DWORD next_id = 1;
  unsigned long change = 0;
  tagDescStatResults results = {};
  std::string file = scratch_file();  // removed with the scene

  /// In memory, if there is such a place: a saved file is flushed.
  static std::string scratch_folder() {
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : testing::TempDir();
  }

 private:
  static std::string text_of(const RYXmlWrapperBase& node) { return ::text(node); }
  static std::string scratch_file() {
    static std::atomic<int> count;
    return scratch_folder() + "every_export." + std::to_string(getpid()) + "." + std::to_string(++count);
  }
  int counter = 0;
};

/// A row of the table.
struct ExportCall {
  template <class Call>
  ExportCall(const char* export_name, int result, Call, const char* xml_text = nullptr,
             void (*prepare_scene)(ExportScene&) = nullptr)
      : name(export_name),
        expected(result),
        xml(xml_text),
        prepare(prepare_scene),
        call([](ExportScene& scene) {
          if constexpr (std::is_void_v<decltype(Call()(scene))>) {
            Call()(scene);
            return 0;
          } else {
            return static_cast<int>(Call()(scene));
          }
        }) {}

  const char* name;  // as in cmake/exports.txt
  int expected;      // the result of this call; 0 where there is none
  const char* xml;   // what `tree` is; null: ExportScene::kTree
  void (*prepare)(ExportScene&);
  int (*call)(ExportScene&);
};

/// Makes the call on a scene of its own. Gives its result and what the scene is afterwards.
inline std::string run(const ExportCall& row) {
  ExportScene scene(row.xml);
  if (row.prepare != nullptr) row.prepare(scene);
  const int result = row.call(scene);
  return std::to_string(result) + "\n" + scene.show();
}

namespace every_export {

using S = ExportScene;

inline int check_get_node_ex(S& s, int create, const char* first, ...) {
  va_list tags;
  va_start(tags, first);
  const int found = tmxfu_tree_check_get_node_ex(s.out, s.tree, create, first, tags);
  va_end(tags);
  return found;
}

// What some calls need before.
inline void attributes(S& s) {
  s.labels.array().RemoveAll(), s.texts.array().RemoveAll();
  for (const char* const name : {"Label", "ThemeFile", "OldValue"}) s.labels.array().Add(name);
  for (const char* const value : {"the style of the line", "not there, and a long text", "nor this"})
    s.texts.array().Add(value);
  s.labels.array().SetSize(1), s.texts.array().SetSize(1);
}
inline void int_attributes(S& s) {
  attributes(s);
  s.labels.array()[0] = "NodeID", s.labels.array().Add("DataID"), s.ints.array().RemoveAll();
  for (const int value : {12, 15}) s.ints.array().Add(value);
}
inline void theme(S& s) {
  EXPECT_TRUE(vctree_save_values_with_ids(&s.other, &s.ids, &s.values, "a comment on the theme", nullptr));
}
inline void theme_file(S& s) {
  EXPECT_TRUE(
      vctree_save_values_with_ids(s.file.c_str(), &s.ids, &s.values, "a comment on the theme", nullptr));
  s.ids.RemoveAll(), s.values.RemoveAll();
}

inline constexpr const char* kRanges =
    R"(<Data@44 InteractiveOptions="32"><Range1 RepeatID="128"><X DataID="51">the first column of all</X>)"
    R"(<Y DataID="52">the second column of all</Y><ED DataID="53">the third column of all</ED></Range1>)"
    R"(<Range2 RepeatID="144"><X DataID="51">4</X><Y DataID="52">5</Y></Range2></Data>)";
inline constexpr const char* kVector =
    R"(<Values DataID="13000"><Value1 DataID="13001">1</Value1><Value2 DataID="13002">0</Value2>)"
    R"(<Value3 DataID="13003">1</Value3></Values>)";
inline constexpr const char* kShortVector =
    R"(<Values DataID="13000"><Value1 DataID="13001">1</Value1></Values>)";
inline constexpr const char* kStats =
    R"(<Stats><Results><N>20</N><Mean>0.333333333333333</Mean></Results><Counts>1 2.5 0.333333333333333</Counts>)"
    R"(<Percentiles>0.333333333333333 4 5</Percentiles><Bin><Min>0.125</Min><Auto>1</Auto></Bin><BoxChart><Box>)"
    R"(<Center>2.125</Center><Top>3</Top></Box><Whisker><Top>9</Top></Whisker></BoxChart></Stats>)";
inline constexpr const char* kCompact =
    R"(<W WeightMethod="8" Weight_A="0.333333333333333" Weight_B="2" Weight_C="3" Combo="one|two|three, and more")"
    R"( DisableWeightMethod="0">a column with the weights</W>)";
inline constexpr const char* kExpanded =
    R"(<P><WeightMethod@11 Show="0">8</WeightMethod><WeightData@13>a column with the weights</WeightData>)"
    R"(<WeightA@14>0.333333333333333</WeightA><WeightB@14>2</WeightB><WeightC@14>3</WeightC></P>)";
inline constexpr const char* kRows =
    R"(<Rows><Row3 Order="3" Label="the third of the rows"><a>inside of row three</a></Row3>)"
    R"(<Row1 Order="1" Label="the first of the rows"/><Row2 Order="2" Name="Row2">the text of the second</Row2></Rows>)";

inline const std::vector<ExportCall>& table() {
  static const std::vector<ExportCall> rows = {
      {"VCRangeTreeIterator::Get(RYXmlWrapperBase&)", 1,
       [](S& s) { return VCRangeTreeIterator(s.tree).Get(s.out); }, kRanges},
      {"VCRangeTreeIterator::VCRangeTreeIterator(RYXmlWrapperBase&)", 2,
       [](S& s) {
         VCRangeTreeIterator ranges(s.tree);
         return ranges.Get(s.out) + ranges.Get(s.out);
       },
       kRanges},
      {"VCRangeTreeIterator::VCRangeTreeIterator(VCRangeTreeIterator const&)", 1,
       [](S& s) {
         const VCRangeTreeIterator ranges(s.tree);
         return VCRangeTreeIterator(ranges).Get(s.out);
       },
       kRanges},
      {"VCRangeTreeIterator::VCRangeTreeIterator(VCRangeTreeIterator&)", 1,
       [](S& s) {
         VCRangeTreeIterator ranges(s.tree);
         ranges.Get(s.out);
         return VCRangeTreeIterator(ranges).Get(s.out);
       },
       kRanges},
      {"VCRangeTreeIterator::operator=(VCRangeTreeIterator const&)", 1,
       [](S& s) {
         VCRangeTreeIterator ranges(s.other);
         ranges = VCRangeTreeIterator(s.tree);
         return ranges.Get(s.out);
       },
       kRanges},
      {"VCRangeTreeIterator::~VCRangeTreeIterator()", 1,
       [](S& s) { return VCRangeTreeIterator(s.other).Get(s.out); }},
      {"VCSubRangeTreeIterator::Get(RYXmlWrapperBase&)", 1,
       [](S& s) { return VCSubRangeTreeIterator(s.tree).Get(s.out); }, kRanges},
      {"VCSubRangeTreeIterator::VCSubRangeTreeIterator(RYXmlWrapperBase&)", 1,
       [](S& s) {
         VCSubRangeTreeIterator nodes(s.tree);
         return nodes.Get(s.out) - nodes.Get(s.out);
       },
       kRanges},
      {"VCSubRangeTreeIterator::VCSubRangeTreeIterator(VCSubRangeTreeIterator const&)", 1,
       [](S& s) {
         const VCSubRangeTreeIterator nodes(s.tree);
         return VCSubRangeTreeIterator(nodes).Get(s.out);
       },
       kRanges},
      {"VCSubRangeTreeIterator::VCSubRangeTreeIterator(VCSubRangeTreeIterator&)", 1,
       [](S& s) {
         VCSubRangeTreeIterator nodes(s.tree);
         return VCSubRangeTreeIterator(nodes).Get(s.out);
       },
       kRanges},
      {"VCSubRangeTreeIterator::operator=(VCSubRangeTreeIterator const&)", 1,
       [](S& s) {
         VCSubRangeTreeIterator nodes(s.other);
         nodes = VCSubRangeTreeIterator(s.tree);
         return nodes.Get(s.out);
       },
       kRanges},
      {"VCSubRangeTreeIterator::~VCSubRangeTreeIterator()", 1,
       [](S& s) { return VCSubRangeTreeIterator(s.other).Get(s.out); }},
      {"VCTreeAccessBlockLocalization(bool*, bool)", 0,
       [](S&) {
         bool off = false;  // as it is at the start
         return VCTreeAccessBlockLocalization(&off, false);
       }},
      {"VCTreeAttributeValues(RYXmlWrapperBase*, char const*, int, CArray<int, int>*, int, int)", 0,
       [](S& s) { return VCTreeAttributeValues(&s.tree, "Attribute", 7, nullptr, 0, 1); }},
      {"VCTreeCheckAddInputDataBranch(RYXmlWrapperBase*, RYXmlWrapperBase*, CStringArray const*, "
       "CStringArray const*, "
       "int, int, int, char const*)",
       1,
       [](S& s) {
         s.labels.array()[0] = "Plot";
         return VCTreeCheckAddInputDataBranch(&s.out, &s.tree, &s.labels.array(), &s.values, 5, 2, -1,
                                              "a text of every child");
       }},
      {"VCTreeGetAttributes(RYXmlWrapperBase*, CStringArray*, char const*, bool)", 0,
       [](S& s) { return VCTreeGetAttributes(&s.tree, &s.values, "Label", false); }},
      {"VCTreeGetChanged(CStringArray*, CStringArray*, bool)", 1,
       [](S& s) {
         s.values[1].MakeUpper();
         return VCTreeGetChanged(&s.values, &s.labels.array(), true);
       }},
      {"VCTreeGetFitterWeightStrings(int, CString*, CStringArray*)", 15,
       [](S& s) { return VCTreeGetFitterWeightStrings(8, &s.text, &s.values); }},
      {"VCTreeGetPathStr(CString&, RYXmlWrapperBase*)", 1,
       [](S& s) {
         s.out = at(s.tree, {0, 1});
         return VCTreeGetPathStr(s.text, &s.out);
       }},
      {"VCTreeGetRepeatId(RYXmlWrapperBase&, int&)", 1,
       [](S& s) {
         s.out = at(s.tree, {1});
         return VCTreeGetRepeatId(s.out, s.integers[0]);
       }},
      {"VCTreeGetValues(RYXmlWrapperBase*, CStringArray*, bool)", 0,
       [](S& s) { return VCTreeGetValues(&s.tree, &s.values, false); }},
      {"VCTreeIsSame(CArray<int, int>*, CArray<int, int>*)", 1,
       [](S& s) { return VCTreeIsSame(&s.ids, &s.ints.array()); }},
      {"VCTreeNodeGetValue(RYXmlWrapperBase&, CString&)", 0,
       [](S& s) {
         s.out = at(s.tree, {0, 1});
         VCTreeNodeGetValue(s.out, s.text);
       }},
      {"VCTreePrepareForMenu(RYXmlWrapperBase*, unsigned int&)", 3,
       [](S& s) { return VCTreePrepareForMenu(&s.tree, s.next_id); }, kRows},
      {"VCTreeSetAttributes(RYXmlWrapperBase*, CArray<int, int> const*, char const*, char const*, char "
       "const*, bool)",
       1,
       [](S& s) {
         return VCTreeSetAttributes(&s.tree, &s.ids, "a text that they get", "Mark", nullptr, true);
       }},
      {"VCTreeSetCompositeSubRangeNodeActionId(RYXmlWrapperBase&, int, int)", 1,
       [](S& s) { return VCTreeSetCompositeSubRangeNodeActionId(s.tree, 1002, 1004); }, kRanges},
      {"VCTreeSetRepeatId(RYXmlWrapperBase&, int)", 1, [](S& s) { return VCTreeSetRepeatId(s.tree, 144); }},
      {"VCTreeSetTagName(RYXmlWrapperBase*, char const*)", 1,
       [](S& s) { return VCTreeSetTagName(&s.tree, "A_new_name_of_some_length"); }},
      {"VCTreeUpdateChanges(RYXmlWrapperBase*, CStringArray*)", 3,
       [](S& s) { return VCTreeUpdateChanges(&s.tree, &s.values); }},
      {"XVarNode_IsInput(RYXmlWrapperBase&, bool)", 1, [](S& s) { return XVarNode_IsInput(s.tree, true); },
       "<Var><io>0</io></Var>"},
      {"XVarNode_IsOutput(RYXmlWrapperBase&, bool)", 1, [](S& s) { return XVarNode_IsOutput(s.tree, true); },
       "<Var><io>1</io></Var>"},
      {"report_get_escaped_data_string", 0,
       [](S& s) { report_get_escaped_data_string(&s.text, 123456, 1, 'P', 'W', 2 + (3 << 16), 0, 1234567); }},
      {"report_get_set_data_string", 1,
       [](S& s) { return report_get_set_data_string(&s.text, 123'456'789); }},
      {"report_make_input_data_table_var_row", 1,
       [](S& s) {
         s.out = report_make_input_data_table_var_row(&s.made, 0, 1, 0, true, "a signal with a long name", 1,
                                                      0, 2, 0, 8, &s.tree, 0, 0);
         return s.out.IsNodeValid();
       }},
      {"report_set_escaped_data_string_type", 1,
       [](S& s) {
         s.text = "?$OP:P=1Y1";
         return report_set_escaped_data_string_type(&s.text, 'G');
       }},
      {"report_update_input_data_table", 0,
       [](S& s) {
         report_update_input_data_table(&s.made, 0, 2, 2, 1, &s.texts, &s.labels, 0, &s.ints, &s.tree, 1);
       }},
      {"ry_is_same", 1,
       [](S& s) {
         HostIntArray same;
         same.array() = s.ids;
         return ry_is_same(&s.ints, &same);
       }},
      {"ryget_changed", 0,
       [](S& s) {
         s.labels.array()[0] = "another value for the width";
         return ryget_changed(&s.texts, &s.labels, 0);
       }},
      {"rytree_GETN_reset_hidden_values", 2,
       [](S& s) { return rytree_GETN_reset_hidden_values(&s.tree, &s.ints, true); },
       R"(<R><a@10 DataID="11">a value that is hidden</a><b><c@268435456 DataID="12" Use="1"><d/></c></b></R>)"},
      {"rytree_add_path_str", 1, [](S& s) { return rytree_add_path_str(&s.tree, "Path", 1, 1); }},
      {"rytree_append_children", 8, [](S& s) { return rytree_append_children(&s.tree, &s.tree, "Plot"); }},
      {"rytree_attribute_values", 0,
       [](S& s) { return rytree_attribute_values(&s.tree, "DataID", 0, &s.ints, 0); }},
      {"rytree_branch_to_key_value_pairs_str", 1,
       [](S& s) { return rytree_branch_to_key_value_pairs_str(&s.tree, &s.text, '=', ','); }},
      {"rytree_check_add_all_enumerated_nodes", 1,
       [](S& s) {
         return rytree_check_add_all_enumerated_nodes(&s.tree, "Entry", &s.doubles, 7,
                                                      "a label with some length", &s.integers[0], nullptr);
       }},
      {"rytree_check_add_enumerated_node", 0,
       [](S& s) {
         rytree_check_add_enumerated_node(&s.out, &s.tree, "AnEntryWithALongName", 5, 9, "Hint",
                                          "a text for the hint");
       }},
      {"rytree_check_get_node_by_dataid", 1,
       [](S& s) {
         return rytree_check_get_node_by_dataid(&s.tree, &s.out, "AnEntryWithALongName", 99, "Hint",
                                                "a text for the hint");
       }},
      {"rytree_check_node_int_attr", 1,
       [](S& s) {
         s.out = at(s.tree, {2});
         return rytree_check_node_int_attr(&s.out, &s.labels, &s.ints);
       },
       nullptr, int_attributes},
      {"rytree_check_node_str_attr", 1,
       [](S& s) {
         s.out = at(s.tree, {1, 0});
         return rytree_check_node_str_attr(&s.out, &s.labels, &s.texts, 1);
       },
       nullptr, attributes},
      {"rytree_clear_all_value", 0, [](S& s) { rytree_clear_all_value(&s.tree); }},
      {"rytree_combine_treenode_id_with_repeat_id", 3,
       [](S& s) {
         s.integers[0] = 7;
         return rytree_combine_treenode_id_with_repeat_id(&s.made, &s.integers[0], nullptr, 128);
       }},
      {"rytree_composite_range_get_entire_worksheet_support", 1,
       [](S& s) { return rytree_composite_range_get_entire_worksheet_support(&s.tree); }},
      {"rytree_composite_range_set_entire_worksheet_support", 0,
       [](S& s) { rytree_composite_range_set_entire_worksheet_support(&s.made, 1); }},
      {"rytree_copy_atts", 6, [](S& s) { return rytree_copy_atts(&s.tree, &s.other, "Label", 1); }},
      {"rytree_copy_atts_by_id", 0,
       [](S& s) {
         return rytree_copy_atts_by_id(&s.tree, &s.other, "Label", nullptr, nullptr, "OldValue", 0);
       }},
      {"rytree_copy_ids_by_tagname", 5,
       [](S& s) { return rytree_copy_ids_by_tagname(&s.tree, &s.other, true); }},
      {"rytree_copy_values_between_homologous_trees", 0,
       [](S& s) { return rytree_copy_values_between_homologous_trees(&s.other, &s.tree, 1); }},
      {"rytree_copy_values_by_id", 6,
       [](S& s) { return rytree_copy_values_by_id(&s.tree, &s.other, 0, nullptr, nullptr, 1, 0, 0); }},
      {"rytree_copy_values_to_attributes_by_attribute_matching", 1,
       [](S& s) {
         return rytree_copy_values_to_attributes_by_attribute_matching(&s.tree, &s.other, "Hint", "DataID",
                                                                       "Label", 1, 1, 0);
       }},
      {"rytree_count_items_by_attribute", 7,
       [](S& s) { return rytree_count_items_by_attribute(&s.tree, "Label", nullptr, 1, 1); }},
      {"rytree_create_composite_range_node", 1,
       [](S& s) {
         return rytree_create_composite_range_node(&s.out, &s.tree, "RangesOfTheData",
                                                   "a label of the ranges", 3, 4, "the data of the ranges");
       }},
      {"rytree_delete_nodes_by_attribute", 1,
       [](S& s) { return rytree_delete_nodes_by_attribute(&s.tree, "DataID", 14, 1, "Label"); }},
      {"rytree_delete_nodes_by_missing_attribute", 4,
       [](S& s) { return rytree_delete_nodes_by_missing_attribute(&s.tree, "NodeID", 1, 1, 0); }},
      {"rytree_filter", 1,
       [](S& s) { return rytree_filter(&s.tree, 20, 1, 11, &s.texts, 1, 12, &s.labels); }},
      {"rytree_filter_by_attrib_find", 1,
       [](S& s) {
         return rytree_filter_by_attrib_find(&s.tree, 20, "Label", "not in the label of it", 0, 0);
       }},
      {"rytree_filter_by_attrib_match", 1,
       [](S& s) { return rytree_filter_by_attrib_match(&s.tree, 20, "Label", "*plot with*", 0); }},
      {"rytree_find_node", 1,
       [](S& s) { return rytree_find_node(&s.tree, &s.out, "DataID", 14, true, 0, 0); }},
      {"rytree_find_node_by_dataID", 1,
       [](S& s) { return rytree_find_node_by_dataID(&s.out, &s.tree, 14, 420, 256, 0, 0); }},
      {"rytree_find_node_ex", 0,
       [](S& s) { return rytree_find_node_ex(&s.tree, &s.out, "DataID", 14, 420, 256, 0, 0); }},
      {"rytree_find_node_with_int_attr", 1,
       [](S& s) { return rytree_find_node_with_int_attr(&s.tree, &s.out, &s.labels, &s.ints, 1, 0); },
       nullptr, int_attributes},
      {"rytree_find_node_with_str_attr", 1,
       [](S& s) { return rytree_find_node_with_str_attr(&s.tree, &s.out, &s.labels, &s.texts, 1, 0); },
       nullptr, attributes},
      {"rytree_fitter_get_weight_mth_info", 1,
       [](S& s) {
         int* const n = s.integers;
         return rytree_fitter_get_weight_mth_info(8, &s.text, &n[0], &n[1], &n[2], &n[3]);
       }},
      {"rytree_get_attributes", 0, [](S& s) { return rytree_get_attributes(&s.tree, &s.texts, "Label", 0); }},
      {"rytree_get_auto_support", 1, [](S& s) { return rytree_get_auto_support(&s.tree); }},
      {"rytree_get_enum_attribute_value", 0,
       [](S& s) { rytree_get_enum_attribute_value(&s.tree, &s.text, "Name", "Row", nullptr); }, kRows},
      {"rytree_get_enum_node_name", 0, [](S& s) { rytree_get_enum_node_name(&s.tree, &s.text, "Plot"); }},
      {"rytree_get_help_node", 1, [](S& s) { return rytree_get_help_node(&s.out, &s.tree, 14, 256); }},
      {"rytree_get_level", 2,
       [](S& s) {
         RYXmlWrapperBase node = at(s.tree, {0, 1});
         s.out = s.tree;
         return rytree_get_level(&s.text, &node, &s.out, 1);
       }},
      {"rytree_get_localization_node", 1,
       [](S& s) { return rytree_get_localization_node(&s.out, &s.tree, 14, 15, 420, 1, 256); }},
      {"rytree_get_next_enum_tag_name", 4,
       [](S& s) { return rytree_get_next_enum_tag_name(&s.tree, &s.text, 1); }, kRows},
      {"rytree_get_node", 1,
       [](S& s) {
         return rytree_get_node(&s.tree, &s.out, 5, &s.integers[0], -1, "Label", false, false, 0);
       }},
      {"rytree_get_node_by_id", 1, [](S& s) { return rytree_get_node_by_id(&s.tree, &s.out, 14, true); }},
      {"rytree_get_node_by_tagname", 1,
       [](S& s) { return rytree_get_node_by_tagname(&s.tree, &s.out, "STYLE", true, false, true); }},
      {"rytree_get_node_ex", 1,
       [](S& s) { return rytree_get_node_ex(&s.tree, &s.out, 5, kNodeLimitLevel | 2, nullptr); }},
      {"rytree_get_node_label", 24,
       [](S& s) {
         s.out = at(s.tree, {0});
         s.text = rytree_get_node_label(&s.out, true);
         return s.text.GetLength();
       }},
      {"rytree_get_node_names", 1, [](S& s) { return rytree_get_node_names(&s.tree, &s.texts, 0); }},
      {"rytree_get_root_node", 1,
       [](S& s) {
         RYXmlWrapperBase node = at(s.tree, {0, 1});
         return rytree_get_root_node(&node, &s.out);
       }},
      {"rytree_get_row_number", 6, [](S& s) { return rytree_get_row_number(&s.tree, "Root.Plot1"); }},
      {"rytree_get_theme", 1, [](S& s) { return rytree_get_theme(&s.other, &s.ints, &s.texts, &s.text); },
       nullptr, theme},
      {"rytree_get_values", 0, [](S& s) { return rytree_get_values(&s.tree, &s.texts, 0); }},
      {"rytree_get_values_with_ids", 7,
       [](S& s) {
         return rytree_get_values_with_ids(&s.tree, &s.ints, &s.texts, &s.labels, 1, 0, 0, nullptr, 1,
                                           &s.text);
       }},
      {"rytree_hide_empty_nodes", 1, [](S& s) { return rytree_hide_empty_nodes(&s.tree, true, true); }},
      {"rytree_is_in_ids_range", 1, [](S& s) { return rytree_is_in_ids_range(&s.tree, 1, 2, 3); }},
      {"rytree_key_value_pairs_str_to_branch", 1,
       [](S& s) {
         return rytree_key_value_pairs_str_to_branch(
             &s.tree, "width=2.5 points, and more;AKeyOfSomeLength = \"a text; with a separator\";", '=',
             ';');
       }},
      {"rytree_make_one_set_ID", 0x20030007, [](S&) { return rytree_make_one_set_ID(7, 3); }},
      {"rytree_move_node", 1, [](S& s) { return rytree_move_node(&s.tree, 4, 0, 0, nullptr); }},
      {"rytree_nlf_set_bool_param_from_user_params_setting", 1,
       [](S& s) { return rytree_nlf_set_bool_param_from_user_params_setting(&s.tree, &s.bools, 0); },
       kVector},
      {"rytree_nlf_set_double_param_from_user_params_setting", 1,
       [](S& s) { return rytree_nlf_set_double_param_from_user_params_setting(&s.tree, &s.doubles, 0); },
       kVector},
      {"rytree_nlf_set_int_param_from_user_params_setting", 1,
       [](S& s) { return rytree_nlf_set_int_param_from_user_params_setting(&s.tree, &s.ints, 0); }, kVector},
      {"rytree_nlsf_add_params_node_DataID", 0, [](S& s) { rytree_nlsf_add_params_node_DataID(&s.out, 3); }},
      {"rytree_node_changed", 1,
       [](S& s) { return rytree_node_changed(&s.tree, 1, "the value that was there before"); }},
      {"rytree_node_copy_attribute", 1,
       [](S& s) { return rytree_node_copy_attribute(&s.tree, &s.other, "ThemeFile"); }},
      {"rytree_remove_attribute", 7, [](S& s) { return rytree_remove_attribute(&s.tree, "Label", 1); }},
      {"rytree_remove_empty_child_nodes", 4,
       [](S& s) { return rytree_remove_empty_child_nodes(&s.tree, true); }},
      {"rytree_remove_nodes_by_attribute", 1,
       [](S& s) { return rytree_remove_nodes_by_attribute(&s.tree, "DataID", 20); }},
      {"rytree_remove_unchange_nodes_by_id", 2,
       [](S& s) { return rytree_remove_unchange_nodes_by_id(&s.tree, &s.other, nullptr, nullptr); }},
      {"rytree_save_values_with_ids", 1,
       [](S& s) {
         return rytree_save_values_with_ids(&s.tree, &s.ints, &s.texts, "a comment on it", &s.labels);
       }},
      {"rytree_set_attribute_bit_if_not_empty", 1,
       [](S& s) { return rytree_set_attribute_bit_if_not_empty(&s.tree, "Branch", 8, true); }},
      {"rytree_set_attribute_to_all_nodes", 0,
       [](S& s) {
         rytree_set_attribute_to_all_nodes(&s.tree, "Hint", "a text for every node", false, false);
       }},
      {"rytree_set_attributes", 1,
       [](S& s) {
         return rytree_set_attributes(&s.tree, &s.ints, "a text that they get", "Mark", nullptr, true);
       }},
      {"rytree_set_auto_support", 1, [](S& s) { return rytree_set_auto_support(&s.tree, -1); }},
      {"rytree_set_composite_subrange_values", 1,
       [](S& s) {
         s.out = at(s.tree, {1});
         return rytree_set_composite_subrange_values(&s.out, "the column for x", "the column for y",
                                                     "the column for the rest", 2);
       },
       kRanges},
      {"rytree_set_date_node", 1, [](S& s) { return rytree_set_date_node(&s.made, 1.0 / 3); }},
      {"rytree_set_default_code_page", 1, [](S&) { return rytree_set_default_code_page(65001); }},
      {"rytree_set_theme", 1,
       [](S& s) { return rytree_set_theme(&s.tree, &s.ints, &s.texts, "a comment on the theme"); }},
      {"rytree_set_values_by_ids", 3,
       [](S& s) {
         return rytree_set_values_by_ids(&s.tree, &s.ints, &s.texts, 0, &s.integers[0], 0, nullptr, &s.text,
                                         0);
       },
       nullptr,
       [](S& s) {
         s.ints.array()[2] = 256 << 16 | 14;
         s.texts.array()[0] = "::{Auto=1|decorated, that is|1}a value after its decoration";
       }},
      {"rytree_set_values_by_nodeids", 2,
       [](S& s) { return rytree_set_values_by_nodeids(&s.tree, &s.ints, &s.texts); }},
      {"rytree_sort_children_by_int_attribute", 1,
       [](S& s) { return rytree_sort_children_by_int_attribute(&s.tree, "Order", 1); }, kRows},
      {"rytree_stats_get_boxchart_box_node", 1,
       [](S& s) { return rytree_stats_get_boxchart_box_node(&s.tree, &s.out); }},
      {"rytree_stats_get_boxchart_whisker_node", 1,
       [](S& s) { return rytree_stats_get_boxchart_whisker_node(&s.tree, &s.out); }},
      {"rytree_stats_get_set_bin_info", 0,
       [](S& s) { rytree_stats_get_set_bin_info(&s.tree, &s.numbers[0], &s.numbers[1], &s.numbers[2], 0); }},
      {"rytree_stats_get_set_box_info", 0,
       [](S& s) {
         double* const n = s.numbers;
         rytree_stats_get_set_box_info(&s.tree, &n[0], &n[1], &n[2], &n[3], &n[4], 0);
       }},
      {"rytree_stats_get_set_counts", 0, [](S& s) { rytree_stats_get_set_counts(&s.tree, &s.doubles, 0); }},
      {"rytree_stats_get_set_percentiles", 0,
       [](S& s) { rytree_stats_get_set_percentiles(&s.tree, &s.doubles, 1); }, kStats},
      {"rytree_stats_get_set_stats_results", 0,
       [](S& s) {
         rytree_stats_get_set_stats_results(&s.tree, &s.results, &s.numbers[0], &s.numbers[1], 0);
       }},
      {"rytree_stats_get_set_whisker_info", 0,
       [](S& s) { rytree_stats_get_set_whisker_info(&s.tree, &s.numbers[0], &s.numbers[1], 0); }},
      {"rytree_stats_is_bin_auto", 1, [](S& s) { return rytree_stats_is_bin_auto(&s.tree); }, kStats},
      {"rytree_stats_set_bin_auto", 0, [](S& s) { rytree_stats_set_bin_auto(&s.tree, 1); }},
      {"rytree_theme_tree_get_node_by_id", 1,
       [](S& s) { return rytree_theme_tree_get_node_by_id(&s.out, &s.tree, 14, 9, true); }},
      {"rytree_theme_tree_get_node_by_index", 1,
       [](S& s) { return rytree_theme_tree_get_node_by_index(&s.out, &s.tree, 20, 2, 9, true); }},
      {"rytree_theme_tree_get_range_from_range_style", 1,
       [](S& s) {
         int* const n = s.integers;
         return rytree_theme_tree_get_range_from_range_style(&s.tree, &n[0], &n[1], &n[2], &n[3]);
       },
       "<Style><left>1</left><Top>2</Top><Right>3</Right><Bottom>4</Bottom></Style>"},
      {"rytree_tree_check_add_input_data_branch", 1,
       [](S& s) {
         s.labels.array()[0] = "Plot";
         return rytree_tree_check_add_input_data_branch(&s.out, &s.tree, &s.labels, &s.texts, 5, 0, 1,
                                                        "a text of one child");
       }},
      {"rytree_tree_check_get_node", 1,
       [](S& s) {
         return rytree_tree_check_get_node(&s.out, &s.tree, "AnEntryWithALongName", 9, "Hint",
                                           "a text for the hint", 1);
       }},
      {"rytree_tree_check_get_node_by_attribute", 1,
       [](S& s) {
         return rytree_tree_check_get_node_by_attribute(&s.out, &s.tree, "Hint", "a text for the hint", 1);
       }},
      {"rytree_tree_get_theme_file_name", 1,
       [](S& s) { return rytree_tree_get_theme_file_name(&s.tree, &s.text); }},
      {"rytree_tree_get_theme_type", 2, [](S& s) { return rytree_tree_get_theme_type(&s.tree); }},
      {"rytree_tree_read_values_with_ids", 1,
       [](S& s) { return rytree_tree_read_values_with_ids(s.file.c_str(), &s.ints, &s.texts, &s.text); },
       nullptr, theme_file},
      {"rytree_tree_save_values_with_ids", 1,
       [](S& s) {
         return rytree_tree_save_values_with_ids(s.file.c_str(), &s.ints, &s.texts, "a comment on it",
                                                 &s.labels);
       }},
      {"rytree_tree_set_theme_file_name", 1,
       [](S& s) { return rytree_tree_set_theme_file_name(&s.other, "themes/another file name.xml"); }},
      {"rytree_update_changes", 3, [](S& s) { return rytree_update_changes(&s.tree, &s.texts); }},
      {"rytree_value_from_tree_sub_nodes_to_vector_bool", 3,
       [](S& s) { return rytree_value_from_tree_sub_nodes_to_vector_bool(&s.tree, &s.bools); }, kVector},
      {"rytree_value_from_tree_sub_nodes_to_vector_double", 3,
       [](S& s) { return rytree_value_from_tree_sub_nodes_to_vector_double(&s.tree, &s.doubles); }, kVector},
      {"rytree_value_from_tree_sub_nodes_to_vector_int", 3,
       [](S& s) { return rytree_value_from_tree_sub_nodes_to_vector_int(&s.tree, &s.ints); }, kVector},
      {"rytree_value_from_vec_bool_to_tree_sub_nodes", 0,
       [](S& s) { rytree_value_from_vec_bool_to_tree_sub_nodes(&s.bools, &s.tree); }, kShortVector},
      {"rytree_value_from_vec_double_to_tree_sub_nodes", 0,
       [](S& s) { rytree_value_from_vec_double_to_tree_sub_nodes(&s.doubles, &s.tree); }, kShortVector},
      {"rytree_value_from_vec_int_to_tree_sub_nodes", 0,
       [](S& s) { rytree_value_from_vec_int_to_tree_sub_nodes(&s.ints, &s.tree); }, kShortVector},
      {"rytree_whole_copy_values_by_id", 6,
       [](S& s) { return rytree_whole_copy_values_by_id(&s.tree, &s.made); }},
      {"tmxfu_tree_check_get_node(RYXmlWrapperBase&, RYXmlWrapperBase&, char const*, ...)", 1,
       [](S& s) {
         return tmxfu_tree_check_get_node(s.out, s.tree, "Plot", "ALevelWithALongName", "Below", nullptr);
       }},
      {"tmxfu_tree_check_get_node_ex(RYXmlWrapperBase&, RYXmlWrapperBase&, int, char const*, __va_list_tag*)",
       1, [](S& s) { return check_get_node_ex(s, 1, "Plot", "ALevelWithALongName", "Below", nullptr); }},
      {"tmxfu_tree_get_node(RYXmlWrapperBase&, RYXmlWrapperBase const&, char const*, ...)", 1,
       [](S& s) { return tmxfu_tree_get_node(s.out, s.tree, "Plot1", "Style", nullptr); }},
      {"tmxfu_tree_node_vector_value(RYXmlWrapperBase&, tagRYSOBJVECT&, int, char const*, ...)", 1,
       [](S& s) { return tmxfu_tree_node_vector_value(s.tree, s.vector, 0, "Plot", "Vector", nullptr); }},
      {"vctree_GETN_reset_hidden_values(RYXmlWrapperBase*, CArray<int, int>*, bool)", 2,
       [](S& s) { return vctree_GETN_reset_hidden_values(&s.tree, &s.ids, true); },
       R"(<R><a@13 DataID="11">a value that is hidden</a><b><c@268435456 DataID="14" Use="1"><d/></c></b></R>)"},
      {"vctree_add_subrange_to_composite_range(RYXmlWrapperBase&, RYXmlWrapperBase&, int, int, int)", 1,
       [](S& s) { return vctree_add_subrange_to_composite_range(s.out, s.tree, 44, 55, 2); }, kRanges},
      {"vctree_check_reset_auto_support(RYXmlWrapperBase&)", 0,
       [](S& s) { vctree_check_reset_auto_support(s.tree); }},
      {"vctree_composite_range_get_entire_worksheet_support(RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_composite_range_get_entire_worksheet_support(s.tree); }},
      {"vctree_composite_range_set_entire_worksheet_support(RYXmlWrapperBase&, int)", 0,
       [](S& s) { vctree_composite_range_set_entire_worksheet_support(s.made, -1); }},
      {"vctree_copy_branch_options(RYXmlWrapperBase*, RYXmlWrapperBase*, unsigned long)", 1,
       [](S& s) { return vctree_copy_branch_options(&s.made, &s.tree, 1); }},
      {"vctree_copy_plot_uid_from_tree_to_tree(RYXmlWrapperBase&, RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_copy_plot_uid_from_tree_to_tree(s.made, s.tree); }},
      {"vctree_copy_values_between_homologous_trees(RYXmlWrapperBase&, RYXmlWrapperBase&, int, "
       "CStringArray*)",
       0,
       [](S& s) {
         s.labels.array()[0] = "Label";
         return vctree_copy_values_between_homologous_trees(s.other, s.tree, 1, &s.labels.array());
       }},
      {"vctree_copy_values_by_id(RYXmlWrapperBase*, RYXmlWrapperBase*, int, char const*, char const*, int, "
       "_SETVALUESBYIDS*, int, int)",
       6,
       [](S& s) {
         _SETVALUESBYIDS hook{};
         hook.dataId = 11;
         hook.callback = [](_SETVALUESBYIDS* at) { return *at->value += ", as the hook has it", 1; };
         return vctree_copy_values_by_id(&s.tree, &s.other, 0, nullptr, nullptr, 1, &hook, 0, 0);
       }},
      {"vctree_create_auto_support_string(CString&, int, char const*, int)", 1,
       [](S& s) { return vctree_create_auto_support_string(s.text, 1, nullptr, 123'456'789); }},
      {"vctree_extract_weight_info(RYXmlWrapperBase&, char const*, int*, double*, double*, double*)", 1,
       [](S& s) {
         double* const n = s.numbers;
         return vctree_extract_weight_info(s.tree, nullptr, &s.integers[0], &n[0], &n[1], &n[2]);
       },
       kCompact},
      {"vctree_fitter_data_weight_node_compact_to_expanded(RYXmlWrapperBase&, RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_fitter_data_weight_node_compact_to_expanded(s.made, s.tree); }, kCompact},
      {"vctree_fitter_data_weight_node_expanded_to_compact(RYXmlWrapperBase&, RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_fitter_data_weight_node_expanded_to_compact(s.made, s.tree); }, kExpanded},
      {"vctree_get_all_children_values_as_string_array(RYXmlWrapperBase&, CStringArray&)", 0,
       [](S& s) { vctree_get_all_children_values_as_string_array(s.tree, s.values); }},
      {"vctree_get_attributes(RYXmlWrapperBase*, CStringArray*, char const*, bool)", 0,
       [](S& s) { return vctree_get_attributes(&s.tree, &s.values, "Label", false); }},
      {"vctree_get_auto_support(RYXmlWrapperBase&, CString&, int&)", 1,
       [](S& s) { return vctree_get_auto_support(s.tree, s.text, s.integers[0]); }},
      {"vctree_get_composite_subrange_values(RYXmlWrapperBase&, CString&, CString&, CString&, int)", 1,
       [](S& s) {
         s.out = at(s.tree, {0});
         return vctree_get_composite_subrange_values(s.out, s.text, s.text2, s.text3, 2);
       },
       kRanges},
      {"vctree_get_data_marker_id_from_tree(RYXmlWrapperBase&, int&)", 1,
       [](S& s) { return vctree_get_data_marker_id_from_tree(s.tree, s.integers[0]); }},
      {"vctree_get_node_names(RYXmlWrapperBase*, CStringArray*, bool)", 0,
       [](S& s) { vctree_get_node_names(&s.tree, &s.values, false); }},
      {"vctree_get_plot_uid_from_tree(RYXmlWrapperBase&, int&)", 1,
       [](S& s) { return vctree_get_plot_uid_from_tree(s.tree, s.integers[0]); }},
      {"vctree_get_set_node_action_id(RYXmlWrapperBase&, int&, int)", 1,
       [](S& s) { return vctree_get_set_node_action_id(s.made, s.integers[0], 0); }},
      {"vctree_get_theme(RYXmlWrapperBase*, CArray<int, int>*, CStringArray*, CString*)", 0,
       [](S& s) { vctree_get_theme(&s.other, &s.ids, &s.values, &s.text); }, nullptr, theme},
      {"vctree_get_values_with_ids(RYXmlWrapperBase*, CArray<int, int>*, CStringArray*, int, int, int, char "
       "const*, "
       "int, CString*)",
       1,
       [](S& s) {
         return vctree_get_values_with_ids(&s.tree, &s.ids, &s.values, 1, 1, 0, nullptr, 1, &s.text);
       }},
      {"vctree_modify_DWORD_attribute(RYXmlWrapperBase&, char const*, unsigned int, unsigned int)", 0,
       [](S& s) { vctree_modify_DWORD_attribute(s.made, "Options", 1, 7); }},
      {"vctree_parse_auto_support_string(char const*, int&, CString&, int&)", 1,
       [](S& s) { return vctree_parse_auto_support_string(s.text2, s.integers[0], s.text, s.integers[1]); },
       nullptr, [](S& s) { s.text2 = "1|by hand, not by the program|7"; }},
      {"vctree_read_values_with_ids(char const*, CArray<int, int>*, CStringArray*, CString*)", 1,
       [](S& s) { return vctree_read_values_with_ids(s.file.c_str(), &s.ids, &s.values, &s.text); }, nullptr,
       theme_file},
      {"vctree_reenum_subranges_in_range_tree(RYXmlWrapperBase&, int)", 0,
       [](S& s) { vctree_reenum_subranges_in_range_tree(s.tree, 1); }, kRows},
      {"vctree_save_values_with_ids(RYXmlWrapperBase*, CArray<int, int>*, CStringArray*, char const*, "
       "CStringArray*)",
       1,
       [](S& s) {
         return vctree_save_values_with_ids(&s.tree, &s.ids, &s.values, "a comment on the theme",
                                            &s.labels.array());
       }},
      {"vctree_save_values_with_ids(char const*, CArray<int, int>*, CStringArray*, char const*, "
       "CStringArray*)",
       1,
       [](S& s) {
         return vctree_save_values_with_ids(s.file.c_str(), &s.ids, &s.values, "a comment on it",
                                            &s.labels.array());
       }},
      {"vctree_set_auto_support(RYXmlWrapperBase&, int, char const*, int)", 1,
       [](S& s) { return vctree_set_auto_support(s.made, 1, "by hand, not by the program", 7); }},
      {"vctree_set_composite_subrange_values(RYXmlWrapperBase&, char const*, char const*, char const*, int, "
       "int, int, "
       "int)",
       1,
       [](S& s) {
         s.out = at(s.tree, {1});
         return vctree_set_composite_subrange_values(s.out, "the column for x", "the column for y",
                                                     "the column for the rest", 55, 4, 1, 0);
       },
       kRanges},
      {"vctree_set_data_marker_id_to_tree(RYXmlWrapperBase&, int)", 1,
       [](S& s) { return vctree_set_data_marker_id_to_tree(s.made, 9); }},
      {"vctree_set_plot_uid_to_tree(RYXmlWrapperBase&, int)", 1,
       [](S& s) { return vctree_set_plot_uid_to_tree(s.made, 9); }},
      {"vctree_set_theme(RYXmlWrapperBase*, CArray<int, int>*, CStringArray*, char const*)", 1,
       [](S& s) { return vctree_set_theme(&s.out, &s.ids, &s.values, "a comment on the theme"); }},
      {"vctree_set_values_by_ids(RYXmlWrapperBase*, CArray<int, int>*, CStringArray*, int, int*, int, char "
       "const*, "
       "CString*)",
       2,
       [](S& s) {
         return vctree_set_values_by_ids(&s.tree, &s.ids, &s.values, 0, &s.integers[0], 0, "DataID", &s.text);
       }},
      {"vctree_set_values_by_nodeids(RYXmlWrapperBase*, CArray<int, int>*, CStringArray*)", 2,
       [](S& s) { return vctree_set_values_by_nodeids(&s.tree, &s.ids, &s.values); }},
      {"vctree_stats_get_boxchart_box_node(RYXmlWrapperBase&, RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_stats_get_boxchart_box_node(s.tree, s.out); }},
      {"vctree_stats_get_boxchart_whisker_node(RYXmlWrapperBase&, RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_stats_get_boxchart_whisker_node(s.tree, s.out); }},
      {"vctree_stats_get_set_bin_info(RYXmlWrapperBase&, double&, double&, double&, int)", 0,
       [](S& s) { vctree_stats_get_set_bin_info(s.tree, s.numbers[0], s.numbers[1], s.numbers[2], 1); },
       kStats},
      {"vctree_stats_get_set_box_info(RYXmlWrapperBase&, double&, double&, double&, double&, double&, int)",
       0,
       [](S& s) {
         double* const n = s.numbers;
         vctree_stats_get_set_box_info(s.tree, n[0], n[1], n[2], n[3], n[4], 1);
       },
       kStats},
      {"vctree_stats_get_set_counts(RYXmlWrapperBase&, CArray<double, double>&, int)", 0,
       [](S& s) { vctree_stats_get_set_counts(s.tree, s.doubles.array(), 1); }, kStats},
      {"vctree_stats_get_set_percentiles(RYXmlWrapperBase&, CArray<double, double>&, int)", 0,
       [](S& s) { vctree_stats_get_set_percentiles(s.tree, s.doubles.array(), 0); }},
      {"vctree_stats_get_set_stats_results(RYXmlWrapperBase&, tagDescStatResults&, double&, double&, int)", 0,
       [](S& s) {
         vctree_stats_get_set_stats_results(s.tree, s.results, s.numbers[0], s.numbers[1], 1);
         s.integers[0] = s.results.N;
         s.numbers[2] = s.results.Mean;
       },
       kStats},
      {"vctree_stats_get_set_whisker_info(RYXmlWrapperBase&, double&, double&, int)", 0,
       [](S& s) { vctree_stats_get_set_whisker_info(s.tree, s.numbers[0], s.numbers[1], 1); }, kStats},
      {"vctree_stats_is_bin_auto(RYXmlWrapperBase&)", 1,
       [](S& s) { return vctree_stats_is_bin_auto(s.tree); }, kStats},
      {"vctree_stats_set_bin_auto(RYXmlWrapperBase&, int)", 0,
       [](S& s) { vctree_stats_set_bin_auto(s.tree, 0); }},
      {"vctree_test_ICOPT_recursively(RYXmlWrapperBase&, unsigned long)", 1,
       [](S& s) {
         s.out = at(s.tree, {0, 1});
         return vctree_test_ICOPT_recursively(s.out, 32);
       }},
      {"vctree_update_fitter_data_weight_node(RYXmlWrapperBase&, int, unsigned long&, char const*, double*, "
       "double*, "
       "double*, int, int)",
       1,
       [](S& s) {
         double* const n = s.numbers;
         return vctree_update_fitter_data_weight_node(s.made, 8, s.change, "a column with the weights", &n[0],
                                                      &n[1], &n[2], 0, 1);
       }},
  };
  return rows;
}

}  // namespace every_export
