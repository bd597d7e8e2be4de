#include "panel/qt/info_panel.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "panel/panel_handlers.h"
#include "panel/qt/arrow_icon.h"
#include "panel/qt/panel_combo.h"
#include "panel/qt/show_controls.h"
#include "platform/qt/qt_text.h"
#include "view/qt/option_button.h"

namespace vesmora {
namespace {

constexpr int kFrameMargin = 4;  // pixels
constexpr int kSpacing = 2;

QGroupBox* AddFrame(QBoxLayout& layout, const char* caption, const char* name) {
  auto* frame = new QGroupBox(caption);
  frame->setObjectName(name);
  layout.addWidget(frame);
  return frame;
}

template <typename Layout>
Layout* LayoutIn(QWidget* frame) {
  auto* layout = new Layout(frame);
  layout->setContentsMargins(kFrameMargin, kSpacing, kFrameMargin, kFrameMargin);
  layout->setSpacing(kSpacing);
  return layout;
}

QHBoxLayout* AddRow(QBoxLayout& column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kSpacing);
  column.addLayout(row);
  return row;
}

}  // namespace

InfoPanel::InfoPanel(QWidget* parent) : QFrame(parent) {
  setObjectName("Ppalkki");
  setAccessibleName("Properties");
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setAutoFillBackground(true);

  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 2);
  whole->addWidget(scroll);

  auto* content = new QWidget;
  scroll->setWidget(content);
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
  column->addStretch();
}

template <typename Widget, typename Part, typename Show>
void InfoPanel::Bind(Widget* widget, PartOf<Part> part, Show apply) {
  controls_.push_back([widget, part = std::move(part), apply](const PanelContents& contents) {
    apply(widget, part(contents));
  });
}

QLabel* InfoPanel::MakeLabel(const char* name, PartOf<std::string> part) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  Bind<QLabel, std::string>(label, std::move(part), [](QLabel* shown, const std::string& text) {
    shown->setText(ToQt(text));
  });
  return label;
}

void InfoPanel::AddButton(QBoxLayout& row, const char* caption, const char* name, Handler handler,
                          PartOf<ButtonContents> part) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setMinimumWidth(1);  // the row shares its width
  connect(button, &QPushButton::clicked, this,
          [this, handler = std::move(handler)] { Q_EMIT Triggered(handler); });
  row.addWidget(button);
  Bind<QPushButton, ButtonContents>(button, std::move(part), ShowButton);
}

QCheckBox* InfoPanel::MakeBox(const QString& caption, const QString& name,
                              std::function<void(PanelEditing&, bool)> handler,
                              PartOf<CheckContents> part) {
  auto* box = new QCheckBox(caption);
  box->setObjectName(name);
  // A grey box that is clicked becomes ticked; nobody clicks a box grey.
  connect(box, &QCheckBox::clicked, this, [this, box, handler = std::move(handler)] {
    const bool isTicked = box->checkState() != Qt::Unchecked;
    box->setTristate(false);
    shown_.reset();  // the click has changed what is shown
    Q_EMIT Triggered([handler, isTicked](PanelEditing& editing) { handler(editing, isTicked); });
  });
  Bind<QCheckBox, CheckContents>(box, std::move(part), ShowBox);
  return box;
}

void InfoPanel::AddOption(QBoxLayout& row, const QString& caption, const QString& name,
                          Handler handler, PartOf<OptionContents> part) {
  QRadioButton* option = MakeOptionButton(caption, name);
  connect(option, &QRadioButton::clicked, this, [this, handler = std::move(handler)] {
    shown_.reset();
    Q_EMIT Triggered(handler);
  });
  row.addWidget(option);
  Bind<QRadioButton, OptionContents>(option, std::move(part), ShowOption);
}

void InfoPanel::AddCombo(QBoxLayout& column, const QString& caption, const QString& name,
                         const ComboHandlers& handlers, PartOf<ComboContents> part,
                         std::span<const std::string_view> values) {
  auto* combo = new PanelCombo(
      name, handlers.enter != nullptr ? PanelCombo::Kind::kEditable : PanelCombo::Kind::kList);
  auto* row = AddRow(column);
  auto* label = new QLabel(caption);
  label->setBuddy(combo);
  row->addWidget(label);
  row->addWidget(combo, 1);
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
  if (handlers.dropDown != nullptr) {
    connect(combo, &PanelCombo::AboutToOpen, this,
            [this, open = handlers.dropDown] { Q_EMIT Triggered(open); });
  }
  Bind<PanelCombo, ComboContents>(combo, std::move(part),
                                  [values](PanelCombo* shown, const ComboContents& contents) {
                                    shown->Show(contents, values);
                                  });
}

