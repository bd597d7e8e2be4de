#include "view/qt/panel_strip.h"

namespace vesmora {
namespace {

constexpr int kRowMargin = 8;  // pixels, above and below the controls

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
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(scroll_);
}

int PanelStrip::RowWidth() const { return scroll_->Length() + 2 * frameWidth(); }

int PanelStrip::HeightFor(int width) const {
  return scroll_->BreadthFor(width - 2 * frameWidth()) + 2 * frameWidth();
}

void PanelStrip::SetCovered(int covered) { layout()->setContentsMargins(0, 0, covered, 0); }

}  // namespace vesmora
