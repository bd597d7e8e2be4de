// The shapes of the alphabet: a stencil of thick strokes, capitals only, since a text is
// written on the map in lower case and one form per letter is enough.
#pragma once

#include <span>
#include <string_view>

namespace vesmora {

/// Of strokes written as a letter and the points that follow it, "p 2,0 2,20":
///   p  a path of straight pieces, its right-angled corners cut off
///   l  the same, its corners sharp; thin
///   o  a closed path
///   r  the same, its corners sharp; thin
///   f  as r, very thin
///   q  a filled convex shape of four corners in a row around it; of three when one is repeated
/// x runs from 0 to the glyph's width, y from 0 at the top to kCapHeight at the foot.
struct Glyph {
  unsigned char code;  // single-byte, lower case
  float width;
  std::string_view strokes;
};

/// A letter with a mark over it.
struct AccentedGlyph {
  unsigned char code;
  unsigned char base;  // code of its glyph, which is made lower for it
  std::string_view mark;
};

inline constexpr float kCapHeight = 20;
inline constexpr float kMarkHeight = 4.6f;  // with the gap between mark and letter
inline constexpr float kMarkWidth = 9.2f;

std::span<const Glyph> Glyphs();

/// Their marks lie around x = 0 and between y = 0 and kMarkHeight.
std::span<const AccentedGlyph> AccentedGlyphs();

}  // namespace vesmora
