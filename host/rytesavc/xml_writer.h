// Nodes as XML text.
//
// Text is always UTF-8. The node ID is the attribute "_NodeID", in front of the others. What XML cannot hold
// (control characters, bytes that make no character, white space that would read as layout) is written as a
// backslash and two hexadecimal digits, and every backslash too, in the text and the attribute values of an
// element that says so by the attribute _NodeEscape="1".
#pragma once

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "code_page.h"
#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

inline constexpr char kNodeId[] = "_NodeID";
inline constexpr char kNodeEscape[] = "_NodeEscape";

inline bool IsXmlBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Bytes written one after the other into a block that grows.
class Output {
 public:
  // Room for so many bytes behind what is there; `Close` says how far it was used.
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

// kFile has the declaration, and indentation where that loses nothing; kElement is the bare element.
enum class XmlForm { kFile, kElement };

// The node and all below it. The strings are in `page`, null for UTF-8.
Output WriteXml(const Node* top, XmlForm form, const CodePage* page);

}  // namespace rytesavc
