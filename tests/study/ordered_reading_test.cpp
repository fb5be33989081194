#include "study/ordered_reading.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <stdexcept>
#include <string>
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

TEST(OrderedReading, HandsOverWhatIsThrownAndGoesOnWithAnyNumberOfThreads) {
  for (const std::size_t threads : {0U, 1U, 5U}) {
    OrderedReading<std::size_t> reading(
        1000,
        [](std::size_t item) {
          if (item % 10 == 3) throw std::runtime_error(std::to_string(item));
          return item;
        },
        threads);
    for (std::size_t item = 0; item < 1000; ++item) {
      try {
        ASSERT_EQ(reading.Take(), item);
        ASSERT_NE(item % 10, 3U);
      } catch (const std::runtime_error& error) {
        ASSERT_EQ(error.what(), std::to_string(item));
      }
    }
    EXPECT_EQ(reading.Take(), std::nullopt);
  }
}

}  // namespace
}  // namespace orvex
