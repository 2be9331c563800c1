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
  EXPECT_TRUE(!open(&asked) && !open(&asked) && !open(nullptr));
  EXPECT_EQ(asked.code, code);
}

TEST(HostArrays, open_by_code) {
  expect_opening<HostStringArray>(open_strings, 0x1001B);
  expect_opening<HostIntArray>(open_ints, 0x10008);
  expect_opening<HostDoubleArray>(open_doubles, 0x1000B);
  expect_opening<HostBoolArray>(open_bools, 0x10002);
}

TEST(Values, of_all_children) {
  RYXmlWrapperBase tree = parse("<R>t<C>1</C><C/><C>2<D>3</D></C></R>");
  CStringArray values;
  values.Add("old");
  vctree_get_all_children_values_as_string_array(tree, values);
  ASSERT_EQ(values.GetSize(), 4);
  EXPECT_EQ(values[0] + "|" + values[1] + "|" + values[2] + "|" + values[3], "old|1||2");
}

TEST(Values, of_a_branch) {
  RYXmlWrapperBase tree = parse("<R>own<A>1</A><B>two<C>3</C><D/></B></R>");
  const Rows<RYXmlWrapperBase, int, const char*> rows = {{at(tree, {0}), 1, "[old][1]"},
                                                         {at(tree, {1, 1}), 0, "[old][]"},
                                                         {tree, 0, "[old][][1][][3][]"},
                                                         {tree, 256, "[old][][1][two]"},
                                                         {dead_node(), 0, "[old][]"}};
  for (const auto& [node, children_only, expected] : rows) {
    RYXmlWrapperBase start(node);
    HostStringArray values;
    values.array().Add("old");
    EXPECT_EQ(rytree_get_values(&start, &values, children_only), 0);
    std::string joined;
    for (const CString& value : values.array()) joined.append("[").append(value).append("]");
    EXPECT_EQ(joined, expected) << children_only;
  }
  HostStringArray strings;
  HostIntArray ints;
  EXPECT_EQ(rytree_get_values(&tree, &ints, 0) + rytree_get_values(nullptr, &strings, 0), -2);
}

TEST(State, block_flag) {
  bool value = true;
  EXPECT_TRUE(!VCTreeAccessBlockLocalization(&value, true) && !value);
  value = true;
  EXPECT_TRUE(VCTreeAccessBlockLocalization(&value, false));
  value = false;
  EXPECT_TRUE(VCTreeAccessBlockLocalization(nullptr, false));
  EXPECT_TRUE(VCTreeAccessBlockLocalization(&value, true) && value);
}

TEST(State, range_label_is_loaded_until_there_is_one) {
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
