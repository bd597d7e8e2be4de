#include "panel/qt/info_panel.h"

#include <QEvent>
#include <QVBoxLayout>

#include "panel/panel_handlers.h"
#include "panel/qt/panel_rows.h"
#include "panel/qt/show_controls.h"
#include "platform/qt/qt_text.h"

namespace vesmora {

InfoPanel::InfoPanel(QWidget* parent) : QFrame(parent) {
  setObjectName("Ppalkki");
  setAccessibleName("Properties");
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setAutoFillBackground(true);

  auto* content = new QWidget;
  scroll_ = new PanelScroll(Qt::Vertical, content);  // while there is nothing to measure yet
  auto* column = LayoutIn<QVBoxLayout>(content);
  BuildMapInfo(*column);
  auto* row = AddRow(*column);
  BuildShowBoxes(*row);
  BuildSummary(*row);
  BuildVertexFrame(*column);
  BuildPolygonFrame(*column);
  BuildSceneryFrame(*column);
  row = AddRow(*column);
  BuildSpawnFrame(*row);
  BuildColliderFrame(*row);
  BuildWaypointFrame(*column);
  column->addStretch(1);

  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 2);
  whole->addWidget(scroll_);
}

int InfoPanel::WidthFor(int height) const {
  const int lost = 2 * frameWidth();
  return scroll_->BreadthFor(height - lost) + lost;
}

bool InfoPanel::event(QEvent* event) {
  // Not earlier than polished: until then nothing here needs fonts, which take long to be found.
  if (event->type() == QEvent::Polish || event->type() == QEvent::FontChange) PlaceAuthor();
  return QFrame::event(event);
}

ElidedLabel* InfoPanel::MakeLabel(const char* name, const QString& widest,
                                  PartOf<std::string> part) {
  auto* label = new ElidedLabel(name, widest);
  Bind<ElidedLabel, std::string>(
      label, std::move(part),
      [](ElidedLabel* shown, const std::string& text) { shown->setText(ToQt(text)); });
  return label;
}

QPushButton* InfoPanel::AddButton(QBoxLayout& row, const char* caption, const char* name,
                                  Handler handler, PartOf<ButtonContents> part) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this,
          [this, handler = std::move(handler)] { Q_EMIT Triggered(handler); });
  row.addWidget(button);
  Bind<QPushButton, ButtonContents>(button, std::move(part), ShowButton);
  return button;
}

void InfoPanel::AddColorButton(QBoxLayout& row, const char* caption, const char* name,
                               const char* purpose, Handler handler, PartOf<ButtonContents> part) {
  auto* button = new ColorButton(caption, name, purpose);
  connect(button, &QPushButton::clicked, this,
          [this, handler = std::move(handler)] { Q_EMIT Triggered(handler); });
  row.addWidget(button);
  Bind<ColorButton, ButtonContents>(button, std::move(part), ShowColorButton);
}

TickBox* InfoPanel::MakeBox(const QString& caption, const QString& name,
                            std::function<void(PanelEditing&, bool)> handler,
                            PartOf<CheckContents> part) {
  auto* box = new TickBox(caption, name);
  connect(box, &TickBox::Ticked, this, [this, handler = std::move(handler)](bool isTicked) {
    shown_.reset();  // the click has changed what is shown
    Q_EMIT Triggered([handler, isTicked](PanelEditing& editing) { handler(editing, isTicked); });
  });
  Bind<TickBox, CheckContents>(box, std::move(part), ShowBox);
  return box;
}

OptionButton* InfoPanel::AddOption(QBoxLayout& row, const QString& caption, const QString& name,
                                   Handler handler, PartOf<OptionContents> part) {
  auto* option = new OptionButton(caption, name);
  connect(option, &OptionButton::Chosen, this, [this, handler = std::move(handler)] {
    shown_.reset();
    Q_EMIT Triggered(handler);
  });
  row.addWidget(option);
  Bind<OptionButton, OptionContents>(option, std::move(part), ShowOption);
  return option;
}

PanelCombo* InfoPanel::AddCombo(QGridLayout& captioned, const QString& caption, const QString& name,
                                const ComboHandlers& handlers, PartOf<ComboContents> part,
                                std::span<const std::string_view> values) {
  auto* combo = new PanelCombo(
      name, handlers.enter != nullptr ? PanelCombo::Kind::kEditable : PanelCombo::Kind::kList,
      values);
  auto* label = new QLabel(caption);
  label->setBuddy(combo);
  const int row = captioned.rowCount();
  captioned.addWidget(label, row, 0);
  captioned.addWidget(combo, row, 1);
  connect(combo, &PanelCombo::Closed, this, &InfoPanel::ListClosed);
  connect(combo, &PanelCombo::Touched, this, [this] { shown_.reset(); });
  const auto handOn = [this, combo](auto signal, ComboHandlers::TextHandler handler, auto as) {
    if (handler == nullptr) return;
    connect(combo, signal, this, [this, handler, as](const QString& text) {
      (this->*as)(
          [handler, text = text.toStdString()](PanelEditing& editing) { handler(editing, text); });
    });
  };
  handOn(&PanelCombo::Chosen, handlers.click, &InfoPanel::Triggered);
  handOn(&PanelCombo::Entered, handlers.enter, &InfoPanel::Triggered);
  handOn(&PanelCombo::Typed, handlers.change, &InfoPanel::Typed);
  connect(combo, &PanelCombo::Left, this, [this] { Q_EMIT Typed(ForgetTyping); });
  if (handlers.dropDown != nullptr) {
    connect(combo, &PanelCombo::AboutToOpen, this,
            [this, open = handlers.dropDown] { Q_EMIT Triggered(open); });
  }
  Bind<PanelCombo, ComboContents>(
      combo, std::move(part),
      [](PanelCombo* shown, const ComboContents& contents) { shown->Show(contents); });
  return combo;
}

QBoxLayout* InfoPanel::AddToolFrame(QBoxLayout& column, const char* caption, const char* name,
                                    ToolMode tool) {
  auto* frame = new CaptionFrame(caption, name);
  column.addWidget(frame);
  toolFrames_[static_cast<std::size_t>(tool)] = frame;
  return LayoutIn<QVBoxLayout>(frame);
}

void InfoPanel::Apply(const PanelContents& contents) {
  if (shown_ == contents) return;
  for (std::size_t i = 0; i < toolFrames_.size(); ++i) {
    const bool isActive = i == static_cast<std::size_t>(contents.highlightedTool);
    if (toolFrames_[i] != nullptr) toolFrames_[i]->Highlight(isActive);
  }
  for (const auto& apply : controls_) apply(contents);
  shown_ = contents;
}

}  // namespace vesmora
