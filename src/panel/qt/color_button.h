// A button whose face is a colour, exactly and without the style's shades.
#pragma once

#include <QPushButton>
#include <optional>

namespace vesmora {

class ColorButton final : public QPushButton {
  Q_OBJECT

 public:
  /// `purpose` is what a click does, for the tooltip and assistive programs; both also name the
  /// colour.
  ColorButton(const QString& caption, const QString& name, const QString& purpose);

  /// None: looks like any other button.
  void SetColor(const std::optional<QColor>& color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Describe();

  QString purpose_;
  std::optional<QColor> color_;
};

}  // namespace vesmora
