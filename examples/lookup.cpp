// Finding a node, by its DataID, as one of several repeated branches, and by tags; making one that is missing.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  RYXmlWrapperBase graph = tree_from(R"(
    <Graph>
      <Legend _NodeID="12"/>
      <Title DataID="12">Decay</Title>
      <Curve DataID="20" RepeatID="1"><Width DataID="11">1</Width></Curve>
      <Curve DataID="20" RepeatID="2"><Width DataID="11">2.5</Width></Curve>
    </Graph>)");
  show("graph", graph);

  // [by DataID]
  RYXmlWrapperBase either;
  rytree_get_node_by_id(&graph, &either, 12, /*recursive=*/true);  // the node ID 12 counts too
  RYXmlWrapperBase title;
  rytree_find_node(&graph, &title, "DataID", 12, /*recursive=*/true, /*depth=*/0, /*repeatId=*/-1);
  // [by DataID]
  heading("by DataID");
  std::printf("rytree_get_node_by_id: %s\n", tag_of(either).GetString());
  std::printf("rytree_find_node: %s\n", tag_of(title).GetString());

  // [repeated]
  RYXmlWrapperBase width;
  const int missing = rytree_find_node_ex(&graph, &width, "DataID", /*id=*/11, /*parentId=*/20,
                                          /*parentRepeatId=*/2, /*grandparentId=*/0, 0);
  // [repeated]
  heading("repeated");
  std::printf("missing: %d, width of curve 2: %s\n", missing, text_of(width).GetString());

  // [make]
  RYXmlWrapperBase format;
  tmxfu_tree_check_get_node(format, graph, "Export", "Image", "Format", nullptr);
  CString png = "png";
  format.NodeValue(png, /*get=*/0, 1, nullptr);
  // [make]
  show("made", graph);
}
