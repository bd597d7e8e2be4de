// What assistive programs are offered does what a click does, and tells what is shown.
#include <QAccessible>
#include <QCheckBox>

#include "qt/panel_window.h"

namespace vesmora {
namespace {

/// Runs an action that an assistive program is offered for a control.
void Do(QAccessibleInterface* reader, const QString& action) {
  ASSERT_NE(reader, nullptr);
  ASSERT_NE(reader->actionInterface(), nullptr);
  EXPECT_TRUE(reader->actionInterface()->actionNames().contains(action)) << action.toStdString();
  reader->actionInterface()->doAction(action);
  QCoreApplication::processEvents();
}

void Do(QWidget* control, const QString& action) {
  Do(QAccessible::queryAccessibleInterface(control), action);
}

class AssistiveTest : public PanelWindow {
 protected:
  /// What a deed does to the map, to what is shown and to what the handlers asked for.
  std::string EffectOf(const std::function<void()>& deed) {
    map = *before_;
    editor.show = show_;
    editor.tool.next = next_;
    dialogs.answers = {true};
    dialogs.chosenColors = {0x102030};
    Refresh(kEdit, kMany);
    TakeEvents();
    triggered = 0;
    deed();
    std::string effect = std::to_string(triggered) + " ";
    for (const std::string& event : TakeEvents()) effect += event + " ";
    effect += journal.caption;
    for (const auto* button : widget.findChildren<QAbstractButton*>()) {
      const auto* box = qobject_cast<const QCheckBox*>(button);
      const int state = box != nullptr ? box->checkState() : (button->isChecked() ? 2 : 0);
      effect += std::to_string(state);
    }
    for (const std::int16_t flag : editor.show.showFlags) effect += std::to_string(flag);
    effect += std::to_string(editor.show.pathFilter);
    effect += editor.tool.next.noTextureCorrection ? "n" : "c";
    const Bytes image = ImageOf(map);
    return effect + std::to_string(qHashBits(image.data(), image.size()));
  }

  const std::unique_ptr<MapDocument> before_ = std::make_unique<MapDocument>(map);
  const decltype(editor.show) show_ = editor.show;
  const decltype(editor.tool.next) next_ = editor.tool.next;
};

TEST_F(AssistiveTest, EveryButtonDoesWhatAClickDoes) {
  map.waypoints[0].path = map.waypoints[1].path = 1;  // chosen
  *before_ = map;
  const QString nothing = QString::fromStdString(EffectOf([] {}));
  QStringList names;
  for (const auto* button : widget.findChildren<QAbstractButton*>()) {
    if (button->objectName().startsWith("CB") || button->objectName().startsWith("OB")) {
      names << button->objectName();
    }
  }
  EXPECT_EQ(names.size(), 27);
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    if (name == "CBauthor") continue;  // the window's own
    auto* button = Find<QAbstractButton>(name);
    const std::string clicked = EffectOf([&] { Click(name); });
    EXPECT_TRUE(clicked.starts_with("1 ")) << clicked;
    const std::string keyed = EffectOf([&] {
      button->setFocus();
      QTest::keyClick(button, Qt::Key_Space);
    });
    EXPECT_EQ(keyed, clicked);
    const std::string assisted = EffectOf([&] {
      Do(button, button->isCheckable() ? "Toggle" : "Press");
      if (!button->isCheckable()) QTest::qWait(150);  // it is pressed for all to see
    });
    EXPECT_EQ(assisted, clicked);
  }
  // They wait for the call to return: the question comes after it.
  for (const char* name : {"CBverticeLapi", "OBbotNayta2"}) {
    EffectOf([&] {
      QAccessible::queryAccessibleInterface(Find(name))->actionInterface()->doAction("Toggle");
      EXPECT_EQ(triggered, 0) << name;
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(triggered, 1) << name;
  }
  // A grey box reads as grey; what is disabled offers nothing and says so.
  EffectOf([] {});
  auto state = [this](const char* name) {
    return QAccessible::queryAccessibleInterface(Find(name))->state();
  };
  EXPECT_TRUE(state("CBbotValinta2").checkStateMixed);
  EXPECT_TRUE(state("CBbotValinta0").checked);
  EXPECT_TRUE(state("OBbotKumpi1").checked);
  Refresh(kEdit, "");
  EXPECT_TRUE(state("CBbotValinta2").disabled && state("OBbotKumpi1").disabled);
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(Find("CBbotValinta2"))
                   ->actionInterface()
                   ->actionNames()
                   .contains("Toggle"));
}

}  // namespace
}  // namespace vesmora
