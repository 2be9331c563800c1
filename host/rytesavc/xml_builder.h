// Nodes from what a reader finds in XML text, whichever reader that is.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "rytree_host/code_page.h"
#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

// A text in UTF-8, with its first bytes at hand.
struct NameText {
  NameText() = default;
  explicit NameText(std::string_view text) : view(text), words(TextWords::Of(text)) {}
  NameText(std::string_view text, const TextWords& first) : view(text), words(first) {}

  std::string_view view;
  TextWords words;
};

// Makes the nodes of one element and all that it holds. What is in the way of that is told by a false result and by
// problem(); the text is refused then. Nodes that nobody takes go with the builder.
class XmlBuilder {
 public:
  // The top element is at that depth and hangs nowhere. The strings are in `page`, null for UTF-8.
  XmlBuilder(Tree& tree, std::uint32_t depth, const CodePage* page)
      : tree_(tree), page_(page), depth_(depth) {}
  XmlBuilder(const XmlBuilder&) = delete;
  XmlBuilder& operator=(const XmlBuilder&) = delete;
  ~XmlBuilder() {
    if (top_ != nullptr) tree_.Free(top_);
  }

  Tree& tree() const { return tree_; }
  const char* problem() const { return problem_; }
  bool has_top() const { return top_ != nullptr; }
  bool is_open() const { return level_ != 0; }
  // The tag of the element at hand.
  const Name* tag() const { return open_[level_ - 1].node->tag; }
  // Whether white space that comes now, and then such a tag, is layout.
  bool IsLayout(bool before_end_tag) const {
    return IsRunEmpty() && (!before_end_tag || open_[level_ - 1].node->first != nullptr);
  }

  // A start tag: Begin, its attributes, Start. What was begun before and did not start is forgotten. The values must
  // stay where they are until the start.
  void Begin() {
    attributes_end_ = attributes_;
    has_long_ = false;
    marked_ = has_mark_ = has_id_ = false;
    id_ = -1;
    mark_ = tree_.NewMark();
  }
  const Name* AttributeName(const NameText& name) {
    const std::uint32_t hash = Tree::Hash(name.view, name.words);
    const Name* const known = tree_.FindName(name.view, name.words, hash);
    return known != nullptr ? known : NewAttributeName(name.view, hash);
  }
  // With a name that AttributeName gave, also for what can be no name.
  bool Attribute(const Name* name, std::string_view value);
  // The same with a value that fits in place. False if it is not as simple as that.
  [[gnu::always_inline]] bool ShortAttribute(const Name* name, std::size_t length, const TextWords& value) {
    if (name->mark >= mark_ || attributes_end_ == room_end_) [[unlikely]]
      return false;
    name->mark = mark_;
    rytesavc::Attribute* const attribute = attributes_end_++;
    attribute->name = name;
    attribute->value = Value(length, value);
    return true;
  }
  // A tag of null is no name.
  bool Start(const Name* tag);
  bool End() {
    const Open& element = open_[--level_];
    --depth_;
    if (text_.size() != element.start) return EndWithText(element);
    run_ = element.start;
    return true;
  }
  // Part of the text of the element at hand.
  bool Text(std::string_view text) {
    text_ += text;
    return true;
  }
  // The same if an end tag comes next.
  bool LastText(std::string_view text);
  // The same with a text that fits in place. False if it is not as simple as that.
  [[gnu::always_inline]] bool ShortLastText(std::size_t length, const TextWords& text) {
    const Open& element = open_[level_ - 1];
    if (element.node->first != nullptr || text_.size() != element.start || element.marked || page_ != nullptr)
      [[unlikely]] return false;
    element.node->text = Value(length, text);
    return true;
  }
  Node* Take() { return std::exchange(top_, nullptr); }

 private:
  static constexpr Name kOddName{0, 0, ~std::uint64_t{0}, nullptr};
  struct Open {
    Node* node;
    std::size_t start;  // of its text, in text_
    bool marked;
  };

  bool Refuse(const char* problem) {
    problem_ = problem;
    return false;
  }
  const Name* NewAttributeName(std::string_view name, std::uint32_t hash);
  bool OddAttribute(const Name* name, std::string_view value);
  void GrowAttributes();
  bool LongValue(Value& value, std::string_view text);
  bool PutAttributes(Node* node);
  bool PutLongValues(Node* node);
  bool EndWithText(const Open& element);
  bool IsRunEmpty() const { return run_ == text_.size(); }
  void DropLayout();
  bool PutText(Value& value, std::string_view text, bool marked);
  bool PutConverted(Value& value, std::string_view text, bool marked);
  void AppendInPage(std::string_view utf8);

  Tree& tree_;
  const CodePage* page_;
  Node* top_ = nullptr;
  std::uint32_t depth_;      // of the next element
  std::uint32_t level_ = 0;  // how many elements are open
  std::string text_;         // of the open elements, one behind the other
  std::size_t run_ = 0;      // where what came since the last tag starts in it
  std::string converted_;
  const char* problem_ = nullptr;

  // Of the start tag at hand.
  std::array<rytesavc::Attribute, 16> few_attributes_;
  std::unique_ptr<rytesavc::Attribute[]> many_attributes_;
  rytesavc::Attribute* attributes_ = few_attributes_.data();
  rytesavc::Attribute* attributes_end_ = attributes_;
  rytesavc::Attribute* room_end_ = attributes_ + few_attributes_.size();
  bool has_long_ = false;  // whether there are long values, which stand where the reader has them
  bool has_id_ = false;
  bool has_mark_ = false;
  bool marked_ = false;
  int id_ = -1;
  std::uint64_t mark_ = 0;  // of the names of its attributes; all others of the tree have lower ones
  const Name id_name_ = kOddName;  // stand for the attributes that are no node's
  const Name mark_name_ = kOddName;
  const Name no_name_ = kOddName;

  std::array<Open, Tree::kMaxDepth> open_;  // from the top element down to the one at hand
};

}  // namespace rytesavc
