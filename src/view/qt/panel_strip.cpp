#include "view/qt/panel_strip.h"

namespace vesmora {
namespace {

// Pixels.
constexpr int kRim = 1;        // inside the frame, for a mark of the focus
constexpr int kRowMargin = 7;  // above and below the controls

}  // namespace

PanelStrip::PanelStrip(const char* name, const char* accessibleName, QWidget* parent)
    : QFrame(parent) {
  setObjectName(name);
  setAccessibleName(accessibleName);
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setAutoFillBackground(true);
  auto* controls = new QWidget;
  row_ = new QHBoxLayout(controls);
  row_->setContentsMargins(6, kRowMargin, 6, kRowMargin);
  scroll_ = new PanelScroll(Qt::Horizontal, controls);
  auto* whole = new QHBoxLayout(this);
  whole->addWidget(scroll_);
  SetCovered(0);
}

int PanelStrip::RowWidth() const { return scroll_->Length() + 2 * Edge(); }

int PanelStrip::HeightFor(int width) const {
  return scroll_->BreadthFor(width - 2 * Edge()) + 2 * Edge();
}

void PanelStrip::SetCovered(int covered) {
  layout()->setContentsMargins(kRim, kRim, kRim + covered, kRim);
}

int PanelStrip::Edge() const { return frameWidth() + kRim; }

}  // namespace vesmora
