// Trees as XML text, which Expat reads.
#include <expat.h>

#include <filesystem>
#include <fstream>

#include "rytree_host/node.h"

using Node = RYXmlWrapperBase;

namespace {

std::string Escaped(std::string_view text, std::string_view special) {
  std::string xml;
  for (const char c : text)
    xml += special.find(c) == special.npos ? std::string(1, c) : "&#" + std::to_string(c) + ';';
  return xml;
}
void WriteXml(const TreeItem& item, std::string& xml) {
  xml += '<' + item.tag;
  if (item.id != -1) xml += " _NodeID=\"" + std::to_string(item.id) + '"';
  for (const auto& [name, value] : item.attributes)
    xml += ' ' + name + "=\"" + Escaped(value, "&<>\"\t\n\r") + '"';
  const bool is_empty = item.children.empty() && item.text.empty();
  xml += is_empty ? "/>" : '>' + Escaped(item.text, "&<>\r");
  for (const ItemPointer& child : item.children) WriteXml(*child, xml);
  if (!is_empty) xml += "</" + item.tag + '>';
}

struct Reader {
  XML_Parser parser = XML_ParserCreate(nullptr);
  ItemPointer root;
  TreeItem* at = nullptr;
  bool failed = false;

  ~Reader() { XML_ParserFree(parser); }
  void Open(const char* tag, const char** attributes) {
    if (at != nullptr && !at->HasRoomFor(TreeItem())) return Stop();
    const auto item = std::make_shared<TreeItem>(ItemContent{tag, "", -1, {}});
    for (; *attributes != nullptr; attributes += 2) item->SetAttribute(attributes[0], attributes[1]);
    read_text(item->Find("_NodeID"), item->id);
    std::erase_if(item->attributes, [](const auto& attribute) { return attribute.first == "_NodeID"; });
    at = at != nullptr ? at->Insert(nullptr, item) : (root = item).get();
  }
  void Close() {
    if (!at->children.empty() && at->text.find_first_not_of(" \t\n\r") == std::string::npos) at->text.clear();
    at = at->parent;
  }
  void Text(const char* text, int length) { at->text.append(text, static_cast<std::size_t>(length)); }
  void Stop() { failed = true, XML_StopParser(parser, XML_FALSE); }
};

// Calls the reader for an event. No exception may pass through Expat, which is not C++.
template <auto Event, class... Argument>
void Tell(void* reader, Argument... argument) {
  auto& self = *static_cast<Reader*>(reader);
  try {
    if (!self.failed) (self.*Event)(argument...);
  } catch (const std::bad_alloc&) {
    self.Stop();
  }
}

/// The tree of an XML text, null if it cannot be read.
ItemPointer ReadXml(std::string_view xml) {
  Reader reader;
  if (reader.parser == nullptr || xml.size() > INT_MAX) return nullptr;
  XML_SetUserData(reader.parser, &reader);
  XML_SetElementHandler(reader.parser, Tell<&Reader::Open, const char*, const char**>,
                        [](void* self, const char*) { Tell<&Reader::Close>(self); });
  XML_SetCharacterDataHandler(reader.parser, Tell<&Reader::Text, const char*, int>);
  XML_SetSkippedEntityHandler(reader.parser, [](void* self, const char*, int) { Tell<&Reader::Stop>(self); });
  return XML_Parse(reader.parser, xml.data(), static_cast<int>(xml.size()), 1) != 0 ? reader.root : nullptr;
}

}  // namespace

int Node::GetXmlText(CString* text) const {
  if (Live() == nullptr || text == nullptr) return 0;
  std::string xml;
  WriteXml(*item_, xml);
  return *text = CString(std::move(xml)), 1;
}
int Node::SetXmlText(const char* text) {
  const ItemPointer root = Live() != nullptr && text != nullptr ? ReadXml(text) : nullptr;
  return root != nullptr ? TakeOver(*root) : 0;
}
int Node::Save(const char* path) const {
  std::string xml, again;
  if (Live() == nullptr || path == nullptr) return 0;
  WriteXml(*item_, xml);
  // Nothing is saved that would come back in another form: a character that XML lacks, blanks alone in a branch.
  const ItemPointer back = ReadXml(xml);
  if (back == nullptr || (WriteXml(*back, again), again != xml)) return 0;
  const std::string fresh = std::string(path) + ".new";
  std::ofstream file(fresh, std::ios::binary);
  file << xml << '\n';
  file.close();
  std::error_code error;
  if (file) std::filesystem::rename(fresh, path, error);
  if (file && !error) return 1;
  return std::filesystem::remove(fresh, error), 0;
}
int Node::load(const char* path, int) {
  std::ifstream file(path != nullptr ? path : "", std::ios::binary);
  const ItemPointer root = ReadXml(std::string(std::istreambuf_iterator<char>(file), {}));
  return root != nullptr ? LeadToRoot(root) : 0;
}
