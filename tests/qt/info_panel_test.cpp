// The widgets of the property panel, wired to the handlers as the window wires them.
#include "panel/qt/info_panel.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QSet>
#include <QTest>
#include <map>

#include "support/panel_bench.h"
#include "view/layout.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Counts what makes a widget work: paints, and changes of text, style and state.
class WorkCounter final : public QObject {
 public:
  explicit WorkCounter(QWidget* root) {
    for (QWidget* widget : root->findChildren<QWidget*>()) widget->installEventFilter(this);
  }
  QStringList Take() { return std::exchange(seen_, {}); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Paint:
      case QEvent::EnabledChange:
      case QEvent::StyleChange:
      case QEvent::Resize:
        // Frames are painted with what lies on them.
        if (!watched->inherits("QGroupBox")) seen_ << watched->objectName();
        break;
      default:
        break;
    }
    return false;
  }

 private:
  QStringList seen_;
};

class InfoPanelTest : public testing::Test, protected PanelBench {
 protected:
  InfoPanelTest() {
    QObject::connect(&widget, &InfoPanel::Triggered, &widget,
                     [this](const InfoPanel::Handler& handler) {
                       ++triggered;
                       handler(context);
                       widget.Apply(shown);
                     });
    onRefresh = [this] { widget.Apply(shown); };
    const PanelRect place = ComputeLayout(MinimumWindowSize().width, 700).ppalkki;
    widget.resize(place.width, 1000);
    window.resize(widget.size());
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    Refresh(ToolMode::kEdit, "");
  }

  void Refresh(ToolMode tool, const std::string& listed) {
    Show(tool, listed);
    widget.Apply(shown);
    QCoreApplication::processEvents();
  }
  template <typename Widget = QWidget>
  Widget* Find(const QString& name) {
    auto* found = widget.findChild<Widget*>(name);
    if (found == nullptr) ADD_FAILURE() << "no " << name.toStdString();
    return found;
  }
  void Click(const char* name) {
    auto* button = Find<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  }
  void Type(const char* name, const char* text, Qt::Key last) {
    auto* edit = Find<QComboBox>(name)->lineEdit();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, last);
  }
  std::vector<std::string> Items(const char* name) {
    std::vector<std::string> items;
    auto* combo = Find<QComboBox>(name);
    for (int i = 0; i < combo->count(); ++i) items.push_back(combo->itemText(i).toStdString());
    return items;
  }
  /// What a combo box shows, in the list or not.
  std::string Text(const char* name) {
    auto* combo = Find<QComboBox>(name);
    const bool isHeld = combo->isEditable() || combo->currentIndex() >= 0;
    return (isHeld ? combo->currentText() : combo->placeholderText()).toStdString();
  }

  QWidget window;
  InfoPanel& widget = *new InfoPanel(&window);
  int triggered = 0;
};

