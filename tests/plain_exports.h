// One working call of every export with a plain name.
#pragma once

#include <vector>

#include "export_scene.h"

namespace every_export {

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
inline std::vector<ExportCall> plain_calls() {
  return {
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
  };
}

}  // namespace every_export
