// Which of the saved values found no place in the new tree, and which of its nodes got none.
#include <rytree_Utils.h>

#include <set>

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
  CArray<int, int> places;
  CStringArray present;
  vctree_get_values_with_ids(&fresh, &places, &present, 1, 0, 0, nullptr, /*allBranches=*/1, nullptr);
  const std::set<int> known(places.begin(), places.end());
  const std::set<int> given(ids.begin(), ids.end());
  const int matched = vctree_set_values_by_ids(&fresh, &ids, &values, 0, nullptr, 0, nullptr, nullptr);
  // [unmatched]
  show("after", fresh);
  heading("unmatched");
  std::printf("%d values written\n", matched);
  for (const int id : given)
    if (!known.contains(id)) std::printf("0x%05X has no node\n", id);
  for (const int id : known)
    if (!given.contains(id)) std::printf("0x%05X has no value\n", id);
}
