#include "view/layout.h"

namespace vesmora {
namespace {

// The map itself never gets less than this, outer frame included.
constexpr int kLeastMapWidth = 648;
constexpr int kLeastMapHeight = 534;

constexpr int kPalaTuck = 4;         // Pala reaches this far under Ppalkki
constexpr int kFmaskiLead = 15;      // the seam frames begin this far left of Ppalkki
constexpr int kPpalkkiOverhang = 2;  // hides its lower border

}  // namespace

WindowSize MinimumWindowSize() {
  return {kPpalkkiWidth + kLeastMapWidth, kPalaHeight + kPylaHeight + kLeastMapHeight};
}

WindowLayout ComputeLayout(int clientWidth, int clientHeight) {
  const int mapRight = clientWidth - kPpalkkiWidth;
  const int palaTop = clientHeight - kPalaHeight;
  return {
      .ppalkki = {mapRight, 0, kPpalkkiWidth, clientHeight + kPpalkkiOverhang},
      .pala = {0, palaTop, mapRight + kPalaTuck, kPalaHeight},
      .pyla = {0, 0, clientWidth, kPylaHeight},
      .fmaski0 = {mapRight - kFmaskiLead, palaTop + 2, kFmaskiWidth, kPalaHeight - 4},
      .fmaski1 = {mapRight - kFmaskiLead, 0, kFmaskiWidth, kPylaHeight - 3},
  };
}

DrawingArea ComputeDrawingArea(int clientWidth, int clientHeight) {
  return {.width = clientWidth,
          .height = clientHeight,
          .rightPanelWidth = kPpalkkiWidth,
          .bottomPanelHeight = kPalaHeight,
          .topPanelHeight = kPylaHeight};
}

}  // namespace vesmora
