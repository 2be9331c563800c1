// One working call of every export with a typed name.
#pragma once

#include <cstdarg>
#include <vector>

#include "export_scene.h"

namespace every_export {

inline int check_get_node_ex(S& s, int create, const char* first, ...) {
  va_list tags;
  va_start(tags, first);
  const int found = tmxfu_tree_check_get_node_ex(s.out, s.tree, create, first, tags);
  va_end(tags);
  return found;
}

inline std::vector<ExportCall> typed_calls() {
  return {
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
}

}  // namespace every_export
