#include "panel/qt/caption_frame.h"

#include <QStyleOptionGroupBox>

namespace vesmora {

CaptionFrame::CaptionFrame(const QString& caption, const QString& name) : QGroupBox(caption) {
  setObjectName(name);
}

void CaptionFrame::Highlight(bool isHighlighted) {
  if (isHighlighted_ == isHighlighted) return;
  isHighlighted_ = isHighlighted;
  const QString tip = isHighlighted ? "What the next object gets" : "";
  setToolTip(tip);
  setAccessibleDescription(tip);
  update();
}

// Not by a style sheet: the frame would get another shape and place.
void CaptionFrame::initStyleOption(QStyleOptionGroupBox* option) const {
  QGroupBox::initStyleOption(option);
  if (!isHighlighted_) return;
  option->textColor = QColor(255, 0, 0);
  option->palette.setColor(QPalette::WindowText, option->textColor);  // what some styles go by
}

}  // namespace vesmora
