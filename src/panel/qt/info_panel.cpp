#include "panel/qt/info_panel.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "panel/map_handlers.h"
#include "panel/object_handlers.h"
#include "panel/qt/arrow_icon.h"
#include "panel/vertex_handlers.h"
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

QLabel* MakeLabel(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
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

QPushButton* InfoPanel::AddButton(QBoxLayout& row, const char* caption, const char* name,
                                  Handler handler) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setMinimumWidth(1);  // the row shares its width
  connect(button, &QPushButton::clicked, this,
          [this, handler = std::move(handler)] { Q_EMIT Triggered(handler); });
  row.addWidget(button);
  return button;
}

QCheckBox* InfoPanel::MakeBox(const QString& caption, const QString& name,
                              std::function<void(const PanelContext&, bool)> handler) {
  auto* box = new QCheckBox(caption);
  box->setObjectName(name);
  // A grey box that is clicked becomes ticked; nobody clicks a box grey.
  connect(box, &QCheckBox::clicked, this, [this, box, handler = std::move(handler)] {
    const bool isTicked = box->checkState() != Qt::Unchecked;
    box->setTristate(false);
    shown_.reset();  // the click has changed what is shown
    Q_EMIT Triggered(
        [handler, isTicked](const PanelContext& context) { handler(context, isTicked); });
  });
  return box;
}

QRadioButton* InfoPanel::MakeOption(const QString& caption, const QString& name, Handler handler) {
  QRadioButton* option = MakeOptionButton(caption, name);
  connect(option, &QRadioButton::clicked, this, [this, handler = std::move(handler)] {
    shown_.reset();
    Q_EMIT Triggered(handler);
  });
  return option;
}

PanelCombo* InfoPanel::AddCombo(QBoxLayout& column, const QString& caption, PanelCombo* combo) {
  auto* row = AddRow(column);
  auto* label = new QLabel(caption);
  label->setBuddy(combo);
  row->addWidget(label);
  row->addWidget(combo, 1);
  connect(combo, &PanelCombo::Closed, this, &InfoPanel::ListClosed);
  connect(combo, &PanelCombo::Touched, this, [this] { shown_.reset(); });
  return combo;
}

void InfoPanel::BuildMapInfo(QBoxLayout& column) {
  auto* row = AddRow(column);
  auto* names = new QWidget;
  auto* grid = new QGridLayout(names);
  grid->setContentsMargins(0, 0, 0, 0);
  mapInfo_ = MakeLabel("Lkartta1");
  // The longest name must not widen the panel.
  names->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  author_ = MakeLabel("lAuthor");
  grid->addWidget(mapInfo_, 0, 0);
  // Beside the second of three lines, behind its heading.
  auto* beside = new QVBoxLayout;
  beside->setContentsMargins(mapInfo_->fontMetrics().horizontalAdvance("Author: "),
                             mapInfo_->fontMetrics().lineSpacing(), 0, 0);
  beside->addWidget(author_);
  grid->addLayout(beside, 0, 0);
  row->addWidget(names, 1);
  fillLevels_ = MakeLabel("Lkartta2");
  row->addWidget(fillLevels_);

  auto* buttons = AddRow(column);
  auto* author = new QPushButton("Author...");
  author->setObjectName("CBauthor");
  author->setMinimumWidth(1);
  connect(author, &QPushButton::clicked, this, &InfoPanel::AuthorClicked);
  buttons->addWidget(author);
  upper_ = AddButton(*buttons, "Upper", "CBtausta1", CBtausta1_Click);
  lower_ = AddButton(*buttons, "Lower", "CBtausta2", CBtausta2_Click);
}

void InfoPanel::BuildShowBoxes(QBoxLayout& row) {
  constexpr std::array<const char*, 7> kCaptions = {
      "All", "Polygons", "Spawns", "Scenerys", "Colliders", "Bot waypoints", "Advanced"};
  auto* frame = AddFrame(row, "Show", "Fnayta");
  auto* grid = LayoutIn<QGridLayout>(frame);
  grid->setVerticalSpacing(0);
  constexpr int kRows = 4;
  for (std::size_t i = 0; i < show_.size(); ++i) {
    const int position = static_cast<int>(i);
    show_[i] = MakeBox(kCaptions[i], QString("CBnayta%1").arg(i),
                       [position](const PanelContext& context, bool isTicked) {
                         CBnayta_Click(context, position, isTicked);
                       });
    grid->addWidget(show_[i], position % kRows, position / kRows);
  }
}

