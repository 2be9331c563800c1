#include "xml_builder.h"

#include <algorithm>
#include <charconv>
#include <new>

#include "xml_characters.h"

namespace rytesavc {

namespace {

constexpr char kNoName[] = "a reserved or overlong name";
constexpr char kTooLong[] = "a text is too long";

int Digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

}  // namespace

// ---- Elements.

const Name* XmlBuilder::NewAttributeName(std::string_view name, std::uint32_t hash) {
  if (name == kNodeId) return &id_name_;
  if (name == kNodeEscape) return &mark_name_;
  const Name* const interned = tree_.InternNew(name, hash);
  return interned != nullptr ? interned : &no_name_;
}

// The two attributes of the text form, and what is in the way.
bool XmlBuilder::OddAttribute(const Name* name, std::string_view value) {
  if (name == &no_name_) return Refuse(kNoName);
  if (name == &mark_name_ && !has_mark_) {
    has_mark_ = true;
    marked_ = value == "1";
    return true;
  }
  if (name != &id_name_ || has_id_) return Refuse("duplicate attribute");
  has_id_ = true;
  int id = 0;
  const char* const end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, id);
  if (error == std::errc() && stop == end) id_ = id;
  return true;
}

bool XmlBuilder::Attribute(const Name* name, std::string_view value) {
  if (name->mark >= mark_) return OddAttribute(name, value);
  name->mark = mark_;
  if (attributes_end_ == room_end_) GrowAttributes();
  rytesavc::Attribute* const attribute = attributes_end_++;
  attribute->name = name;
  if (value.size() > Value::kInPlace) return LongValue(attribute->value, value);
  attribute->value = Value(value.size(), TextWords::Of(value));
  return true;
}

void XmlBuilder::GrowAttributes() {
  const auto count = static_cast<std::size_t>(attributes_end_ - attributes_);
  auto more = std::make_unique_for_overwrite<rytesavc::Attribute[]>(2 * count);
  attributes_end_ = std::copy_n(attributes_, count, more.get());
  attributes_ = more.get();
  room_end_ = attributes_ + 2 * count;
  many_attributes_ = std::move(more);
}

bool XmlBuilder::LongValue(Value& value, std::string_view text) {
  if (text.size() > Value::kMaxLength) return Refuse(kTooLong);
  value = Value(static_cast<std::uint32_t>(text.size()), const_cast<char*>(text.data()));
  has_long_ = true;
  return true;
}

inline bool XmlBuilder::PutAttributes(Node* node) {
  rytesavc::Attribute* made = tree_.NewAttributes(node, static_cast<std::uint32_t>(attributes_end_ - attributes_));
  for (const rytesavc::Attribute* from = attributes_; from != attributes_end_; ++from) *made++ = *from;
  return (!has_long_ && !marked_ && page_ == nullptr) || PutLongValues(node);
}

bool XmlBuilder::Start(const Name* tag) {
  if (depth_ > Tree::kMaxDepth) return Refuse("nested deeper than 1,024 levels");
  if (tag == nullptr) return Refuse(kNoName);
  if (!IsRunEmpty()) DropLayout();
  Node* const node = tree_.NewNode(tag, id_, depth_);
  if (level_ == 0) {
    top_ = node;
  } else {
    tree_.Append(open_[level_ - 1].node, node);
  }
  open_[level_] = {node, run_, marked_};
  ++level_;
  ++depth_;
  return attributes_end_ == attributes_ || PutAttributes(node);
}

// The values that are not what the reader gave: the long ones, and what is escaped or in a code page.
bool XmlBuilder::PutLongValues(Node* node) {
  const auto count = static_cast<std::size_t>(attributes_end_ - attributes_);
  for (std::size_t i = 0; i < count; ++i) {
    if (attributes_[i].value.kind() == Value::kLong) node->attributes[i].value = Value();
  }
  for (std::size_t i = 0; i < count; ++i) {
    const Value& value = attributes_[i].value;
    if (value.kind() != Value::kInt && !PutText(node->attributes[i].value, {value.chars(), value.length()}, marked_))
      return false;
  }
  return true;
}

bool XmlBuilder::EndWithText(const Open& element) {
  if (element.node->first != nullptr && !IsRunEmpty()) DropLayout();
  run_ = element.start;
  if (text_.size() == element.start) return true;
  const bool done = PutText(element.node->text, std::string_view(text_).substr(element.start), element.marked);
  text_.resize(element.start);
  return done;
}

// ---- Texts.

bool XmlBuilder::LastText(std::string_view text) {
  const Open& element = open_[level_ - 1];
  if (element.node->first != nullptr || text_.size() != element.start) return Text(text);
  return PutText(element.node->text, text, element.marked);
}

// A branch's text between two tags that is nothing but white space.
void XmlBuilder::DropLayout() {
  const auto start = text_.begin() + static_cast<std::ptrdiff_t>(run_);
  if (std::all_of(start, text_.end(), IsXmlBlank)) text_.erase(start, text_.end());
  run_ = text_.size();
}

bool XmlBuilder::PutText(Value& value, std::string_view text, bool marked) {
  if (marked || page_ != nullptr) return PutConverted(value, text, marked);
  return tree_.SetText(value, text) || Refuse(kTooLong);
}

bool XmlBuilder::PutConverted(Value& value, std::string_view text, bool marked) {
  converted_.clear();
  for (std::size_t at = text.find('\\'); marked && at != text.npos; at = text.find('\\')) {
    AppendInPage(text.substr(0, at));
    const int high = at + 2 < text.size() ? Digit(text[at + 1]) : -1;
    const int low = high >= 0 ? Digit(text[at + 2]) : -1;
    converted_ += low >= 0 ? static_cast<char>(high * 16 + low) : '\\';
    text.remove_prefix(at + (low >= 0 ? 3 : 1));
  }
  AppendInPage(text);
  return tree_.SetText(value, converted_) || Refuse(kTooLong);
}

void XmlBuilder::AppendInPage(std::string_view utf8) {
  if (page_ == nullptr) {
    converted_ += utf8;
  } else {
    page_->FromUtf8(utf8, converted_);
  }
}

}  // namespace rytesavc