TEST_F(InfoPanelTest, EveryControlIsThereWithItsCaption) {
  using Row = std::array<const char*, 2>;  // its name, and what assistive programs find it by
  const std::map<const char*, std::vector<Row>> controls = {
      {"QPushButton",
       {Row{"CBauthor", "Author..."}, Row{"CBtausta1", "Upper"}, Row{"CBtausta2", "Lower"},
        Row{"CBverticevari", "Color"}, Row{"CByhista", "Connect"}, Row{"CBerota", "Disconnect"},
        Row{"CBtexPalauta", "Restore texture"}, Row{"CBtexPoista", "Delete texture"}}},
      {"QCheckBox",
       {Row{"CBnayta0", "All"}, Row{"CBnayta1", "Polygons"}, Row{"CBnayta2", "Spawns"},
        Row{"CBnayta3", "Scenerys"}, Row{"CBnayta4", "Colliders"}, Row{"CBnayta5", "Bot waypoints"},
        Row{"CBnayta6", "Advanced"}, Row{"CBtexEiKorjaus", "No texture correction when edit"},
        Row{"CBverticeLapi", "Passable"}, Row{"CBbotValinta0", "Left"},
        Row{"CBbotValinta1", "Right"}, Row{"CBbotValinta2", "Up"}, Row{"CBbotValinta3", "Down"},
        Row{"CBbotValinta4", "Fly"}}},
      {"QGroupBox",
       {Row{"Fvalinta", "Selected 0"}, Row{"Fvertice", "Vertice info"},
        Row{"Fpoly", "Polygon info"}, Row{"Fspawn", "Spawn info"}, Row{"Fscenery", "Scenery info"},
        Row{"Fcollider", "Collider info"}, Row{"Fbot", "Bot Waypoints info"}}},
      {"QLabel",
       {Row{"Lvalinta", "Nothing"}, Row{"lAuthor", "Ann"},
        Row{"Lkartta1", "Name: \nAuthor: \nTexture: "},
        Row{"Lkartta2",
            "2/400 Polygons\n3/30 Spawns\n3/255 Sceneries\n3/128 Colliders\n3/500 Waypoints"}}},
      {"QComboBox",
       {Row{"CBspawn", "Type"}, Row{"CBscenery", "Type"}, Row{"CBscenery2", "Visibility"},
        Row{"CBcollider", "Size"}}},
      {"QRadioButton",
       {Row{"OBbotNayta0", "Both"}, Row{"OBbotNayta1", "Path 1"}, Row{"OBbotNayta2", "Path 2"},
        Row{"OBbotKumpi1", "Path 1"}, Row{"OBbotKumpi2", "Path 2"}}}};
  for (const auto& [type, rows] : controls) {
    for (const auto& [name, caption] : rows) {
      QWidget* control = Find(name);
      if (control == nullptr) continue;
      EXPECT_TRUE(control->inherits(type)) << name;
      EXPECT_TRUE(control->isVisible()) << name;
      const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(control);
      EXPECT_EQ(access->text(QAccessible::Name).toStdString(), caption) << name;
    }
  }
  for (int i = 0; i < 4; ++i) {
    EXPECT_FALSE(Find<QCheckBox>(QString("CBbotValinta%1").arg(i))->icon().isNull());
  }
  EXPECT_EQ(widget.accessibleName(), "Properties");
}

TEST_F(InfoPanelTest, ShowsItsContents) {
  map.normals[0].edges[0] = {};
  map.polygons[0].vertices[0].color = map.polygons[0].vertices[1].color = {30, 20, 10, 0};
  Refresh(ToolMode::kEdit, "v0.0 v0.1 s0 s1 o1 o2 c1 w0 w1");
  EXPECT_EQ(Find<QCheckBox>("CBverticeLapi")->checkState(), Qt::PartiallyChecked);
  EXPECT_EQ(Find<QCheckBox>("CBbotValinta0")->checkState(), Qt::Checked);
  EXPECT_EQ(Find<QCheckBox>("CBbotValinta1")->checkState(), Qt::Unchecked);
  EXPECT_EQ(Find<QCheckBox>("CBbotValinta2")->checkState(), Qt::PartiallyChecked);
  EXPECT_TRUE(Find<QRadioButton>("OBbotNayta0")->isChecked());
  EXPECT_FALSE(Find<QRadioButton>("OBbotKumpi1")->isChecked());
  EXPECT_FALSE(Find<QRadioButton>("OBbotKumpi2")->isChecked());
  EXPECT_EQ(Text("CBspawn"), "Many types");
  EXPECT_EQ(Items("CBspawn").size(), 4);
  EXPECT_EQ(Text("CBscenery"), "Barrel");
  EXPECT_EQ(Items("CBscenery").size(), 22);
  EXPECT_EQ(Text("CBscenery2"), "78%");  // not in the list
  EXPECT_EQ(Text("CBcollider"), "20.5");
  EXPECT_THAT(Items("CBcollider"), ElementsAre("12", "16", "24", "32"));
  const QImage face = Find("CBverticevari")->grab().toImage();
  const QColor color = face.pixelColor(6, face.height() / 2);  // shaded a little by the style
  EXPECT_NEAR(color.red(), 10, 16);
  EXPECT_NEAR(color.green(), 20, 16);
  EXPECT_NEAR(color.blue(), 30, 16);

  Refresh(ToolMode::kEdit, "w0");
  EXPECT_TRUE(Find<QRadioButton>("OBbotKumpi1")->isChecked());
  EXPECT_EQ(Find<QCheckBox>("CBverticeLapi")->checkState(), Qt::Unchecked);
  EXPECT_EQ(Text("CBspawn") + Text("CBscenery") + Text("CBscenery2") + Text("CBcollider"), "");
  EXPECT_THAT(Items("CBspawn"), IsEmpty());
  for (const char* name : {"CByhista", "CBverticevari", "CBverticeLapi", "CBspawn", "CBscenery",
                           "CBscenery2", "CBcollider"}) {
    EXPECT_FALSE(Find(name)->isEnabled()) << name;
  }
}

