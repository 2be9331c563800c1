// The tree node of the host: a tag, a text, attributes, ordered children and an integer node ID.
#pragma once

#include <utility>

#include "rytree_host/detail/tree_store.h"
#include "rytree_host/framework.h"
#include "rytree_host/property_name.h"

/// The base of the host's handle classes.
class RYTESAVC_API TESAObj {
 public:
  TESAObj() = default;
  TESAObj(const TESAObj&) = default;
  TESAObj& operator=(const TESAObj&) = default;
  virtual ~TESAObj() = default;
  virtual int IsValid() const;
};

/// Why the last Save, load, GetXmlText or SetXmlText of this thread failed.
struct RYXmlFailure {
  const char* text;  ///< one line of English; "" after a success; good until the thread's next such call ends
  int line;          ///< of the XML text, from 1; 0 where the failure has no place in a text
  int column;        ///< from 1, in characters; 0 as above
  long long offset;  ///< from the start of the text, in bytes of the text that was given; -1 as above
};

/// What a text held that is in no tree, and that a Save does not write: how many of each.
struct RYXmlPassedOver {
  int comments;
  int instructions;  ///< processing instructions, without the XML declaration
  int doctypes;      ///< 1 if there is a DOCTYPE
  int entities;      ///< declared in the DOCTYPE
  int mixed_nodes;   ///< nodes with text after a child: the text is kept, its position is lost
};

/// A handle on one node of a tree. A copy is a second handle on the same node. A tree lives as long as a
/// handle on any of its nodes; a removed node is dead at once, with everything below it, and its handles
/// report IsNodeValid() 0. A handle that is moved from into a new one is empty; one that is moved from by an
/// assignment holds the other handle's former node, and keeps that tree alive.
///
/// The handles of one tree belong to one thread at a time, also if all threads only read, each through its own handles:
/// reads write too. They count handles, GetChild and searches among many attributes remember places, a copy marks the
/// names it has copied. Threads that read at the same time each need a Clone, made beforehand; trees share nothing.
///
/// Rules that hold for every operation:
/// - Results are int, nonzero on success, unless said otherwise.
/// - On an invalid or dead handle an operation fails: 0 (GetVector and SetVector: -1), nothing changed and
///   the outputs left alone. Only CreateNew and `load` do not need a valid one.
/// - An `out` may be the handle itself. On a valid handle a step to a node that is not there makes `out`
///   invalid.
/// - An operation that fails changes nothing. When memory runs out it changes nothing either and throws
///   std::bad_alloc; load, Save, SetXmlText and GetXmlText give 0 instead. None makes a tree deeper than
///   1,024 levels.
/// - Tags and attribute names are XML names, compare byte for byte, and are in the default code page as all
///   strings are (SetDefaultCodePage). One that the page has no characters for is refused. The names
///   "_NodeID" and "_NodeEscape" belong to the file form and are refused.
/// - Numbers are written in the shortest form that reads back to the same value. An int is read from a text
///   with blanks around it, a sign, or as a real number of integral value in range; a double takes NaN and
///   infinities too; of a NaN nothing but the sign is kept. A read that fails leaves the variable alone.
class RYTESAVC_API RYXmlWrapperBase : public TESAObj {
 public:
  RYXmlWrapperBase() = default;
  RYXmlWrapperBase(const RYXmlWrapperBase& other)
      : TESAObj(other), tree_(other.tree_), node_(other.node_), generation_(other.generation_) {
    if (tree_ != nullptr) tree_->Retain();
  }
  RYXmlWrapperBase(RYXmlWrapperBase&& other) noexcept
      : tree_(std::exchange(other.tree_, nullptr)),
        node_(std::exchange(other.node_, nullptr)),
        generation_(other.generation_) {}
  RYXmlWrapperBase& operator=(const RYXmlWrapperBase& other) {
    if (tree_ != other.tree_) Retarget(other.tree_);
    node_ = other.node_;
    generation_ = other.generation_;
    return *this;
  }
  RYXmlWrapperBase& operator=(RYXmlWrapperBase&& other) noexcept {
    std::swap(tree_, other.tree_);
    std::swap(node_, other.node_);
    std::swap(generation_, other.generation_);
    return *this;
  }
  ~RYXmlWrapperBase() override {
    if (tree_ != nullptr) tree_->Release();
  }

