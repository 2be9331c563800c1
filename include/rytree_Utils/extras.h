// What programs in C++ often need beside the exports: reading nodes that are const, comparing trees and lists
// of values, finding nodes by their IDs, taking changes back. These functions call the exports and the
// operations of the node class. They are in a small static library of their own: link rytree_Utils::extras.
//
//     for (const rytree::Difference& one : rytree::differences_by_id(before, after))
//       std::printf("%s\n", one.new_path.c_str());
//
// No function throws anything but std::bad_alloc, and none needs a valid handle: an invalid or dead one is
// taken for a tree without nodes. Only what says so changes a tree. Tags and attribute names that the default
// code page cannot write are not told apart. "Linear" leaves out the factor log n of the sorted lists in which
// IDs are looked up.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace rytree {

// ---- Reading a node.

/// The tag; empty for an invalid node, and for a tag that the default code page cannot write.
std::string tag_of(const RYXmlWrapperBase& node);

/// The node's own text, which a branch has too; empty for an invalid node.
std::string text_of(const RYXmlWrapperBase& node);

/// The first direct child of that tag; an invalid handle if there is none, and for a null tag.
RYXmlWrapperBase child_of(const RYXmlWrapperBase& node, const char* tag);

/// The value of an attribute. Nothing if it is missing, cannot be read as such a number, or `name` is null.
std::optional<std::string> attribute_of(const RYXmlWrapperBase& node, const char* name);
std::optional<int> int_attribute_of(const RYXmlWrapperBase& node, const char* name);
std::optional<double> double_attribute_of(const RYXmlWrapperBase& node, const char* name);

struct Attribute {
  std::string name;
  std::string value;
};

/// All attributes in the order of their first writing, without those whose names the default code page cannot
/// write.
std::vector<Attribute> attributes_of(const RYXmlWrapperBase& node);

// ---- Comparing trees.

/// Whether two branches are equal: tag, node ID, text and attributes of each node, and the children in their
/// order. The order of the attributes does not count, nor where the branches are. Two invalid handles are
/// equal. Linear, and over at the first difference.
bool are_equal(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right);

enum class DifferenceKind {
  kAdded,    // the node is in the new tree only
  kRemoved,  // the node is in the old tree only
  kMoved,    // the node is below another node than before, or in another place among its siblings
  kChanged,  // one part of the node has another value
};

enum class NodePart { kTag, kNodeId, kText, kAttribute };

/// One difference between an old and a new tree.
struct Difference {
  DifferenceKind kind = DifferenceKind::kChanged;
  /// Of kChanged: what changed. The same node can have several such differences.
  NodePart part = NodePart::kText;
  /// The name of the attribute, if that is the part.
  std::string attribute;
  /// The ID by which the node was compared, as a harvest composes it; -1 for none.
  int id = -1;
  /// Of kAdded and kRemoved: the node above is so too.
  bool inside = false;
  /// The part before and after; nothing for an attribute or a node ID that was not there. Of kAdded and
  /// kRemoved the text of the node, of kMoved nothing.
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
  /// The tags from the top node down, joined by "/"; of the siblings with one tag the second has "[2]" after
  /// it, and so on: "Plot/Line[2]/Width". Empty, with the place -1 and an invalid handle, where a tree does
  /// not have the node.
  std::string old_path;
  std::string new_path;
  /// The places among the siblings, from 0.
  int old_place = -1;
  int new_place = -1;
  /// The nodes themselves, as long as they are not removed.
  RYXmlWrapperBase old_node;
  RYXmlWrapperBase new_node;
};

/// The differences between two trees, none exactly if they are equal. They come in the order of the new tree;
/// those of a node come before those of its children, and what was removed from it between the two.
///
/// A node of the old tree corresponds to the node of the new one that has the same ID, composed with the
/// repeat numbers as in a harvest, wherever it is; of several nodes with one ID the first to the first, the
/// second to the second. Where corresponding nodes have children without an ID, or ID -1, those correspond by
/// their tags: the first of a tag to the first, and so on. The two top nodes correspond whatever they are,
/// and their own IDs do not count. As few siblings as possible count as moved.
/// - `id_attribute`: null means "DataID".
///
/// Linear in the two trees and the length of the paths.
std::vector<Difference> differences_by_id(const RYXmlWrapperBase& old_tree, const RYXmlWrapperBase& new_tree,
                                          const char* id_attribute = nullptr);

/// The same without IDs: all nodes correspond by their tags and places.
std::vector<Difference> differences_by_path(const RYXmlWrapperBase& old_tree,
                                            const RYXmlWrapperBase& new_tree);

// ---- Nodes by ID.

/// An index of the nodes below one node by their IDs, composed with the repeat numbers as a harvest and an
/// apply compose them. It is made in one walk, linear; a look-up is a binary search. Nodes that are added
/// later, or get another ID, are not known to it; a node that is removed stays in it as a dead handle. It
/// keeps the tree alive.
class NodesById {
 public:
  /// - `id_attribute`: null means "DataID".
  /// - `repeat`: the repeat number in force at `top`, normally 0.
  explicit NodesById(const RYXmlWrapperBase& top, const char* id_attribute = nullptr, int repeat = 0);

