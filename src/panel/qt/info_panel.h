// Ppalkki, the property panel's widgets. They show PanelContents and hand every
// click on as a call of the control's handler; they decide nothing.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <functional>
#include <optional>

#include "panel/panel_contents.h"
#include "panel/panel_state.h"
#include "panel/qt/panel_combo.h"

class QBoxLayout;

namespace vesmora {

class InfoPanel final : public QFrame {
  Q_OBJECT

 public:
  using Handler = PanelHandler;
  using TextHandler = void (*)(const PanelContext& context, const std::string& text);

  explicit InfoPanel(QWidget* parent);

  /// Touches only what differs from what is shown.
  void Apply(const PanelContents& contents);

 Q_SIGNALS:
  void Triggered(const vesmora::InfoPanel::Handler& handler);
  /// A text is being typed: like Triggered, but the keyboard stays where it is.
  void Typed(const vesmora::InfoPanel::Handler& handler);
  void AuthorClicked();
  /// A list has been closed, with or without a choice.
  void ListClosed();

 private:
  void BuildMapInfo(QBoxLayout& column);
  void BuildShowBoxes(QBoxLayout& row);
  void BuildSummary(QBoxLayout& row);
  void BuildVertexFrame(QBoxLayout& column);
  void BuildPolygonFrame(QBoxLayout& column);
  void BuildSpawnFrame(QBoxLayout& column);
  void BuildSceneryFrame(QBoxLayout& column);
  void BuildColliderFrame(QBoxLayout& column);
  void BuildWaypointFrame(QBoxLayout& column);

  QPushButton* AddButton(QBoxLayout& row, const char* caption, const char* name, Handler handler);
  QCheckBox* MakeBox(const QString& caption, const QString& name,
                     std::function<void(const PanelContext&, bool)> handler);
  QRadioButton* MakeOption(const QString& caption, const QString& name, Handler handler);
  void ConnectTyping(PanelCombo* combo, TextHandler handler);
  PanelCombo* AddCombo(QBoxLayout& column, const QString& caption, PanelCombo* combo);

  void ApplyTexts(const PanelContents& contents);
  void ApplyButtons(const PanelContents& contents);
  void ApplyBoxes(const PanelContents& contents);
  void ApplyCombos(const PanelContents& contents);
  void ApplyHighlight(ToolMode tool);

  std::optional<PanelContents> shown_;

  QLabel* mapInfo_ = nullptr;
  QLabel* author_ = nullptr;
  QLabel* fillLevels_ = nullptr;
  QPushButton* upper_ = nullptr;
  QPushButton* lower_ = nullptr;
  std::array<QCheckBox*, 7> show_{};
  QGroupBox* selectedFrame_ = nullptr;
  QLabel* selected_ = nullptr;
  QPushButton* vertexColor_ = nullptr;
  QPushButton* connect_ = nullptr;
  QPushButton* disconnect_ = nullptr;
  QCheckBox* noTextureCorrection_ = nullptr;
  QPushButton* restoreTexture_ = nullptr;
  QPushButton* deleteTexture_ = nullptr;
  QCheckBox* passable_ = nullptr;
  PanelCombo* spawnType_ = nullptr;
  PanelCombo* sceneryType_ = nullptr;
  PanelCombo* visibility_ = nullptr;
  PanelCombo* colliderSize_ = nullptr;
  std::array<QRadioButton*, 3> pathFilter_{};
  std::array<QRadioButton*, 2> path_{};
  std::array<QCheckBox*, 5> botSettings_{};
  std::array<QGroupBox*, 6> toolFrames_{};  // by ToolMode; none for Edit
};

}  // namespace vesmora