TEST_F(InfoPanelTest, OnlyTheActiveToolsFrameHasARedCaption) {
  const std::array frames = {"", "Fvertice", "Fspawn", "Fscenery", "Fcollider", "Fbot"};
  for (int tool = 5; tool >= 0; --tool) {
    Refresh(static_cast<ToolMode>(tool), "");
    for (std::size_t i = 1; i < frames.size(); ++i) {
      const QImage image = Find(frames[i])->grab().toImage().copy(0, 0, 150, 16);
      int reds = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          const QColor color = image.pixelColor(x, y);
          if (color.red() > 200 && color.green() < 90 && color.blue() < 90) ++reds;
        }
      }
      EXPECT_EQ(reds > 5, static_cast<int>(i) == tool) << frames[i] << " in " << tool;
    }
  }
}

TEST_F(InfoPanelTest, TouchesOnlyWhatDiffers) {
  const char* const everything = "v0.0 v1.0 s0 s1 o0 o1 c0 w0 w1";
  Refresh(ToolMode::kEdit, everything);
  QTest::qWait(50);
  WorkCounter counter(&widget);
  for (int i = 0; i < 3; ++i) Refresh(ToolMode::kEdit, everything);
  QTest::qWait(20);
  EXPECT_THAT(counter.Take(), IsEmpty());

  shown.CBnayta[6].tick = Tick::kOn;
  shown.CBtausta2.color = Rgb{1, 2, 3};
  shown.CBverticeLapi.enabled = false;
  shown.CBcollider.text = "13";
  widget.Apply(shown);
  QTest::qWait(20);
  QStringList seen = counter.Take();
  seen.removeDuplicates();
  seen.removeAll("");  // parts without a name of their own, and what lies behind all
  seen.sort();
  EXPECT_EQ(seen.join(' ').toStdString(), "CBcollider CBnayta6 CBtausta2 CBverticeLapi");
}

