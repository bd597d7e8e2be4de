// Ikkuna, the main window: owns the editor's state and shows it.
#pragma once

#include <QMainWindow>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "app/commands.h"
#include "app/editor.h"
#include "panel/qt/info_panel.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_shell.h"
#include "platform/settings_file.h"
#include "tools/qt/tool_panel.h"
#include "view/layout.h"
#include "view/qt/map_surface.h"
#include "view/qt/view_panel.h"

namespace vesmora {

class Ikkuna final : public QMainWindow, private WindowPort {
  Q_OBJECT

 public:
  Ikkuna();

  /// Runs the first activation with the program's arguments; later calls do nothing.
  void Activate(const std::string& arguments);

  /// The session may end now: keeps what is not saved.
  void PrepareForSessionEnd();
  /// It does end: tidies up as closing does, but asks and tells nothing.
  void EndSession();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // WindowPort
  void MapChanged() override { mapIsStale_ = true; }
  void PanelChanged() override { panelIsStale_ = true; }
  void Unload() override;
  void ShowAbout() override;
  std::string ShowImport() override;
  std::string ShowRecover() override;
  void RestorePlacement() override;
  WindowPlacement Placement() const override;
  void Minimize() override;
  void Unminimize() override;
  void RunPendingEvents() override;
  void LayOut() override;

  void BuildMenus();
  void BuildPanels();
  void ConnectSurface();
  void ConnectPanels();
  /// Runs `action`, with the signal's values or with none, and then shows once what it has changed.
  template <typename Sender, typename Signal, typename Action>
  void On(Sender* sender, Signal signal, Action action);
  void HandlePanel(const PanelHandler& handler);
  void BringUpToDate();
  void ShowPanel();
  void ShowMap();
  void ShowMenus();
  PanelSizes MeasurePanels() const;
  static QSize FirstSize();
  void EnforceMinimumSize();
  bool IsFirstReceiver(const QObject* watched) const;
  bool FilterKey(const QObject* watched, const QEvent* event);
  void NoteShortcut(const QObject* watched, const QEvent* event);
  void ReleaseShortcut();

  QtDialogs dialogs_;
  SettingsFile settings_;
  QtShell shell_;
  std::unique_ptr<Programs> programs_ = SystemPrograms();
  Editor editor_;
  bool mapIsStale_ = false;
  bool panelIsStale_ = false;
  PointerShape shownPointer_ = PointerShape::kDefault;
  Qt::KeyboardModifiers shortcutModifiers_;  // of the command that runs, when a shortcut began it
  std::string hint_;                         // as shown
  std::optional<RecentFiles> shownRecent_;
  bool activated_ = false;
  bool firstResize_ = true;
  bool isFrameKnown_ = false;  // the window manager has put its frame around the window
  bool isReady_ = false;       // from the end of the first activation until the window is closed
  /// As the settings have it, until the window has a normal place: started maximised, it
  /// would forget its own otherwise.
  std::optional<WindowPlacement> unusedPlacement_;

  PanelSizes sizes_;           // by which the panels lie now
  QWidget* client_ = nullptr;  // everything below the menu bar
  MapSurface* surface_ = nullptr;
  InfoPanel* ppalkki_ = nullptr;
  ViewPanel* pala_ = nullptr;
  ToolPanel* pyla_ = nullptr;
  std::array<QFrame*, 2> fmaski_{};
  std::vector<QAction*> actions_;  // in the order of Commands()
  std::array<QAction*, kRecentSlots> menuRekentti_{};
};

}  // namespace vesmora
