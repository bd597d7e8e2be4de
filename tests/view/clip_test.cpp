#include "view/clip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vesmora {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

TEST(ClipTest, LinesInsideKeepTheirPixels) {
  EXPECT_EQ(ClipLine({0.5f, 1.5f}, {100, 50}, 100, 50), (PixelLine{0, 2, 100, 50}));
  EXPECT_EQ(ClipLine({-3, -4}, {-3, -4}, 100, 50), (PixelLine{-3, -4, -3, -4}));
}

TEST(ClipTest, LongLinesAreCutWithoutBending) {
  for (const float reach : {1e3f, 1e6f, 1e9f, 1e12f}) {
    const auto line = ClipLine({-reach, -reach}, {reach, reach}, 100, 50);
    ASSERT_TRUE(line) << reach;
    EXPECT_EQ(line->x1, line->y1);
    EXPECT_EQ(line->x2, line->y2);
    EXPECT_TRUE(line->x1 <= 0 && line->x1 > -1000 && line->x2 >= 50 && line->x2 < 1000) << reach;
  }
}

TEST(ClipTest, WhatCannotBeSeenCostsNothing) {
  EXPECT_FALSE(ClipLine({-1e9f, 500}, {1e9f, 500}, 100, 50));
  EXPECT_FALSE(ClipLine({200, 0}, {0, -200}, 100, 50));
  EXPECT_FALSE(ClipLine({kNan, 10}, {50, 10}, 100, 50));
  EXPECT_FALSE(ClipLine({10, 10}, {kInfinity, 10}, 100, 50));
  EXPECT_FALSE(CircleTouches({kNan, 10}, 5, 100, 50));
  EXPECT_FALSE(CircleTouches({10, -kInfinity}, 5, 100, 50));
  EXPECT_FALSE(CircleTouches({10, 10}, -1, 100, 50));
  EXPECT_FALSE(CircleTouches({110, 60}, 10, 100, 50)) << "beside the corner";
  EXPECT_FALSE(CircleTouches({50, 25}, 32767, 100, 50)) << "all round the window";
  EXPECT_TRUE(CircleTouches({105, 55}, 10, 100, 50));
  EXPECT_TRUE(CircleTouches({-32000, 25}, 32050, 100, 50));
}

}  // namespace
}  // namespace vesmora
