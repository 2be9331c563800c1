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
#include "rytree_host/node.h"

namespace rytesavc {

// A name as it is in the text.
struct NameText {
  explicit NameText(std::string_view text) : NameText(text, TextWords::Of(text)) {}
  NameText(std::string_view text, const TextWords& its_words) : view(text), words(its_words) {}

  std::string_view view;
  TextWords words;
};

// Makes the nodes of one element and all that is in it, in the order of the text. A false result means that the text
// must be refused, for the reason that problem() gives. Nodes that are not taken in the end are freed.
class XmlBuilder {
 public:
  // The top element gets that depth and no parent. The strings are in `page`, null for UTF-8.
  XmlBuilder(Tree& tree, std::uint32_t depth, const CodePage* page)
      : tree_(tree), page_(page), depth_(depth) {}
  XmlBuilder(const XmlBuilder&) = delete;
  XmlBuilder& operator=(const XmlBuilder&) = delete;
  ~XmlBuilder() {
    if (top_ != nullptr) tree_.Free(top_);
  }

  Tree& tree() const { return tree_; }
  const CodePage* page() const { return page_; }
  const char* problem() const { return problem_; }
  // What is not in the nodes. The readers count what they pass over themselves.
  RYXmlPassedOver& passed_over() { return passed_over_; }
  bool has_top() const { return top_ != nullptr; }
  bool is_open() const { return innermost_ != open_.data(); }
  // The tag of the innermost open element.
  const Name* tag() const { return innermost_->node->tag; }
  // Whether white space here would be layout, if a tag of that kind comes next.
  bool IsLayout(bool before_end_tag) const {
    return IsRunEmpty() && !innermost_->keeps_space &&
           (!before_end_tag || innermost_->node->first != nullptr);
  }

  // The first character of the text that the page of the strings lacks, null for none.
  const char* FindLacking(std::string_view utf8) const;

  // A start tag: Begin, an Attribute for each, Element. The values must stay where they are until then. Without the last
  // nothing is made.
  void Begin() {
    attributes_end_ = attributes_;
    has_long_ = false;
    escaped_ = has_escape_ = has_id_ = false;
    id_ = -1;
    stamp_ = tree_.NewStamp();
  }
  const Name* AttributeName(const NameText& name) {
    if (page_ != nullptr && FindLacking(name.view) != nullptr) return &not_a_name_;
    const std::uint32_t hash = Tree::Hash(name.view, name.words);
    const Name* const known = tree_.FindName(name.view, name.words, hash);
    return known != nullptr ? known : NewAttributeName(name, hash);
  }
  // The name is what AttributeName gave.
  bool Attribute(const Name* name, std::string_view value);
  // The same for the simplest and most common attributes: false if Attribute must do it.
  [[gnu::always_inline]] bool ShortAttribute(const Name* name, const Value& value) {
    if (name->stamp >= stamp_ || attributes_end_ == room_end_) [[unlikely]]
      return false;
    name->stamp = stamp_;
    rytesavc::Attribute* const attribute = attributes_end_++;
    attribute->name = name;
    attribute->value = value;
    return true;
  }
  // Null if it must be refused, as for a null tag, which stands for what is not a name. The element must be opened next,
  // unless it has no more than a text.
  Node* Element(const Name* tag);
  void Open(Node* element) {
    const bool inherited = is_open() && innermost_->keeps_space;
    const bool keeps_space = tree_.space_name() != nullptr ? KeepsSpace(*element, inherited) : inherited;
    *++innermost_ = {element, run_, escaped_, keeps_space, false};
    ++depth_;
  }
  bool StoresTextsAsTheyAre() const { return !escaped_ && page_ == nullptr; }
  bool End() {
    OpenElement& element = *innermost_--;
    --depth_;
    if (text_.size() != element.start) return EndWithText(element);
    run_ = element.start;
    return true;
  }

  // A part of the text of the innermost open element.
  void Text(std::string_view text) { text_ += text; }
  // As Text, when the element's end tag follows.
  bool LastText(std::string_view text);

  Node* Take() { return std::exchange(top_, nullptr); }

 private:
  // A name with a stamp that makes every attribute of that name an odd one.
  static constexpr Name kOddName{0, 0, ~std::uint64_t{0}};

  struct OpenElement {
    Node* node;
    std::size_t start;  // where its text starts in text_
    bool escaped;
    bool keeps_space;  // whether white space between its tags is text
    bool mixed;        // whether it has text after a child
  };

  bool Refuse(const char* problem) {
    problem_ = problem;
    return false;
  }
  const Name* NewAttributeName(const NameText& name, std::uint32_t hash);
  bool OddAttribute(const Name* name, std::string_view value);
  void GrowAttributes();
  bool LongValue(Value& value, std::string_view text);
  bool MayStart(const Name* tag);
  bool KeepsSpace(const Node& element, bool inherited) const;
  bool PutAttributes(Node* node);
  bool PutLongValues(Node* node);
  bool EndWithText(OpenElement& element);
  bool IsRunEmpty() const { return run_ == text_.size(); }
  void EndRun(OpenElement& element);
  bool PutText(Value& value, std::string_view text, bool escaped);
  bool PutConverted(Value& value, std::string_view text, bool escaped);
  bool AppendInPage(std::string_view utf8);

  Tree& tree_;
  const CodePage* page_;
  Node* top_ = nullptr;
  std::uint32_t depth_;  // of the next element
  std::string text_;     // of all open elements, one after the other
  std::size_t run_ = 0;  // where the text since the last tag starts in it
  std::string converted_;
  const char* problem_ = nullptr;
  RYXmlPassedOver passed_over_{};

  // Of the start tag that was begun. Long values are still in the reader's memory.
  std::array<rytesavc::Attribute, 16> few_attributes_;
  std::unique_ptr<rytesavc::Attribute[]> many_attributes_;
  rytesavc::Attribute* attributes_ = few_attributes_.data();
  rytesavc::Attribute* attributes_end_ = attributes_;
  rytesavc::Attribute* room_end_ = attributes_ + few_attributes_.size();
  bool has_long_ = false;
  bool has_id_ = false;
  bool has_escape_ = false;
  bool escaped_ = false;
  int id_ = -1;
  std::uint64_t stamp_ = 0;
  const Name id_name_ = kOddName;
  const Name escape_name_ = kOddName;
  const Name not_a_name_ = kOddName;

  // From the top element, which is the second, to the innermost open one.
  std::array<OpenElement, Tree::kMaxDepth + 1> open_;
  OpenElement* innermost_ = open_.data();
};

[[gnu::always_inline]] inline bool XmlBuilder::PutAttributes(Node* node) {
  rytesavc::Attribute* made =
      tree_.NewAttributes(node, static_cast<std::uint32_t>(attributes_end_ - attributes_));
  for (const rytesavc::Attribute* from = attributes_; from != attributes_end_; ++from) *made++ = *from;
  return (!has_long_ && StoresTextsAsTheyAre()) || PutLongValues(node);
}

[[gnu::always_inline]] inline Node* XmlBuilder::Element(const Name* tag) {
  const bool is_usual = depth_ <= Tree::kMaxDepth && tag != nullptr && page_ == nullptr;
  if (!is_usual && !MayStart(tag)) [[unlikely]]
    return nullptr;
  Node* const node = tree_.NewNode(tag, id_, depth_);
  if (is_open()) {
    if (!IsRunEmpty()) EndRun(*innermost_);
    tree_.Append(innermost_->node, node);
  } else {
    top_ = node;
  }
  return attributes_end_ == attributes_ || PutAttributes(node) ? node : nullptr;
}

}  // namespace rytesavc
