// Changing many nodes of a branch in one call, and a flat branch as one line of text.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  RYXmlWrapperBase dialog = tree_from(R"(
    <Dialog>
      <Title>Decay</Title>
      <Comment/>
      <Export Draft="1"><Format>png</Format><Dpi Draft="1">300</Dpi></Export>
    </Dialog>)");
  show("before", dialog);

  // [edit]
  rytree_hide_empty_nodes(&dialog, /*recursive=*/true, /*removeShow=*/true);
  rytree_remove_attribute(&dialog, "Draft", /*includeSelf=*/0);
  // [edit]
  show("after", dialog);

  // [key value]
  RYXmlWrapperBase options;
  dialog.FindChild("Export", options, 1);
  CString line;
  rytree_branch_to_key_value_pairs_str(&options, &line, '=', ',');
  rytree_key_value_pairs_str_to_branch(&options, "Format = svg,Dpi=96,", '=', ',');
  // [key value]
  heading("key value");
  std::printf("%s\n", line.GetString());
  show("read back", options);
}