TEST_F(InfoPanelTest, ShowingNeverCountsAsChoosing) {
  for (const ToolMode tool :
       {ToolMode::kEdit, ToolMode::kAddPolygon, ToolMode::kAddSpawn, ToolMode::kAddScenery,
        ToolMode::kAddCollider, ToolMode::kAddWaypoint, ToolMode::kEdit}) {
    for (const char* listed :
         {"v0.0 v1.0 s0 s1 o0 o1 c0 c1 w0 w1", "v0.1 s0 o0 c0 w0", "", "s1 o1 c1 w1"}) {
      state.tool.value = 2;
      Refresh(tool, listed);
    }
  }
  EXPECT_EQ(triggered, 0);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(InfoPanelTest, ClicksReachTheirHandlers) {
  Refresh(ToolMode::kEdit, "v0.0 v0.1 w0 w1");
  Click("CBnayta6");
  EXPECT_EQ(state.show.showFlags[5], 1);
  Click("CBnayta0");  // unticks: the others keep theirs
  EXPECT_EQ(state.show.showFlags[5], 0);
  EXPECT_TRUE(Find<QCheckBox>("CBnayta6")->isChecked());
  EXPECT_FALSE(Find<QCheckBox>("CBnayta0")->isChecked());
  Click("CBnayta5");  // also still ticked: the click unticks it
  Click("CBnayta5");
  EXPECT_EQ(state.show.showFlags[4], 1);
  EXPECT_FALSE(Find<QCheckBox>("CBnayta6")->isChecked());

  Click("CBbotValinta2");  // grey
  EXPECT_EQ(map.waypoints[1].botSettings[2], 1);
  EXPECT_EQ(Find<QCheckBox>("CBbotValinta2")->checkState(), Qt::Checked);
  Click("CBbotValinta2");
  EXPECT_EQ(map.waypoints[0].botSettings[2], 0);
  EXPECT_EQ(Find<QCheckBox>("CBbotValinta2")->checkState(), Qt::Unchecked);
  Click("OBbotKumpi2");
  EXPECT_EQ(map.waypoints[0].path, 2);
  EXPECT_TRUE(Find<QRadioButton>("OBbotKumpi2")->isChecked());
  Click("OBbotNayta1");
  EXPECT_EQ(state.show.pathFilter, 1);

  dialogs.answers = {false};
  Click("CBverticeLapi");  // keeps its tick until the next refresh
  EXPECT_TRUE(Find<QCheckBox>("CBverticeLapi")->isChecked());
  Refresh(ToolMode::kEdit, "v0.0 v0.1");
  EXPECT_FALSE(Find<QCheckBox>("CBverticeLapi")->isChecked());
  Click("CBtexEiKorjaus");
  EXPECT_TRUE(state.tool.next.noTextureCorrection);
  EXPECT_TRUE(Find<QCheckBox>("CBtexEiKorjaus")->isChecked());
  dialogs.chosenColors = {0x030201, std::nullopt, std::nullopt};
  for (const char* name : {"CBverticevari", "CBtausta1", "CBtausta2", "CByhista", "CBtexPalauta",
                           "CBtexPoista", "CBerota"}) {
    Click(name);
  }
  EXPECT_THAT(Steps(), ElementsAre("Editing", "Editing", "Path", "Color", "Background",
                                   "Background", "Connect", "Texture", "Texture", "Disconnect"));
}

TEST_F(InfoPanelTest, TypedTextsCountWithEnterOnly) {
  Refresh(ToolMode::kEdit, "o0 c0");
  Type("CBscenery2", "40", Qt::Key_Return);
  EXPECT_EQ(map.sceneries[0].level, 102);
  EXPECT_EQ(Text("CBscenery2"), "40%");
  Type("CBcollider", "24", Qt::Key_Enter);
  EXPECT_EQ(map.colliders[0].radius, 24);
  EXPECT_THAT(Steps(), ElementsAre("Visibility", "Size"));

  TakeEvents();
  Type("CBscenery2", "30", Qt::Key_Tab);
  Type("CBcollider", "16", Qt::Key_Tab);
  EXPECT_EQ(map.sceneries[0].level, 102);
  EXPECT_EQ(map.colliders[0].radius, 24);
  EXPECT_THAT(TakeEvents(), IsEmpty());
  Refresh(ToolMode::kEdit, "o0 c0");  // nothing has changed but what was typed
  EXPECT_EQ(Text("CBscenery2"), "40%");
  EXPECT_EQ(Text("CBcollider"), "24");
}

TEST_F(InfoPanelTest, ARefusedTextIsReplacedThoughTheBoxShowedTheSameBefore) {
  map.sceneries[1].level = 102;
  Refresh(ToolMode::kEdit, "o0 c0");  // 100% and 12
  Type("CBscenery2", "150", Qt::Key_Return);
  Type("CBcollider", "1", Qt::Key_Return);
  EXPECT_EQ(dialogs.messages.size(), 2);
  EXPECT_EQ(Text("CBscenery2"), "100%");
  EXPECT_EQ(Text("CBcollider"), "12");
  dialogs.answers = {false};
  Type("CBcollider", "13", Qt::Key_Return);
  EXPECT_EQ(Text("CBcollider"), "12");
  Refresh(ToolMode::kEdit, "o1");
  Type("CBscenery2", "40", Qt::Key_Return);
  EXPECT_EQ(Text("CBscenery2"), "40%");
}

TEST_F(InfoPanelTest, AnOpenedListOffersRealValuesOnly) {
  Refresh(ToolMode::kEdit, "s0 s1 o0 o1");
  const std::array<std::pair<const char*, std::size_t>, 3> combos = {
      {{"CBspawn", 3}, {"CBscenery", 21}, {"CBscenery2", 4}}};
  for (const auto& [name, count] : combos) {
    EXPECT_EQ(Items(name).back(), "Many types");
    auto* combo = Find<QComboBox>(name);
    combo->showPopup();
    EXPECT_EQ(Items(name).size(), count);
    EXPECT_EQ(Text(name), "Many types");
    combo->hidePopup();
  }
  EXPECT_THAT(Steps(), IsEmpty());
  auto* combo = Find<QComboBox>("CBspawn");
  combo->showPopup();
  QTest::keyClick(combo->view(), Qt::Key_End);
  QTest::keyClick(combo->view(), Qt::Key_Return);
  EXPECT_EQ(map.spawns[0].team, 2);
  EXPECT_EQ(Text("CBspawn"), "CTF Blue");
}

TEST_F(InfoPanelTest, TheKeyboardReachesAndWorksEveryControl) {
  Refresh(ToolMode::kEdit, "v0.0 v1.0 s0 o0 c0 w0");
  QSet<QString> reached;
  QTest::keyClick(&widget, Qt::Key_Tab);
  for (int i = 0; i < 60; ++i) {
    QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    reached << focused->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  for (const auto* control : widget.findChildren<QWidget*>()) {
    const bool isControl = control->inherits("QAbstractButton") || control->inherits("QComboBox");
    if (!isControl || !control->isEnabled() || control->objectName().isEmpty()) continue;
    EXPECT_TRUE(reached.contains(control->objectName())) << control->objectName().toStdString();
  }
  QTest::keyClick(Find("OBbotKumpi2"), Qt::Key_Space);
  EXPECT_EQ(map.waypoints[0].path, 2);
  QTest::keyClick(Find("CBnayta1"), Qt::Key_Space);
  EXPECT_EQ(state.show.showFlags[0], 0);
  QTest::keyClick(Find("CBspawn"), Qt::Key_Down);
  EXPECT_EQ(map.spawns[0].team, 1);
}

TEST_F(InfoPanelTest, NothingIsCutOffWhateverTheMapIsCalled) {
  constexpr int kMenuBar = 30;  // what menu bar and frame take at most
  const WindowSize minimum = MinimumWindowSize();
  const PanelRect place = ComputeLayout(minimum.width, minimum.height - kMenuBar).ppalkki;
  widget.resize(place.width, place.height);
  const auto* scroll = widget.findChild<QScrollArea*>();
  const QWidget* content = scroll->widget();
  for (const char* path : {"/maps/arena.pmp", "/maps/A_name_that_is_somewhat_longer.pmp"}) {
    map.fileName = path;
    Refresh(ToolMode::kEdit, "v0.0 v1.0 s0 s1 o0 o1 c0 w0 w1");
    QTest::qWait(20);
    EXPECT_LE(content->width(), scroll->viewport()->width()) << path;
    for (const auto* button : content->findChildren<QAbstractButton*>()) {
      const std::string name = button->objectName().toStdString();
      const QRect inside(button->mapTo(content, QPoint(0, 0)), button->size());
      EXPECT_TRUE(content->rect().contains(inside)) << name;
      EXPECT_GE(button->width(), button->minimumSizeHint().width()) << name;
      EXPECT_GE(button->height(), button->minimumSizeHint().height()) << name;
    }
  }
}

}  // namespace
}  // namespace vesmora
