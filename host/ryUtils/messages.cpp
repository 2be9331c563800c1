#include <algorithm>
#include <iterator>

#include "rytree_host/ryUtils.h"

namespace {

struct Message {
  int number;
  const char* text;
};

constexpr Message kMessages[] = {
    {1624, "Auto"}, {1625, "Error"}, {1626, "Y2"},        {1627, "Data"},  {1628, "a"},
    {1629, "b"},    {1630, "c"},     {1631, "Weighting"}, {1996, "Range"}, {2539, "Error Index"},
};

}  // namespace

int ryu_load_err_msg_str(int number, CString* out, int /*option*/) {
  if (!out) return 0;
  const auto* const found =
      std::find_if(std::begin(kMessages), std::end(kMessages),
                   [number](const Message& message) { return message.number == number; });
  *out = found == std::end(kMessages) ? "" : found->text;
  return found != std::end(kMessages);
}
