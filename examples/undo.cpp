// Marking what was edited, undoing it, and putting one branch back to what it was.
#include <rytree_Utils.h>

#include "common/show.h"

namespace {

// [undo]
/// Puts every node below that is marked as changed back to its old text.
void undo(RYXmlWrapperBase& node) {
  RYXmlWrapperBase child;
  for (node.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
    CString old;
    if (child.GetPropertyValue("OldValue", old) != 0) {
      child.NodeValue(old, /*get=*/0, 1, nullptr);
      rytree_node_changed(&child, /*set=*/1, /*oldValue=*/nullptr);  // takes the mark off
    }
    undo(child);
  }
}
// [undo]

void edit(RYXmlWrapperBase& root, int id, const char* text) {
  RYXmlWrapperBase node;
  rytree_find_node(&root, &node, "DataID", id, /*recursive=*/true, 0, -1);
  node.CheckSetValue(0, text, 0);
}

}  // namespace

int main() {
  RYXmlWrapperBase plot = tree_from(R"(
    <Plot>
      <Line DataID="10"><Width DataID="11">1</Width><Color DataID="15">black</Color></Line>
      <Title DataID="12">Decay</Title>
    </Plot>)");
  show("start", plot);

  // [mark]
  CStringArray saved;
  VCTreeGetValues(&plot, &saved, /*childrenOnly=*/false);
  saved.RemoveAt(0);  // the entry of the start node itself
  edit(plot, 11, "2.5");
  edit(plot, 12, "Decay of caesium");
  const int marked = VCTreeUpdateChanges(&plot, &saved);
  // [mark]
  show("marked", plot);
  undo(plot);
  show("undone", plot);
  std::printf("%d nodes had been changed\n", marked);

  // [restore]
  RYXmlWrapperBase line;
  plot.FindChild("Line", line, 1);
  RYXmlWrapperBase copy;
  line.Clone(copy, 1);
  edit(plot, 11, "8");
  edit(plot, 12, "Growth");
  rytree_copy_values_by_id(&copy, &line, 0, nullptr, nullptr, 0, 0, 0);
  // [restore]
  show("restored", plot);
}
