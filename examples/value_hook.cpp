// A hook into a copy: values below one node are converted on their way, here from centimetres to millimetres.
#include <rytree_Utils.h>

#include <cstdlib>

#include "common/show.h"

namespace {

// [hook]
constexpr int kMarginsId = 110;

struct ToMillimetres : _SETVALUESBYIDS {
  int converted = 0;
};

int convert(_SETVALUESBYIDS* hook) {
  hook->value->Format("%g", 10 * std::atof(*hook->value));
  ++static_cast<ToMillimetres*>(hook)->converted;
  return 1;
}
// [hook]

}  // namespace

int main() {
  RYXmlWrapperBase old_page = tree_from(R"(
    <Page>
      <Title DataID="106">Decay</Title>
      <Margins DataID="110"><Left DataID="111">2.5</Left><Top DataID="113">2</Top></Margins>
    </Page>)");
  RYXmlWrapperBase new_page = tree_from(R"(
    <Page Unit="mm">
      <Margins DataID="110"><Top DataID="113">10</Top><Left DataID="111">10</Left></Margins>
      <Title DataID="106"/>
    </Page>)");
  show("source", old_page);
  show("before", new_page);

  // [copy]
  ToMillimetres hook;
  hook.callback = convert;
  hook.dataId = kMarginsId;
  hook.value = nullptr;
  vctree_copy_values_by_id(&old_page, &new_page, 0, nullptr, nullptr, /*allBranches=*/0, &hook,
                           /*keepBit18Off=*/0, /*dropEmpty=*/0);
  // [copy]
  show("after", new_page);
  std::printf("%d values converted\n", hook.converted);
}
