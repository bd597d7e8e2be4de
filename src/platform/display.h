// The window as logic sees it: what can be asked of it after a change.
#pragma once

namespace vesmora {

/// The screen mouse pointers in use.
enum class PointerShape { kDefault = 0, kCross = 2, kMove = 5, kSizeDiagonal = 8 };

class Display {
 public:
  virtual ~Display() = default;

  /// Paints the whole map anew; does nothing while redrawing is suppressed.
  virtual void RedrawMap() = 0;
  virtual void RefreshInfoPanel() = 0;
  virtual void SetPointer(PointerShape shape) = 0;
};

}  // namespace vesmora
