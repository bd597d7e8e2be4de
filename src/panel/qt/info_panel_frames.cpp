// The property panel's frames, from top to bottom.
#include <QGridLayout>

#include "panel/panel_handlers.h"
#include "panel/qt/arrow_icon.h"
#include "panel/qt/info_panel.h"
#include "panel/qt/panel_rows.h"
#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

constexpr const char* kAuthorHeading = "Author: ";
constexpr const char* kAdvancedTip =
    "What a player's screen shows, the corners of the texture and the edge of the playable area";

CaptionFrame* AddFrame(QBoxLayout& layout, const char* caption, const char* name) {
  auto* frame = new CaptionFrame(caption, name);
  layout.addWidget(frame);
  return frame;
}

QHBoxLayout* AddCaptionedRow(QGridLayout& captioned, const char* caption) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kSpacing);
  const int position = captioned.rowCount();
  captioned.addWidget(new QLabel(caption), position, 0);
  captioned.addLayout(row, position, 1);
  return row;
}

}  // namespace

void InfoPanel::BuildMapInfo(QBoxLayout& column) {
  auto* row = AddRow(column);
  auto* names = new QWidget;
  names->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* grid = new QGridLayout(names);
  grid->setContentsMargins(0, 0, 0, 0);
  mapNames_ = MakeLabel("Lkartta1", "Texture: 12345.bmp\n\n", &PanelContents::Lkartta1);
  grid->addWidget(mapNames_, 0, 0);
  // Beside the second of three lines, behind its heading.
  besideMapNames_ = new QVBoxLayout;
  auto* author = MakeLabel("lAuthor", {}, &PanelContents::lAuthor);
  author->setAccessibleDescription("Author");
  besideMapNames_->addWidget(author);
  besideMapNames_->addStretch();
  grid->addLayout(besideMapNames_, 0, 0);
  row->addWidget(names, 1, Qt::AlignTop);
  row->addWidget(MakeLabel(
      "Lkartta2",
      "400/400 Polygons\n30/30 Spawns\n255/255 Sceneries\n128/128 Colliders\n500/500 Waypoints",
      &PanelContents::Lkartta2));

  auto* buttons = AddRow(column);
  auto* change = new QPushButton("Author...");
  change->setObjectName("CBauthor");
  change->setToolTip("Set the author's name and write it on the map");
  connect(change, &QPushButton::clicked, this, &InfoPanel::AuthorClicked);
  buttons->addWidget(change);
  AddColorButton(*buttons, "Upper", "CBtausta1", "Choose the background's colour at the top",
                 CBtausta1_Click, &PanelContents::CBtausta1);
  AddColorButton(*buttons, "Lower", "CBtausta2", "Choose the background's colour at the bottom",
                 CBtausta2_Click, &PanelContents::CBtausta2);
}

void InfoPanel::PlaceAuthor() {
  const QFontMetrics metrics = mapNames_->fontMetrics();
  besideMapNames_->setContentsMargins(metrics.horizontalAdvance(kAuthorHeading),
                                      metrics.lineSpacing(), 0, 0);
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
    TickBox* box = MakeBox(
        kCaptions[i], QString("CBnayta%1").arg(i),
        [position](PanelEditing& editing, bool isTicked) {
          CBnayta_Click(editing, position, isTicked);
        },
        [i](const PanelContents& contents) -> auto& { return contents.CBnayta[i]; });
    if (i + 1 == kCaptions.size()) box->setToolTip(kAdvancedTip);
    grid->addWidget(box, position % kRows, position / kRows);
  }
}

void InfoPanel::BuildSummary(QBoxLayout& row) {
  CaptionFrame* frame = AddFrame(row, "Selected", "Fvalinta");
  Bind<CaptionFrame, std::string>(
      frame, &PanelContents::Fvalinta,
      [](CaptionFrame* shown, const std::string& title) { shown->setTitle(ToQt(title)); });
  auto* inside = LayoutIn<QVBoxLayout>(frame);
  inside->addWidget(MakeLabel("Lvalinta",
                              "1200 Vertices\n30 Spawns\n500 Waypoints255 Sceneries\n128 Colliders",
                              &PanelContents::Lvalinta));
  inside->addStretch();
}

void InfoPanel::BuildVertexFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Vertice info", "Fvertice", ToolMode::kAddPolygon);
  auto* buttons = AddRow(*inside);
  AddColorButton(*buttons, "Color", "CBverticevari",
                 "Choose the colour of the selected corners, or of those added next",
                 CBverticevari_Click, &PanelContents::CBverticevari);
  AddButton(*buttons, "Connect", "CByhista", CByhista_Click, &PanelContents::CByhista)
      ->setToolTip("Bring the selected corners together on one point");
  AddButton(*buttons, "Disconnect", "CBerota", CBerota_Click, &PanelContents::CBerota)
      ->setToolTip("Pull the selected corners a few pixels apart");
  TickBox* box = MakeBox("No texture correction when edit", "CBtexEiKorjaus", CBtexEiKorjaus_Click,
                         &PanelContents::CBtexEiKorjaus);
  box->setToolTip("Corners that are moved take the texture along");
  inside->addWidget(box);
}

