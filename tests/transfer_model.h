// What the tests of the transfer by ID share: a short form for trees with IDs, the transfer done word for
// word the slow way, and random trees to compare it with the library on.
#pragma once

#include <rytree_Utils/autosupport.h>
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/transfer.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "frame/children.h"
#include "tree_text.h"

/// A tree of XML text in which #5 is DataID="5", ^5 RepeatID="5" and ~16 ThemeApplicability with bit 16.
inline RYXmlWrapperBase parse_ids(std::string xml) {
  for (const std::string name : {"#DataID", "^RepeatID", "~ThemeApplicability"}) {
    for (std::size_t at = 0; (at = xml.find(name[0])) != std::string::npos;) {
      std::size_t length = 0;
      const int number = std::stoi(xml.substr(at + 1), &length);
      const std::string written = std::to_string(name[0] == '~' ? 1 << number : number);
      xml.replace(at, length + 1, name.substr(1) + "='" + written + "'");
    }
  }
  return parse(xml);
}

namespace slow {

inline int find(const CArray<int, int>& ids, int id) {
  const auto* const at = std::find(ids.begin(), ids.end(), id);
  return at == ids.end() ? -1 : static_cast<int>(at - ids.begin());
}

inline int duplicate(const CArray<int, int>& ids) {
  const auto twice = [&](int id) { return std::count(ids.begin(), ids.end(), id) > 1; };
  const auto* const at = std::find_if(ids.begin(), ids.end(), twice);
  return at == ids.end() ? -1 : static_cast<int>(at - ids.begin());
}

inline int combine(RYXmlWrapperBase& node, const char* attribute, int repeat, int& id, int& child_repeat) {
  id = -1;
  node.GetPropertyValue(attribute, id);
  child_repeat = repeat;
  return rytree_combine_treenode_id_with_repeat_id(&node, &id, &child_repeat, repeat);
}

inline bool holds_a_tag(const std::string& text) {
  const std::size_t open = text.find('<');
  const std::size_t close = open == std::string::npos ? open : text.find('>', open);
  if (close == std::string::npos || close == open + 1) return false;
  return text.substr(open, close - open + 1) != "<autoX>" || holds_a_tag(text.substr(close + 1));
}

struct Apply {
  const CArray<int, int>& ids;
  const CStringArray& values;
  const char* attribute;
  CString* error;
  int* duplicate_out;
  _SETVALUESBYIDS* hook = nullptr;
  DWORD options = 0;
  bool keep_bit_18_off = false;

  int run(RYXmlWrapperBase& node, int repeat) {
    if (ids.IsEmpty()) return -2;
    const int twice = duplicate_out != nullptr ? duplicate(ids) : -1;
    if (twice < 0) return walk(node, 0, repeat);
    *duplicate_out = ids[twice];
    if (error == nullptr) return -4;
    error->Format("\n******  _tree_set_values_by_ids found dup id = %d, %X. RepeatID = %d\n", ids[twice],
                  static_cast<unsigned>(ids[twice]), repeat);
    return -4;
  }

  int walk(RYXmlWrapperBase& node, int theme, int repeat) {
    int count = 0;
    for (Children child(node); child; ++child) {
      const int below = visit(*child, theme, repeat);
      if (below < 0) return below;
      count += below;
    }
    return count;
  }

  int visit(RYXmlWrapperBase& node, int theme, int repeat) {
    int id = -1;
    int child_repeat = repeat;
    node.GetPropertyValue(attribute, id);
    const bool activates = hook != nullptr && hook->active == 0 && hook->dataId == id;
    if (const int code = combine(node, attribute, repeat, id, child_repeat); code < 0) {
      if (error != nullptr) describe(code, node, id, repeat);
      return -5;
    }
    if (activates) hook->active = 1;
    node.GetPropertyValue("ThemeApplicability", theme);
    const bool branch = node.GetNodeCount() > 0;
    const int at = id >= 0 ? find(ids, id) : -1;
    if (at >= 0) store(node, std::string(values[at].View()), branch || (id & 0x200000) != 0 ? 1 : 0, theme);
    const int below = branch ? walk(node, theme, child_repeat) : 0;
    if (activates) hook->active = 0;
    return below < 0 ? below : below + (at >= 0 ? 1 : 0);
  }

  void describe(int code, RYXmlWrapperBase& node, int id, int repeat) const {
    const char* const starts[] = {"DataID conflict with RepeatID", "Repeat ID conflict", "Repeat ID invalid"};
    CString label;
    node.GetPropertyValue("Label", label);
    error->Format("%s for Node with Name = %s, Label = %s, Repeat ID = %d", starts[-code - 1],
                  tag(node).c_str(), label.GetString(), code == -1 ? id : repeat);
  }

