// The widgets of the property panel, wired to the handlers as the window wires them.
#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>

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
};

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
