// Recover and Redo in the real window, and what an ending session leaves behind.
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <filesystem>

#include "app/qt/recover_dialog.h"
#include "document/map_file.h"
#include "platform/files.h"
#include "real_window.h"
#ifndef _WIN32
#include <csignal>

#include "platform/qt/session_end.h"
#endif

namespace vesmora {
namespace {

class RecoverTest : public RealWindow {
 protected:
  std::string Hint() const { return Find<QLabel>("Lvihje")->text().toStdString(); }
  bool CanRecover() const { return Find<QAction>("MenuRecover")->isEnabled(); }
  std::size_t KeptMaps() { return ListFiles(files, folder / "Vesmora/Rescue").names.size(); }
};

TEST_F(RecoverTest, WhatWentByMistakeComesBackWithOneClick) {
  EXPECT_FALSE(CanRecover());
  Place(4, 30, 20);
  Place(4, -60, 0);
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Hint(), "Redone: Collider");
  EXPECT_EQ(Find<QAction>("MenuRedo")->text(), "&Redo");
  Key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_TRUE(CanRecover());
  person.answers = {[](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>("lNimi")->text(), "some.pmp");
    EXPECT_EQ(dialog.findChild<QLabel*>("lSyy")->text(), "Replaced by a new map");
    EXPECT_EQ(dialog.findChild<QLabel*>("lMaara")->text(), "0\n0\n0\n2\n0");
    EXPECT_TRUE(dialog.findChild<QListWidget*>()->item(0)->text().endsWith("  some.pmp"));
    dialog.findChild<QPushButton*>("cAvaa")->click();
  }};
  Run("MenuRecover");
  EXPECT_EQ(Hint(), "Recovered");
  window->close();
  EXPECT_EQ(KeptMaps(), 1U) << "opened and left as it was, it is kept once";
  Start();
  EXPECT_EQ(Hint(), "See File > Recover");
}

#ifndef _WIN32
TEST_F(RecoverTest, TheSessionsEndKeepsTheMapAskingNothing) {
  const SessionEnd sessionEnd;
  QSignalSpy came(&sessionEnd, &SessionEnd::Came);
  Place(4, 30, 20);
  window->PrepareForSessionEnd();
  EXPECT_EQ(KeptMaps(), 1U);
  Place(4, -60, 0);  // it was called off
  ASSERT_EQ(::raise(SIGTERM), 0);
  EXPECT_TRUE(came.wait(2000));
  window->EndSession();
  EXPECT_EQ(KeptMaps(), 2U);
  EXPECT_TRUE(std::filesystem::exists(folder / "Vesmora/Vesmora.conf"));
  window->close();
  EXPECT_EQ(KeptMaps(), 2U);
  std::signal(SIGTERM, SIG_DFL);
}
#endif

}  // namespace
}  // namespace vesmora