void InfoPanel::BuildMapInfo(QBoxLayout& column) {
  auto* row = AddRow(column);
  auto* names = new QWidget;
  auto* grid = new QGridLayout(names);
  grid->setContentsMargins(0, 0, 0, 0);
  QLabel* mapInfo = MakeLabel("Lkartta1", &PanelContents::Lkartta1);
  // The longest name must not widen the panel.
  names->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  grid->addWidget(mapInfo, 0, 0);
  // Beside the second of three lines, behind its heading.
  auto* beside = new QVBoxLayout;
  beside->setContentsMargins(mapInfo->fontMetrics().horizontalAdvance("Author: "),
                             mapInfo->fontMetrics().lineSpacing(), 0, 0);
  beside->addWidget(MakeLabel("lAuthor", &PanelContents::lAuthor));
  grid->addLayout(beside, 0, 0);
  row->addWidget(names, 1);
  row->addWidget(MakeLabel("Lkartta2", &PanelContents::Lkartta2));

  auto* buttons = AddRow(column);
  auto* author = new QPushButton("Author...");
  author->setObjectName("CBauthor");
  author->setMinimumWidth(1);
  connect(author, &QPushButton::clicked, this, &InfoPanel::AuthorClicked);
  buttons->addWidget(author);
  AddButton(*buttons, "Upper", "CBtausta1", CBtausta1_Click, &PanelContents::CBtausta1);
  AddButton(*buttons, "Lower", "CBtausta2", CBtausta2_Click, &PanelContents::CBtausta2);
}

void InfoPanel::BuildShowBoxes(QBoxLayout& row) {
  constexpr std::array<const char*, 7> kCaptions = {
      "All", "Polygons", "Spawns", "Scenerys", "Colliders", "Bot waypoints", "Advanced"};
  auto* frame = AddFrame(row, "Show", "Fnayta");
  auto* grid = LayoutIn<QGridLayout>(frame);
  grid->setVerticalSpacing(0);
  constexpr int kRows = 4;
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    const int position = static_cast<int>(i);
    QCheckBox* box = MakeBox(
        kCaptions[i], QString("CBnayta%1").arg(i),
        [position](PanelEditing& editing, bool isTicked) {
          CBnayta_Click(editing, position, isTicked);
        },
        [i](const PanelContents& contents) -> auto& { return contents.CBnayta[i]; });
    grid->addWidget(box, position % kRows, position / kRows);
  }
}

void InfoPanel::BuildSummary(QBoxLayout& row) {
  QGroupBox* frame = AddFrame(row, "Selected", "Fvalinta");
  Bind<QGroupBox, std::string>(
      frame, &PanelContents::Fvalinta,
      [](QGroupBox* shown, const std::string& title) { shown->setTitle(ToQt(title)); });
  QLabel* selected = MakeLabel("Lvalinta", &PanelContents::Lvalinta);
  // The longest line must not widen the panel.
  selected->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  selected->setWordWrap(true);
  LayoutIn<QVBoxLayout>(frame)->addWidget(selected);
}

void InfoPanel::BuildVertexFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Vertice info", "Fvertice", ToolMode::kAddPolygon);
  auto* buttons = AddRow(*inside);
  AddButton(*buttons, "Color", "CBverticevari", CBverticevari_Click, &PanelContents::CBverticevari);
  AddButton(*buttons, "Connect", "CByhista", CByhista_Click, &PanelContents::CByhista);
  AddButton(*buttons, "Disconnect", "CBerota", CBerota_Click, &PanelContents::CBerota);
  inside->addWidget(MakeBox("No texture correction when edit", "CBtexEiKorjaus",
                            CBtexEiKorjaus_Click, &PanelContents::CBtexEiKorjaus));
}

void InfoPanel::BuildPolygonFrame(QBoxLayout& column) {
  auto* inside = LayoutIn<QVBoxLayout>(AddFrame(column, "Polygon info", "Fpoly"));
  auto* buttons = AddRow(*inside);
  AddButton(*buttons, "Restore texture", "CBtexPalauta", CBtexPalauta_Click,
            &PanelContents::CBtexPalauta);
  AddButton(*buttons, "Delete texture", "CBtexPoista", CBtexPoista_Click,
            &PanelContents::CBtexPoista);
  buttons->addWidget(
      MakeBox("Passable", "CBverticeLapi", CBverticeLapi_Click, &PanelContents::CBverticeLapi));
}

