#include "frame/id_index.h"

#include <gtest/gtest.h>

// IDs in rows, in strides and under many repeat numbers; a search that degrades would take minutes.
TEST(IdIndex, FindsTheFirstPlaceQuickly) {
  for (const unsigned stride : {1u, 7u, 8u, 16u, 0x1000u, 0x10000u, 0x10001u, 12776u, 0xFFFFFFFFu}) {
    CArray<int, int> ids;
    for (unsigned at = 0; at < 60000; ++at) ids.Add(static_cast<int>(at * stride));
    const IdIndex index(ids);
    EXPECT_EQ(index.first_duplicate(), -1) << stride;
    for (int at = 0; at < ids.GetSize(); ++at) ASSERT_EQ(index.find(ids[at]), at) << stride;
    EXPECT_EQ(index.find(static_cast<int>(60000u * stride)), -1) << stride;
  }
  IdIndex growing;
  for (int id = 0; id < 1000; ++id) EXPECT_EQ(growing.add(id % 500, id), id % 500);
  EXPECT_EQ(growing.find(499), 499);
  EXPECT_EQ(growing.find(500), -1);
}
