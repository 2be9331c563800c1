// Expat by itself, to which the bundled node class leaves what its own reader refuses. It builds nothing.
#include <expat.h>

#include <cstdio>
#include <memory>

#include "library.h"
#include "measure.h"

namespace {

bool read(const char* path) {
  constexpr int kBlock = 1 << 16;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "rb"), std::fclose);
  const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                       XML_ParserFree);
  if (file == nullptr || parser == nullptr) return false;
  XML_SetElementHandler(
      parser.get(), [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
  XML_SetCharacterDataHandler(parser.get(), [](void*, const XML_Char*, int) {});
  for (bool last = false; !last;) {
    void* const buffer = XML_GetBuffer(parser.get(), kBlock);
    if (buffer == nullptr) return false;
    const std::size_t length = std::fread(buffer, 1, kBlock, file.get());
    last = length < kBlock;
    if (XML_ParseBuffer(parser.get(), static_cast<int>(length), last) != XML_STATUS_OK) return false;
  }
  return true;
}

const Enrol enrolled(7, {"Expat alone",
                         {{"load", false, [](benchmark::State& state) {
                             if (!read(input(static_cast<int>(state.range(0))).tree_path.c_str())) {
                               state.SkipWithError("the tree cannot be read");
                             }
                             Run run(state, "Expat alone", "read");
                             run.measure([] { return 0; },
                                         [&](int) { return read(run.in().tree_path.c_str()); },
                                         [](int, bool whole) { return whole; });
                           }}}});

}  // namespace
