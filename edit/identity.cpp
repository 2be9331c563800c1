// What identifies a node: its node ID, its tag, the IDs of a menu.
#include <rytree_Utils/arrange.h>

#include "frame/children.h"

namespace {

constexpr int kMenuBranch = 0x10000000;
constexpr int kMenuItem = 11;

/// Whether the node got a DataID.
bool prepare_for_menu(RYXmlWrapperBase& node, DWORD& next_data_id) {
  if (node.GetNodeCount() > 0) {
    node.SetID(kMenuBranch, false);
    return false;
  }
  int id = 0;
  if (node.GetDataID(id) != 0 && id > 0) return false;
  node.SetID(kMenuItem, false);
  node.SetDataID(static_cast<int>(next_data_id++));
  return true;
}

}  // namespace

int rytree_is_in_ids_range(RYXmlWrapperBase* node, int first, int last, int extra) {
  if (node == nullptr || node->IsNodeValid() == 0 || first > last || first < 0) return 0;
  int id = 0;
  node->GetID(id);
  return id >= first && id <= static_cast<long long>(last) + extra ? 1 : 0;
}

bool VCTreeSetTagName(RYXmlWrapperBase* node, const char* name) {
  if (node == nullptr || name == nullptr) return false;
  CString tag;
  CString text;
  if (node->GetTagName(tag) == 0 || node->GetXmlText(&text) == 0) return false;
  const int length = tag.GetLength();
  if (text.Find(tag) != 1 || text.Right(length + 1).Find(tag) != 0) return false;
  text.Delete(1, length);
  text.Insert(1, name);
  const int position = text.GetLength() - length - 1;
  text.Delete(position, length);
  text.Insert(position, name);
  return node->SetXmlText(text) != 0;
}

int VCTreePrepareForMenu(RYXmlWrapperBase* node, DWORD& nextDataId) {
  if (node == nullptr || node->IsNodeValid() == 0) return 0;
  int stamped = 0;
  for (NodesOf at(*node); at; ++at) {
    if (prepare_for_menu(*at, nextDataId)) ++stamped;
  }
  return stamped;
}