  /// The same node, or neither handle is on a node.
  bool operator==(const RYXmlWrapperBase& other) const {
    return IsNodeValid() != 0 ? node_ == other.node_ && generation_ == other.generation_
                              : other.IsNodeValid() == 0;
  }
  int IsNodeValid() const { return node_ != nullptr && node_->generation == generation_ ? 1 : 0; }
  int IsValid() const override;
  /// Empties the handle.
  void ReleaseNode() { Point(nullptr, nullptr); }

  // ---- Walking: O(1) a step.

  int FirstChild(RYXmlWrapperBase& out) const {
    return IsNodeValid() != 0 ? out.Point(tree_, node_->first) : 0;
  }
  int NextSibling(RYXmlWrapperBase& out) const {
    return IsNodeValid() != 0 ? out.Point(tree_, node_->next) : 0;
  }
  int PrevSibling(RYXmlWrapperBase& out) const {
    return IsNodeValid() != 0 ? out.Point(tree_, node_->previous()) : 0;
  }
  int GetParent(RYXmlWrapperBase& out) const {
    return IsNodeValid() != 0 ? out.Point(tree_, node_->parent) : 0;
  }
  /// The node after this one, in document order, among all those below `top`, which is above this node or the
  /// node itself. A whole walk takes O(1) a step.
  int NextBelow(RYXmlWrapperBase& out, const RYXmlWrapperBase& top) const {
    return IsNodeValid() != 0 ? out.Point(tree_, node_->NextBelow(top.node_)) : 0;
  }
  /// The child at `index`, from 0. The walk starts at an end or where the last one on this parent ended, so
  /// that asking for the children in order, either way, is O(1) each, also on several parents in turns. That
  /// place is lost when a child is inserted or removed elsewhere under the parent.
  int GetChild(RYXmlWrapperBase& out, int index) const;
  /// The number of children, O(1).
  int GetNodeCount() const { return IsNodeValid() != 0 ? static_cast<int>(node_->child_count) : 0; }
  /// The number of nodes of the whole tree, O(1): the most that a walk needs room for.
  int GetTreeSize() const { return IsNodeValid() != 0 ? static_cast<int>(tree_->node_count()) : 0; }
  /// Whether the node has children. The argument has no effect.
  int HasChildren(int) const { return IsNodeValid() != 0 && node_->first != nullptr ? 1 : 0; }
  /// Whether everything that the tree holds fits together: the links of all nodes, their depths, names,
  /// attributes and values, every count, and the use of the tree's memory to the last byte. `fault` (may be
  /// null) becomes the first fault found, or empty. Only a fault of this library or of a program that writes
  /// where it must not makes a tree unsound. O(n log n), for tests.
  int IsTreeSound(CString* fault = nullptr) const;
  /// Whether the node is a leaf without text.
  int IsEmpty() const { return IsNodeValid() != 0 && node_->first == nullptr && node_->text.empty() ? 1 : 0; }

  // ---- Attributes, in the order of their first writing. Among many attributes one is found as quickly as
  // among few; removing one moves all that follow it.

  int GetPropertyValue(const char* name, int& value) const { return ReadInt(FindAttribute(name), value); }
  int GetPropertyValue(const char* name, double& value) const {
    return ReadDouble(FindAttribute(name), value);
  }
  int GetPropertyValue(const char* name, CString& value) const {
    return ReadText(FindAttribute(name), value);
  }
  int GetPropertyValue(const RYPropertyName& name, int& value) const {
    return ReadInt(FindAttribute(name), value);
  }
  int GetPropertyValue(const RYPropertyName& name, double& value) const {
    return ReadDouble(FindAttribute(name), value);
  }
  int GetPropertyValue(const RYPropertyName& name, CString& value) const {
    return ReadText(FindAttribute(name), value);
  }
  /// Whether the attribute is there, whatever its value.
  int HasProperty(const RYPropertyName& name) const { return FindAttribute(name) != nullptr ? 1 : 0; }
  /// The number of attributes, O(1).
  int GetPropertyCount() const { return IsNodeValid() != 0 ? static_cast<int>(node_->attribute_count) : 0; }
  /// The name and the value, as a text, of the attribute at `index`, from 0, in O(1). 0, with both left alone,
  /// for an index outside and for a name that the default code page cannot write, as in GetTagName.
  int GetPropertyAt(int index, CString& name, CString& value) const;

