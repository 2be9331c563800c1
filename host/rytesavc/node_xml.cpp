// Nodes to and from XML text and files.
#include <algorithm>
#include <memory>
#include <new>
#include <string>

#include "failure.h"
#include "files.h"
#include "node_access.h"
#include "xml_reader.h"
#include "xml_writer.h"

using rytesavc::Node;
using rytesavc::Tree;

namespace {

// Runs an operation and records its failure for LastFailure.
template <class Work>
int Noted(const Work& work) {
  rytesavc::BeginRecord();
  try {
    return work() ? 1 : 0;
  } catch (const std::bad_alloc&) {
    rytesavc::NoteFailure("out of memory");
    return 0;
  }
}

bool Refuse(std::string_view why) {
  rytesavc::NoteFailure(why);
  return false;
}

// Notes where there are bytes that are not a character.
bool ConvertFromPage(std::string_view text, const CodePage& page, std::string& utf8) {
  const std::size_t done = page.ToUtf8(text, utf8);
  if (done == text.size()) return true;
  const std::size_t line = utf8.rfind('\n') + 1;  // 0 without one
  const auto is_start = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; };
  rytesavc::NoteFailure("no character of code page " + std::to_string(page.number()),
                        {static_cast<int>(std::count(utf8.begin(), utf8.end(), '\n')) + 1,
                         static_cast<int>(std::count_if(utf8.begin() + static_cast<std::ptrdiff_t>(line),
                                                        utf8.end(), is_start)) +
                             1,
                         static_cast<long long>(done)});
  return false;
}

// The failure has its place in the UTF-8 form of the text.
void MoveFailureToPage(std::string_view text, const CodePage& page) {
  if (rytesavc::FailureOffset() <= 0) return;
  const char* at = text.data();
  const char* const end = at + text.size();
  std::string utf8;
  for (long long left = rytesavc::FailureOffset(); left > 0 && at != end;) {
    utf8.clear();
    utf8::append(utf8, page.Next(at, static_cast<std::size_t>(end - at)));
    left -= static_cast<long long>(utf8.size());
  }
  rytesavc::MoveFailure(at - text.data());
}

}  // namespace

int RYXmlWrapperBase::GetXmlText(CString* text) const {
  return Noted([&] {
    const Node* const node = NodeAccess::node(*this);
    if (node == nullptr) return Refuse("the handle is not on a node");
    if (text == nullptr) return Refuse("there is no place for the text");
    const CodePage* const page = CodePage::Default();
    const rytesavc::XmlText utf8 = rytesavc::WriteXml(*NodeAccess::tree(*this), node, page);
    if (page == nullptr) {
      text->Assign(utf8.text.data(), utf8.text.size());
      return true;
    }
    std::string in_page;
    const std::size_t done = page->FromUtf8(utf8.text, in_page);
    // Only names can have characters that the page lacks.
    const char* const end = utf8.text.data() + utf8.text.size();
    const char* at = utf8.text.data() + done;
    if (at != end) return Refuse(rytesavc::LackOf(utf8::next(at), *page));
    *text = CString(std::move(in_page));
    return true;
  });
}

int RYXmlWrapperBase::SetXmlText(const char* text) {
  rytesavc::NotePassedOver({});
  return Noted([&] {
    Node* const node = NodeAccess::node(*this);
    if (node == nullptr) return Refuse("the handle is not on a node");
    if (text == nullptr) return Refuse("there is no text");
    const CodePage* const page = CodePage::Default();
    const std::string_view xml(text);
    std::string utf8;
    if (page != nullptr && !ConvertFromPage(xml, *page, utf8)) return false;
    Tree* const tree = NodeAccess::tree(*this);
    Node* const made = rytesavc::ReadXml(page != nullptr ? utf8 : xml, *tree, node->depth, page);
    if (made != nullptr) tree->TakeContent(node, made);
    if (made == nullptr && page != nullptr) MoveFailureToPage(xml, *page);
    return made != nullptr;
  });
}

int RYXmlWrapperBase::Save(const char* path) const {
  return Noted([&] {
    const Node* const node = NodeAccess::node(*this);
    if (node == nullptr) return Refuse("the handle is not on a node");
    if (path == nullptr) return Refuse("there is no path");
    rytesavc::OutputFile file(path);
    return file.Open() && rytesavc::WriteXml(*NodeAccess::tree(*this), node, CodePage::Default(), file) &&
           file.Finish();
  });
}

int RYXmlWrapperBase::load(const char* path, int) {
  rytesavc::NotePassedOver({});
  return Noted([&] {
    if (path == nullptr) return Refuse("there is no path");
    rytesavc::InputFile file(path);
    if (!file.Open()) return false;
    const auto release = [](Tree* tree) { tree->Release(); };
    const std::unique_ptr<Tree, decltype(release)> tree(rytesavc::ReadXml(file, CodePage::Default()));
    return tree != nullptr && NodeAccess::Put(*this, tree.get(), tree->root) != 0;
  });
}

int RYXmlWrapperBase::SetDefaultCodePage(int page) { return CodePage::SetDefault(page) ? 1 : 0; }