void InfoPanel::BuildSummary(QBoxLayout& row) {
  selectedFrame_ = AddFrame(row, "Selected", "Fvalinta");
  selected_ = MakeLabel("Lvalinta");
  // The longest line must not widen the panel.
  selected_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  selected_->setWordWrap(true);
  LayoutIn<QVBoxLayout>(selectedFrame_)->addWidget(selected_);
}

void InfoPanel::BuildVertexFrame(QBoxLayout& column) {
  auto* frame = AddFrame(column, "Vertice info", "Fvertice");
  toolFrames_[static_cast<std::size_t>(ToolMode::kAddPolygon)] = frame;
  auto* inside = LayoutIn<QVBoxLayout>(frame);
  auto* buttons = AddRow(*inside);
  vertexColor_ = AddButton(*buttons, "Color", "CBverticevari", CBverticevari_Click);
  connect_ = AddButton(*buttons, "Connect", "CByhista", CByhista_Click);
  disconnect_ = AddButton(*buttons, "Disconnect", "CBerota", CBerota_Click);
  noTextureCorrection_ =
      MakeBox("No texture correction when edit", "CBtexEiKorjaus", CBtexEiKorjaus_Click);
  inside->addWidget(noTextureCorrection_);
}

void InfoPanel::BuildPolygonFrame(QBoxLayout& column) {
  auto* inside = LayoutIn<QVBoxLayout>(AddFrame(column, "Polygon info", "Fpoly"));
  auto* buttons = AddRow(*inside);
  restoreTexture_ = AddButton(*buttons, "Restore texture", "CBtexPalauta", CBtexPalauta_Click);
  deleteTexture_ = AddButton(*buttons, "Delete texture", "CBtexPoista", CBtexPoista_Click);
  passable_ = MakeBox("Passable", "CBverticeLapi", CBverticeLapi_Click);
  buttons->addWidget(passable_);
}

void InfoPanel::BuildSpawnFrame(QBoxLayout& column) {
  auto* frame = AddFrame(column, "Spawn info", "Fspawn");
  toolFrames_[static_cast<std::size_t>(ToolMode::kAddSpawn)] = frame;
  spawnType_ = AddCombo(*LayoutIn<QVBoxLayout>(frame), "Type",
                        new PanelCombo("CBspawn", PanelCombo::Kind::kList));
  connect(spawnType_, &PanelCombo::AboutToOpen, this,
          [this] { Q_EMIT Triggered(CBspawn_DropDown); });
  connect(spawnType_, &PanelCombo::Chosen, this, [this](const QString& text) {
    Q_EMIT Triggered(
        [text](const PanelContext& context) { CBspawn_Click(context, text.toStdString()); });
  });
}

void InfoPanel::BuildSceneryFrame(QBoxLayout& column) {
  auto* frame = AddFrame(column, "Scenery info", "Fscenery");
  toolFrames_[static_cast<std::size_t>(ToolMode::kAddScenery)] = frame;
  auto* inside = LayoutIn<QVBoxLayout>(frame);
  sceneryType_ = AddCombo(*inside, "Type", new PanelCombo("CBscenery", PanelCombo::Kind::kList));
  connect(sceneryType_, &PanelCombo::AboutToOpen, this,
          [this] { Q_EMIT Triggered(CBscenery_DropDown); });
  connect(sceneryType_, &PanelCombo::Chosen, this, [this](const QString& text) {
    Q_EMIT Triggered(
        [text](const PanelContext& context) { CBscenery_Click(context, text.toStdString()); });
  });
  visibility_ =
      AddCombo(*inside, "Visibility", new PanelCombo("CBscenery2", PanelCombo::Kind::kEditable));
  connect(visibility_, &PanelCombo::AboutToOpen, this,
          [this] { Q_EMIT Triggered(CBscenery2_DropDown); });
  ConnectTyping(visibility_, CBscenery2_Change);
  connect(visibility_, &PanelCombo::Chosen, this, [this](const QString& text) {
    Q_EMIT Triggered(
        [text](const PanelContext& context) { CBscenery2_Click(context, text.toStdString()); });
  });
  connect(visibility_, &PanelCombo::Entered, this, [this](const QString& text) {
    Q_EMIT Triggered(
        [text](const PanelContext& context) { CBscenery2_Enter(context, text.toStdString()); });
  });
}