QBoxLayout* InfoPanel::AddToolFrame(QBoxLayout& column, const char* caption, const char* name,
                                    ToolMode tool) {
  auto* frame = AddFrame(column, caption, name);
  toolFrames_[static_cast<std::size_t>(tool)] = frame;
  return LayoutIn<QVBoxLayout>(frame);
}

void InfoPanel::BuildSpawnFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Spawn info", "Fspawn", ToolMode::kAddSpawn);
  AddCombo(*inside, "Type", "CBspawn", {.click = CBspawn_Click, .dropDown = CBspawn_DropDown},
           &PanelContents::CBspawn, kSpawnTypes);
}

void InfoPanel::BuildSceneryFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Scenery info", "Fscenery", ToolMode::kAddScenery);
  AddCombo(*inside, "Type", "CBscenery", {.click = CBscenery_Click, .dropDown = CBscenery_DropDown},
           &PanelContents::CBscenery, kSceneryNames);
  AddCombo(*inside, "Visibility", "CBscenery2",
           {.click = CBscenery2_Click,
            .dropDown = CBscenery2_DropDown,
            .enter = CBscenery2_Enter,
            .change = CBscenery2_Change},
           &PanelContents::CBscenery2, kVisibilities);
}

void InfoPanel::BuildColliderFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Collider info", "Fcollider", ToolMode::kAddCollider);
  AddCombo(*inside, "Size", "CBcollider",
           {.click = CBcollider_Click, .enter = CBcollider_Enter, .change = CBcollider_Change},
           &PanelContents::CBcollider, kColliderSizes);
}

void InfoPanel::BuildWaypointFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Bot Waypoints info", "Fbot", ToolMode::kAddWaypoint);
  auto* filterRow = AddRow(*inside);
  filterRow->addWidget(new QLabel("Show"));
  constexpr std::array<const char*, 3> kFilters = {"Both", "Path 1", "Path 2"};
  for (std::size_t i = 0; i < kFilters.size(); ++i) {
    AddOption(
        *filterRow, kFilters[i], QString("OBbotNayta%1").arg(i),
        [i](PanelEditing& editing) { OBbotNayta_Click(editing, static_cast<int>(i)); },
        [i](const PanelContents& contents) -> auto& { return contents.OBbotNayta[i]; });
  }
  filterRow->addStretch();

  auto* pathRow = AddRow(*inside);
  for (std::size_t i = 0; i < 2; ++i) {
    const int path = static_cast<int>(i) + 1;
    AddOption(
        *pathRow, QString("Path %1").arg(path), QString("OBbotKumpi%1").arg(path),
        [path](PanelEditing& editing) { OBbotKumpi_Click(editing, path); },
        [i](const PanelContents& contents) -> auto& { return contents.OBbotKumpi[i]; });
  }
  pathRow->addStretch();

  constexpr std::array<const char*, 4> kDirections = {"Left", "Right", "Up", "Down"};
  auto* boxRow = AddRow(*inside);
  for (std::size_t i = 0; i <= kDirections.size(); ++i) {
    const bool isPicture = i < kDirections.size();
    QCheckBox* box = MakeBox(
        isPicture ? "" : "Fly", QString("CBbotValinta%1").arg(i),
        [i](PanelEditing& editing, bool isTicked) {
          CBbotValinta_Click(editing, static_cast<int>(i), isTicked);
        },
        [i](const PanelContents& contents) -> auto& { return contents.CBbotValinta[i]; });
    if (isPicture) {
      box->setIcon(ArrowIcon(static_cast<Direction>(i)));
      box->setAccessibleName(kDirections[i]);
      box->setToolTip(kDirections[i]);
    }
    boxRow->addWidget(box);
  }
}

void InfoPanel::Apply(const PanelContents& contents) {
  if (shown_ == contents) return;
  // First: a frame's style sheet puts back the palettes that its buttons had.
  if (!shown_ || shown_->highlightedTool != contents.highlightedTool) {
    ApplyHighlight(contents.highlightedTool);
  }
  for (const auto& apply : controls_) apply(contents);
  shown_ = contents;
}

void InfoPanel::ApplyHighlight(ToolMode tool) {
  for (std::size_t i = 0; i < toolFrames_.size(); ++i) {
    QGroupBox* frame = toolFrames_[i];
    if (frame == nullptr) continue;
    const bool isActive = i == static_cast<std::size_t>(tool);
    const QString style = isActive ? "QGroupBox { color: rgb(255, 0, 0); }" : "";
    if (frame->styleSheet() != style) frame->setStyleSheet(style);
  }
}

}  // namespace vesmora
