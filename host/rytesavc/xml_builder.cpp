#include "xml_builder.h"

#include <algorithm>
#include <charconv>
#include <new>

#include "rytree_host/utf8.h"
#include "white_space.h"
#include "xml_characters.h"

namespace rytesavc {

namespace {

constexpr char kNoName[] = "a reserved or overlong name";
constexpr char kTooLong[] = "a text is too long";
constexpr char kNotInPage[] = "a character is not in the code page";

}  // namespace

const char* XmlBuilder::FindLacking(std::string_view utf8) const {
  if (page_ == nullptr) return nullptr;
  const char* at = utf8.data();
  while (at != utf8.data() + utf8.size()) {
    const char* const start = at;
    if (!page_->Has(utf8::next(at))) return start;
  }
  return nullptr;
}

// ---- Elements.

const Name* XmlBuilder::NewAttributeName(const NameText& name, std::uint32_t hash) {
  if (name.view == kNodeId) return &id_name_;
  if (name.view == kNodeEscape) return &escape_name_;
  const Name* const interned = tree_.InternNew(name.view, name.words, hash);
  return interned != nullptr ? interned : &not_a_name_;
}

// An attribute that the node itself does not get.
bool XmlBuilder::OddAttribute(const Name* name, std::string_view value) {
  if (name == &not_a_name_) return Refuse(kNoName);
  if (name == &escape_name_ && !has_escape_) {
    has_escape_ = true;
    escaped_ = value == "1";
    return escaped_ || Refuse("a _NodeEscape that is not 1");
  }
  if (name != &id_name_ || has_id_) return Refuse("duplicate attribute");
  has_id_ = true;
  const char* const end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, id_);
  return (error == std::errc() && stop == end) || Refuse("a _NodeID that is not an int");
}

bool XmlBuilder::Attribute(const Name* name, std::string_view value) {
  if (name->stamp >= stamp_) return OddAttribute(name, value);
  name->stamp = stamp_;
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

bool XmlBuilder::MayStart(const Name* tag) {
  const char* const problem = depth_ > Tree::kMaxDepth ? "nested deeper than 1,024 levels"
                              : tag == nullptr         ? kNoName
                              : page_ != nullptr && FindLacking(tag->view()) ? kNotInPage
                                                                             : nullptr;
  return problem == nullptr || Refuse(problem);
}

bool XmlBuilder::KeepsSpace(const Node& element, bool inherited) const {
  return KeepsWhiteSpace(element, tree_.space_name(), inherited);
}

// The long values, and those that must be converted.
bool XmlBuilder::PutLongValues(Node* node) {
  const bool convert = !StoresTextsAsTheyAre();
  const auto count = static_cast<std::size_t>(attributes_end_ - attributes_);
  for (std::size_t i = 0; i < count; ++i) {
    if (attributes_[i].value.kind() == Value::kLong) node->attributes[i].value = Value();
  }
  for (std::size_t i = 0; i < count; ++i) {
    const Value& value = attributes_[i].value;
    if (value.kind() != Value::kLong && (!convert || value.kind() == Value::kInt)) continue;
    if (!PutText(node->attributes[i].value, {value.chars(), value.length()}, escaped_)) return false;
  }
  return true;
}

bool XmlBuilder::EndWithText(OpenElement& element) {
  if (element.node->first != nullptr && !IsRunEmpty()) EndRun(element);
  run_ = element.start;
  if (text_.size() == element.start) return true;
  const bool done =
      PutText(element.node->text, std::string_view(text_).substr(element.start), element.escaped);
  text_.resize(element.start);
  return done;
}

// ---- Texts.

bool XmlBuilder::LastText(std::string_view text) {
  const OpenElement& element = *innermost_;
  if (element.node->first != nullptr || text_.size() != element.start) return Text(text), true;
  return PutText(element.node->text, text, element.escaped);
}

// Ends the text between two tags of a branch. Nothing but white space is layout; the place of what comes after a child
// is lost.
void XmlBuilder::EndRun(OpenElement& element) {
  const auto start = text_.begin() + static_cast<std::ptrdiff_t>(run_);
  if (!element.keeps_space && std::all_of(start, text_.end(), IsXmlBlank)) text_.erase(start, text_.end());
  if (!IsRunEmpty() && element.node->first != nullptr && !std::exchange(element.mixed, true))
    ++passed_over_.mixed_nodes;
  run_ = text_.size();
}

bool XmlBuilder::PutText(Value& value, std::string_view text, bool escaped) {
  if (escaped || page_ != nullptr) return PutConverted(value, text, escaped);
  return tree_.SetText(value, text) || Refuse(kTooLong);
}

bool XmlBuilder::PutConverted(Value& value, std::string_view text, bool escaped) {
  converted_.clear();
  for (std::size_t at = text.find('\\'); escaped && at != text.npos; at = text.find('\\')) {
    if (!AppendInPage(text.substr(0, at))) return false;
    const int high = at + 2 < text.size() ? HexDigit(text[at + 1]) : -1;
    const int low = high >= 0 ? HexDigit(text[at + 2]) : -1;
    converted_ += low >= 0 ? static_cast<char>(high * 16 + low) : '\\';
    text.remove_prefix(at + (low >= 0 ? 3 : 1));
  }
  return AppendInPage(text) && (tree_.SetText(value, converted_) || Refuse(kTooLong));
}

bool XmlBuilder::AppendInPage(std::string_view utf8) {
  if (page_ == nullptr) {
    converted_ += utf8;
    return true;
  }
  return page_->FromUtf8(utf8, converted_) == utf8.size() || Refuse(kNotInPage);
}

}  // namespace rytesavc
