// Keys of the real window: shortcuts, modifiers, and what the map takes of them.

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

#include "real_window.h"

namespace vesmora {
namespace {

class IkkunaCommandsTest : public RealWindow {
 protected:
  /// With modifiers that are held before and after.
  static void PressHeld(Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::simulateEvent(QApplication::focusWidget(), true, key, held, QString(), false);
  }
  QString Hint() const { return Find<QLabel>("Lvihje")->text(); }
};

TEST_F(IkkunaCommandsTest, KeysOfAShortcutDoNotStickAndOthersAreFollowedIntoMenus) {
  const auto isAsked = [](QDialog& dialog) {
    EXPECT_TRUE(dialog.inherits("QFileDialog"));
    dialog.reject();
  };
  Choose(5);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  EXPECT_EQ(Hint(), "[Ctrl] Click to add a waypoint");
  person.answers = {isAsked};
  PressHeld(Qt::Key_O,
            Qt::ControlModifier);  // let go inside the dialog: the window never hears of it
  ComeToFront();
  EXPECT_EQ(Hint(), "Click to add a waypoint");
  for (const int x : {0, 60}) Place(5, x, 0);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  person.answers = {isAsked};
  PressHeld(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  ComeToFront();
  EXPECT_EQ(Hint(), "Click to add a waypoint");
  EXPECT_EQ(Saved().waypoints[0].connectionCount, 0);

  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  person.answers = {isAsked};
  Run("MenuOpen");  // by the mouse
  ComeToFront();
  EXPECT_EQ(Hint().left(8), "[Shift] ") << "still held";
  auto* menu = window->menuBar()->actions().front()->menu();
  menu->popup({0, 0});
  QTest::keyRelease(menu, Qt::Key_Shift);
  EXPECT_EQ(Hint().left(5), "Click");
  QTest::keyPress(menu, Qt::Key_Shift);
  menu->close();
  ComeToFront();
  EXPECT_EQ(Hint().left(8), "[Shift] ");
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Shift);
  // The step is that of the press itself, whatever was held before.
  Place(0, 60, 0);
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Control);
  Key(Qt::Key_Right);
  EXPECT_EQ(Saved().waypoints[1].x, 61 * 256);
}

TEST_F(IkkunaCommandsTest, TheMapTakesTheKeyboardAndEscape) {
  Choose(1);
  Find("CBzoom")->setFocus();
  for (const int x : {0, 50}) Place(1, x, 0);
  EXPECT_EQ(QApplication::focusWidget(), Find("Pala"));
  EXPECT_EQ(Hint(), "Click the third corner");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Hint(), "Click the first corner");
  Choose(0);
  auto* size = Find<QComboBox>("CBcollider");
  Place(4, 0, 0);
  size->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), "33");
  EXPECT_EQ(Hint(), "Enter applies");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(Hint(), "Click to add a collider") << "it no longer does";
  size->setFocus();
  size->lineEdit()->selectAll();
  QTest::keyClicks(QApplication::focusWidget(), "1");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(size->currentText(), "12") << "refused";
}

}  // namespace
}  // namespace vesmora
