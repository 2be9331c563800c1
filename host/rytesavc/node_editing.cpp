// Walking by index, finding, adding and removing nodes.
#include <climits>
#include <vector>

#include "node_access.h"

using rytesavc::Name;
using rytesavc::Node;
using rytesavc::OwnedTree;
using rytesavc::StoredName;
using rytesavc::Tree;

namespace {

// How many levels a branch has. Counting stops above `enough`.
std::uint32_t Levels(const Node* branch, std::uint32_t enough) {
  std::uint32_t deepest = branch->depth;
  for (const Node* node = branch; node != nullptr; node = node->NextBelow(branch)) {
    if (node->depth > deepest) deepest = node->depth;
    if (deepest - branch->depth >= enough) break;
  }
  return deepest - branch->depth + 1;
}

// Whether a copy of the branch with its top at that depth stays within the bound. A copy that goes no deeper
// than the branch itself needs no walk.
bool Fits(const Node* branch, std::uint32_t depth) {
  if (depth > Tree::kMaxDepth) return false;
  if (depth <= branch->depth) return true;
  const std::uint32_t room = Tree::kMaxDepth - depth + 1;
  return Levels(branch, room) <= room;
}

// The first node below `parent` whose attribute passes the test, in pre-order.
template <class Test>
Node* FindByAttribute(Node* parent, const Name* name, bool deep, const Test& test) {
  if (name == nullptr) return nullptr;
  Node* node = parent->first;
  while (node != nullptr) {
    const rytesavc::Attribute* const attribute = node->Find(name);
    if (attribute != nullptr && test(*attribute)) return node;
    node = deep ? node->NextBelow(parent) : node->next;
  }
  return nullptr;
}

}  // namespace

int TESAObj::IsValid() const { return 0; }
int RYXmlWrapperBase::IsValid() const { return IsNodeValid(); }

int RYXmlWrapperBase::GetChild(RYXmlWrapperBase& out, int index) const {
  if (IsNodeValid() == 0) return 0;
  return out.Point(tree_, index < 0 ? nullptr : tree_->Child(node_, static_cast<std::uint32_t>(index)));
}

// ---- Finding.

int RYXmlWrapperBase::FindChild(const char* tag, RYXmlWrapperBase& out, int) const {
  if (IsNodeValid() == 0 || tag == nullptr) return 0;
  Node* found = nullptr;
  if (const Name* const name = tree_->FindName(StoredName(tag).view())) {
    found = node_->first;
    while (found != nullptr && found->tag != name) found = found->next;
  }
  return out.Point(tree_, found);
}

int RYXmlWrapperBase::FindNodeByAttribute(RYXmlWrapperBase& out, const char* name, const char* text, int x,
                                          int y) const {
  if (IsNodeValid() == 0 || name == nullptr || text == nullptr) return 0;
  CString value;
  Node* const found = FindByAttribute(node_, tree_->FindName(StoredName(name).view()), y != 0,
                                      [&](const rytesavc::Attribute& attribute) {
                                        AssignText(attribute.value, value);
                                        return x != 0 ? _mbsicmp(value, text) == 0 : value == text;
                                      });
  return found != nullptr ? out.Point(tree_, found) : 0;
}

int RYXmlWrapperBase::FindNodeByAttribute(RYXmlWrapperBase& out, const char* name, int number, int y) const {
  if (IsNodeValid() == 0 || name == nullptr) return 0;
  Node* const found = FindByAttribute(node_, tree_->FindName(StoredName(name).view()), y != 0,
                                      [&](const rytesavc::Attribute& attribute) {
                                        int value = 0;
                                        return ReadInt(&attribute, value) != 0 && value == number;
                                      });
  return found != nullptr ? out.Point(tree_, found) : 0;
}

// ---- Adding.

bool RYXmlWrapperBase::TakesChild() const {
  return IsNodeValid() != 0 && node_->depth < Tree::kMaxDepth && node_->child_count < INT_MAX;
}

int RYXmlWrapperBase::AddNodeAs(RYXmlWrapperBase& out, const char* tag, int id, std::string_view text) {
  if (!TakesChild() || tag == nullptr || text.size() > rytesavc::Value::kMaxLength) return 0;
  const Name* const name = tree_->Intern(StoredName(tag).view());
  if (name == nullptr) return 0;
  rytesavc::LooseBranch made(*tree_, tree_->NewNode(name, id, node_->depth + 1));
  if (!text.empty()) tree_->SetText(made.get()->text, text);
  Node* const added = made.Take();
  tree_->Append(node_, added);
  return out.Point(tree_, added);
}

