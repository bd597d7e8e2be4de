// The Run menu of the real window, with scripts for the game and for Wine.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/qt/ikkuna.h"
#include "platform/qt/qt_settings.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

TEST(RunWindowTest, TheGameRunsAndTheWindowStepsAside) {
  const ScratchFolder folder;
  const std::string game = folder / "game/";
  const auto put = [](const std::string& path, const std::string& text) {
    std::ofstream(path) << text;
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  };
  std::filesystem::create_directories(game + "maps");
  put(game + "maps/CTF_Small.pmp", "");
  put(game + "Soldat.exe", "#!/bin/sh\npwd >result\n");
  put(game + "soldat.ini",
      "; settings\r\n[GAME]\r\nGameStyle=2\r\nName=a\r\n\r\n[VIDEO]\r\nWidth=800\r\n");
  put(folder / "wine", "#!/bin/sh\nexec \"$@\"\n");
  for (const char* name : {"XDG_CONFIG_HOME", "TMPDIR", "PATH"}) {
    qputenv(name, QByteArray::fromStdString(folder.Path()));
  }
  qputenv("VESMORA_GAME", QByteArray::fromStdString(game));
  qunsetenv("DISPLAY");
  const std::string map = folder / "ctf_small.pmp";
  PutFile(map, FileBytes(DataPath("small.pmp")));

  QStringList told;
  bool wasMinimised = false;
  QTimer presser;
  Ikkuna window;
  QObject::connect(&presser, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    wasMinimised = window.isMinimized();
    told << box->windowTitle() + ": " + box->text();
    box->accept();
  });
  presser.start(5);
  window.show();
  window.Activate(map);
  told.clear();
  window.findChild<QAction*>("MenuRunAll")->trigger();
  EXPECT_TRUE(window.isMinimized());
  EXPECT_EQ(QtSettings().Read("Windows", "State", ""), "0") << "stored before that";
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(game + "result"); }));

  QSettings profile(QString::fromStdString(game + "soldat.ini"), QSettings::IniFormat);
  EXPECT_EQ(profile.allKeys(), QStringList({"GAME/GameStyle", "GAME/Name", "VIDEO/Width"}));
  EXPECT_EQ(profile.value("GAME/GameStyle").toInt(), 3);

  std::filesystem::remove(folder / "wine");
  put(game + "Soldat.exe", "MZ");
  window.findChild<QAction*>("MenuRunSoldat")->trigger();
  EXPECT_FALSE(window.isMinimized() || wasMinimised);
  ASSERT_FALSE(told.isEmpty());
  EXPECT_TRUE(told.last().startsWith("Run error: ") && told.last().contains("Wine"))
      << told.last().toStdString();
  window.close();
}

}  // namespace
}  // namespace vesmora
