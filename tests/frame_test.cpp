#include <rytree_Utils/frame.h>
#include <rytree_host/ryUtils.h>

#include <array>

#include "frame/host_arrays.h"
#include "frame/state.h"
#include "tree_text.h"

namespace {

const char* message = "";  // what the host's loader below gives
int loads = 0;

// Holds no array; notes what it was asked for and leaves dirt in the scratch record.
struct AskedObject final : HostArrayObject {
  int code = 0;
  bool clean = true;

  void* GetInternalArray(int asked, void* record) override {
    code = asked;
    clean = clean && (asked == 0x1001B) == (record == nullptr);
    if (record == nullptr) return nullptr;
    std::array<DWORD, 5>& words = *static_cast<std::array<DWORD, 5>*>(record);
    clean = clean && words == std::array<DWORD, 5>{};
    words.fill(~DWORD{0});
    return nullptr;
  }
};

template <class Object, class Array>
void expect_opening(Array* (*open)(HostArrayObject*), int code) {
  Object object;
  AskedObject asked;
  EXPECT_EQ(open(&object), &object.array());
  for (HostArrayObject* const none : {&asked, &asked, static_cast<AskedObject*>(nullptr)})
    EXPECT_EQ(open(none), nullptr);
  EXPECT_EQ(asked.code, code);
  EXPECT_TRUE(asked.clean) << code;
}

TEST(HostArrays, open_by_code) {
  expect_opening<HostStringArray>(open_strings, 0x1001B);
  expect_opening<HostIntArray>(open_ints, 0x10008);
  expect_opening<HostDoubleArray>(open_doubles, 0x1000B);
  expect_opening<HostBoolArray>(open_bools, 0x10002);
}

TEST(Values, of_a_branch) {
  RYXmlWrapperBase tree = parse("<R>own<A>1</A><B>two<C>3</C><D/></B></R>");
  RYXmlWrapperBase dead = dead_node();
  const Rows<RYXmlWrapperBase, int, const char*> rows = {{at(tree, {0}), 0, "[old][1]"},
                                                         {at(tree, {0}), 1, "[old][1]"},
                                                         {at(tree, {1, 1}), 1, "[old][]"},
                                                         {at(tree, {1}), 1, "[old][][3][]"},
                                                         {tree, 0, "[old][][1][][3][]"},
                                                         {tree, 256, "[old][][1][two]"},
                                                         {dead, 0, "[old][]"}};
  for (const auto& [node, children_only, expected] : rows) {
    RYXmlWrapperBase start(node);
    HostStringArray values;
    values.array().Add("old");
    EXPECT_EQ(rytree_get_values(&start, &values, children_only), 0);
    std::string joined;
    for (const CString& value : values.array()) joined.append("[").append(value).append("]");
    EXPECT_EQ(joined, expected) << children_only;
  }
  HostStringArray values;
  HostIntArray ints;
  EXPECT_EQ(rytree_get_values(&tree, nullptr, 0), -1);
  EXPECT_EQ(rytree_get_values(&tree, &ints, 0), -1);
  EXPECT_EQ(rytree_get_values(nullptr, &values, 0), -1);
  EXPECT_TRUE(values.array().IsEmpty());
}

TEST(State, block_flag) {
  bool value = true;
  EXPECT_FALSE(VCTreeAccessBlockLocalization(&value, true));
  EXPECT_FALSE(value);
  value = true;
  EXPECT_TRUE(VCTreeAccessBlockLocalization(&value, false));
  value = false;
  EXPECT_TRUE(VCTreeAccessBlockLocalization(nullptr, false));
  EXPECT_TRUE(VCTreeAccessBlockLocalization(&value, true));
  EXPECT_TRUE(value);
}

TEST(State, range_label_is_loaded_until_there_is_one) {
  const Rows<const char*, const char*> rows = {{"", ""}, {"Range", "Range"}, {"Other", "Range"}};
  for (const auto& [given, label] : rows) {
    message = given;
    EXPECT_STREQ(VCTreeRangeLabelText(), label);
  }
  EXPECT_EQ(loads, 2);
}

}  // namespace

// Stands in for the host's.
int ryu_load_err_msg_str(int number, CString* out, int option) {
  EXPECT_TRUE(number == 1996 && option == -1);
  ++loads;
  *out = message;
  return 1;
}
