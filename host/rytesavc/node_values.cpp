// Attributes and values of a node.
#include <algorithm>
#include <cstring>
#include <string>

#include "node_access.h"
#include "numbers.h"
#include "platform/variants.h"

using rytesavc::NumberText;
using rytesavc::ReadNumber;
using rytesavc::Value;

namespace {

std::string_view View(const Value& text) { return {text.chars(), text.length()}; }

template <class Number>
int ReadAs(const Value& from, Number& to) {
  if (from.kind() != Value::kInt) return ReadNumber(View(from), to) ? 1 : 0;
  to = from.number();
  return 1;
}

// A list of numbers with blanks between.
bool ReadNumbers(std::string_view text, CArray<double, double>& to) {
  constexpr std::string_view kBlanks = " \t\n\v\f\r";
  CArray<double, double> numbers;
  for (std::size_t at = text.find_first_not_of(kBlanks); at != text.npos;
       at = text.find_first_not_of(kBlanks, at)) {
    const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
    double number = 0;
    if (!ReadNumber(text.substr(at, end - at), number)) return false;
    numbers.Add(number);
    at = end;
  }
  to = std::move(numbers);
  return true;
}

// In the default page, if that has the characters.
bool ReadName(std::string_view stored, CString& name) {
  const CodePage* const page = CodePage::Default();
  if (page == nullptr) return name.Assign(stored.data(), stored.size()), true;
  std::string in_page;
  if (page->FromUtf8(stored, in_page) != stored.size()) return false;
  name = CString(std::move(in_page));
  return true;
}

std::string WriteNumbers(const CArray<double, double>& numbers) {
  std::string text;
  for (const double number : numbers) {
    if (!text.empty()) text += ' ';
    text += NumberText(number).view();
  }
  return text;
}

}  // namespace

// ---- Attributes.

int RYXmlWrapperBase::ParseInt(const Value& from, int& to) { return ReadAs(from, to); }
int RYXmlWrapperBase::ParseDouble(const Value& from, double& to) { return ReadAs(from, to); }

void RYXmlWrapperBase::AssignNumber(int from, CString& to) {
  const NumberText text(from);
  to.Assign(text.view().data(), text.view().size());
}

// By the name as the tree stores it, which is looked up there first.
rytesavc::Attribute* RYXmlWrapperBase::FindStoredAttribute(const char* name) const {
  if (IsNodeValid() == 0 || name == nullptr) return nullptr;
  const rytesavc::Name* const found = tree_->FindName(rytesavc::StoredName(name).view());
  return found != nullptr ? node_->Find(found) : nullptr;
}

const rytesavc::Name* RYXmlWrapperBase::Intern(const char* name) const {
  return name != nullptr ? tree_->Intern(rytesavc::StoredName(name).view()) : nullptr;
}

const rytesavc::Name* RYXmlWrapperBase::Intern(const RYPropertyName& name) const {
  const rytesavc::Name* const known = name.In(tree_);
  return known != nullptr ? known : tree_->Intern(rytesavc::StoredName(name.view()).view());
}

// Finds or makes the attribute and lets `write` fill it. It is made when nothing can fail any more.
template <class PropertyName, class Write>
int RYXmlWrapperBase::WriteAttribute(const PropertyName& name, const Write& write) {
  if (IsNodeValid() == 0) return 0;
  if (rytesavc::Attribute* const found = FindAttribute(name)) return write(found->value) ? 1 : 0;
  const rytesavc::Name* const interned = Intern(name);
  if (interned == nullptr) return 0;
  tree_->ReserveAttribute(node_);
  Value value;
  if (!write(value)) return 0;
  tree_->AppendAttribute(node_, interned) = value;
  return 1;
}

int RYXmlWrapperBase::SetPropertyValue(const char* name, int value) {
  return WriteAttribute(name, [this, value](Value& to) { return tree_->SetInt(to, value), true; });
}

int RYXmlWrapperBase::SetPropertyValue(const char* name, double value) {
  return WriteAttribute(name,
                        [this, value](Value& to) { return tree_->SetText(to, NumberText(value).view()); });
}

int RYXmlWrapperBase::SetPropertyValue(const char* name, const CString& value) {
  return WriteAttribute(name, [this, &value](Value& to) { return tree_->SetText(to, value.View()); });
}

int RYXmlWrapperBase::SetPropertyValue(const RYPropertyName& name, const CString& value) {
  return WriteAttribute(name, [this, &value](Value& to) { return tree_->SetText(to, value.View()); });
}

int RYXmlWrapperBase::SetPropertyValue(const char* name, const char* value) {
  if (value == nullptr) return 0;
  return WriteAttribute(name, [this, value](Value& to) { return tree_->SetText(to, value); });
}

