// The commands that remove nodes.
#include <algorithm>
#include <initializer_list>
#include <optional>
#include <vector>

#include "columns.h"
#include "commands.h"
#include "nodes.h"

namespace {

bool any_of(const Arguments& arguments, std::initializer_list<const char*> options) {
  return std::any_of(options.begin(), options.end(),
                     [&](const char* option) { return arguments.has(option); });
}

/// Throws NotFound if no node has that DataID.
void need_id(Document& document, int id) {
  RYXmlWrapperBase node;
  if (rytree::int_attribute_of(document.root, "DataID") != id &&
      !rytree_find_node(&document.root, &node, "DataID", id, /*recursive=*/true, 0, -1))
    document.miss("no node has the DataID " + std::to_string(id));
}

/// The tests on one attribute.
void filter_by_attribute(RYXmlWrapperBase& root, int id, const Arguments& arguments) {
  const bool by_text = arguments.has("--text");
  if (by_text == arguments.has("--match")) throw Failure("--attribute goes with one of --text and --match");
  if (arguments.has("--start") && !by_text) throw Failure("--start goes with --text");
  const std::string name = arguments.text("--attribute");
  refuse_reserved(name);
  const int with_case = arguments.has("--case") ? 1 : 0;
  if (by_text) {
    rytree_filter_by_attrib_find(&root, id, name.c_str(), arguments.text("--text").c_str(), with_case,
                                 arguments.has("--start") ? 1 : 0);
  } else {
    rytree_filter_by_attrib_match(&root, id, name.c_str(), arguments.text("--match").c_str(), with_case);
  }
}

/// The tests on the texts below a node.
void filter_by_texts(Document& document, int id, const Arguments& arguments) {
  HostStringArray includes;
  HostStringArray excludes;
  for (const std::string& text : arguments.texts("--include")) includes.array().Add(text.c_str());
  for (const std::string& text : arguments.texts("--exclude")) excludes.array().Add(text.c_str());
  const bool only = arguments.text("--exclude-mode") == "only";
  const auto need = [&](const char* option, const char* other) {
    if (arguments.has(option) && !arguments.has(other))
      throw Failure(std::string(option) + " goes with " + other);
  };
  need("--include-id", "--include");
  need("--include-mode", "--include");
  need("--exclude-id", "--exclude");
  if (only && (arguments.has("--exclude") || !arguments.has("--include")))
    throw Failure("--exclude-mode only goes with --include, and without --exclude");
  if (!only) need("--exclude-mode", "--exclude");
  // The choices are in the order of the library's mode numbers.
  const int include_mode = arguments.choice("--include-mode", {"all", "any"}, "all");
  const int exclude_mode = arguments.choice("--exclude-mode", {"only", "any", "all"}, "any");
  const int include_id = arguments.has("--include") ? arguments.number("--include-id") : 0;
  const int exclude_id = arguments.has("--exclude") ? arguments.number("--exclude-id") : 0;
  for (const int other : {include_id, exclude_id}) {
    if (other != 0) need_id(document, other);
  }
  rytree_filter(&document.root, id, include_mode, include_id, &includes, exclude_mode, exclude_id, &excludes);
}

/// Keeps nodes from being taken for empty ones for as long as it lives.
class Kept {
 public:
  /// Those below `top` that have attributes or a node ID, and the branches that have a text.
  explicit Kept(const RYXmlWrapperBase& top) {
    for (RYXmlWrapperBase node(top); node.NextBelow(node, top) != 0;) {
      int id = 0;
      const bool holds = node.GetPropertyCount() > 0 || node.GetID(id) != 0;
      if (node.GetNodeCount() == 0 ? holds && node.IsEmpty() != 0 : holds || !rytree::text_of(node).empty())
        nodes_.push_back(node);
    }
    for (RYXmlWrapperBase& node : nodes_) {
      RYXmlWrapperBase child;
      if (node.GetNodeCount() > 0 && node.AddTextNode(child, "-", "Kept", -1, 0, nullptr) != 0) {
        children_.push_back(child);
      } else {
        set_value(node, "-");
        texts_.push_back(node);
      }
    }
  }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;
  ~Kept() {
    for (RYXmlWrapperBase& node : texts_) set_value(node, "");
    for (RYXmlWrapperBase& child : children_) child.RemoveNode();
  }

 private:
  std::vector<RYXmlWrapperBase> nodes_;
  std::vector<RYXmlWrapperBase> texts_;
  std::vector<RYXmlWrapperBase> children_;
};

Outcome removed(Document& document, int before) {
  const int now = document.count();
  return {"removed " + std::to_string(before - now) + " of " + counted(before, "node", "nodes"), true};
}

}  // namespace

Outcome filter(Document& document, const Arguments& arguments) {
  const int id = arguments.number("--data-id");
  const int before = document.count();
  const bool by_texts = any_of(arguments, {"--include", "--include-id", "--include-mode", "--exclude",
                                           "--exclude-id", "--exclude-mode"});
  const bool by_attribute = any_of(arguments, {"--attribute", "--text", "--match", "--start", "--case"});
  if (by_texts == by_attribute) throw Failure("a filter has either --attribute, or --include and --exclude");
  need_id(document, id);
  if (by_texts) {
    filter_by_texts(document, id, arguments);
  } else {
    filter_by_attribute(document.root, id, arguments);
  }
  if (document.root.IsNodeValid() == 0) document.fail("the filter removes the root, and so all of the tree");
  return removed(document, before);
}

Outcome prune_empty(Document& document, const Arguments& arguments) {
  RYXmlWrapperBase top =
      arguments.words.size() > 1 ? document.at(arguments.words[1]).node : RYXmlWrapperBase(document.root);
  const int before = document.count();
  {
    std::optional<Kept> kept;
    if (!arguments.has("--with-attributes")) kept.emplace(top);
    rytree_remove_empty_child_nodes(&top, /*recursive=*/true);
  }
  return removed(document, before);
}