int RYXmlWrapperBase::AddNode(RYXmlWrapperBase& out, const char* tag, int id) {
  return AddNodeAs(out, tag, id, {});
}

int RYXmlWrapperBase::AddChildNode(const char* tag, RYXmlWrapperBase& out, int id, const char*) {
  return AddNodeAs(out, tag, id, {});
}

int RYXmlWrapperBase::AddTextNode(RYXmlWrapperBase& out, const char* text, const char* tag, int id, int,
                                  const STNODETEXTOPTS*) {
  return AddNodeAs(out, tag, id, text != nullptr ? std::string_view(text) : std::string_view());
}

int RYXmlWrapperBase::InsertNodeBefore(const RYXmlWrapperBase& next, const char* tag, int id) {
  if (!TakesChild() || next.IsNodeValid() == 0 || next.node_->parent != node_ || tag == nullptr) return 0;
  const Name* const name = tree_->Intern(StoredName(tag).view());
  if (name == nullptr) return 0;
  tree_->InsertBefore(next.node_, tree_->NewNode(name, id, node_->depth + 1));
  return 1;
}

int RYXmlWrapperBase::AddNodeCopy(const RYXmlWrapperBase& src, int) {
  if (!TakesChild() || src.IsNodeValid() == 0 || !Fits(src.node_, node_->depth + 1)) return 0;
  tree_->Append(node_, tree_->Copy(src.node_, *src.tree_, node_->depth + 1));
  return 1;
}

// ---- Removing.

int RYXmlWrapperBase::RemoveChild(RYXmlWrapperBase& child, int* status) {
  const bool ours = IsNodeValid() != 0 && child.IsNodeValid() != 0 && child.node_->parent == node_;
  if (status != nullptr) *status = ours ? 0 : -1;
  return ours ? child.RYXmlWrapperBase::RemoveNode() : 0;
}

int RYXmlWrapperBase::RemoveAllChildren() {
  if (IsNodeValid() == 0) return 0;
  tree_->FreeChildren(node_);
  return 1;
}

int RYXmlWrapperBase::SetSizeTrimFromEnd(int n) {
  if (IsNodeValid() == 0 || n < 0) return 0;
  while (node_->child_count > static_cast<std::uint32_t>(n)) {
    tree_->Remove(node_->last());
  }
  return 1;
}

// ---- Whole nodes.

int RYXmlWrapperBase::CreateNew(int, const char* tag) {
  const OwnedTree tree(Tree::Create());
  const Name* const name = tree->Intern(StoredName(tag != nullptr ? tag : "Root").view());
  if (name == nullptr) return 0;
  tree->root = tree->NewNode(name, -1, 1);
  return Point(tree.get(), tree->root);
}

int RYXmlWrapperBase::Clone(RYXmlWrapperBase& out, int) const {
  if (IsNodeValid() == 0) return 0;
  const OwnedTree tree(Tree::Create(node_ == tree_->root ? tree_->expected_bytes() : 0));
  tree->root = tree->Copy(node_, *tree_, 1);
  return out.Point(tree.get(), tree->root);
}

int RYXmlWrapperBase::Replace(const RYXmlWrapperBase& src, int, int keepTag, int) {
  if (IsNodeValid() == 0 || src.IsNodeValid() == 0 || !Fits(src.node_, node_->depth)) return 0;
  // The copy is made before anything is removed: the source may be above this node or below it.
  Node* const copy = tree_->Copy(src.node_, *src.tree_, node_->depth);
  if (keepTag != 0) copy->tag = node_->tag;
  tree_->TakeContent(node_, copy);
  return 1;
}

int RYXmlWrapperBase::ReplaceByNodeCopy(const RYXmlWrapperBase& src, int, int) {
  return Replace(src, 1, 0, 0);
}

int RYXmlWrapperBase::ArrangeChildren(const CArray<int, int>& order) {
  if (IsNodeValid() == 0 || order.GetSize() != GetNodeCount()) return 0;
  std::vector<bool> named(node_->child_count);
  for (const int place : order) {
    if (place < 0 || place >= order.GetSize() || named[static_cast<std::size_t>(place)]) return 0;
    named[static_cast<std::size_t>(place)] = true;
  }
  tree_->ArrangeChildren(node_, order.GetData());
  return 1;
}

int RYXmlWrapperBase::ResetNode(int) {
  if (IsNodeValid() == 0) return 0;
  tree_->FreeChildren(node_);
  return tree_->SetText(node_->text, {}) ? 1 : 0;
}
