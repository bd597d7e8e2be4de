// Ppalkki, the property panel's widgets. They show PanelContents and hand every
// click on as a call of the control's handler; they decide nothing.
#pragma once

#include <QFrame>
#include <QPushButton>
#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "panel/panel_contents.h"
#include "panel/panel_editing.h"
#include "panel/qt/caption_frame.h"
#include "panel/qt/color_button.h"
#include "panel/qt/panel_combo.h"
#include "view/qt/elided_label.h"
#include "view/qt/option_button.h"
#include "view/qt/panel_scroll.h"
#include "view/qt/tick_box.h"

class QBoxLayout;
class QGridLayout;

namespace vesmora {

class InfoPanel final : public QFrame {
  Q_OBJECT

 public:
  using Handler = PanelHandler;

  explicit InfoPanel(QWidget* parent);

  /// Touches only what differs from what is shown.
  void Apply(const PanelContents& contents);

  /// Pixels in which all controls are seen at that height, with a scroll bar if it is too little.
  int WidthFor(int height) const;

 Q_SIGNALS:
  void Triggered(const vesmora::InfoPanel::Handler& handler);
  /// A text is being typed: like Triggered, but the keyboard stays where it is.
  void Typed(const vesmora::InfoPanel::Handler& handler);
  void AuthorClicked();
  /// A list has been closed, with or without a choice.
  void ListClosed();

 protected:
  bool event(QEvent* event) override;

 private:
  /// Which part of the contents a control shows.
  template <typename Part>
  using PartOf = std::function<const Part&(const PanelContents&)>;
  struct ComboHandlers {
    using TextHandler = void (*)(PanelEditing& editing, const std::string& text);

    TextHandler click = nullptr;
    void (*dropDown)(PanelEditing& editing) = nullptr;
    // Of boxes that can be typed into.
    TextHandler enter = nullptr;
    TextHandler change = nullptr;
  };

  void BuildMapInfo(QBoxLayout& column);
  void BuildShowBoxes(QBoxLayout& row);
  void BuildSummary(QBoxLayout& row);
  void BuildVertexFrame(QBoxLayout& column);
  void BuildPolygonFrame(QBoxLayout& column);
  void BuildSpawnFrame(QBoxLayout& column);
  void BuildSceneryFrame(QBoxLayout& column);
  void BuildColliderFrame(QBoxLayout& column);
  void BuildWaypointFrame(QBoxLayout& column);
  void BuildShownPaths(QGridLayout& captioned);
  void BuildPaths(QGridLayout& captioned);
  void BuildBotBoxes(QBoxLayout& column);

  /// From now on `apply` is called with `widget` and its part of what is to be shown.
  template <typename Widget, typename Part, typename Show>
  void Bind(Widget* widget, PartOf<Part> part, Show apply) {
    controls_.push_back([widget, part = std::move(part), apply](const PanelContents& contents) {
      apply(widget, part(contents));
    });
  }
  ElidedLabel* MakeLabel(const char* name, const QString& widest, PartOf<std::string> part);
  QPushButton* AddButton(QBoxLayout& row, const char* caption, const char* name, Handler handler,
                         PartOf<ButtonContents> part);
  void AddColorButton(QBoxLayout& row, const char* caption, const char* name, const char* purpose,
                      Handler handler, PartOf<ButtonContents> part);
  TickBox* MakeBox(const QString& caption, const QString& name,
                   std::function<void(PanelEditing&, bool)> handler, PartOf<CheckContents> part);
  OptionButton* AddOption(QBoxLayout& row, const QString& caption, const QString& name,
                          Handler handler, PartOf<OptionContents> part);
  PanelCombo* AddCombo(QGridLayout& captioned, const QString& caption, const QString& name,
                       const ComboHandlers& handlers, PartOf<ComboContents> part,
                       std::span<const std::string_view> values);
  QBoxLayout* AddToolFrame(QBoxLayout& column, const char* caption, const char* name,
                           ToolMode tool);
  void PlaceAuthor();

  PanelScroll* scroll_ = nullptr;
  ElidedLabel* mapNames_ = nullptr;
  QBoxLayout* besideMapNames_ = nullptr;

  std::optional<PanelContents> shown_;

  std::vector<std::function<void(const PanelContents&)>> controls_;
  std::array<CaptionFrame*, 6> toolFrames_{};  // by ToolMode; none for Edit
};

}  // namespace vesmora
