// Nodes to and from XML text and files.
#include <memory>
#include <new>
#include <string>

#include "failure.h"
#include "files.h"
#include "node_access.h"
#include "xml_reader.h"
#include "xml_writer.h"

using rytesavc::CodePage;
using rytesavc::Node;
using rytesavc::Tree;

namespace {

// Runs an operation whose failure the thread's record tells.
template <class Work>
int Noted(const Work& work) {
  rytesavc::ClearFailure();
  try {
    return work() ? 1 : 0;
  } catch (const std::bad_alloc&) {
    rytesavc::NoteFailure("out of memory");
    return 0;
  }
}

bool Refuse(const char* why) {
  rytesavc::NoteFailure(why);
  return false;
}

}  // namespace

int RYXmlWrapperBase::GetXmlText(CString* text) const {
  const Node* const node = NodeAccess::node(*this);
  if (node == nullptr || text == nullptr) return 0;
  const CodePage* const page = CodePage::Default();
  const rytesavc::XmlText utf8 = rytesavc::WriteXml(node, page);
  if (page == nullptr) {
    text->Assign(utf8.text.data(), utf8.text.size());
    return 1;
  }
  // Only names can have characters that the page lacks.
  std::string in_page;
  if (!page->FromUtf8(utf8.text, in_page)) return 0;
  *text = CString(std::move(in_page));
  return 1;
}

int RYXmlWrapperBase::SetXmlText(const char* text) {
  return Noted([&] {
    Node* const node = NodeAccess::node(*this);
    if (node == nullptr) return Refuse("the handle stands on no node");
    if (text == nullptr) return Refuse("there is no text");
    const CodePage* const page = CodePage::Default();
    std::string_view xml(text);
    std::string utf8;
    if (page != nullptr) {
      if (!page->ToUtf8(xml, utf8))
        return Refuse("the text has bytes that are no character of the code page");
      xml = utf8;
    }
    Tree* const tree = NodeAccess::tree(*this);
    Node* const made = rytesavc::ReadXml(xml, *tree, node->depth, page);
    if (made != nullptr) tree->TakeContent(node, made);
    return made != nullptr;
  });
}

int RYXmlWrapperBase::Save(const char* path) const {
  return Noted([&] {
    const Node* const node = NodeAccess::node(*this);
    if (node == nullptr) return Refuse("the handle stands on no node");
    if (path == nullptr) return Refuse("there is no path");
    rytesavc::OutputFile file(path);
    return file.Open() && rytesavc::WriteXml(node, CodePage::Default(), file) && file.Finish();
  });
}

int RYXmlWrapperBase::load(const char* path, int) {
  return Noted([&] {
    if (path == nullptr) return Refuse("there is no path");
    rytesavc::InputFile file(path);
    if (!file.Open()) return false;
    const auto release = [](Tree* tree) { tree->Release(); };
    const std::unique_ptr<Tree, decltype(release)> tree(Tree::Create());
    tree->root = rytesavc::ReadXml(file, *tree, 1, CodePage::Default());
    return tree->root != nullptr && NodeAccess::Put(*this, tree.get(), tree->root) != 0;
  });
}