  int SetPropertyValue(const char* name, int value);
  int SetPropertyValue(const char* name, double value);
  int SetPropertyValue(const char* name, const CString& value);
  /// A null text is refused.
  int SetPropertyValue(const char* name, const char* value);
  /// A null variant leaves the attribute there with an empty value.
  int SetPropertyValue(const char* name, const _variant_t* value);
  int SetPropertyValue(const RYPropertyName& name, int value) {
    if (IsNodeValid() == 0) return 0;
    const rytesavc::Name* const known = name.In(tree_);
    if (known == nullptr) return SetPropertyValue(name.c_str(), value);
    if (rytesavc::Attribute* const found = node_->Find(known)) {
      tree_->SetInt(found->value, value);
    } else {
      tree_->AppendInt(node_, known, value);
    }
    return 1;
  }
  int SetPropertyValue(const RYPropertyName& name, const CString& value);
  /// 0 if the attribute is not there.
  int RemoveProperty(const char* name);
  int RemoveProperty(const RYPropertyName& name);
  /// Writes every attribute of `src`; attributes that only this node has stay. The int has no effect.
  int CopyAllAttributes(const RYXmlWrapperBase& src, int);

  int GetDataID(int& value) const { return GetPropertyValue("DataID", value); }
  int SetDataID(int value) { return SetPropertyValue("DataID", value); }
  int GetShow(int& value) const { return GetPropertyValue("Show", value); }
  int SetShow(int value) { return SetPropertyValue("Show", value); }
  int SetLabel(const char* text) { return SetPropertyValue("Label", text); }

  // ---- The value: the node's own text, which a branch has too. `get` nonzero reads, 0 writes.

  int NodeValue(int& value, int get);
  int NodeValue(double& value, int get);
  /// Read as an int, nonzero is true; written as "1" or "0", where every byte but 0 is true.
  int NodeValue(bool& value, int get);
  /// The text is the numbers with one space between each two, no text being no numbers. A read replaces what
  /// the array held.
  int NodeValue(CArray<double, double>& value, int get);
  /// The int and the options have no effect.
  int NodeValue(CString& value, int get, int, const STNODETEXTOPTS*);
  /// The value as a text that CheckSetValue takes back. The int has no effect.
  int GetNodeStringWithBlobInfo(CString& value, int) const {
    if (IsNodeValid() == 0) return 0;
    AssignText(node_->text, value);
    return 1;
  }
  /// `f` 0 writes the text, `f` 1 the attribute "Use"; any other `f`, and a null value, is refused. `a` has
  /// no effect.
  int CheckSetValue(int a, const char* value, int f);
  /// The same for a text of known length.
  int CheckSetValue(int a, const CString& value, int f);
  /// 0 on success, nonzero on failure.
  int GetVector(tagRYSOBJVECT& vector) const;
  int SetVector(const tagRYSOBJVECT& vector);

  // ---- Identity.

  /// 0, with `tag` left alone, also for a tag that the default code page cannot write: one that came into the
  /// tree under another page.
  int GetTagName(CString& tag) const {
    if (IsNodeValid() == 0) return 0;
    if (CodePage::Default() != nullptr) return GetTagNameInPage(tag);
    tag.Assign(node_->tag->text(), node_->tag->length);
    return 1;
  }
  /// Whether the tag is `tag`, byte for byte.
  int HasTagName(const RYPropertyName& tag) const {
    return IsNodeValid() != 0 && tag.In(tree_) == node_->tag ? 1 : 0;
  }
  /// The node ID, not the DataID. 0 on a node that has none.
  int GetID(int& id) const {
    if (IsNodeValid() == 0 || node_->id == -1) return 0;
    id = node_->id;
    return 1;
  }
  /// -1 removes the node ID. The flag has no effect.
  int SetID(int id, bool);

  // ---- Finding.

  /// The first direct child of that tag; `out` becomes invalid where there is none, and is left alone
  /// for a null tag. The int has no effect.
  int FindChild(const char* tag, RYXmlWrapperBase& out, int) const;
  /// The first node below with that attribute text, in pre-order: `y` 0 among the direct children, else among
  /// all descendants; `x` nonzero ignores case. `out` is set only on success.
  int FindNodeByAttribute(RYXmlWrapperBase& out, const char* name, const char* text, int x, int y) const;
  int FindNodeByAttribute(RYXmlWrapperBase& out, const char* name, int number, int y) const;

