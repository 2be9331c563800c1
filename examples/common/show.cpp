#include "show.h"

#include <cstdlib>
#include <string>
#include <string_view>

RYXmlWrapperBase tree_from(const char* xml) {
  RYXmlWrapperBase tree;
  tree.CreateNew(0, nullptr);
  if (tree.SetXmlText(xml) == 0) {
    std::fprintf(stderr, "%s\n", RYXmlWrapperBase::LastFailure().text);
    std::exit(EXIT_FAILURE);
  }
  return tree;
}

void heading(const char* text) { std::printf("-- %s\n", text); }

void show(const char* text, const RYXmlWrapperBase& node) {
  heading(text);
  CString xml;
  node.GetXmlText(&xml);
  std::string lines;
  std::size_t level = 0;
  bool in_leaf = false;  // the last tag was one that opens
  std::string_view rest = xml.View();
  while (!rest.empty()) {
    const bool closes = rest.starts_with("</");
    const std::string_view tag = rest.substr(0, rest.find('>') + 1);
    const bool opens = !closes && !tag.ends_with("/>");
    if (closes) --level;
    if (!lines.empty() && !(closes && in_leaf)) lines += "\n" + std::string(2 * level, ' ');
    if (opens) ++level;
    in_leaf = opens;
    rest.remove_prefix(tag.size());
    const std::string_view words = rest.substr(0, rest.find('<'));
    lines.append(tag).append(words);
    rest.remove_prefix(words.size());
  }
  std::printf("%s\n", lines.c_str());
}

CString tag_of(const RYXmlWrapperBase& node) {
  CString tag = "(none)";
  node.GetTagName(tag);
  return tag;
}

CString text_of(const RYXmlWrapperBase& node) {
  CString text;
  node.GetNodeStringWithBlobInfo(text, 0);
  return text;
}
