// Which of the saved values found no place in the new tree, and which of its nodes got none.
#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <set>
#include <vector>

#include "common/show.h"

int main() {
  RYXmlWrapperBase saved = tree_from(R"(
    <Plot>
      <Title DataID="12">Decay</Title>
      <Speed DataID="13">fast</Speed>
      <Curve RepeatID="1"><Width DataID="11">2.5</Width></Curve>
      <Curve RepeatID="2"><Width DataID="11">4</Width></Curve>
    </Plot>)");
  RYXmlWrapperBase fresh = tree_from(R"(
    <Plot>
      <Title DataID="12"/>
      <Legend DataID="14">right</Legend>
      <Curve RepeatID="1"><Width DataID="11">1</Width></Curve>
    </Plot>)");
  show("saved", saved);
  show("before", fresh);

  // [harvest]
  CArray<int, int> ids;
  CStringArray values;
  vctree_get_values_with_ids(&saved, &ids, &values, /*recursive=*/1, /*changedOnly=*/0, /*repeat=*/0,
                             /*idAttribute=*/nullptr, /*allBranches=*/0, /*error=*/nullptr);
  // [harvest]
  heading("harvested");
  for (int i = 0; i < ids.GetSize(); ++i) std::printf("0x%05X  %s\n", ids[i], values[i].GetString());

  // [unmatched]
  rytree::ValueList list;
  vctree_get_values_with_ids(&saved, &list.ids, &list.values, 1, 0, 0, nullptr, 0, nullptr);
  const rytree::Applied applied = rytree::apply_values(fresh, list);

  const std::set<int> given(list.ids.begin(), list.ids.end());
  std::vector<int> without_value = rytree::NodesById(fresh).ids();
  std::erase_if(without_value, [&](int id) { return given.contains(id); });
  // [unmatched]
  show("after", fresh);
  heading("unmatched");
  std::printf("%d values written\n", applied.matched);
  for (const int id : applied.unmatched) std::printf("0x%05X has no node\n", id);
  for (const int id : without_value) std::printf("0x%05X has no value\n", id);
}
