// The 16-colour console palette by which the drawing names most colours.
#pragma once

#include <array>
#include <cstdint>

#include "document/records.h"
#include "view/canvas.h"

namespace vesmora {

inline constexpr std::array<Rgb, 16> kPalette = {{
    {0, 0, 0},
    {0, 0, 128},
    {0, 128, 0},
    {0, 128, 128},
    {128, 0, 0},
    {128, 0, 128},
    {128, 128, 0},
    {192, 192, 192},
    {128, 128, 128},
    {0, 0, 255},
    {0, 255, 0},
    {0, 255, 255},
    {255, 0, 0},
    {255, 0, 255},
    {255, 255, 0},
    {255, 255, 255},
}};

/// The colours of the drawing by what they mark.
inline constexpr Rgb kConnectionColor = kPalette[0];
inline constexpr Rgb kBlueSpawnColor = kPalette[1];
inline constexpr Rgb kOtherPathColor = kPalette[1];
inline constexpr Rgb kScreenFrameColor = kPalette[1];
inline constexpr Rgb kNormalSpawnColor = kPalette[3];
inline constexpr Rgb kRedSpawnColor = kPalette[4];
inline constexpr Rgb kSceneryColor = kPalette[5];
inline constexpr Rgb kColliderColor = kPalette[6];
inline constexpr Rgb kSelectionBoxColor = kPalette[8];
inline constexpr Rgb kFirstPathColor = kPalette[9];
inline constexpr Rgb kSizeHandleColor = kPalette[10];
inline constexpr Rgb kTextureDotColor = kPalette[10];
inline constexpr Rgb kMarkColor = kPalette[12];
inline constexpr Rgb kPendingConnectionColor = kPalette[13];
inline constexpr Rgb kRotateHandleColor = kPalette[14];
inline constexpr Rgb kLightGridColor = {100, 100, 100};
inline constexpr Rgb kDarkGridColor = {75, 75, 75};

/// Connections to a waypoint with bot setting i; a later setting wins.
inline constexpr std::array<Rgb, 5> kBotSettingColors = {kPalette[10], kPalette[12], kPalette[14],
                                                         kPalette[11], kPalette[8]};

constexpr Rgb ToRgb(MapColor color) { return {color.red, color.green, color.blue}; }

/// Splits a colour number, red in its lowest byte.
constexpr Rgb LongToRGB(std::int32_t color) {
  const auto bits = static_cast<std::uint32_t>(color);
  return {static_cast<std::uint8_t>(bits % 256), static_cast<std::uint8_t>(bits / 256 % 256),
          static_cast<std::uint8_t>(bits / 65536 % 256)};
}

constexpr std::int32_t RGBToLong(Rgb color) {
  return color.red + color.green * 256 + color.blue * 65536;
}

/// Alpha belongs to no colour choice and stays.
constexpr void SetColor(MapColor& stored, Rgb color) {
  stored.red = color.red;
  stored.green = color.green;
  stored.blue = color.blue;
}

}  // namespace vesmora