void InfoPanel::BuildPolygonFrame(QBoxLayout& column) {
  auto* inside = LayoutIn<QVBoxLayout>(AddFrame(column, "Polygon info", "Fpoly"));
  auto* buttons = AddRow(*inside);
  AddButton(*buttons, "Restore texture", "CBtexPalauta", CBtexPalauta_Click,
            &PanelContents::CBtexPalauta)
      ->setToolTip("Lay the texture anew over the polygons of the selected corners");
  AddButton(*buttons, "Delete texture", "CBtexPoista", CBtexPoista_Click,
            &PanelContents::CBtexPoista)
      ->setToolTip("Take the texture off the polygons of the selected corners");
  TickBox* box =
      MakeBox("Passable", "CBverticeLapi", CBverticeLapi_Click, &PanelContents::CBverticeLapi);
  buttons->addSpacing(2 * kSpacing);
  box->setToolTip("Players can go through the polygons of the selected corners");
  buttons->addWidget(box);
}

void InfoPanel::BuildSpawnFrame(QBoxLayout& column) {
  auto* inside = AddCaptioned(*AddToolFrame(column, "Spawn info", "Fspawn", ToolMode::kAddSpawn));
  AddCombo(*inside, "Type", "CBspawn", {.click = CBspawn_Click, .dropDown = CBspawn_DropDown},
           &PanelContents::CBspawn, kSpawnTypes);
}

void InfoPanel::BuildSceneryFrame(QBoxLayout& column) {
  auto* inside =
      AddCaptioned(*AddToolFrame(column, "Scenery info", "Fscenery", ToolMode::kAddScenery));
  AddCombo(*inside, "Type", "CBscenery", {.click = CBscenery_Click, .dropDown = CBscenery_DropDown},
           &PanelContents::CBscenery, kSceneryNames);
  AddCombo(*inside, "Visibility", "CBscenery2",
           {.click = CBscenery2_Click,
            .dropDown = CBscenery2_DropDown,
            .enter = CBscenery2_Enter,
            .change = CBscenery2_Change},
           &PanelContents::CBscenery2, kVisibilities)
      ->setToolTip("How opaque the sceneries are; Enter applies a number that is typed");
}

void InfoPanel::BuildColliderFrame(QBoxLayout& column) {
  auto* inside =
      AddCaptioned(*AddToolFrame(column, "Collider info", "Fcollider", ToolMode::kAddCollider));
  AddCombo(*inside, "Size", "CBcollider",
           {.click = CBcollider_Click, .enter = CBcollider_Enter, .change = CBcollider_Change},
           &PanelContents::CBcollider, kColliderSizes)
      ->setToolTip("Diameter of the colliders; Enter applies a number that is typed");
}

void InfoPanel::BuildWaypointFrame(QBoxLayout& column) {
  auto* inside = AddToolFrame(column, "Bot Waypoints info", "Fbot", ToolMode::kAddWaypoint);
  auto* paths = AddCaptioned(*inside);
  BuildShownPaths(*paths);
  BuildPaths(*paths);
  BuildBotBoxes(*inside);
}

void InfoPanel::BuildShownPaths(QGridLayout& captioned) {
  QHBoxLayout* row = AddCaptionedRow(captioned, "Show");
  constexpr std::array<const char*, 3> kFilters = {"Both", "Path 1", "Path 2"};
  for (std::size_t i = 0; i < kFilters.size(); ++i) {
    OptionButton* option = AddOption(
        *row, kFilters[i], QString("OBbotNayta%1").arg(i),
        [i](PanelEditing& editing) { OBbotNayta_Click(editing, static_cast<int>(i)); },
        [i](const PanelContents& contents) -> auto& { return contents.OBbotNayta[i]; });
    // The options of BuildPaths have the same captions.
    if (i > 0) option->setAccessibleName(QString("Show %1").arg(kFilters[i]));
    option->setToolTip(i == 0 ? "Show and select the waypoints of every path"
                              : "Show and select the waypoints of this path only");
  }
  row->addStretch();
}

void InfoPanel::BuildPaths(QGridLayout& captioned) {
  QHBoxLayout* row = AddCaptionedRow(captioned, "Path");
  for (std::size_t i = 0; i < 2; ++i) {
    const int path = static_cast<int>(i) + 1;
    AddOption(
        *row, QString("Path %1").arg(path), QString("OBbotKumpi%1").arg(path),
        [path](PanelEditing& editing) { OBbotKumpi_Click(editing, path); },
        [i](const PanelContents& contents) -> auto& { return contents.OBbotKumpi[i]; })
        ->setToolTip("Path that the selected waypoints belong to, or the next one");
  }
  row->addStretch();
}

void InfoPanel::BuildBotBoxes(QBoxLayout& column) {
  struct Setting {
    const char* name;
    const char* tip;
  };
  constexpr std::array<Setting, 5> kSettings = {{{"Left", "Bots go left from here"},
                                                 {"Right", "Bots go right from here"},
                                                 {"Up", "Bots go up from here"},
                                                 {"Down", "Bots go down from here"},
                                                 {"Fly", "Bots fly from here"}}};
  auto* row = AddRow(column);
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    const bool isPicture = i + 1 < kSettings.size();
    TickBox* box = MakeBox(
        isPicture ? "" : kSettings[i].name, QString("CBbotValinta%1").arg(i),
        [i](PanelEditing& editing, bool isTicked) {
          CBbotValinta_Click(editing, static_cast<int>(i), isTicked);
        },
        [i](const PanelContents& contents) -> auto& { return contents.CBbotValinta[i]; });
    if (isPicture) box->setIcon(ArrowIcon(static_cast<Direction>(i)));
    box->setAccessibleName(kSettings[i].name);
    box->setToolTip(kSettings[i].tip);
    row->addWidget(box);
  }
}

}  // namespace vesmora
