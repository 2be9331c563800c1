#include "tree_maker.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <string_view>

namespace {

constexpr int kLevels = 6;
constexpr std::array<std::string_view, 12> kThings = {"Axis", "Border", "Curve", "Data",  "Error", "Fit",
                                                      "Grid", "Layer",  "Mark",  "Panel", "Scale", "Tick"};
constexpr std::array<std::string_view, 10> kTraits = {"Angle", "Color", "Count", "From", "Mode",
                                                      "Name",  "Range", "Style", "Type", "Width"};

// Gives the same numbers on every machine, unlike the distributions of the standard library.
class Random {
 public:
  int below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
  template <class Words>
  std::string_view pick(const Words& words) {
    return words[static_cast<std::size_t>(below(static_cast<int>(words.size())))];
  }
  template <class Item>
  void shuffle(std::vector<Item>& items) {
    for (std::size_t i = items.size(); i > 1; --i) std::swap(items[i - 1], items[engine_() % i]);
  }

 private:
  std::mt19937 engine_{20240229};
};

// The number of children of each node, level by level; empty if the levels cannot hold that many nodes.
std::vector<int> child_counts(int nodes, int widen) {
  Random random;
  std::vector<int> counts(static_cast<std::size_t>(nodes), 0);
  int made = 1;
  int level = 1;
  for (int at = 0, level_end = 1; made < nodes; ++at) {
    if (at == level_end) {
      if (++level == kLevels) return {};
      level_end = made;
    }
    const int children = std::min(10 + widen + random.below(11), nodes - made);
    counts[static_cast<std::size_t>(at)] = children;
    made += children;
  }
  return counts;
}

std::string make_text(Random& random) {
  switch (random.below(8)) {
    case 0:
    case 1:
    case 2:
      return std::to_string(random.below(2000) - 500);
    case 3:
    case 4:
      return std::to_string(random.below(1000)) + "." + std::to_string(random.below(10000));
    case 5:
      return std::string(random.pick(kThings)) + (random.below(4) == 0 ? " & " : " ") +
             std::string(random.pick(kTraits));
    case 6:
      return std::string(random.pick(kTraits)) + " \xC2\xB5m <" + std::to_string(random.below(100000000)) +
             ">";
    default:
      return std::string(1, static_cast<char>('a' + random.below(26)));
  }
}

void append_escaped(std::string& xml, std::string_view text) {
  for (const char c : text) {
    if (c == '&') {
      xml += "&amp;";
    } else if (c == '<') {
      xml += "&lt;";
    } else if (c == '>') {
      xml += "&gt;";
    } else {
      xml += c;
    }
  }
}

class Writer {
 public:
  explicit Writer(const std::vector<int>& counts) : counts_(counts), first_(counts.size()) {
    std::exclusive_scan(counts.begin(), counts.end(), first_.begin(), 1);
  }

  MadeTree write() {
    put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    tree_.last_id = 0;
    write(0, "");
    return std::move(tree_);
  }

 private:
  void write(std::size_t node, const std::string& indent) {
    const std::string tag = std::string(random_.pick(kThings)) + std::string(random_.pick(kTraits));
    tree_.last_id +=
        1 + random_.below(3);  // IDs have another meaning from 0x200000 on, beyond a million nodes
    put(indent + '<' + tag + " DataID=\"" + std::to_string(tree_.last_id) + "\" Label=\"");
    put(std::string(random_.pick(kThings)) + ' ' + std::to_string(random_.below(1000)) + '"');
    if (random_.below(3) == 0) put(random_.below(2) == 0 ? " Show=\"0\"" : " Show=\"1\"");
    put(">");
    if (counts_[node] == 0) {
      append_escaped(tree_.xml, make_text(random_));
      tree_.leaf_ids.push_back(tree_.last_id);
      append_escaped(tree_.other_xml, tree_.new_values.emplace_back(make_text(random_)));
    } else {
      put("\n");
      const auto first = static_cast<std::size_t>(first_[node]);
      const auto count = static_cast<std::size_t>(counts_[node]);
      for (std::size_t child = first; child < first + count; ++child) write(child, indent + '\t');
      put(indent);
    }
    put("</" + tag + ">\n");
  }

  void put(std::string_view piece) {
    tree_.xml += piece;
    tree_.other_xml += piece;
  }

  const std::vector<int>& counts_;
  std::vector<int> first_;  // the first child of each node, whose other children follow it
  Random random_;
  MadeTree tree_;
};

}  // namespace

MadeTree make_tree(int nodes) {
  std::vector<int> counts;
  for (int widen = 0; counts.empty(); ++widen) counts = child_counts(nodes, widen);
  return Writer(counts).write();
}

std::string make_flat_tree(int nodes) {
  Random random;
  std::vector<int> order(static_cast<std::size_t>(nodes));
  std::iota(order.begin(), order.end(), 1);
  random.shuffle(order);
  std::string xml = "<Root>\n";
  int id = 0;
  for (const int number : order) {
    xml += "\t<Row DataID=\"" + std::to_string(++id) + "\" Order=\"" + std::to_string(number) + "\">";
    append_escaped(xml, make_text(random));
    xml += "</Row>\n";
  }
  return xml + "</Root>\n";
}
