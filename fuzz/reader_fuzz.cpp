// Any bytes as XML text for the plain reader and for Expat. What the plain reader takes must be what Expat takes, with
// the same tree, in pieces of every size; a text that is refused is refused with Expat's reason and place.
#include <cstdint>
#include <cstdlib>

#include "tests/both_readers.h"

namespace {

void check(bool right) {
  if (!right) std::abort();
}

// What the plain reader may leave to Expat although it is right.
bool may_be_left(const std::string& text) {
  return text.find("<!DOCTYPE") != text.npos || text.find("<?") != text.npos || text.find('\0') != text.npos;
}

std::string failure() {
  const RYXmlFailure last = RYXmlWrapperBase::LastFailure();
  return last.text + (" " + std::to_string(last.line)) + ":" + std::to_string(last.column) + " " +
         std::to_string(last.offset);
}

}  // namespace

// The first byte is the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  const std::string whole = plain_reading(text, text.size() + 1);
  check(plain_reading(text, data[0] + std::size_t{1}) == whole);
  const std::string by_expat = expat_reading(text, true);
  check(whole.empty() ? by_expat.empty() || may_be_left(text) : whole == by_expat);

  const std::string in_memory = text.substr(0, text.find('\0'));
  const bool taken = !expat_reading(in_memory, false).empty();
  const std::string expected = taken ? "" : failure();
  RYXmlWrapperBase node;
  node.CreateNew(0, nullptr);
  check((node.SetXmlText(in_memory.c_str()) != 0) == taken && (taken || failure() == expected));
  return 0;
}
