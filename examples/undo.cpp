// Marking what was edited, undoing it, and putting one branch back to what it was.
#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include "common/show.h"

namespace {

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
  // [undo]
  const int undone = rytree::undo_changes(plot);
  // [undo]
  show("undone", plot);
  std::printf("%d of %d changed nodes\n", undone, marked);

  // [restore]
  RYXmlWrapperBase line;
  plot.FindChild("Line", line, 1);
  RYXmlWrapperBase copy;
  line.Clone(copy, 1);
  edit(plot, 11, "8");
  edit(plot, 12, "Growth");
  rytree::restore(line, copy);
  // [restore]
  show("restored", plot);
}
