#include "platform/qt_single_instance.h"

#include <gtest/gtest.h>

#include <optional>

#include "unit/temporary_folder.h"

namespace melvane {
namespace {

TEST(QtSingleInstance, TheSecondIsToldAndTakesThePlaceWhenTheFirstIsGone) {
    const test::TemporaryFolder folder;
    std::optional<QtSingleInstance> first(std::in_place, folder.file("lock"));
    QtSingleInstance second(folder.file("lock"));
    EXPECT_FALSE(first->anotherRuns());
    EXPECT_TRUE(second.anotherRuns());
    EXPECT_FALSE(first->anotherRuns());
    first.reset();
    EXPECT_FALSE(second.anotherRuns());
}

TEST(QtSingleInstance, APlaceLeftByADeadProcessIsFree) {
    const test::TemporaryFolder folder;
    folder.make("lock", "2147483600\nmelvane\n\n");
    EXPECT_FALSE(QtSingleInstance(folder.file("lock")).anotherRuns());
}

TEST(QtSingleInstance, WhereNoLockCanBeMadeNobodyElseRuns) {
    const test::TemporaryFolder folder;
    EXPECT_FALSE(QtSingleInstance(folder.file("no/such/folder/lock")).anotherRuns());
}

}  // namespace
}  // namespace melvane
