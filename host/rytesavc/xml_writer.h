// Nodes as XML text.
//
// The output is always UTF-8. The node ID is the attribute "_NodeID", before all others. An element with
// something that XML cannot hold (control characters, bytes that are not a character, white space that would
// be read as layout) is marked by the attribute _NodeEscape="1". In its text and attribute values such bytes,
// and all backslashes, are written as a backslash and two hexadecimal digits.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "code_page.h"
#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

inline bool IsXmlBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// A growing block of bytes, written from front to back.
class Output {
 public:
  // Gives room for so many more bytes; `Close` takes the end of those that were written.
  char* Open(std::size_t bytes) {
    if (room_ - size_ < bytes) Grow(bytes);
    return block_.get() + size_;
  }
  void Close(const char* end) { size_ = static_cast<std::size_t>(end - block_.get()); }
  void Put(std::string_view text) { Close(std::copy(text.begin(), text.end(), Open(text.size()))); }

  std::size_t size() const { return size_; }
  void Truncate(std::size_t size) { size_ = size; }
  std::string_view view() const { return {block_.get(), size_}; }

 private:
  struct Free {
    void operator()(char* block) const { std::free(block); }
  };
  void Grow(std::size_t bytes);

  std::unique_ptr<char, Free> block_;
  std::size_t size_ = 0;
  std::size_t room_ = 0;
};

// kFile has the declaration, and indentation where that changes no text; kElement is the bare element.
enum class XmlForm { kFile, kElement };

// The node and all below it. The strings are in `page`, null for UTF-8.
Output WriteXml(const Node* top, XmlForm form, const CodePage* page);

}  // namespace rytesavc
