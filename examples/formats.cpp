// The text formats that values and nodes are written in.
#include <rytree_Utils.h>

#include "common/show.h"

namespace {

void show_decorations() {
  RYXmlWrapperBase axis =
      tree_from(R"(<Axis><From DataID="1" Auto="0|Auto|1" DynaUseChck="1">12.5</From></Axis>)");
  CArray<int, int> ids;
  CStringArray values;
  vctree_get_values_with_ids(&axis, &ids, &values, 1, 0, 0, nullptr, 0, nullptr);
  heading("decoration");
  std::printf("%s\n", values[0].GetString());
  RYXmlWrapperBase plain = tree_from(R"(<Axis><From DataID="1"/></Axis>)");
  vctree_set_values_by_ids(&plain, &ids, &values, 0, nullptr, 0, nullptr, nullptr);
  show("decoration written", plain);
}

void show_automatic_mode() {
  heading("auto");
  RYXmlWrapperBase node = tree_from("<From>12.5</From>");
  vctree_set_auto_support(node, /*state=*/1, "From data", /*number=*/3);
  CString text;
  node.GetPropertyValue("Auto", text);
  std::printf("%s\n", text.GetString());
  rytree_set_auto_support(&node, /*state=*/-1);
  node.GetPropertyValue("Auto", text);
  std::printf("%s\n", text.GetString());
}

void show_escaped_data() {
  heading("escaped");
  CString text;
  report_get_set_data_string(&text, /*index=*/0);
  std::printf("%s\n", text.GetString());
  report_get_escaped_data_string(&text, /*number=*/4, /*dot=*/1, 'P', 'W', /*option=*/0x30002, /*type=*/0, 1);
  std::printf("%s\n", text.GetString());
  report_set_escaped_data_string_type(&text, 'G');
  std::printf("%s\n", text.GetString());
}

void show_file() {
  RYXmlWrapperBase node = tree_from("<Root/>");
  node.SetID(7, false);
  node.SetPropertyValue("Label", "bell \a");
  node.CheckSetValue(0, "a back\\slash", 0);
  show("file", node);
}

void show_path() {
  heading("path");
  RYXmlWrapperBase graph = tree_from("<Graph><Layer1><Curve/></Layer1></Graph>");
  RYXmlWrapperBase curve;
  tmxfu_tree_get_node(curve, graph, "Layer1", "Curve", nullptr);
  CString path;
  VCTreeGetPathStr(path, &curve);
  std::printf("%s\n", path.GetString());
}

}  // namespace

int main() {
  show_decorations();
  show_automatic_mode();
  show_escaped_data();
  show_path();
  show_file();
}
