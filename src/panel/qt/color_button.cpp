#include "panel/qt/color_button.h"

#include <QPainter>
#include <cmath>

namespace vesmora {
namespace {

constexpr int kFocusRing = 2;  // pixels

/// The light that a colour gives, from 0 for black to 1 for white.
double LuminanceOf(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

/// Whichever of black and white is better read on the colour.
QColor ContrastTo(const QColor& color) {
  constexpr double kStrayLight = 0.05;  // that a screen gives where it is black
  const double light = LuminanceOf(color) + kStrayLight;
  return light / kStrayLight > (1 + kStrayLight) / light ? Qt::black : Qt::white;
}

}  // namespace

ColorButton::ColorButton(const QString& caption, const QString& name, const QString& purpose)
    : QPushButton(caption), purpose_(purpose) {
  setObjectName(name);
  Describe();
}

void ColorButton::SetColor(const std::optional<QColor>& color) {
  if (color_ == color) return;
  color_ = color;
  Describe();
  update();
}

void ColorButton::Describe() {
  QString text = purpose_;
  if (color_) {
    text += QString("\nred %1, green %2, blue %3")
                .arg(color_->red())
                .arg(color_->green())
                .arg(color_->blue());
  }
  setToolTip(text);
  setAccessibleDescription(text.replace("\n", ": "));
}

void ColorButton::paintEvent(QPaintEvent* event) {
  if (!color_) {
    QPushButton::paintEvent(event);
    return;
  }
  QPainter painter(this);
  const QColor contrast = ContrastTo(*color_);
  QRect face = rect();
  // Filled, not drawn: at fractions of a scale lines would fall short of the edge.
  const auto addRing = [&painter, &face](const QColor& color, int pixels) {
    painter.fillRect(face, color);
    face.adjust(pixels, pixels, -pixels, -pixels);
  };
  if (hasFocus()) {
    addRing(palette().color(QPalette::Highlight), kFocusRing);
    addRing(contrast, 1);
  } else {
    addRing(palette().color(QPalette::WindowText), 1);  // pale while disabled
  }
  if (isDown()) addRing(contrast, 1);
  painter.fillRect(face, *color_);
  const QRect place = isDown() ? rect().translated(1, 1) : rect();
  painter.setPen(contrast);
  painter.drawText(place, Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

}  // namespace vesmora
