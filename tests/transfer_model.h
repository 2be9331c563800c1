// What the tests of the transfer by ID share: a short form for trees with IDs, the apply done the slow way,
// step by step, and random trees on which the library is compared with it.
#pragma once

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

inline int combine(RYXmlWrapperBase& node, int repeat, int& id, int& child_repeat) {
  id = -1;
  node.GetDataID(id);
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
  _SETVALUESBYIDS* hook;
  bool keep_bit_18_off;

  int walk(RYXmlWrapperBase& node, int theme, int repeat) const {
    int count = 0;
    for (Children child(node); child; ++child) {
      int id = -1;
      int child_repeat = repeat;
      child->GetDataID(id);
      const bool activates = hook != nullptr && hook->active == 0 && hook->dataId == id;
      if (combine(*child, repeat, id, child_repeat) < 0) return -5;
      if (activates) hook->active = 1;
      int child_theme = theme;
      child->GetPropertyValue("ThemeApplicability", child_theme);
      const bool branch = child->GetNodeCount() > 0;
      const int entry = id >= 0 ? find(ids, id) : -1;
      if (entry >= 0)
        store(*child, std::string(values[entry].View()), branch || (id & 0x200000) != 0, child_theme);
      const int below = branch ? walk(*child, child_theme, child_repeat) : 0;
      if (activates) hook->active = 0;
      if (below < 0) return below;
      count += below + (entry >= 0 ? 1 : 0);
    }
    return count;
  }

  void store(RYXmlWrapperBase& node, const std::string& value, bool as_branch, int theme) const {
    std::string rest = value;
    for (std::size_t at = 0; value.size() >= 7 && (at = value.find("::{", at)) != std::string::npos; ++at) {
      const std::size_t close = value.find('}', at + 3);
      const std::size_t equals = value.find('=', at + 3);
      if (close == std::string::npos || equals > close || equals == at + 3 || equals + 1 == close) continue;
      rest = value.substr(close + 1);
      const std::string name = value.substr(at + 3, equals - at - 3);
      const std::string text = value.substr(equals + 1, close - equals - 1);
      if ((theme & 0x20000) == 0) node.SetPropertyValue(name.c_str(), text.c_str());
    }
    const bool wants_tag = (theme & 0x40000) != 0 && !keep_bit_18_off;
    if ((theme & 0x10000) != 0 || (wants_tag && !holds_a_tag(rest))) return;
    CString stored(rest.c_str());
    if (hook != nullptr && hook->active != 0) {
      hook->value = &stored;
      hook->callback(hook);
      hook->value = nullptr;
    }
    if ((theme & 0x100000) == 0 || !as_branch) {
      node.CheckSetValue(0, stored, as_branch ? 1 : 0);
    } else if (!stored.IsEmpty()) {
      node.SetPropertyValue("Data", stored);
    }
  }
};

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
