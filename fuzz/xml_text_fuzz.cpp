// Any bytes as XML text. A tree that they parse to must be written as text, and that text must parse to a tree
// that is written the same way.
#include <rytree_host/node.h>

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  RYXmlWrapperBase tree;
  tree.CreateNew(0, nullptr);
  if (tree.SetXmlText(bytes.c_str()) == 0) return 0;
  CString first;
  CString second;
  RYXmlWrapperBase again;
  again.CreateNew(0, nullptr);
  if (tree.GetXmlText(&first) == 0 || again.SetXmlText(first) == 0 || again.GetXmlText(&second) == 0 ||
      !(first == second)) {
    std::abort();
  }
  return 0;
}
