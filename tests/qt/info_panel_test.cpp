// The widgets of the property panel, wired to the handlers as the window wires them.
#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSet>

#include "qt/panel_window.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class InfoPanelTest : public PanelWindow {
 protected:
  void Type(const char* name, const char* text, Qt::Key last) {
    auto* combo = Find<QComboBox>(name);
    combo->setFocus();
    combo->lineEdit()->selectAll();
    QTest::keyClicks(parent.focusWidget(), text);  // where the window system sends keys
    QTest::keyClick(parent.focusWidget(), last);
  }
  /// What a combo box shows, in the list or not, and the length of the list.
  std::string Text(const char* name) {
    auto* combo = Find<QComboBox>(name);
    const bool isHeld = combo->isEditable() || combo->currentIndex() >= 0;
    const QString text = isHeld ? combo->currentText() : combo->accessibleDescription();
    return text.toStdString() + " of " + std::to_string(combo->count());
  }
  /// Sets a text as assistive programs do.
  void Dictate(const char* name, const QString& text) {
    auto* line = QAccessible::queryAccessibleInterface(Find<QComboBox>(name)->lineEdit());
    line->editableTextInterface()->replaceText(0, line->textInterface()->characterCount(), text);
  }
  int Tick(const char* name) { return Find<QCheckBox>(name)->checkState(); }
};

TEST_F(InfoPanelTest, ClicksReachTheirHandlers) {
  Refresh(kEdit, "v0.0 v0.1 w0 w1");
  Click("CBnayta6");
  EXPECT_THAT(editor.show.showFlags, ElementsAre(1, 1, 1, 1, 1, 1, 0));
  Click("CBnayta0");  // unticks: the others keep theirs
  EXPECT_THAT(editor.show.showFlags, ElementsAre(0, 0, 0, 0, 0, 0, 0));
  EXPECT_TRUE(Tick("CBnayta6") && !Tick("CBnayta0"));
  Click("CBnayta0");
  Click("CBbotValinta2");  // grey
  EXPECT_EQ(map.waypoints[1].botSettings[2], 1);
  EXPECT_EQ(Tick("CBbotValinta2"), Qt::Checked);
  Click("OBbotNayta1");
  EXPECT_EQ(editor.show.pathFilter, 1);
  dialogs.answers = {false};
  Click("CBverticeLapi");  // keeps its tick until the next refresh
  EXPECT_TRUE(Tick("CBverticeLapi"));
  Refresh(kEdit, "v0.0 v0.1 w0 w1");
  EXPECT_FALSE(Tick("CBverticeLapi"));
  Refresh(kEdit, "v0.0 v0.1 s0 w0 w1");
  const QImage before = widget.grab().toImage();
  editor.panel.panelRefreshing = true;  // while another handler is at work
  for (const char* name : {"CBnayta1", "CBbotValinta2", "OBbotNayta2"}) Click(name);
  auto* spawn = Find<QComboBox>("CBspawn");
  spawn->showPopup();
  QTest::keyClick(spawn->view(), Qt::Key_End);
  QTest::keyClick(spawn->view(), Qt::Key_Return);
  editor.panel.panelRefreshing = false;
  EXPECT_EQ(widget.grab().toImage(), before) << "a refused click changes nothing";
  Refresh(kEdit, "v0.0 v0.1 w0 w1");
  map.backgroundColor1 = {1, 2, 3, 4};
  dialogs.chosenColors = {0x030201, std::nullopt, 0x405060};
  for (const char* name : {"CBtexEiKorjaus", "OBbotKumpi2", "CBverticevari", "CBtausta1",
                           "CBtausta2", "CByhista", "CBtexPalauta", "CBtexPoista", "CBerota"}) {
    Click(name);
  }
  EXPECT_TRUE(editor.tool.next.noTextureCorrection && Tick("CBtexEiKorjaus"));
  EXPECT_THAT(dialogs.colorRequests, ElementsAre(0, 0x010203, 0));
  EXPECT_EQ(map.backgroundColor1, (MapColor{1, 2, 3, 4})) << "cancelled";
  EXPECT_EQ(map.backgroundColor2, (MapColor{0x40, 0x50, 0x60, 0}));
  EXPECT_THAT(Steps(), ElementsAre("Editing", "Path", "Color", "Background", "Background",
                                   "Connect", "Texture", "Texture", "Disconnect"));
}

TEST_F(InfoPanelTest, TypedTextsCountWithEnterOnlyAndOpenedListsOfferRealValues) {
  Refresh(kEdit, "o0 c0");
  QStringList typed;
  QObject::connect(&widget, &InfoPanel::Typed, [&](const InfoPanel::Handler& handler) {
    handler(editor);
    typed << QString::fromStdString(editor.note);
  });
  Type("CBscenery2", "40", Qt::Key_Return);
  Type("CBcollider", "24", Qt::Key_Enter);
  EXPECT_THAT(Steps(), ElementsAre("Visibility", "Size"));
  Type("CBscenery2", "30", Qt::Key_Tab);
  EXPECT_EQ(typed.last(), "") << "left, its text waits for no Enter";
  Type("CBcollider", "16", Qt::Key_Tab);
  Refresh(kEdit, "o0 c0");  // nothing has changed but what was typed
  EXPECT_EQ(Text("CBscenery2") + Text("CBcollider"), "40% of 424 of 4");
  for (const char* name : {"CBscenery2", "CBcollider"}) {
    typed.clear();
    Dictate(name, "18");
    EXPECT_EQ(typed, QStringList("Enter applies")) << name;
  }
  EXPECT_EQ(Text("CBscenery2") + Text("CBcollider"), "18 of 418 of 4");
  typed.clear();
  Refresh(kEdit, "o0 c0");
  EXPECT_EQ(Text("CBscenery2") + Text("CBcollider"), "40% of 424 of 4");
  EXPECT_EQ(typed, QStringList()) << "showing is no typing";
  Dictate("CBscenery2", "41");
  QTest::keyClick(Find("CBscenery2"), Qt::Key_Return);
  EXPECT_EQ(Text("CBscenery2"), "41% of 4");
  // A refused text is replaced though the box showed the same before.
  for (const char* text : {"100", "150"}) Type("CBscenery2", text, Qt::Key_Return);
  EXPECT_EQ(Text("CBscenery2"), "100% of 4");

  Refresh(kEdit, "s0 s1 o0 o1");
  for (const auto& [name, shownText] : {std::pair("CBspawn", "Many types of 3"),
                                        {"CBscenery", "Many types of 21"},
                                        {"CBscenery2", "Many types of 4"}}) {
    const QImage held = Find(name)->grab().toImage();
    Find<QComboBox>(name)->showPopup();
    EXPECT_EQ(Text(name), shownText);
    Find<QComboBox>(name)->hidePopup();
    EXPECT_EQ(Find(name)->grab().toImage(), held) << name;
  }
  auto* combo = Find<QComboBox>("CBspawn");
  combo->showPopup();
  QTest::keyClick(combo->view(), Qt::Key_End);
  QTest::keyClick(combo->view(), Qt::Key_Return);
  EXPECT_EQ(map.spawns[0].team, 2);
}

}  // namespace
}  // namespace vesmora
