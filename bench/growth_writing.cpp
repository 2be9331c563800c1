// Exports that change trees, and what they write.
#include <rytree_Utils.h>

#include "growth_rows.h"
#include "inputs.h"

namespace {

constexpr GrowthRow kRows[] = {
    {"vctree_set_values_by_ids",
     [](Scene& s) {
       vctree_set_values_by_ids(&s.tree, &s.ids, &s.values, 0, &s.number, 0, nullptr, nullptr);
     }},
    {"rytree_set_values_by_ids",
     [](Scene& s) {
       rytree_set_values_by_ids(&s.tree, &s.ints, &s.texts, 0, &s.number, 0, nullptr, nullptr, 0x30000);
     },
     [](Scene& s) {
       s.ints.array() = s.ids;
       s.texts.array() = s.values;
     }},
    {"vctree_set_values_by_nodeids",
     [](Scene& s) { vctree_set_values_by_nodeids(&s.tree, &s.ids, &s.values); }, make_node_ids},
    {"vctree_copy_values_by_id",
     [](Scene& s) { vctree_copy_values_by_id(&s.tree, &s.other, 0, nullptr, nullptr, 1, nullptr, 0, 0); }},
    {"rytree_whole_copy_values_by_id", [](Scene& s) { rytree_whole_copy_values_by_id(&s.tree, &s.empty); }},
    {"rytree_copy_atts_by_id",
     [](Scene& s) { rytree_copy_atts_by_id(&s.tree, &s.other, "Label", nullptr, nullptr, "Show", 0); }},
    {"rytree_remove_unchange_nodes_by_id",
     [](Scene& s) { rytree_remove_unchange_nodes_by_id(&s.tree, &s.other, nullptr, nullptr); }},
    {"vctree_copy_values_between_homologous_trees",
     [](Scene& s) { vctree_copy_values_between_homologous_trees(s.other, s.tree, 1, &s.text_list); },
     [](Scene& s) { s.text_list.Add("Label"); }},
    {"rytree_copy_values_to_attributes_by_attribute_matching",
     [](Scene& s) {
       rytree_copy_values_to_attributes_by_attribute_matching(&s.tree, &s.other, "Mark", "DataID", "Label", 1,
                                                              1, 0);
     }},
    {"rytree_copy_values_to_attributes_by_attribute_matching, first",
     [](Scene& s) {
       rytree_copy_values_to_attributes_by_attribute_matching(&s.tree, &s.other, "Mark", "Label", nullptr, 1,
                                                              0, 1);
     }},
    {"rytree_copy_atts", [](Scene& s) { rytree_copy_atts(&s.tree, &s.other, "Label", 0); }},
    {"rytree_copy_ids_by_tagname", [](Scene& s) { rytree_copy_ids_by_tagname(&s.tree, &s.other, true); }},
    {"rytree_copy_ids_by_tagname, numbered",
     [](Scene& s) { rytree_copy_ids_by_tagname(&s.made, &s.found, false); },
     [](Scene& s) {
       make_numbered(s);
       s.made.Clone(s.found, 0);
     }},
    {"VCTreeUpdateChanges", [](Scene& s) { VCTreeUpdateChanges(&s.tree, &s.values); }},
    {"VCTreeSetAttributes",
     [](Scene& s) { VCTreeSetAttributes(&s.tree, &s.ids, "0", nullptr, nullptr, true); }},
    {"VCTreeAttributeValues, writing",
     [](Scene& s) { VCTreeAttributeValues(&s.tree, "Mark", 7, nullptr, 0, 1); }},
    {"VCTreeAttributeValues, removing",
     [](Scene& s) { VCTreeAttributeValues(&s.tree, "DataID", -1, nullptr, 1, 1); }},
    {"rytree_filter", [](Scene& s) { rytree_filter(&s.tree, 7, 0, 7, &s.texts, 1, 7, &s.labels); },
     [](Scene& s) {
       make_equal_ids(s);
       for (const char* const text : {"7", "x", "no"}) s.texts.array().Add(text), s.labels.array().Add(text);
     }},
    {"rytree_filter, small candidates",
     [](Scene& s) { rytree_filter(&s.rows, 7, 0, 7, &s.texts, 1, 7, &s.labels); },
     [](Scene& s) {
       make_equal_ids(s);
       s.texts.array().Add("no");
     }},
    {"rytree_filter_by_attrib_find",
     [](Scene& s) { rytree_filter_by_attrib_find(&s.rows, 7, "Order", "1", 0, 0); }, make_equal_ids},
    {"rytree_filter_by_attrib_match",
     [](Scene& s) { rytree_filter_by_attrib_match(&s.rows, 7, "Order", "*1*", 0); }, make_equal_ids},
    {"rytree_delete_nodes_by_missing_attribute",
     [](Scene& s) { rytree_delete_nodes_by_missing_attribute(&s.tree, "Show", 1, 0, 0); }},
    {"rytree_delete_nodes_by_attribute",
     [](Scene& s) { rytree_delete_nodes_by_attribute(&s.tree, "Show", 1, 1, nullptr); }},
    {"rytree_remove_nodes_by_attribute",
     [](Scene& s) { rytree_remove_nodes_by_attribute(&s.tree, "Show", 1); }},
    {"rytree_remove_empty_child_nodes", [](Scene& s) { rytree_remove_empty_child_nodes(&s.tree, true); },
     [](Scene& s) { rytree_clear_all_value(&s.tree); }},
    {"rytree_hide_empty_nodes", [](Scene& s) { rytree_hide_empty_nodes(&s.tree, true, true); }},
    {"rytree_set_attribute_bit_if_not_empty",
     [](Scene& s) { rytree_set_attribute_bit_if_not_empty(&s.tree, "DataID", 1, true); },
     [](Scene& s) { rytree_clear_all_value(&s.tree); }},
    {"rytree_set_attribute_to_all_nodes",
     [](Scene& s) { rytree_set_attribute_to_all_nodes(&s.tree, "Mark", "x", false, false); }},
    {"rytree_remove_attribute", [](Scene& s) { rytree_remove_attribute(&s.tree, "Label", 1); }},
    {"rytree_clear_all_value", [](Scene& s) { rytree_clear_all_value(&s.tree); }},
    {"rytree_add_path_str", [](Scene& s) { rytree_add_path_str(&s.tree, "Path", 1, 1); }},
    {"rytree_sort_children_by_int_attribute",
     [](Scene& s) { rytree_sort_children_by_int_attribute(&s.rows, "Order", 1); }},
    {"rytree_sort_children_by_int_attribute, falling",
     [](Scene& s) { rytree_sort_children_by_int_attribute(&s.rows, "DataID", 0); }},
    {"rytree_sort_children_by_int_attribute, few values",
     [](Scene& s) { rytree_sort_children_by_int_attribute(&s.rows, "Order", 1); }, make_few_values},
    {"rytree_append_children", [](Scene& s) { rytree_append_children(&s.made, &s.made, "row"); },
     make_numbered},
    {"rytree_move_node, up", [](Scene& s) { rytree_move_node(&s.rows, s.nodes - 1, 0, 0, nullptr); }},
    {"rytree_move_node, down", [](Scene& s) { rytree_move_node(&s.rows, 0, s.nodes / 2, 0, nullptr); }},
    {"rytree_move_node, to the end", [](Scene& s) { rytree_move_node(&s.tree, 0, -1, 0, nullptr); }},
    {"VCTreeSetTagName", [](Scene& s) { static_cast<void>(VCTreeSetTagName(&s.tree, "Other")); }},
    {"VCTreePrepareForMenu",
     [](Scene& s) {
       DWORD id = 1;
       VCTreePrepareForMenu(&s.tree, id);
     },
     [](Scene& s) { rytree_remove_attribute(&s.tree, "DataID", 1); }},
    {"rytree_check_add_enumerated_node",
     [](Scene& s) {
       rytree_check_add_enumerated_node(&s.found, &s.made, "Row", s.nodes, 0, nullptr, nullptr);
     },
     make_numbered},
    {"rytree_check_add_all_enumerated_nodes",
     [](Scene& s) {
       rytree_check_add_all_enumerated_nodes(&s.empty, "Row", &s.doubles, 1, "Label", nullptr, nullptr);
     },
     make_arrays},
    {"rytree_key_value_pairs_str_to_branch",
     [](Scene& s) { rytree_key_value_pairs_str_to_branch(&s.empty, s.text, '=', ','); }, make_pairs},
    {"vctree_set_theme", [](Scene& s) { vctree_set_theme(&s.empty, &s.ids, &s.values, nullptr); }},
    {"vctree_save_values_with_ids, file",
     [](Scene& s) {
       static_cast<void>(
           vctree_save_values_with_ids(scratch_path().c_str(), &s.ids, &s.values, "x", &s.values));
     }},
    {"vctree_save_values_with_ids, node",
     [](Scene& s) {
       static_cast<void>(vctree_save_values_with_ids(&s.rows, &s.ids, &s.values, "x", &s.values));
     }},
    {"vctree_GETN_reset_hidden_values",
     [](Scene& s) { vctree_GETN_reset_hidden_values(&s.tree, &s.sorted_ids, true); }},
    {"rytree_create_composite_range_node", make_ranges},
    {"vctree_add_subrange_to_composite_range, each",
     [](Scene& s) {
       for (int i = 0; i < s.nodes / 4; ++i) {
         RYXmlWrapperBase range;
         vctree_add_subrange_to_composite_range(range, s.empty, 1, 55, 2);
       }
     }},
    {"vctree_set_composite_subrange_values",
     [](Scene& s) { vctree_set_composite_subrange_values(s.rows, "1", "2", "3", 55, 2, 0, 0); }},
    {"vctree_set_composite_subrange_values, reset",
     [](Scene& s) { vctree_set_composite_subrange_values(s.rows, "1", "2", "3", 55, 2, 0, 1); }},
    {"vctree_reenum_subranges_in_range_tree",
     [](Scene& s) { vctree_reenum_subranges_in_range_tree(s.made, 0); }, make_ranges},
    {"vctree_reenum_subranges_in_range_tree, tags",
     [](Scene& s) { vctree_reenum_subranges_in_range_tree(s.made, 1); }, make_ranges},
    {"VCTreeSetCompositeSubRangeNodeActionId",
     [](Scene& s) { VCTreeSetCompositeSubRangeNodeActionId(s.rows, 1, 2); }},
    {"VCTreeCheckAddInputDataBranch",
     [](Scene& s) {
       VCTreeCheckAddInputDataBranch(&s.found, &s.empty, &s.texts.array(), &s.texts.array(), 1, 0, -1, "x");
     },
     make_arrays},
    {"VCTreeCheckAddInputDataBranch, again",
     [](Scene& s) {
       VCTreeCheckAddInputDataBranch(&s.found, &s.made, &s.text_list, &s.text_list, 1, 0, -1, "x");
     },
     [](Scene& s) {
       make_numbered(s);
       vctree_get_node_names(&s.made, &s.text_list, true);
     }},
    {"rytree_nlsf_add_params_node_DataID",
     [](Scene& s) { rytree_nlsf_add_params_node_DataID(&s.empty, s.nodes / 11); }},
    {"rytree_nlsf_add_params_node_DataID, again",
     [](Scene& s) { rytree_nlsf_add_params_node_DataID(&s.empty, s.nodes / 11); },
     [](Scene& s) { rytree_nlsf_add_params_node_DataID(&s.empty, s.nodes / 11); }},
    // These three write 999 elements at most and remove the other children.
    {"rytree_value_from_vec_bool_to_tree_sub_nodes",
     [](Scene& s) { rytree_value_from_vec_bool_to_tree_sub_nodes(&s.bools, &s.made); }, make_vector},
    {"rytree_value_from_vec_double_to_tree_sub_nodes",
     [](Scene& s) { rytree_value_from_vec_double_to_tree_sub_nodes(&s.doubles, &s.made); }, make_vector},
    {"rytree_value_from_vec_int_to_tree_sub_nodes",
     [](Scene& s) { rytree_value_from_vec_int_to_tree_sub_nodes(&s.ints, &s.made); }, make_vector},
    {"vctree_stats_get_set_counts",
     [](Scene& s) { vctree_stats_get_set_counts(s.empty, s.doubles.array(), 0); }, make_arrays},
    {"vctree_stats_get_set_percentiles",
     [](Scene& s) { vctree_stats_get_set_percentiles(s.empty, s.doubles.array(), 0); }, make_arrays},
    {"tmxfu_tree_node_vector_value",
     [](Scene& s) {
       tagRYSOBJVECT vector;
       vector.values = s.doubles.array();
       tmxfu_tree_node_vector_value(s.empty, vector, 0, "Vector", nullptr);
     },
     make_arrays},
    // A row of the table has about five cells.
    {"report_update_input_data_table",
     [](Scene& s) {
       report_update_input_data_table(&s.empty, 0, 2, s.nodes / 6, s.nodes / 6, &s.texts, &s.texts, 0,
                                      &s.ints, &s.tree, 0);
     },
     make_arrays},
    {"report_update_input_data_table, again",
     [](Scene& s) {
       report_update_input_data_table(&s.empty, 0, 1, 0, s.nodes / 4, nullptr, &s.texts, 0, nullptr, nullptr,
                                      0);
     },
     [](Scene& s) {
       make_arrays(s);
       report_update_input_data_table(&s.empty, 0, 1, 0, s.nodes / 4, nullptr, &s.texts, 0, nullptr, nullptr,
                                      0);
     }},
    {"report_make_input_data_table_var_row",
     [](Scene& s) {
       report_make_input_data_table_var_row(&s.rows, 0, 0, 0, true, "x", 1, 0, 1, 0, 14, &s.tree, 0,
                                            s.nodes / 4);
     }},
};

}  // namespace

std::span<const GrowthRow> writing_rows() { return kRows; }