  void store(RYXmlWrapperBase& node, const std::string& value, int form, int theme) const {
    std::string rest = value;
    bool automatic = false;
    bool dynamic = false;
    for (std::size_t at = 0; value.size() >= 7 && (at = value.find("::{", at)) != std::string::npos; ++at) {
      const std::size_t close = value.find('}', at + 3);
      const std::size_t equals = value.find('=', at + 3);
      if (close == std::string::npos || equals > close || equals == at + 3 || equals + 1 == close) continue;
      rest = value.substr(close + 1);
      if ((theme & 0x20000) != 0) continue;
      const std::string name = value.substr(at + 3, equals - at - 3);
      node.SetPropertyValue(name.c_str(), value.substr(equals + 1, close - equals - 1).c_str());
      automatic = automatic || lstrcmpiA(name.c_str(), "Auto") == 0;
      dynamic = dynamic || lstrcmpiA(name.c_str(), "DynaUseChck") == 0;
    }
    if ((options & 0x10000) != 0 && !automatic) vctree_check_reset_auto_support(node);
    int check = 0;
    if ((options & 0x20000) != 0 && !dynamic && node.GetPropertyValue("DynaUseChck", check) != 0) {
      node.SetPropertyValue("DynaUseChck", 1);
    }
    const bool wants_tag = (theme & 0x40000) != 0 && !keep_bit_18_off;
    if ((theme & 0x10000) != 0 || (wants_tag && !holds_a_tag(rest))) return;
    CString stored(rest.c_str());
    if (hook != nullptr && hook->active != 0) {
      hook->value = &stored;
      hook->callback(hook);
      hook->value = nullptr;
    }
    if ((theme & 0x100000) == 0 || form == 0) {
      node.CheckSetValue(0, stored, form);
    } else if (!stored.IsEmpty()) {
      node.SetPropertyValue("Data", stored);
    }
  }
};

inline void make_missing(RYXmlWrapperBase& source, RYXmlWrapperBase& destination) {
  RYXmlWrapperBase out;
  int id = 0;
  if (source.GetDataID(id) != 0 && rytree_get_node_by_id(&destination, &out, id, true) == 0) {
    CString label;
    source.GetPropertyValue("Label", label);
    destination.AddNode(out, tag(source).c_str(), -1);
    out.SetLabel(label);
    out.SetDataID(id);
  }
  for (Children child(source); child; ++child) make_missing(*child, destination);
}

inline int prune(RYXmlWrapperBase& node, const CArray<int, int>& ids, const CStringArray& values,
                 int repeat) {
  int count = 0;
  for (Children child(node); child;) {
    RYXmlWrapperBase taken = child.take();
    int id = -1;
    int child_repeat = repeat;
    if (combine(taken, "DataID", repeat, id, child_repeat) < 0) return -5;
    bool goes = false;
    if (taken.GetNodeCount() > 0) {
      const int below = prune(taken, ids, values, child_repeat);
      if (below < 0) return below;
      count += below;
      goes = taken.GetNodeCount() == 0;
    } else if (const int at = id >= 0 ? find(ids, id) : -1; at >= 0) {
      CString value;
      CString part;
      taken.GetNodeStringWithBlobInfo(value, 0);
      for (const char* const name : {"DynaUseChck", "Auto"}) {
        if (taken.GetPropertyValue(name, part) != 0) value = CString("::{") + name + "=" + part + "}" + value;
      }
      goes = _mbsicmp(value, values[at]) == 0;
    }
    if (goes) count += node.RemoveChild(taken, nullptr) != 0 ? 1 : 0;
  }
  return count;
}

}  // namespace slow

/// Random trees that meet: few IDs, so that they match and clash, and each odd case often enough.
class RandomTrees {
 public:
  explicit RandomTrees(unsigned seed) : random_(seed) {}

  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  bool one_in(int chances) { return below(chances) == 0; }

  /// `distinct` gives each node an ID of its own, but for a rare one.
  RYXmlWrapperBase make(int nodes, bool distinct) {
    std::vector<RYXmlWrapperBase> made{parse("<R/>")};
    for (int at = 1; at < nodes; ++at) {
      RYXmlWrapperBase node;
      const auto parent = static_cast<std::size_t>(below(at > 8 && one_in(2) ? 8 : at));
      made[parent].AddNode(node, one_in(2) ? "n" : "m", one_in(9) ? below(30) : -1);
      if (!one_in(8)) node.SetDataID(distinct && !one_in(150) ? at : below(nodes) - (one_in(20) ? 9 : 0));
      decorate(node);
      made.push_back(node);
    }
    return made[0];
  }

 private:
  void decorate(RYXmlWrapperBase& node) {
    static const auto texts = rows<18>(
        " | v | V | 12.5 | <autoX> | a<autoX><b> | <autoX><> | <b | ::{A=1} | ::{a=1}x | ::{=1}xyz | "
        "::{a=}xyz | ::{auto=1|x|2}::{DynaUseChck=5}v | p::{A=::{Use=1}2}q | ::{ThemeApplicability=0}w | "
        "::{A}=1}tail::{Label=z} | ::{A=1 | ::{1x=2}bad")[0];
    static const int themes[] = {0x10000, 0x20000, 0x40000, 0x100000, 0x160000, 0};
    static const int repeats[] = {1, 2, 4, 32, 0, 32768};
    const auto pick = [&](int count) { return texts[static_cast<std::size_t>(below(count))].c_str(); };
    CString text(pick(18));
    node.NodeValue(text, 0, 1, nullptr);
    if (one_in(6)) node.SetPropertyValue("Use", pick(4));
    if (one_in(9)) node.SetPropertyValue("Data", pick(4));
    if (one_in(6)) node.SetPropertyValue("Auto", one_in(2) ? "1|x|3" : "");
    if (one_in(6)) node.SetPropertyValue("DynaUseChck", one_in(2) ? "0" : "x");
    if (one_in(6)) node.SetPropertyValue("ThemeApplicability", themes[below(6)]);
    if (one_in(9)) node.SetPropertyValue("RepeatID", one_in(40) ? 32767 : repeats[below(6)]);
    if (one_in(3)) node.SetLabel(pick(4));
  }

  std::mt19937 random_;
};