/// Hands typed texts on without giving the keyboard away.
void InfoPanel::ConnectTyping(PanelCombo* combo, TextHandler handler) {
  connect(combo, &PanelCombo::Typed, this, [this, handler](const QString& text) {
    Q_EMIT Typed(
        [handler, text](const PanelContext& context) { handler(context, text.toStdString()); });
  });
}

void InfoPanel::BuildColliderFrame(QBoxLayout& column) {
  auto* frame = AddFrame(column, "Collider info", "Fcollider");
  toolFrames_[static_cast<std::size_t>(ToolMode::kAddCollider)] = frame;
  colliderSize_ = AddCombo(*LayoutIn<QVBoxLayout>(frame), "Size",
                           new PanelCombo("CBcollider", PanelCombo::Kind::kEditable));
  ConnectTyping(colliderSize_, CBcollider_Change);
  connect(colliderSize_, &PanelCombo::Chosen, this, [this](const QString& text) {
    Q_EMIT Triggered(
        [text](const PanelContext& context) { CBcollider_Click(context, text.toStdString()); });
  });
  connect(colliderSize_, &PanelCombo::Entered, this, [this](const QString& text) {
    Q_EMIT Triggered(
        [text](const PanelContext& context) { CBcollider_Enter(context, text.toStdString()); });
  });
}

void InfoPanel::BuildWaypointFrame(QBoxLayout& column) {
  auto* frame = AddFrame(column, "Bot Waypoints info", "Fbot");
  toolFrames_[static_cast<std::size_t>(ToolMode::kAddWaypoint)] = frame;
  auto* inside = LayoutIn<QVBoxLayout>(frame);

  auto* filterRow = AddRow(*inside);
  auto* label = new QLabel("Show");
  filterRow->addWidget(label);
  constexpr std::array<const char*, 3> kFilters = {"Both", "Path 1", "Path 2"};
  for (std::size_t i = 0; i < kFilters.size(); ++i) {
    pathFilter_[i] = MakeOption(
        kFilters[i], QString("OBbotNayta%1").arg(i),
        [i](const PanelContext& context) { OBbotNayta_Click(context, static_cast<int>(i)); });
    filterRow->addWidget(pathFilter_[i]);
  }
  filterRow->addStretch();

  auto* pathRow = AddRow(*inside);
  for (std::size_t i = 0; i < path_.size(); ++i) {
    const int path = static_cast<int>(i) + 1;
    path_[i] = MakeOption(QString("Path %1").arg(path), QString("OBbotKumpi%1").arg(path),
                          [path](const PanelContext& context) { OBbotKumpi_Click(context, path); });
    pathRow->addWidget(path_[i]);
  }
  pathRow->addStretch();

  constexpr std::array<const char*, 4> kDirections = {"Left", "Right", "Up", "Down"};
  auto* boxRow = AddRow(*inside);
  for (std::size_t i = 0; i < botSettings_.size(); ++i) {
    const bool isPicture = i < kDirections.size();
    QCheckBox* box = MakeBox(isPicture ? "" : "Fly", QString("CBbotValinta%1").arg(i),
                             [i](const PanelContext& context, bool isTicked) {
                               CBbotValinta_Click(context, static_cast<int>(i), isTicked);
                             });
    if (isPicture) {
      box->setIcon(ArrowIcon(static_cast<Direction>(i)));
      box->setAccessibleName(kDirections[i]);
      box->setToolTip(kDirections[i]);
    }
    botSettings_[i] = box;
    boxRow->addWidget(box);
  }
}

}  // namespace vesmora