  // ---- Adding. `id` is the node ID, -1 for none.

  int AddNode(RYXmlWrapperBase& out, const char* tag, int id);
  /// The last argument has no effect.
  int AddChildNode(const char* tag, RYXmlWrapperBase& out, int id, const char*);
  /// `next` is a direct child of this node.
  int InsertNodeBefore(const RYXmlWrapperBase& next, const char* tag, int id);
  /// The int and the options have no effect; a null text is the empty one.
  int AddTextNode(RYXmlWrapperBase& out, const char* text, const char* tag, int id, int,
                  const STNODETEXTOPTS*);
  /// Appends a deep copy of `src`, which may be this node or hold it. The int has no effect.
  int AddNodeCopy(const RYXmlWrapperBase& src, int);

  // ---- Removing: the cost grows with the number of nodes removed.

  /// `child` is a direct child of this node. The status, which may be null, becomes 0, or -1 on a failure.
  int RemoveChild(RYXmlWrapperBase& child, int* status);
  /// Removes the node with all below it; of a root, the whole tree.
  virtual int RemoveNode() {
    if (IsNodeValid() == 0) return 0;
    tree_->Remove(node_);
    return 1;
  }
  int RemoveAllChildren();
  /// Keeps the first `n` children, all of them if there are no more. A negative `n` is refused.
  int SetSizeTrimFromEnd(int n);

  // ---- Whole nodes.

  /// A fresh tree, the handle on its root: the tag given, "Root" for a null one. A tag that is not a valid
  /// name, the empty one too, is refused, and the handle stays where it was. The int has no effect.
  int CreateNew(int, const char* tag);
  /// A deep detached copy. The int has no effect.
  virtual int Clone(RYXmlWrapperBase& out, int) const;
  /// Takes over tag (kept with `keepTag` nonzero), node ID, attributes, text and children of `src`, which may
  /// be this node, above or below it. This handle stays good, handles below it die. The other ints have no
  /// effect.
  int Replace(const RYXmlWrapperBase& src, int, int keepTag, int);
  int ReplaceByNodeCopy(const RYXmlWrapperBase& src, int, int);
  /// Rearranges the contents of the children: tag, node ID, attributes, text and children of the child at
  /// place `order[i]` go to place i. A handle on a child keeps its place and shows the content that came
  /// there; handles further below go with the content. Nothing is copied. Refused unless the order names
  /// every place once.
  int ArrangeChildren(const CArray<int, int>& order);
  /// Removes children and text; tag, node ID and attributes stay. The int has no effect.
  int ResetNode(int);
  /// One element without declaration or indentation, self-closed if the node has neither text nor children.
  virtual int GetXmlText(CString* text) const;
  /// Parses exactly one element and puts it in this node's place, under the same handle; handles below it
  /// die. What may come before and after the root of a file may do so here too. What is passed over is the
  /// same as in load.
  [[nodiscard]] virtual int SetXmlText(const char* text);

  // ---- Files.

