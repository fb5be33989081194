#include "study/ordered_reading.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <vector>

namespace orvex {
namespace {

TEST(OrderedReading, HandsOverEveryResultInOrderAndNeverRunsFarAhead) {
  std::atomic<std::size_t> begun = 0;
  std::size_t farthest = 0;
  OrderedReading<std::size_t> reading(5000, [&](std::size_t item) {
    ++begun;
    return item * 2;
  });
  for (std::size_t item = 0; item < 5000; ++item) {
    ASSERT_EQ(reading.Take(), item * 2);
    farthest = std::max(farthest, begun - item);
  }
  EXPECT_EQ(reading.Take(), std::nullopt);
  EXPECT_LT(farthest, 400U);
}

TEST(OrderedReading, CanBeGivenUpAtAnyTime) {
  for (const std::size_t taken : {0U, 1U, 100U}) {
    OrderedReading<int> reading(100000, [](std::size_t) { return 1; });
    for (std::size_t i = 0; i < taken; ++i) reading.Take();
  }
  OrderedReading<int> none(0, [](std::size_t) { return 1; });
  EXPECT_EQ(none.Take(), std::nullopt);
}

}  // namespace
}  // namespace orvex
