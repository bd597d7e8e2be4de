// A combo box that shows what it is told, tells when its list is about to open, and
// takes typed texts only with the Enter key.
#pragma once

#include <span>
#include <string_view>

#include "panel/panel_contents.h"
#include "view/qt/closing_combo.h"

namespace vesmora {

class PanelCombo final : public ClosingCombo {
  Q_OBJECT

 public:
  enum class Kind { kList, kEditable };

  /// `values` live as long as the box; "Many types", where there is such an item, is the last.
  PanelCombo(const QString& name, Kind kind, std::span<const std::string_view> values);

  /// Fills the list anew only when another one is to be shown, and touches only what differs.
  void Show(const ComboContents& contents);

  void showPopup() override;
  /// Wide enough for each of the values, whatever the list holds now.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  void AboutToOpen();
  void Chosen(const QString& text);
  void Entered(const QString& text);
  /// The box shows something else than it was told: the user has typed or chosen.
  void Touched();
  /// By keys or an assistive program; a choice in a box that can be typed into counts first as
  /// that.
  void Typed(const QString& text);
  /// The keyboard has gone elsewhere, whatever was typed.
  void Left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void initStyleOption(QStyleOptionComboBox* option) const override;

 private:
  void ShowText(const QString& text);

  std::span<const std::string_view> values_;
  std::span<const std::string_view> items_;
  QString outside_;  // what is shown, where it is not in the list
};

}  // namespace vesmora
