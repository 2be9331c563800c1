// With the library of extras: what differs between two trees, and the node that a harvested ID stands for.
#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include "common/show.h"

int main() {
  RYXmlWrapperBase before = tree_from(R"(
    <Plot>
      <Title DataID="12">Decay</Title>
      <Curve RepeatID="1"><Width DataID="11">1</Width></Curve>
      <Curve RepeatID="2"><Width DataID="11">2.5</Width></Curve>
    </Plot>)");
  RYXmlWrapperBase after = tree_from(R"(
    <Plot>
      <Legend DataID="14">right</Legend>
      <Curve RepeatID="1"><Width DataID="11">1</Width></Curve>
      <Curve RepeatID="2"><Width DataID="11">4</Width></Curve>
    </Plot>)");
  show("before", before);
  show("after", after);

  heading("differences");
  // [differences]
  for (const rytree::Difference& difference : rytree::differences_by_id(before, after)) {
    const bool added = difference.kind == rytree::DifferenceKind::kAdded;
    const bool removed = difference.kind == rytree::DifferenceKind::kRemoved;
    std::printf("%s %s: %s -> %s\n",
                added     ? "added"
                : removed ? "removed"
                          : "changed",
                (removed ? difference.old_path : difference.new_path).c_str(),
                difference.old_value.value_or("").c_str(), difference.new_value.value_or("").c_str());
  }
  // [differences]

  // [harvested]
  const rytree::NodesById nodes(after);
  const RYXmlWrapperBase width = nodes.find(0x2000B);  // DataID 11 below RepeatID 2
  // [harvested]
  heading("harvested");
  std::printf("%s\n", text_of(width).GetString());
}
