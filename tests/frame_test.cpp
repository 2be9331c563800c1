#include <rytree_host/ryUtils.h>

#include <array>

#include "frame/host_arrays.h"
#include "frame/range_label.h"
#include "tree_text.h"

namespace {

const char* message = "";  // what the host's loader below gives
int loads = 0;

// Holds no array; notes what it was asked for and leaves dirt in the scratch record.
struct AskedObject final : HostArrayObject {
  int code = 0;

  void* GetInternalArray(int asked, void* record) override {
    EXPECT_EQ(record == nullptr, asked == 0x1001B);
    code = asked;
    if (record == nullptr) return nullptr;
    std::array<DWORD, 5>& words = *static_cast<std::array<DWORD, 5>*>(record);
    EXPECT_EQ(words, (std::array<DWORD, 5>{}));
    words.fill(~DWORD{0});
    return nullptr;
  }
};

template <class Object, class Array>
void expect_opening(Array* (*open)(HostArrayObject*), int code) {
  Object object;
  AskedObject asked;
  EXPECT_EQ(open(&object), &object.array());
  EXPECT_EQ(open(nullptr), nullptr);
  for (int time = 0; time < 2; ++time) EXPECT_EQ(open(&asked), nullptr);
  EXPECT_EQ(asked.code, code);
}

TEST(HostArrays, OpenByCode) {
  expect_opening<HostStringArray>(open_strings, 0x1001B);
  expect_opening<HostIntArray>(open_ints, 0x10008);
  expect_opening<HostDoubleArray>(open_doubles, 0x1000B);
  expect_opening<HostBoolArray>(open_bools, 0x10002);
}

TEST(RangeLabel, IsLoadedUntilThereIsOne) {
  std::string labels;
  for (const char* const given : {"", "Range", "Other"}) {
    message = given;
    labels.append(VCTreeRangeLabelText()).append("|");
  }
  EXPECT_EQ(labels, "|Range|Range|");
  EXPECT_EQ(loads, 2);
}

}  // namespace

// Stands in for the host's.
int ryu_load_err_msg_str(int number, CString* out, int option) {
  loads += number == 1996 && option == -1;
  *out = message;
  return 1;
}