int RYXmlWrapperBase::SetPropertyValue(const char* name, const _variant_t* value) {
  if (value != nullptr) {
    platform::VariantValue room;
    const platform::VariantValue& held = platform::ValueOf(*value, room);
    if (const int* const number = std::get_if<int>(&held)) return SetPropertyValue(name, *number);
    if (const double* const number = std::get_if<double>(&held)) return SetPropertyValue(name, *number);
    if (const CString* const text = std::get_if<CString>(&held)) return SetPropertyValue(name, *text);
  }
  return SetPropertyValue(name, "");
}

int RYXmlWrapperBase::GetPropertyAt(int index, CString& name, CString& value) const {
  if (index < 0 || index >= GetPropertyCount()) return 0;
  const rytesavc::Attribute& attribute = node_->attributes[index];
  CString read_name;
  if (!ReadName(attribute.name->view(), read_name)) return 0;
  AssignText(attribute.value, value);
  name = std::move(read_name);
  return 1;
}

int RYXmlWrapperBase::RemoveProperty(const char* name) {
  const rytesavc::Attribute* const found = FindAttribute(name);
  return found != nullptr && tree_->RemoveAttribute(node_, found->name) ? 1 : 0;
}

int RYXmlWrapperBase::RemoveProperty(const RYPropertyName& name) {
  const rytesavc::Attribute* const found = FindAttribute(name);
  return found != nullptr && tree_->RemoveAttribute(node_, found->name) ? 1 : 0;
}

int RYXmlWrapperBase::CopyAllAttributes(const RYXmlWrapperBase& src, int) {
  if (IsNodeValid() == 0 || src.IsNodeValid() == 0) return 0;
  tree_->CopyAttributes(node_, src.node_, *src.tree_);
  return 1;
}

// ---- The value.

int RYXmlWrapperBase::NodeValue(int& value, int get) {
  if (IsNodeValid() == 0) return 0;
  if (get != 0) return ReadAs(node_->text, value);
  tree_->SetInt(node_->text, value);
  return 1;
}

int RYXmlWrapperBase::NodeValue(double& value, int get) {
  if (IsNodeValid() == 0) return 0;
  if (get != 0) return ReadAs(node_->text, value);
  return tree_->SetText(node_->text, NumberText(value).view()) ? 1 : 0;
}

int RYXmlWrapperBase::NodeValue(bool& value, int get) {
  int number = 0;
  if (get == 0) {
    // A caller in another language may have put any byte there, and each but 0 is true.
    unsigned char byte = 0;
    std::memcpy(&byte, &value, sizeof byte);
    number = byte != 0 ? 1 : 0;
  }
  if (NodeValue(number, get) == 0) return 0;
  if (get != 0) value = number != 0;
  return 1;
}

int RYXmlWrapperBase::NodeValue(CArray<double, double>& value, int get) {
  if (IsNodeValid() == 0) return 0;
  if (get == 0) return tree_->SetText(node_->text, WriteNumbers(value)) ? 1 : 0;
  if (node_->text.kind() != Value::kInt) return ReadNumbers(View(node_->text), value) ? 1 : 0;
  value.SetSize(1);
  value.SetAt(0, node_->text.number());
  return 1;
}

int RYXmlWrapperBase::NodeValue(CString& value, int get, int, const STNODETEXTOPTS*) {
  if (IsNodeValid() == 0) return 0;
  if (get == 0) return tree_->SetText(node_->text, value.View()) ? 1 : 0;
  AssignText(node_->text, value);
  return 1;
}

namespace {

// How CheckSetValue stores a text of either kind.
template <class Text>
int StoreAs(RYXmlWrapperBase& node, const Text& value, std::string_view text, int f) {
  if (f == 1) return node.SetPropertyValue("Use", value);
  rytesavc::Node* const at = NodeAccess::node(node);
  return f == 0 && at != nullptr && NodeAccess::tree(node)->SetText(at->text, text) ? 1 : 0;
}

}  // namespace

int RYXmlWrapperBase::CheckSetValue(int, const char* value, int f) {
  return value != nullptr ? StoreAs(*this, value, value, f) : 0;
}

int RYXmlWrapperBase::CheckSetValue(int, const CString& value, int f) {
  return StoreAs(*this, value, value.View(), f);
}

int RYXmlWrapperBase::GetVector(tagRYSOBJVECT& vector) const {
  RYXmlWrapperBase node(*this);
  return node.NodeValue(vector.values, 1) != 0 ? 0 : -1;
}

int RYXmlWrapperBase::SetVector(const tagRYSOBJVECT& vector) {
  if (IsNodeValid() == 0) return -1;
  return tree_->SetText(node_->text, WriteNumbers(vector.values)) ? 0 : -1;
}

// ---- Identity.

int RYXmlWrapperBase::GetTagNameInPage(CString& tag) const {
  return ReadName(node_->tag->view(), tag) ? 1 : 0;
}

int RYXmlWrapperBase::SetID(int id, bool) {
  if (IsNodeValid() == 0) return 0;
  node_->id = id;
  return 1;
}
