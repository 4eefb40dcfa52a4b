#include "base/strings.h"

#include <gtest/gtest.h>

namespace ryv {
namespace {

TEST(CArray, index_outside_throwsInvalidArgument) {
    CArray<int> array{1, 2};
    const CArray<int> empty;
    EXPECT_THROW(array[2], std::invalid_argument);
    EXPECT_THROW(array[static_cast<std::size_t>(-1)] = 3, std::invalid_argument);
    EXPECT_THROW(empty[0], std::invalid_argument);
}

} // namespace
} // namespace ryv
