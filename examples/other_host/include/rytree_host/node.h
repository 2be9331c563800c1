// The node class of this host: handles on items. docs/host-contract.md tells what the operations do.
#pragma once

#include "rytree_host/items.h"
#include "rytree_host/values.h"

struct RYTREE_API TESAObj {
  virtual ~TESAObj() = default;
  virtual int IsValid() const { return 0; }
};

/// An attribute name or a tag; there is nothing to make ready here.
struct RYPropertyName : std::string_view {
  RYPropertyName(const char* name) : std::string_view(name != nullptr ? name : "") {}
  RYPropertyName(const CString& name) : std::string_view(name.View()) {}
  std::string_view view() const { return *this; }
  const char* c_str() const { return data(); }
};

class RYTREE_API RYXmlWrapperBase : public TESAObj {
  using Node = RYXmlWrapperBase;
  using Name = RYPropertyName;

 public:
  bool operator==(const Node& other) const { return Live() == other.Live(); }
  int IsNodeValid() const { return Live() != nullptr ? 1 : 0; }
  int IsValid() const override { return IsNodeValid(); }
  void ReleaseNode() { *this = Node(); }

  int FirstChild(Node& out) const { return Step(out, &TreeItem::First); }
  int NextSibling(Node& out) const { return Step(out, &TreeItem::Next); }
  int PrevSibling(Node& out) const { return Step(out, &TreeItem::Previous); }
  int GetParent(Node& out) const { return Step(out, &TreeItem::parent); }
  int NextBelow(Node& out, const Node& top) const { return Step(out, &TreeItem::NextBelow, top.item_.get()); }
  int GetChild(Node& out, int index) const { return Step(out, &TreeItem::Child, index); }
  int GetTreeSize() const { return 0; }  // is not counted
  int GetNodeCount() const { return Live() != nullptr ? static_cast<int>(item_->children.size()) : 0; }
  int HasChildren(int) const { return GetNodeCount() != 0 ? 1 : 0; }
  int IsEmpty() const { return Live() != nullptr && item_->children.empty() && item_->text.empty() ? 1 : 0; }

  int GetPropertyValue(const Name& name, int& value) const { return read_text(Find(name), value); }
  int GetPropertyValue(const Name& name, double& value) const { return read_text(Find(name), value); }
  int GetPropertyValue(const Name& name, CString& value) const { return read_text(Find(name), value); }
  int HasProperty(const Name& name) const { return Find(name) != nullptr ? 1 : 0; }
  int SetPropertyValue(const Name& name, int value) { return Write(name, text_of(value)); }
  int SetPropertyValue(const Name& name, double value) { return Write(name, text_of(value)); }
  int SetPropertyValue(const Name& name, const CString& value) { return Write(name, value.View()); }
  int SetPropertyValue(const Name& name, const char* text) { return text != nullptr ? Write(name, text) : 0; }
  int SetPropertyValue(const Name& name, const _variant_t* to) { return to == nullptr ? Write(name, "") : 0; }
  int RemoveProperty(const Name& name) {
    const auto is_it = [&](const auto& attribute) { return attribute.first == name; };
    return Live() != nullptr && std::erase_if(item_->attributes, is_it) != 0 ? 1 : 0;
  }
  int CopyAllAttributes(const Node& src, int) {
    if (Live() == nullptr || src.Live() == nullptr) return 0;
    TreeItem both;
    both.attributes = item_->attributes;
    for (const auto& [name, value] : src.item_->attributes) both.SetAttribute(name, value);
    return item_->attributes.swap(both.attributes), 1;
  }
  int GetDataID(int& value) const { return GetPropertyValue("DataID", value); }
  int SetDataID(int value) { return SetPropertyValue("DataID", value); }
  int GetShow(int& value) const { return GetPropertyValue("Show", value); }
  int SetShow(int value) { return SetPropertyValue("Show", value); }
  int SetLabel(const char* text) { return SetPropertyValue("Label", text); }

  template <class Value>
  int NodeValue(Value& value, int get) {
    return get != 0 ? read_text(Text(), value) : WriteText(text_of(value));
  }
  int NodeValue(CString& value, int get, int, const STNODETEXTOPTS*) {
    return get != 0 ? read_text(Text(), value) : WriteText(value.GetString());
  }
  int GetNodeStringWithBlobInfo(CString& value, int) const { return read_text(Text(), value); }
  int CheckSetValue(int, const char* value, int f) {
    return value == nullptr ? 0 : f == 0 ? WriteText(value) : f == 1 ? SetPropertyValue("Use", value) : 0;
  }
  int GetVector(tagRYSOBJVECT& vector) const { return read_text(Text(), vector.values) - 1; }
  int SetVector(const tagRYSOBJVECT& vector) { return WriteText(text_of(vector.values)) - 1; }

  int GetTagName(CString& tag) const { return Live() != nullptr ? (tag = item_->tag.c_str(), 1) : 0; }
  int HasTagName(const Name& tag) const { return Live() != nullptr && item_->tag == tag ? 1 : 0; }
  int GetID(int& id) const { return Live() != nullptr && item_->id != -1 ? (id = item_->id, 1) : 0; }
  int SetID(int id, bool) { return Live() != nullptr ? (item_->id = id, 1) : 0; }

