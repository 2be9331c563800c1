// A caller of the library as a module of its own, for the test that loads and unloads it.
#include <rytree_Utils.h>

// Does some work that leaves state in the libraries, and gives what the block-localization flag was before; -1
// if something failed.
extern "C" RYTREE_EXPORT int use_library() {
  bool blocked = false;
  VCTreeAccessBlockLocalization(&blocked, true);
  RYXmlWrapperBase tree;
  tree.CreateNew(0, nullptr);
  if (tree.SetXmlText(R"(<Root><A DataID="1">one</A><B DataID="2"/></Root>)") == 0) return -1;
  HostStringArray values;
  rytree_get_values(&tree, &values, 0);
  report_make_input_data_table_var_row(&tree, 0, 0, 0, true, "y", 1, 0, 1, 0, 6, nullptr, 0, 0);
  bool block = true;
  VCTreeAccessBlockLocalization(&block, false);
  if (values.array().GetSize() != 3 || rytree_set_default_code_page(65001) == 0) return -1;
  return blocked ? 1 : 0;
}
