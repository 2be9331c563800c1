#include <rytree_Utils/plot_identity.h>
#include <rytree_Utils/composite_range.h>
#include <rytree_host/ryUtils.h>

#include <climits>

#include "tree_text.h"

namespace {

using Text = const char*;

CString message(int number) {
  CString read;
  ryu_load_err_msg_str(number, &read, -1);
  return read;
}

// A text of a tree with "%" for the host's word for a range, "#" in a sub-node of a range and "@" in a child
// of an input-data branch.
std::string expanded(const std::string& xml) {
  CString result(xml.c_str());
  result.Replace("%", message(1996));
  result.Replace("#", " _ACTION_OBJECT_ID='1004'");
  result.Replace("@", " _NodeID='35'");
  return text(parse(result.GetString()));
}

// -99 for none.
int number_of(const RYXmlWrapperBase& node, Text attribute) {
  int read = -99;
  node.GetPropertyValue(attribute, read);
  return read;
}

// The tags and texts of all children.
std::string texts(RYXmlWrapperBase node) {
  std::string result;
  CString read;
  for (node.FirstChild(node); node.IsNodeValid() != 0; node.NextSibling(node)) {
    node.NodeValue(read, 1, 1, nullptr);
    result.append(tag(node)).append(read).append(" ");
  }
  return result;
}

TEST(CompositeRange, layouts) {
  // The type, the two IDs, and tag, message of the label or 0, and DataID of each sub-node.
  for (const auto& [type, id, action, layout] : rows<4>(R"(
      2 | 44 | 1001 | X 0 51 Y 0 52 ED 1625 53
      3 | 52 | 1002 | X 0 51 Y 0 52 Z 0 54
      4 | 58 | 1003 | X 0 51 Y 0 52 Y 1626 52
      7 | -1 | 1001 | X 0 51 Y 0 52 ED 1625 53 EI 2539 56
      -2147483648 | -1 | 1000 | X 0 51 Y 0 52)")) {
    RYXmlWrapperBase tree = parse("<T/>");
    EXPECT_EQ(rytree_create_composite_range_node(&tree, &tree, "C", "L", 2, std::stoi(type), "D"), 1);
    std::istringstream in(layout);
    CString inside;
    std::string name;
    for (int label = 0, data = 0; in >> name >> label >> data;)
      inside.AppendFormat("<%s _NodeID='55' Label='%s' DataID='%d'#%s/>", name.c_str(),
                          label == 0 ? name.c_str() : message(label).GetString(), data,
                          name == "ED" ? " Show='0'" : "");
    CString xml;
    for (int n = 1; n <= 2; ++n)
      xml.AppendFormat(
          "<Range%d _NodeID='%s' Label='%% %d' Branch='0' RepeatID='%d' _ACTION_OBJECT_ID='%s'>%s</Range%d>",
          n, id.c_str(), n, 112 + 16 * n, action.c_str(), inside.GetString(), n);
    EXPECT_EQ(text(tree), expanded("<C _NodeID='" + id + "' Label='L' Data='D'>" + xml.GetString() + "</C>"));
  }
}

TEST(CompositeRange, counts_and_bad_input) {
  RYXmlWrapperBase tree = parse("<T/>");
  RYXmlWrapperBase dead = dead_node();
  RYXmlWrapperBase out;
  const Rows<RYXmlWrapperBase*, RYXmlWrapperBase*, Text, int, int> rows = {
      {&out, &tree, "C", INT_MAX, 0}, {&out, &tree, "1", 1, 0},    {&out, &dead, "C", 1, 0},
      {&out, nullptr, "C", 1, 0},     {nullptr, &tree, "C", 1, 0}, {&out, &tree, "C", -1, 1}};
  for (const auto& [to, parent, name, count, result] : rows)
    EXPECT_EQ(rytree_create_composite_range_node(to, parent, name, nullptr, count, 7, ""), result) << count;
  EXPECT_EQ(vctree_add_subrange_to_composite_range(dead, dead, 8, 9, 2), 0);
  EXPECT_EQ(VCTreeSetCompositeSubRangeNodeActionId(dead, 7, 1), 0);
  EXPECT_EQ(rytree_set_composite_subrange_values(&dead, "1", "2", "3", 4), 0);
  EXPECT_EQ(rytree_set_composite_subrange_values(nullptr, "1", "2", "3", 4), 0);
  vctree_reenum_subranges_in_range_tree(dead, 1);
  EXPECT_EQ(text(tree), "<T><C/></T>");

  EXPECT_EQ(rytree_create_composite_range_node(&out, &tree, "C", "", 2043, 3, nullptr), 1);
  const Rows<int, int> repeats = {{1, 144}, {2039, 32752}, {2040, 32768}, {2042, 32768}};
  for (const auto& [index, id] : repeats) EXPECT_EQ(number_of(at(out, {index}), "RepeatID"), id) << index;
}

TEST(AddSubRange, repeat_number_after_a_sibling) {
  const Rows<Text, int> rows = {{"160", 176}, {"32767", 32783}, {"32768", 32768}, {"0", -99}, {"x", -99}};
  for (const auto& [before, id] : rows) {
    RYXmlWrapperBase parent = parse("<C><Range1/><Range3/></C>");
    at(parent, {1}).SetPropertyValue("RepeatID", before);
    RYXmlWrapperBase range = dead_node();
    EXPECT_EQ(vctree_add_subrange_to_composite_range(range, parent, 8, 9, 0), 1);
    EXPECT_EQ(range, at(parent, {2}));
    EXPECT_EQ(number_of(range, "RepeatID"), id) << before;
  }
}

TEST(AddSubRange, interactive_options) {
  // Options of the parent and the range (-99: none), "Show" of "ED", and what is handed down.
  const Rows<int, int, int, int> rows = {
      {-99, -99, 0, -99},   {32, -99, -99, -99},      {-99, 32, -99, -99},      {0, 32, 0, -99},
      {64, 0x8020, 0, -99}, {0x8000, -99, 0, 0x8000}, {0x8021, 7, -99, 0x8000}, {-99, 0x8020, -99, 0x8000}};
  for (const auto& [above, own, show, down] : rows) {
    RYXmlWrapperBase tree = parse("<C><R><Old/></R></C>");
    RYXmlWrapperBase range = at(tree, {0});
    if (above != -99) tree.SetPropertyValue("InteractiveOptions", above);
    if (own != -99) range.SetPropertyValue("InteractiveOptions", own);
    vctree_add_subrange_to_composite_range(range, tree, -1, 1, 2);
    EXPECT_EQ(number_of(at(range, {3}), "Show"), show) << above << " " << own;
    EXPECT_EQ(number_of(range, "InteractiveOptions"), down > 0 ? down : own) << above << " " << own;
    for (const int child : {0, 3})
      EXPECT_EQ(number_of(at(range, {child}), "InteractiveOptions"), down) << above << " " << own;
  }
}

TEST(Renumber, ranges) {
  for (const auto& [before, rename, after] : rows<3>(R"(
      <C>t</C> | 0 | <C>t</C>
      <C>t</C> | 1 | <C>t</C>
      <C><Range2 RepeatID='9'/><A Label='a'/></C> | 0 | <C><Range2 RepeatID='128' Label='% 1'/><A Label='% 2' RepeatID='144'/></C>
      <C K='1'>t<Range3 _NodeID='8' A='1'>u<X DataID='5'>v</X></Range3><Range1/></C> | -1 | <C K='1'>t<Range1 _NodeID='8' A='1' Label='% 1' RepeatID='128'>u<X DataID='5'>v</X></Range1><Range2 Label='% 2' RepeatID='144'/></C>)")) {
    RYXmlWrapperBase tree = parse(before);
    vctree_reenum_subranges_in_range_tree(tree, std::stoi(rename));
    EXPECT_EQ(text(tree), expanded(after));
  }
}

TEST(SubRangeValues, written_and_read) {
  // `reset` 2: nothing is written. The texts of the children after it, and those read from "abc".
  const Rows<Text, int, int, int, int, Text, Text> rows = {
      {"<R>t<X>8</X></R>", 2, 0, 1, 1, "X1 Y2 ED3 ", "123"},
      {"<R/>", 4, 1, 1, 1, "X1 Y2,3 Y ", "12,3"},
      {"<R/>", 7, 0, 1, 0, "X1 Y2 ED EI ", "12c"},
      {"<R><Y>8</Y><Q>9</Q></R>", 4, 0, 0, 1, "Y2 Q3 X1 Y Y ", "123"},
      {"<R><X>8</X><Z>9</Z></R>", 3, 1, 0, 1, "X1 Z3 X Y2 Z ", "123"},
      {"<R><Z/><X/><Y>2</Y></R>", 4, 0, 2, 1, "Z X Y2 ", "2c"},
      {"<R><X>1</X><ED/></R>", 2, 0, 2, 0, "X1 ED ", "1bc"},
      {"<R><Y>1</Y><Z/></R>", 0, 0, 2, 0, "Y1 Z ", "abc"}};
  for (const auto& [xml, type, combine, reset, result, after, values] : rows) {
    RYXmlWrapperBase range = parse(xml);
    if (reset != 2) {
      EXPECT_EQ(vctree_set_composite_subrange_values(range, "1", "2", "3", 9, type, combine, reset), result);
    }
    CString read[3] = {"a", "b", "c"};
    EXPECT_EQ(vctree_get_composite_subrange_values(range, read[0], read[1], read[2], type), result) << xml;
    EXPECT_EQ(read[0] + read[1] + read[2], values) << xml << type;
    EXPECT_EQ(texts(range), after) << xml << type;
  }
}

TEST(SubRangeValues, plain_write_and_action_ids) {
  RYXmlWrapperBase tree = parse("<C><R RepeatID='1'/><R A='1'>t<X>8</X><X>9</X></R></C>");
  RYXmlWrapperBase range = at(tree, {1});
  EXPECT_EQ(rytree_set_composite_subrange_values(&range, "1", nullptr, "3", 5), 0);
  const std::string sub_nodes =
      "'><X _NodeID='55' Label='X' DataID='51'#>1</X><Y _NodeID='55' Label='Y' DataID='52'#/></R>";
  EXPECT_EQ(text(range), expanded("<R A='1' RepeatID='17' _ACTION_OBJECT_ID='1000" + sub_nodes));
  EXPECT_EQ(VCTreeSetCompositeSubRangeNodeActionId(range, 7, 0), 1);
  EXPECT_EQ(text(range), expanded("<R A='1' RepeatID='17' _ACTION_OBJECT_ID='7" + sub_nodes));
  EXPECT_EQ(VCTreeSetCompositeSubRangeNodeActionId(tree, 8, 1), 1);
  for (const int index : {0, 1}) EXPECT_EQ(number_of(at(tree, {index}), "_ACTION_OBJECT_ID"), 1);
  int id = 0;
  EXPECT_EQ(vctree_get_set_node_action_id(tree, id, 2) * 10 + id, 18);
  EXPECT_EQ(number_of(at(range, {0}), "_ACTION_OBJECT_ID"), 1004);
}

TEST(InputData, branch) {
  HostStringArray tags;
  HostStringArray labels;
  for (const Text name : {"A", "B", "", "D", "D"}) tags.array().Add(name);
  for (const Text label : {"a", ""}) labels.array().Add(label);
  // Before, range number, value index and value; after, and the child that `out` ends on (-1: the parent).
  for (const auto& [before, number, index, value, after, child] : rows<6>(R"(
      <T/> | 0 | -1 | v | <T><A@ Label='a'>v</A><B@>v</B><D@>v</D></T> | -1
      <T/> | -1 | 9 | v | <T><A@ Label='a'/><B@/><D@/></T> | -1
      <T><B Label='b'>w</B><A Label='c'/><B/><D/><A/></T> | 0 | 1 | v | <T><B Label='b'>v</B><A Label='a'/><B/><D/><A/></T> | -1
      <T><B>w</B></T> | 2 | 4 | v | <T><B>w</B><Range2 _NodeID='8' Label='% 2'><A@ Label='a'/><B@/><D@>v</D></Range2></T> | 1
      <T><Range1 _NodeID='5' Label='x'><A>w</A><B/><D/></Range1></T> | 1 | -1 | | <T><Range1 _NodeID='5' Label='% 1'><A Label='a'>w</A><B/><D/></Range1></T> | 0)")) {
    RYXmlWrapperBase tree = parse(before);
    for (int again = 0; again < 2; ++again) {
      RYXmlWrapperBase out;
      rytree_tree_check_add_input_data_branch(&out, &tree, &tags, &labels, 8, std::stoi(number),
                                              std::stoi(index), value.empty() ? nullptr : value.c_str());
      EXPECT_EQ(text(tree), expanded(after));
      EXPECT_EQ(out, child == "-1" ? tree : at(tree, {std::stoi(child)}));
    }
  }

  RYXmlWrapperBase tree = parse("<T/>");
  RYXmlWrapperBase dead = dead_node();
  HostIntArray ints;
  const Rows<RYXmlWrapperBase*, RYXmlWrapperBase*, HostArrayObject*> bad = {
      {nullptr, &tree, &labels}, {&tree, nullptr, &labels}, {&tree, &tree, &ints}, {&dead, &dead, &labels}};
  for (const auto& [out, parent, names] : bad) {
    EXPECT_TRUE(rytree_tree_check_add_input_data_branch(out, parent, &tags, names, 0, 3, -1, "w"));
    EXPECT_TRUE(rytree_tree_check_add_input_data_branch(out, parent, names, &tags, 0, 3, -1, "w"));
  }
  EXPECT_EQ(text(tree), "<T/>");
}

TEST(DateNode, set) {
  RYXmlWrapperBase node = parse("<D _NodeID='3'>x</D>");
  EXPECT_NE(rytree_set_date_node(&node, 2.5), 0);
  EXPECT_EQ(text(node), "<D _NodeID=\"14\" NumFormat=\"D9\">2.5</D>");
  EXPECT_EQ(rytree_set_date_node(nullptr, 1), 0);
}

TEST(PlotIdentity, attributes_and_values) {
  RYXmlWrapperBase source = parse("<A DataMarkerID='4'>t<C>1</C><C/><C>2<D>3</D></C></A>");
  RYXmlWrapperBase target = parse("<B PlotObjUID='5'/>");
  int id = 77;
  EXPECT_EQ(vctree_copy_plot_uid_from_tree_to_tree(target, source), 0);
  EXPECT_EQ(vctree_get_plot_uid_from_tree(source, id) + vctree_get_data_marker_id_from_tree(target, id), 0);
  EXPECT_EQ(id + number_of(target, "PlotObjUID"), 82);
  EXPECT_EQ(vctree_get_data_marker_id_from_tree(source, id) * 10 + id, 14);
  vctree_set_plot_uid_to_tree(source, 0);
  vctree_set_data_marker_id_to_tree(target, 6);
  EXPECT_EQ(vctree_copy_plot_uid_from_tree_to_tree(target, source), 1);
  EXPECT_EQ(text(target), "<B PlotObjUID=\"0\" DataMarkerID=\"6\"/>");

  CStringArray values;
  values.Add("old");
  vctree_get_all_children_values_as_string_array(source, values);
  ASSERT_EQ(values.GetSize(), 4);
  EXPECT_EQ(values[0] + "|" + values[1] + "|" + values[2] + "|" + values[3], "old|1||2");
}

}  // namespace