  /// Writes the branch as UTF-8 XML. At every moment the path holds the old file or the new one, whole, also
  /// when the process is killed. A symbolic link stays and the file that it leads to is replaced, or made where
  /// there is none (Windows refuses that). The old file's mode is kept, on Windows its access list, attributes and
  /// time of creation. Interrupted system calls are repeated.
  ///
  /// The new file has no name before it is whole. Only where the system cannot do that, and between the two
  /// last steps over an old file, it is ".NAME.unfinished-save-0" beside the target (or 1, 2, … if others
  /// save to it). A process that is killed there leaves that file, and the next Save to the same path removes
  /// it.
  [[nodiscard]] int Save(const char* path) const;
  /// Puts the handle on the root of the tree in the file. The int has no effect. The file is in UTF-8, in
  /// UTF-16 with a byte order mark, or in the encoding that its XML declaration names, under any of its usual
  /// names in any case: ASCII, ISO 8859, Windows 125x, KOI8-R and -U, CP437 to CP866, Shift_JIS, EUC-JP,
  /// GB2312, GBK, GB18030, Big5, EUC-KR. Another encoding is refused. A byte order mark outdoes the declaration.
  ///
  /// Not in the tree, and so not in a file that it is saved to, are comments, processing instructions, a
  /// DOCTYPE with the entities it declares, and the places of text among children: all text of a node is put
  /// together. LastPassedOver tells how many there were. White space between the tags of a branch is layout
  /// and not text, unless xml:space="preserve" on the node or above it says otherwise; under that, Save adds
  /// no layout. Refused are entities that are not declared, a _NodeID that is not an int (-1 is none, and is
  /// not saved again) and a _NodeEscape that is not 1.
  [[nodiscard]] int load(const char* path, int);
  /// The encoding of all strings given and taken, of texts, attribute values, tags and names, and of what is
  /// compared and searched: 65001 (UTF-8, at the start), 1250 to 1258, 932, 936, 949, 950, 28591. It holds
  /// for the process, and is set before trees are made or read: a text that is in a tree keeps its bytes,
  /// while tags and names are kept in UTF-8 and are told in the page that is set. Files are written in UTF-8
  /// under every page. `load` and SetXmlText refuse a character that the page lacks, and SetXmlText bytes
  /// that are none of its characters. An unknown page gives 0 and changes nothing.
  static int SetDefaultCodePage(int page);
  static RYXmlFailure LastFailure();
  /// Of the last load or SetXmlText of this thread; all 0 if that failed.
  static RYXmlPassedOver LastPassedOver();

 private:
  friend struct NodeAccess;

  int Point(rytesavc::Tree* tree, rytesavc::Node* node) {
    if (node == nullptr) tree = nullptr;
    if (tree_ != tree) Retarget(tree);
    node_ = node;
    if (node == nullptr) return 0;
    generation_ = node->generation;
    return 1;
  }
  void Retarget(rytesavc::Tree* tree) {
    if (tree != nullptr) tree->Retain();
    if (rytesavc::Tree* const former = std::exchange(tree_, tree)) former->Release();
  }

  rytesavc::Attribute* FindAttribute(const char* name) const {
    if (CodePage::Default() != nullptr) [[unlikely]]
      return FindStoredAttribute(name);
    if (IsNodeValid() == 0 || name == nullptr) return nullptr;
    if (!node_->has_few_attributes()) [[unlikely]]
      return FindStoredAttribute(name);
    return node_->Find(std::string_view(name));
  }
  rytesavc::Attribute* FindAttribute(const RYPropertyName& name) const {
    if (IsNodeValid() == 0) return nullptr;
    const rytesavc::Name* const found = name.In(tree_);
    return found != nullptr ? node_->Find(found) : nullptr;
  }
  static int ReadInt(const rytesavc::Attribute* attribute, int& value) {
    if (attribute == nullptr) return 0;
    if (attribute->value.kind() != rytesavc::Value::kInt) return ParseInt(attribute->value, value);
    value = attribute->value.number();
    return 1;
  }
  static int ReadDouble(const rytesavc::Attribute* attribute, double& value) {
    return attribute != nullptr ? ParseDouble(attribute->value, value) : 0;
  }
  static int ReadText(const rytesavc::Attribute* attribute, CString& value) {
    if (attribute == nullptr) return 0;
    AssignText(attribute->value, value);
    return 1;
  }
  static void AssignText(const rytesavc::Value& from, CString& to) {
    if (from.kind() == rytesavc::Value::kInt) {
      AssignNumber(from.number(), to);
    } else {
      to.Assign(from.chars(), from.length());
    }
  }
  static int ParseInt(const rytesavc::Value& from, int& to);
  static int ParseDouble(const rytesavc::Value& from, double& to);
  static void AssignNumber(int from, CString& to);

  [[gnu::cold]] rytesavc::Attribute* FindStoredAttribute(const char* name) const;
  [[gnu::cold]] int GetTagNameInPage(CString& tag) const;
  const rytesavc::Name* Intern(const char* name) const;
  const rytesavc::Name* Intern(const RYPropertyName& name) const;
  bool TakesChild() const;
  int AddNodeAs(RYXmlWrapperBase& out, const char* tag, int id, std::string_view text);
  template <class Name, class Write>
  int WriteAttribute(const Name& name, const Write& write);

  rytesavc::Tree* tree_ = nullptr;
  rytesavc::Node* node_ = nullptr;
  std::uint32_t generation_ = 0;
};
