#include "core/text_list.h"

#include <gtest/gtest.h>

namespace melvane::test {
namespace {

TEST(TextListTest, AReadPastTheEndFindsAnEmptyText) {
    TextList list;
    list.add(5);
    for (const int index : {-1, 1, 1000}) {
        EXPECT_EQ(list.text(index), "") << index;
        EXPECT_EQ(list.value(index), 0) << index;
        EXPECT_EQ(list.at(index), std::nullopt) << index;
    }
    EXPECT_EQ(list.text(0), "5");
}

TEST(TextListTest, ARemovalOrAChangePastTheEndIsIgnored) {
    TextList list;
    list.add(1);
    list.add(2);
    for (const int index : {-1, 2, 50}) {
        list.remove(index);
        list.set(index, 9);
    }
    EXPECT_EQ(list.count(), 2);
    list.remove(0);
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(list.text(0), "2");
}

TEST(TextListTest, AnEmptyItemCountsAndIsNoNumber) {
    TextList list;
    list.add({});
    list.add(0);
    list.set(1, {});
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.at(1), std::nullopt);
    list.clear();
    EXPECT_EQ(list.count(), 0);
}

}  // namespace
}  // namespace melvane::test