  int FindChild(const char* tag, Node& out, int) const {
    Node at;
    for (FirstChild(at); at.Live() != nullptr && at.HasTagName(tag) == 0;) at.NextSibling(at);
    return at.Live() != nullptr ? (out = at, 1) : 0;
  }
  int FindNodeByAttribute(Node& out, const char* name, const char* text, int x, int y) const {
    Node at;
    CString value;
    for (FirstChild(at); at.Live() != nullptr; y != 0 ? at.NextBelow(at, *this) : at.NextSibling(at)) {
      if (at.GetPropertyValue(name, value) != 0 && (x != 0 ? _mbsicmp : _mbscmp)(value, text) == 0)
        return out = at, 1;
    }
    return 0;
  }
  int FindNodeByAttribute(Node& out, const char* name, int number, int y) const {
    return FindNodeByAttribute(out, name, text_of(number).c_str(), 0, y);
  }

  int AddNode(Node& out, const char* tag, int id) { return AddTextNode(out, "", tag, id, 0, nullptr); }
  int AddChildNode(const char* tag, Node& out, int id, const char*) { return AddNode(out, tag, id); }
  int InsertNodeBefore(const Node& next, const char* tag, int id) { return Add(NewItem(tag, id, ""), &next); }
  int AddTextNode(Node& out, const char* text, const char* tag, int id, int, const STNODETEXTOPTS*) {
    const ItemPointer item = NewItem(tag, id, text);
    return Add(item) != 0 ? Lead(out, item.get()) : 0;
  }
  int AddNodeCopy(const Node& src, int) { return src.Live() != nullptr ? Add(src.item_->Copy()) : 0; }
  int RemoveChild(Node& child, int* status) {
    const bool is_child = Live() != nullptr && child.Live() != nullptr && child.item_->parent == Live();
    if (status != nullptr) *status = is_child ? 0 : -1;
    return is_child ? child.RemoveNode() : 0;
  }
  virtual int RemoveNode() { return Live() != nullptr ? (item_->Remove(), 1) : 0; }
  int RemoveAllChildren() { return SetSizeTrimFromEnd(0); }
  int SetSizeTrimFromEnd(int n) {
    while (n >= 0 && GetNodeCount() > n) item_->children.back()->Remove();
    return Live() != nullptr && n >= 0 ? 1 : 0;
  }

  int CreateNew(int, const char* tag) {
    const ItemPointer root = NewItem(tag != nullptr ? tag : "Root", -1, "");
    return IsName(root->tag) ? LeadToRoot(root) : 0;
  }
  virtual int Clone(Node& out, int) const { return Live() != nullptr ? out.LeadToRoot(item_->Copy()) : 0; }
  int Replace(const Node& src, int, int keepTag, int) {
    if (Live() == nullptr || src.Live() == nullptr) return 0;
    const ItemPointer copy = src.item_->Copy();
    if (keepTag != 0) copy->tag = item_->tag;
    return TakeOver(*copy);
  }
  int ReplaceByNodeCopy(const Node& src, int, int) { return Replace(src, 0, 0, 0); }
  int ArrangeChildren(const CArray<int, int>& order) {
    if (Live() == nullptr || order.GetSize() != GetNodeCount()) return 0;
    std::vector<TreeItem> contents(item_->children.size());
    auto content = contents.begin();
    for (const auto& child : item_->children) (content++)->Exchange(*child);
    const int* place = order.begin();
    for (const auto& child : item_->children) child->Exchange(contents[static_cast<std::size_t>(*place++)]);
    return 1;
  }
  int ResetNode(int) { return WriteText("") != 0 ? RemoveAllChildren() : 0; }

  virtual int GetXmlText(CString* text) const;
  [[nodiscard]] virtual int SetXmlText(const char* text);
  [[nodiscard]] int Save(const char* path) const;
  [[nodiscard]] int load(const char* path, int);
  static int SetDefaultCodePage(int page) { return page == 65001 ? 1 : 0; }

 private:
  static ItemPointer NewItem(const char* tag, int id, const char* text) {
    return std::make_shared<TreeItem>(ItemContent{std::string(Name(tag)), std::string(Name(text)), id, {}});
  }
  TreeItem* Live() const { return item_ != nullptr && item_->alive ? item_.get() : nullptr; }
  template <class Way, class... Argument>
  int Step(Node& out, Way way, Argument... argument) const {
    return Live() != nullptr ? Lead(out, std::invoke(way, *item_, argument...)) : 0;
  }
  int Lead(Node& out, TreeItem* item) const {
    Node there;
    if (item != nullptr) there.root_ = root_, there.item_ = item->shared_from_this();
    return out = std::move(there), out.IsNodeValid();
  }
  int LeadToRoot(const ItemPointer& root) { return root_ = item_ = root, 1; }
  const std::string* Text() const { return Live() != nullptr ? &item_->text : nullptr; }
  const std::string* Find(const Name& name) const { return Live() != nullptr ? item_->Find(name) : nullptr; }
  int Write(const Name& name, std::string_view value) {
    return Live() != nullptr && IsName(name) ? (item_->SetAttribute(name, value), 1) : 0;
  }
  int WriteText(std::string text) { return Live() != nullptr ? (item_->text.swap(text), 1) : 0; }
  int Add(const ItemPointer& item, const Node* next = nullptr) {
    if (Live() == nullptr || !IsName(item->tag) || !item_->HasRoomFor(*item)) return 0;
    if (next != nullptr && (next->Live() == nullptr || next->item_->parent != Live())) return 0;
    return item_->Insert(next != nullptr ? next->Live() : nullptr, item), 1;
  }
  int TakeOver(TreeItem& made) {
    if (item_->parent != nullptr && !item_->parent->HasRoomFor(made)) return 0;
    return item_->Exchange(made), made.Die(), 1;
  }

  ItemPointer root_;  // keeps the whole tree
  ItemPointer item_;
};
