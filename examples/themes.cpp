// Saving the values of a tree as a theme, listing it, comparing it with the tree, and applying it.
#include <rytree_Utils.h>

#include <filesystem>

#include "common/show.h"

int main() {
  const char* const file = "presentation.theme.xml";
  RYXmlWrapperBase plot = tree_from(R"(
    <Plot>
      <Line><Width DataID="11">2.5</Width><Color DataID="15">blue</Color></Line>
      <Title DataID="12">Decay</Title>
    </Plot>)");
  show("plot", plot);

  // [save]
  CArray<int, int> ids;
  CStringArray values;
  vctree_get_values_with_ids(&plot, &ids, &values, 1, 0, 0, nullptr, 0, nullptr);
  if (!vctree_save_values_with_ids(file, &ids, &values, "For slides", /*labels=*/nullptr)) return 1;
  // [save]
  RYXmlWrapperBase theme;
  if (theme.load(file, 0) == 0) return 1;
  show("theme", theme);

  // [list]
  CArray<int, int> theme_ids;
  CStringArray theme_values;
  CString comment;
  if (!vctree_read_values_with_ids(file, &theme_ids, &theme_values, &comment)) return 1;
  // [list]
  heading("list");
  std::printf("%s\n", comment.GetString());
  for (int i = 0; i < theme_ids.GetSize(); ++i)
    std::printf("%d = %s\n", theme_ids[i], theme_values[i].GetString());

  // [compare]
  RYXmlWrapperBase title;
  plot.FindChild("Title", title, 1);
  title.CheckSetValue(0, "Decay of caesium", 0);
  vctree_get_values_with_ids(&plot, &ids, &values, 1, 0, 0, nullptr, 0, nullptr);
  const bool same_ids = VCTreeIsSame(&ids, &theme_ids) == 1;
  const int changed = VCTreeGetChanged(&values, &theme_values, /*caseSensitive=*/true);
  // [compare]
  heading("compare");
  std::printf("same IDs: %s, first difference: %d = %s\n", same_ids ? "yes" : "no", ids[changed],
              values[changed].GetString());

  // [apply]
  vctree_set_values_by_ids(&plot, &theme_ids, &theme_values, 0, nullptr, 0, nullptr, nullptr);
  // [apply]
  show("applied", plot);
  std::filesystem::remove(file);
}
