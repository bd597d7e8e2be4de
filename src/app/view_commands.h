// What the pointer, the wheel and the view's controls do to the view.
#pragma once

#include "app/editor.h"
#include "view/input.h"

namespace vesmora {

/// A move over the map, with the read-out of where the pointer is.
void PointAt(Editor& editor, const MouseInput& input);
/// `delta`: 120 a notch, positive away from the user, in parts as fine as the wheel has them.
void TurnWheel(Editor& editor, int delta);
void LeaveMap(Editor& editor);

/// Zooms about the middle of the drawing area, never about the pointer. `index` is one of
/// kZoomLevels.
void ChooseZoom(Editor& editor, int index);
/// One step smaller (1) or larger (-1); nothing at either end.
void StepZoom(Editor& editor, int step);
/// `index` is one of kGridSizes.
void ChooseGrid(Editor& editor, int index);
void SetFixedGrid(Editor& editor, bool isFixed);

}  // namespace vesmora
