#include "document/numbers.h"

#include <gtest/gtest.h>

#include <tuple>

namespace vesmora {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr int kMax = std::numeric_limits<std::int32_t>::max();
constexpr int kMin = std::numeric_limits<std::int32_t>::min();

TEST(NumbersTest, RoundsHalvesToEvenAndSaturates) {
  using Row = std::tuple<double, int, int, int>;
  for (const auto& [value, int32, int16, uint8] :
       {Row(0.5, 0, 0, 0), Row(1.5, 2, 2, 2), Row(-0.5, 0, 0, 0), Row(-1.5, -2, -2, 0),
        Row(-2.5, -2, -2, 0), Row(0.49999999999999994, 0, 0, 0), Row(2.5000000000000004, 3, 3, 3),
        Row(254.5, 254, 254, 254), Row(255.5, 256, 256, 255), Row(32766.5, 32766, 32766, 255),
        Row(32767.5, 32768, 32767, 255), Row(-32769, -32769, -32768, 0),
        Row(2147483646.5, 2147483646, 32767, 255), Row(2147483647.5, kMax, 32767, 255),
        Row(-2147483649.0, kMin, -32768, 0), Row(1e30, kMax, 32767, 255),
        Row(-HUGE_VAL, kMin, -32768, 0), Row(kNan, 0, 0, 0)}) {
    EXPECT_EQ(RoundToInt32(value), int32) << value;
    EXPECT_EQ(RoundToInt16(value), int16) << value;
    EXPECT_EQ(RoundToUint8(value), uint8) << value;
  }
}

TEST(NumbersTest, FixedPointIsOne256thUnit) {
  EXPECT_EQ(FromFixedPoint(2688), 10.5f);
  EXPECT_EQ(FromFixedPoint(-1), -0.00390625f);
  EXPECT_EQ(ToFixedPoint(10.501953125), 2688);  // 2688.5
  EXPECT_EQ(ToFixedPoint(8388608), kMax);
  EXPECT_EQ(ToFixedPoint(kNan), 0);
}

}  // namespace
}  // namespace vesmora