  /// The first node of that ID in document order; an invalid handle if there is none. An ID below 0 is one
  /// like any other, but -1 is that of nodes without an ID, which are not in the index.
  RYXmlWrapperBase find(int id) const;
  /// All nodes of that ID in document order.
  std::vector<RYXmlWrapperBase> find_all(int id) const;
  bool contains(int id) const;
  /// All IDs, ascending, each once.
  std::vector<int> ids() const;

 private:
  using Place = std::pair<int, int>;  // an ID, and where its node is in `nodes_`

  std::vector<Place> places_;  // sorted
  std::vector<RYXmlWrapperBase> nodes_;
};

// ---- Values by ID.

/// IDs and the values that belong to them, as a harvest fills them and an apply takes them:
///     vctree_get_values_with_ids(&tree, &list.ids, &list.values, 1, 0, 0, nullptr, 0, nullptr);
/// An ID without a value has the empty one; a value without an ID does not count.
struct ValueList {
  CArray<int, int> ids;
  CStringArray values;
};

struct ValueDifference {
  DifferenceKind kind = DifferenceKind::kChanged;  // kAdded, kRemoved or kChanged
  int id = -1;
  std::optional<std::string> old_value;  // nothing of kAdded
  std::optional<std::string> new_value;  // nothing of kRemoved
};

/// The differences between two lists, compared by ID: first those of the new list, in its order, then what
/// was removed, in the order of the old one. Of several entries with one ID the first corresponds to the
/// first, the second to the second. Values are compared byte for byte, the order of the entries does not
/// count. Linear.
std::vector<ValueDifference> differences_of_values(const ValueList& old_list, const ValueList& new_list);

/// What an apply or a copy did.
struct Applied {
  /// The result of the export: the number of nodes matched, or its negative code.
  int matched = -1;
  /// The IDs that no node has, each once, in the order of the values. Empty if `matched` is negative.
  std::vector<int> unmatched;
  /// The message of the export about a failure.
  std::string message;
};

struct ApplyOptions {
  const char* id_attribute = nullptr;  // null means "DataID"
  int repeat = 0;                      // the repeat number in force at the node
  int store_argument = 0;
  bool first_counts = false;  // of several values with one ID the first is used; else they are a failure
};

/// vctree_set_values_by_ids, which also tells the IDs that found no node.
Applied apply_values(RYXmlWrapperBase& node, const ValueList& list, const ApplyOptions& options = {});

struct CopyOptions {
  const char* source_id_attribute = nullptr;       // null means "DataID"
  const char* destination_id_attribute = nullptr;  // the same
  int store_argument = 0;
  bool all_branches = false;
  bool keep_bit_18_off = false;
  bool drop_empty = false;
};

/// rytree_copy_values_by_id, which also tells the IDs that found no node. There is no message. The values are
/// harvested twice.
Applied copy_values(RYXmlWrapperBase& source, RYXmlWrapperBase& destination, const CopyOptions& options = {});

/// Whether a file holds saved values, as vctree_save_values_with_ids writes them: its root is "Settings", and
/// has children, each of them a leaf tagged "node" and an int. False also if it cannot be loaded. Of a
/// regular file with another root only the beginning is read, if that is in UTF-8 or another encoding with
/// the letters of ASCII and has no DOCTYPE.
[[nodiscard]] bool holds_saved_values(const char* file);

// ---- Taking changes back.

/// What is in "OldValue", the mark of a changed node.
enum class OldValues {
  kTexts,  // the text of a leaf: VCTreeUpdateChanges, and callers of rytree_node_changed who give such texts
  kDecorated,  // the value as a harvest gives it, with its decorations in front, of branches too
};

/// Gives the marked nodes below `node` their old values back and takes their marks ("OldValue", "OldName")
/// off.
/// - kTexts: each marked leaf gets its text back. A marked branch stays as it is, with its mark.
/// - kDecorated: each marked leaf gets its text back, each marked branch its attribute "Use", or "Data" with
///   bit 20 of "ThemeApplicability"; the value "-1" of a branch without that attribute makes none. "Auto" and
///   "DynaUseChck" are set, or removed where the old value has no such decoration.
///
/// A harvest with `changedOnly` puts the present values into the marks: undo before it. A mark knows nothing
/// of other attributes and of nodes that came or went; restore() takes back everything. The number of nodes
/// that were given their values back. Linear.
int undo_changes(RYXmlWrapperBase& node, OldValues form = OldValues::kTexts);

/// Makes a branch equal to another one, attributes in the same order too, and changes only what differs.
/// Nodes that both have stay, so that handles on them stay good: the two top nodes, and below nodes that
/// stay, children of one tag and one "DataID" (or none), the first of them for the first, as far as they are
/// in the same order. Of children that are not, as many as possible stay. All others are removed, and copies
/// made of what is missing. Where the tags of the two top nodes differ, all nodes below `target` are
/// replaced.
///
/// The branches may be in one tree, one in the other too; what `source` is then changes with `target`. True,
/// or false with a part of it done: a handle is invalid (nothing is done), the tree would be too deep, or a
/// node has an attribute whose name the default code page cannot write. Linear.
bool restore(RYXmlWrapperBase& target, const RYXmlWrapperBase& source);

}  // namespace rytree
