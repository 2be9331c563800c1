// A branch is made equal to another one, and its nodes stay where they can.
#include <rytree_Utils/extras.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "extras/matching.h"

namespace rytree {

namespace {

bool is_inside(RYXmlWrapperBase node, const RYXmlWrapperBase& branch) {
  while (node.IsNodeValid() != 0 && !(node == branch)) node.GetParent(node);
  return node.IsNodeValid() != 0;
}

/// A child, and by what it is recognised in the other branch.
struct Child {
  RYXmlWrapperBase node;
  std::pair<std::string, std::string> key;  // tag and DataID
};

std::vector<Child> children_of(const RYXmlWrapperBase& parent) {
  std::vector<Child> children;
  children.reserve(static_cast<std::size_t>(parent.GetNodeCount()));
  RYXmlWrapperBase at;
  for (parent.FirstChild(at); at.IsNodeValid() != 0; at.NextSibling(at))
    children.push_back({at, {tag_of(at), attribute_of(at, "DataID").value_or("")}});
  return children;
}

/// For each child the place of the wanted one that has the same key, -1 for none.
std::vector<int> wanted_places(const std::vector<Child>& children, const std::vector<Child>& wanted) {
  std::map<std::pair<std::string, std::string>, int> numbers;
  const auto numbered = [&](const std::vector<Child>& all) {
    std::vector<detail::Numbered> keys;
    keys.reserve(all.size());
    for (const Child& child : all) {
      const auto number = numbers.try_emplace(child.key, static_cast<int>(numbers.size())).first;
      keys.emplace_back(number->second, static_cast<int>(keys.size()));
    }
    return keys;
  };
  std::vector<int> places(children.size(), -1);
  for (const auto& [at, place] : detail::match_equal(numbered(children), numbered(wanted)))
    places[static_cast<std::size_t>(at)] = place;
  return places;
}

/// For each wanted child the child of the target that stays for it, an invalid handle if there is none. The
/// order of those that stay is that of the wanted ones; the other children are removed.
std::vector<RYXmlWrapperBase> keep_children(const RYXmlWrapperBase& target,
                                            const std::vector<Child>& wanted) {
  std::vector<Child> children = children_of(target);
  const std::vector<int> places = wanted_places(children, wanted);
  std::vector<int> found_places;
  std::copy_if(places.begin(), places.end(), std::back_inserter(found_places),
               [](int at) { return at >= 0; });
  const std::vector<bool> stays = detail::in_order(found_places);
  std::vector<RYXmlWrapperBase> kept(wanted.size());
  std::size_t found = 0;
  for (std::size_t i = 0; i < children.size(); ++i) {
    if (places[i] >= 0 && stays[found++]) {
      kept[static_cast<std::size_t>(places[i])] = children[i].node;
    } else {
      children[i].node.RemoveNode();
    }
  }
  return kept;
}

/// Puts a copy of a node before a child, or at the end if that is invalid.
bool insert_copy(RYXmlWrapperBase& parent, const RYXmlWrapperBase& source, const RYXmlWrapperBase& next) {
  if (next.IsNodeValid() == 0) return parent.AddNodeCopy(source, 1) != 0;
  struct Made {
    ~Made() {
      if (!whole) node.RemoveNode();
    }
    RYXmlWrapperBase node;
    bool whole = false;
  } made;
  if (parent.InsertNodeBefore(next, "copy", -1) == 0) return false;
  next.PrevSibling(made.node);
  made.whole = made.node.Replace(source, 1, 0, 0) != 0;
  return made.whole;
}

class Restoration {
 public:
  bool restore(RYXmlWrapperBase& target, const RYXmlWrapperBase& source) {
    int id = -1;
    int wanted_id = -1;
    target.GetID(id);
    source.GetID(wanted_id);
    if (id != wanted_id) target.SetID(wanted_id, false);
    target.GetNodeStringWithBlobInfo(value_, 0);
    source.GetNodeStringWithBlobInfo(wanted_value_, 0);
    if (value_ != wanted_value_) target.NodeValue(wanted_value_, 0, 1, nullptr);
    return restore_attributes(target, source) && restore_children(target, source);
  }

 private:
  bool restore_attributes(RYXmlWrapperBase& target, const RYXmlWrapperBase& source) {
    const int count = target.GetPropertyCount();
    const int wanted = source.GetPropertyCount();
    int same = 0;  // names at the start
    bool equal = count == wanted;
    for (; same < std::min(count, wanted); ++same) {
      if (target.GetPropertyAt(same, name_, value_) == 0) return false;
      if (source.GetPropertyAt(same, wanted_name_, wanted_value_) == 0) return false;
      if (name_ != wanted_name_) break;
      equal = equal && value_ == wanted_value_;
    }
    if (equal && same == count) return true;
    for (int i = count - 1; i >= same; --i) {
      if (target.GetPropertyAt(i, name_, value_) == 0) return false;
      target.RemoveProperty(name_);
    }
    return target.CopyAllAttributes(source, 1) != 0;
  }

  bool restore_children(RYXmlWrapperBase& target, const RYXmlWrapperBase& source) {
    if (target.GetNodeCount() == 0 && source.GetNodeCount() == 0) return true;
    const std::vector<Child> wanted = children_of(source);
    std::vector<RYXmlWrapperBase> kept = keep_children(target, wanted);
    // From the last on, so that the next child is always in its place.
    RYXmlWrapperBase next;
    for (std::size_t i = wanted.size(); i-- > 0;) {
      if (kept[i].IsNodeValid() != 0) {
        if (!restore(kept[i], wanted[i].node)) return false;
        next = kept[i];
      } else {
        if (!insert_copy(target, wanted[i].node, next)) return false;
        if (next.IsNodeValid() != 0) {
          next.PrevSibling(next);
        } else {
          target.GetChild(next, target.GetNodeCount() - 1);
        }
      }
    }
    return true;
  }

  CString name_;
  CString wanted_name_;
  CString value_;
  CString wanted_value_;
};

}  // namespace

bool restore(RYXmlWrapperBase& target, const RYXmlWrapperBase& source) {
  if (target.IsNodeValid() == 0 || source.IsNodeValid() == 0) return false;
  if (target == source) return true;
  RYXmlWrapperBase wanted(source);
  if ((is_inside(source, target) || is_inside(target, source)) && source.Clone(wanted, 1) == 0) return false;
  if (tag_of(target) != tag_of(wanted)) return target.Replace(wanted, 1, 0, 0) != 0;
  return Restoration().restore(target, wanted);
}

}  // namespace rytree
