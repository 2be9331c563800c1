// Exports that search or read. What they look for is the last node or not there at all.
#include <rytree_Utils.h>

#include <algorithm>

#include "growth_rows.h"
#include "inputs.h"

namespace {

constexpr GrowthRow kRows[] = {
    {"VCTreeGetValues", [](Scene& s) { VCTreeGetValues(&s.tree, &s.text_list, false); }},
    {"VCTreeGetValues, children", [](Scene& s) { VCTreeGetValues(&s.rows, &s.text_list, true); }},
    {"rytree_get_node",
     [](Scene& s) { rytree_get_node(&s.tree, &s.found, 1 << 30, &s.number, -1, "DataID", false, true, 0); }},
    {"rytree_get_node_ex", [](Scene& s) { rytree_get_node_ex(&s.tree, &s.found, 1 << 30, 0, nullptr); }},
    {"rytree_get_node_by_id", [](Scene& s) { rytree_get_node_by_id(&s.tree, &s.found, -7, true); }},
    {"rytree_get_node_by_tagname",
     [](Scene& s) { rytree_get_node_by_tagname(&s.tree, &s.found, "no", true, false, false); }},
    {"rytree_tree_check_get_node",
     [](Scene& s) { rytree_tree_check_get_node(&s.found, &s.rows, "Last", 0, nullptr, nullptr, 0); },
     make_last},
    {"rytree_tree_check_get_node_by_attribute",
     [](Scene& s) { rytree_tree_check_get_node_by_attribute(&s.found, &s.tree, "Label", "no", 1); }},
    {"rytree_check_get_node_by_dataid",
     [](Scene& s) { rytree_check_get_node_by_dataid(&s.rows, &s.found, "no", -7, nullptr, nullptr); }},
    {"rytree_find_node",
     [](Scene& s) { rytree_find_node(&s.tree, &s.found, "DataID", s.last_id, true, 0, 0); }},
    {"rytree_find_node, by depth",
     [](Scene& s) { rytree_find_node(&s.tree, &s.found, "DataID", -7, false, 9, 0); }},
    {"rytree_find_node, repeats",
     [](Scene& s) { rytree_find_node(&s.tree, &s.found, "DataID", -7, true, 0, 1); }, make_repeats},
    {"rytree_find_node_ex",
     [](Scene& s) { rytree_find_node_ex(&s.tree, &s.found, "DataID", s.last_id, -7, 0, 0, 0); }},
    {"rytree_find_node_by_dataID",
     [](Scene& s) { rytree_find_node_by_dataID(&s.found, &s.made, -7, 420, 0, 0, 0); }, make_branch},
    {"tmxfu_tree_check_get_node",
     [](Scene& s) { tmxfu_tree_check_get_node(s.found, s.rows, "Last", nullptr); }, make_last},
    {"tmxfu_tree_get_node", [](Scene& s) { tmxfu_tree_get_node(s.found, s.rows, "Last", nullptr); },
     make_last},
    {"rytree_check_node_str_attr",
     [](Scene& s) { rytree_check_node_str_attr(&s.tree, &s.texts, &s.labels, 1); },
     [](Scene& s) {
       CString label;
       s.tree.GetPropertyValue("Label", label);
       for (int i = 0; i < s.nodes; ++i) s.texts.array().Add("Label"), s.labels.array().Add(label);
     }},
    {"rytree_check_node_int_attr", [](Scene& s) { rytree_check_node_int_attr(&s.tree, &s.texts, &s.ints); },
     [](Scene& s) {
       int id = 0;
       s.tree.GetDataID(id);
       for (int i = 0; i < s.nodes; ++i) s.texts.array().Add("DataID"), s.ints.array().Add(id);
     }},
    {"rytree_find_node_with_str_attr",
     [](Scene& s) { rytree_find_node_with_str_attr(&s.tree, &s.found, &s.texts, &s.labels, 1, 1 << 30); },
     [](Scene& s) { s.texts.array().Add("Show"), s.labels.array().Add("1"); }},
    {"rytree_find_node_with_int_attr",
     [](Scene& s) { rytree_find_node_with_int_attr(&s.tree, &s.found, &s.texts, &s.ints, 1, 1 << 30); },
     [](Scene& s) { s.texts.array().Add("Show"), s.ints.array().Add(1); }},
    {"rytree_get_help_node", [](Scene& s) { rytree_get_help_node(&s.found, &s.made, -7, 256); },
     [](Scene& s) {
       VCTreeSetRepeatId(s.rows, 256);
       make_branch(s);
     }},
    {"rytree_get_localization_node",
     [](Scene& s) { rytree_get_localization_node(&s.found, &s.tree, -7, -8, 0, 1, 0); }},
    {"rytree_count_items_by_attribute",
     [](Scene& s) { rytree_count_items_by_attribute(&s.tree, "Show", "1", 1, 1); }},
    {"rytree_get_row_number", [](Scene& s) { rytree_get_row_number(&s.rows, "Root.Last"); }, make_last},
    {"vctree_get_node_names", [](Scene& s) { vctree_get_node_names(&s.tree, &s.text_list, false); }},
    {"VCTreeIsSame", [](Scene& s) { VCTreeIsSame(&s.ids, &s.int_list); },
     [](Scene& s) { s.int_list = s.ids; }},
    {"VCTreeGetChanged", [](Scene& s) { VCTreeGetChanged(&s.values, &s.values, false); }},
    {"vctree_get_values_with_ids",
     [](Scene& s) {
       vctree_get_values_with_ids(&s.tree, &s.int_list, &s.text_list, 1, 0, 0, nullptr, 1, &s.text);
     }},
    {"vctree_get_values_with_ids, repeats",
     [](Scene& s) {
       vctree_get_values_with_ids(&s.tree, &s.int_list, &s.text_list, 1, 1, 0, nullptr, 1, &s.text);
     },
     [](Scene& s) {
       make_equal_ids(s);
       make_repeats(s);
     }},
    {"rytree_get_values_with_ids",
     [](Scene& s) {
       rytree_get_values_with_ids(&s.tree, &s.ints, &s.texts, &s.labels, 1, 0, 0, nullptr, 1, &s.text);
     }},
    {"VCTreeGetAttributes", [](Scene& s) { VCTreeGetAttributes(&s.tree, &s.text_list, "Label", false); }},
    {"vctree_get_attributes", [](Scene& s) { vctree_get_attributes(&s.tree, &s.text_list, "Show", false); }},
    {"VCTreeAttributeValues, reading",
     [](Scene& s) { VCTreeAttributeValues(&s.tree, "DataID", 0, &s.int_list, 0, 1); }},
    {"vctree_get_all_children_values_as_string_array",
     [](Scene& s) { vctree_get_all_children_values_as_string_array(s.rows, s.text_list); }},
    {"vctree_get_theme", [](Scene& s) { vctree_get_theme(&s.rows, &s.int_list, &s.text_list, &s.text); }},
    {"vctree_read_values_with_ids",
     [](Scene& s) {
       static_cast<void>(
           vctree_read_values_with_ids(input(s.nodes).flat_path.c_str(), &s.int_list, &s.text_list, &s.text));
     }},
    {"rytree_theme_tree_get_node_by_id",
     [](Scene& s) { rytree_theme_tree_get_node_by_id(&s.found, &s.tree, -7, 1 << 30, true); }},
    {"rytree_theme_tree_get_node_by_index",
     [](Scene& s) { rytree_theme_tree_get_node_by_index(&s.found, &s.made, 420, s.nodes / 2, 9, true); },
     make_branch},
    {"rytree_theme_tree_get_range_from_range_style",
     [](Scene& s) {
       rytree_theme_tree_get_range_from_range_style(&s.rows, &s.number, &s.number, &s.number, &s.number);
     }},
    {"rytree_get_enum_node_name", [](Scene& s) { rytree_get_enum_node_name(&s.made, &s.text, "Row"); },
     make_numbered},
    {"rytree_get_enum_attribute_value",
     [](Scene& s) { rytree_get_enum_attribute_value(&s.made, &s.text, "Name", "Row", nullptr); },
     make_numbered},
    {"rytree_get_next_enum_tag_name", [](Scene& s) { rytree_get_next_enum_tag_name(&s.made, &s.text, 1); },
     make_numbered},
    {"rytree_get_next_enum_tag_name, letters",
     [](Scene& s) { rytree_get_next_enum_tag_name(&s.made, &s.text, 0); }, make_letters},
    {"rytree_branch_to_key_value_pairs_str",
     [](Scene& s) { rytree_branch_to_key_value_pairs_str(&s.rows, &s.text, '=', ','); }},
    {"vctree_get_composite_subrange_values",
     [](Scene& s) { vctree_get_composite_subrange_values(s.rows, s.text, s.text, s.text, 2); },
     [](Scene& s) { vctree_set_composite_subrange_values(s.rows, "1", "2", "3", 55, 2, 0, 0); }},
    {"VCRangeTreeIterator, nested",
     [](Scene& s) {
       for (SubRangeNodes& range : RangeTreeRanges(s.made))
         s.number += static_cast<int>(std::ranges::distance(range.begin(), range.end()));
     },
     make_ranges},
    {"VCRangeTreeIterator, flat",
     [](Scene& s) {
       VCRangeTreeIterator ranges(s.made);
       while (ranges.Get(s.found) != 0) ++s.number;
     },
     make_flat_ranges},
    {"VCSubRangeTreeIterator",
     [](Scene& s) {
       s.rows.FirstChild(s.found);
       VCSubRangeTreeIterator nodes(s.found);
       while (nodes.Get(s.found) != 0) ++s.number;
     }},
    {"rytree_nlf_set_bool_param_from_user_params_setting",
     [](Scene& s) {
       static_cast<void>(rytree_nlf_set_bool_param_from_user_params_setting(&s.made, &s.bools, 0));
     },
     [](Scene& s) {
       make_vector(s);
       for (int id = 1; id <= s.nodes; ++id) s.made.GetChild(s.found, id - 1), s.found.NodeValue(s.number, 0);
     }},
    {"rytree_nlf_set_double_param_from_user_params_setting",
     [](Scene& s) {
       static_cast<void>(rytree_nlf_set_double_param_from_user_params_setting(&s.made, &s.doubles, 0));
     },
     make_vector},
    {"rytree_nlf_set_int_param_from_user_params_setting",
     [](Scene& s) {
       static_cast<void>(rytree_nlf_set_int_param_from_user_params_setting(&s.made, &s.ints, 0));
     },
     make_vector},
    {"rytree_value_from_tree_sub_nodes_to_vector_bool",
     [](Scene& s) { rytree_value_from_tree_sub_nodes_to_vector_bool(&s.made, &s.bools); }, make_vector},
    {"rytree_value_from_tree_sub_nodes_to_vector_double",
     [](Scene& s) { rytree_value_from_tree_sub_nodes_to_vector_double(&s.made, &s.doubles); }, make_vector},
    {"rytree_value_from_tree_sub_nodes_to_vector_int",
     [](Scene& s) { rytree_value_from_tree_sub_nodes_to_vector_int(&s.made, &s.ints); }, make_vector},
    {"vctree_stats_get_set_counts, reading",
     [](Scene& s) { vctree_stats_get_set_counts(s.made, s.doubles.array(), 1); },
     [](Scene& s) {
       make_arrays(s);
       vctree_stats_get_set_counts(s.made, s.doubles.array(), 0);
     }},
    {"tmxfu_tree_node_vector_value, reading",
     [](Scene& s) {
       tagRYSOBJVECT vector;
       tmxfu_tree_node_vector_value(s.made, vector, 1, "Counts", nullptr);
     },
     [](Scene& s) {
       make_arrays(s);
       vctree_stats_get_set_counts(s.made, s.doubles.array(), 0);
     }},
};

}  // namespace

std::span<const GrowthRow> reading_rows() { return kRows; }
