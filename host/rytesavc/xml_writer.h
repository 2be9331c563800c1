// Nodes as XML text.
//
// The output is always UTF-8. The node ID is the attribute "_NodeID", before all others. An element with
// something that XML cannot hold (control characters, bytes that are not a character, white space that would
// be read as layout) is marked by the attribute _NodeEscape="1". In its text and attribute values such bytes,
// and all backslashes, are written as a backslash and two hexadecimal digits.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "files.h"
#include "rytree_host/code_page.h"
#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

// A growing block of bytes. The place where the next one goes is kept by whoever writes, not here.
class Output {
 public:
  char* start() const { return block_.get(); }
  // Gives the place again, with room for so many bytes from there.
  char* Room(char* at, std::size_t bytes) {
    return static_cast<std::size_t>(end_ - at) >= bytes ? at : Grow(at, bytes);
  }

 private:
  struct Free {
    void operator()(char* block) const { std::free(block); }
  };
  char* Grow(char* at, std::size_t bytes);

  std::unique_ptr<char, Free> block_;
  char* end_ = nullptr;
};

// The element and all below it, with no white space between the tags. The strings are in `page`, null for
// UTF-8.
struct XmlText {
  Output block;
  std::string_view text;
};
XmlText WriteXml(const Tree& tree, const Node* top, const CodePage* page);

// The same as a file: with the declaration, and with indentation where that changes no text and xml:space
// allows it. False if the file takes it no further.
bool WriteXml(const Tree& tree, const Node* top, const CodePage* page, OutputFile& file);

}  // namespace rytesavc
