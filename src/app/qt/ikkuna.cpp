#include "app/qt/ikkuna.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QStandardPaths>
#include <QTime>
#include <QTimer>
#include <memory>
#include <random>

#include "app/hints.h"
#include "app/prefab_commands.h"
#include "app/program_folders.h"
#include "app/qt/about.h"
#include "app/qt/import_dialog.h"
#include "app/qt/recover_dialog.h"
#include "app/safety_net.h"
#include "app/start_up.h"
#include "app/view_commands.h"
#include "app/window_placement.h"
#include "document/numbers.h"
#include "panel/refresh_panel.h"
#include "platform/console.h"
#include "platform/qt/qt_text.h"
#include "platform/temp_folder.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"
#include "view/layout.h"

namespace vesmora {
namespace {

std::function<double()> MakeRandomSource() {
  auto engine = std::make_shared<std::mt19937_64>(std::random_device{}());
  return [engine] { return std::uniform_real_distribution<double>(0, 1)(*engine); };
}

std::string WithSlash(const QString& path) { return (path + "/").toStdString(); }

/// With the kind of slash that people here read and write.
std::string Native(const std::string& path) {
  return QDir::toNativeSeparators(ToQt(path)).toStdString();
}

std::string SettingsFolder() {
  return WithSlash(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                   "/Vesmora");
}

Ports MakePorts(Dialogs& dialogs, WindowPort& window, Settings& settings, Shell& shell,
                Programs& programs) {
  const std::string settingsFolder = SettingsFolder();
  const TempFolder temp = PrivateTempFolder(SystemFileCalls(), settingsFolder + "Temp/");
  const auto [programFolder, gameFolder] =
      FindProgramFolders(SystemFileCalls(), WithSlash(QApplication::applicationDirPath()),
                         EnvironmentText("VESMORA_GAME"));
  return {.files = SystemFileCalls(),
          .dialogs = dialogs,
          .window = window,
          .settings = settings,
          .shell = shell,
          .programs = programs,
          .random = MakeRandomSource(),
          .timeOfDay = [] { return QTime::currentTime().toString("hh:mm").toStdString(); },
          .now = [] { return std::int64_t{QDateTime::currentMSecsSinceEpoch()}; },
          .tempFolder = temp.path,
          .tempProblem = temp.problem,
          .settingsFolder = settingsFolder,
          .programFolder = Native(programFolder),
          .gameFolder = Native(gameFolder)};
}

QFrame* AddSeam(QWidget* parent, const char* name) {
  auto* frame = new QFrame(parent);
  frame->setObjectName(name);
  frame->setAutoFillBackground(true);
  return frame;
}

void Place(QWidget* widget, const PanelRect& rect) {
  widget->setGeometry(rect.left, rect.top, rect.width, rect.height);
}

Qt::CursorShape CursorOf(PointerShape shape) {
  switch (shape) {
    case PointerShape::kCross:
      return Qt::CrossCursor;
    case PointerShape::kMove:
      return Qt::SizeAllCursor;
    case PointerShape::kSizeDiagonal:
      return Qt::SizeFDiagCursor;
    case PointerShape::kDefault:
      break;
  }
  return Qt::ArrowCursor;
}

/// The local file that is dropped; empty for anything else, or for several at once.
std::string DroppedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1) return {};
  const QString path = urls.first().toLocalFile();
  if (!path.contains(QChar::ReplacementCharacter)) return Native(path.toStdString());
  // A name that is no text: its bytes, as the address has them.
  const QByteArray address = urls.first().path(QUrl::FullyEncoded).toLatin1();
  return QByteArray::fromPercentEncoding(address).toStdString();
}

}  // namespace

Ikkuna::Ikkuna()
    : dialogs_(this),
      settings_(SystemFileCalls(), SettingsFolder() + "Vesmora.conf"),
      editor_(MakePorts(dialogs_, *this, settings_, shell_, *programs_)) {
  editor_.journal.folder = HoldUndoFolder(SystemFileCalls(), editor_.ports.tempFolder);
  setAcceptDrops(true);
  setWindowTitle(ToQt(WindowTitle(VESMORA_VERSION, VESMORA_COMMENTS)));
  resize(FirstSize());
  client_ = new QWidget(this);
  setCentralWidget(client_);
  BuildMenus();  // needs no fonts, which may still be being found
  BuildPanels();
  ConnectSurface();
  ConnectPanels();
  qApp->installEventFilter(this);
}

void Ikkuna::BuildPanels() {
  surface_ = new MapSurface(client_);
  pyla_ = new ToolPanel(client_);
  pala_ = new ViewPanel(client_);
  ppalkki_ = new InfoPanel(client_);
  fmaski_ = {AddSeam(client_, "Fmaski0"), AddSeam(client_, "Fmaski1")};
  pala_->ShowState(editor_.view, {});  // seen behind a message at the start
}

void Ikkuna::BuildMenus() {
  std::vector<QMenu*> menus;
  for (const std::string_view caption : MenuCaptions()) {
    menus.push_back(menuBar()->addMenu(ToQt(caption)));
    // Another editor may have kept something for Recover.
    On(menus.back(), &QMenu::aboutToShow, [this] { CountRecoverable(editor_); });
  }
  for (const Command& command : Commands()) {
    QMenu* menu = menus[static_cast<std::size_t>(command.menu)];
    if (command.name == "MenuExit") {
      menu->addSeparator();
      for (int slot = 0; slot < kRecentSlots; ++slot) {
        QAction* item = menu->addAction(QString());
        item->setObjectName(QString("File%1").arg(slot + 1));
        On(item, &QAction::triggered, [this, slot] { MenuRekentti(editor_, slot); });
        menuRekentti_[static_cast<std::size_t>(slot)] = item;
      }
    }
    if (command.startsGroup) menu->addSeparator();
    QAction* action = menu->addAction(ToQt(command.caption));
    action->setObjectName(ToQt(command.name));
    action->setShortcuts(
        QKeySequence::listFromString(ToQt(command.shortcut), QKeySequence::PortableText));
    On(action, &QAction::triggered, [this, &command] {
      RunCommand(editor_, command);
      shortcutModifiers_ = Qt::NoModifier;
    });
    actions_.push_back(action);
  }
  ShowMenus();
}

template <typename Sender, typename Signal, typename Action>
void Ikkuna::On(Sender* sender, Signal signal, Action action) {
  connect(sender, signal, this, [this, action](const auto&... values) {
    if constexpr (std::is_invocable_v<Action, decltype(values)...>) {
      action(values...);
    } else if constexpr (std::is_invocable_v<Action>) {
      // Not a plain else: connect() also tries with fewer values than there are, and with clang
      // that must compile.
      action();
    }
    BringUpToDate();
  });
}

void Ikkuna::ConnectSurface() {
  On(surface_, &MapSurface::Pressed, [this](const MouseInput& input) {
    pala_->RestFocus();
    PressMouse(editor_, input);
  });
  On(surface_, &MapSurface::Moved, [this](const MouseInput& input) {
    PointAt(editor_, input);
    // A drag goes on over the panels, but there the pointer is not on the map.
    const QPointF place(input.x, input.y);
    if (client_->childAt(place.toPoint()) != surface_) editor_.pointerText.clear();
  });
  On(surface_, &MapSurface::Released,
     [this](const MouseInput& input) { ReleaseMouse(editor_, input); });
  On(surface_, &MapSurface::WheelTurned, [this](int delta) { TurnWheel(editor_, delta); });
  On(surface_, &MapSurface::PointerLeft, [this] { LeaveMap(editor_); });
}

void Ikkuna::HandlePanel(const PanelHandler& handler) {
  RunHandler(editor_, handler);
  // Also what the handler put into the contents itself.
  if (!panelIsStale_) ppalkki_->Apply(editor_.panel.contents);
  pala_->RestFocus();  // so that keys reach the map again
}

void Ikkuna::ConnectPanels() {
  On(ppalkki_, &InfoPanel::Triggered,
     [this](const PanelHandler& handler) { HandlePanel(handler); });
  On(ppalkki_, &InfoPanel::Typed, [this](const PanelHandler& handler) { handler(editor_); });
  On(ppalkki_, &InfoPanel::AuthorClicked, [this] { CBauthor_Click(editor_); });
  const auto giveKeysToMap = [this] { pala_->RestFocus(); };
  On(ppalkki_, &InfoPanel::ListClosed, giveKeysToMap);
  On(pala_, &ViewPanel::ListClosed, giveKeysToMap);
  On(pyla_, &ToolPanel::ToolChosen, [this](ToolMode tool) {
    ChooseTool(editor_, tool);
    pala_->RestFocus();
  });
  On(pala_, &ViewPanel::ZoomChosen, [this](int index) {
    ChooseZoom(editor_, index);
    pala_->RestFocus();
  });
  On(pala_, &ViewPanel::GridChosen, [this](int index) {
    ChooseGrid(editor_, index);
    pala_->RestFocus();
  });
  On(pala_, &ViewPanel::FixedGridToggled, [this](bool isFixed) {
    SetFixedGrid(editor_, isFixed);
    pala_->RestFocus();
  });
}

void Ikkuna::Activate(const std::string& arguments) {
  if (activated_) return;
  activated_ = true;
  FirstActivation(editor_, arguments);
  BringUpToDate();
  isReady_ = true;
  pala_->RestFocus();
}

void Ikkuna::RunPendingEvents() {
  BringUpToDate();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Ikkuna::LayOut() {
  QMainWindow::layout()->activate();  // so that the client area has its size
  const int width = client_->width();
  const int height = client_->height();
  sizes_ = MeasurePanels();
  const WindowLayout layout = ComputeLayout(sizes_, width, height);
  pala_->SetCovered(layout.palaCovered);
  pyla_->SetCovered(layout.pylaCovered);
  surface_->setGeometry(0, 0, width, height);
  Place(ppalkki_, layout.ppalkki);
  Place(pala_, layout.pala);
  Place(pyla_, layout.pyla);
  Place(fmaski_[0], layout.fmaski0);
  Place(fmaski_[1], layout.fmaski1);
  editor_.view.area = ComputeDrawingArea(sizes_, width, height);
  MapChanged();
}

bool Ikkuna::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) {
    ReleaseShortcut();
    BringUpToDate();  // a dialog opens over it
  }
  return QMainWindow::event(event);
}

bool Ikkuna::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (isKey && FilterKey(watched, event)) return true;
  if (event->type() == QEvent::Shortcut) NoteShortcut(watched, event);
  const bool isResize = event->type() == QEvent::Resize;
  const bool isRequest = event->type() == QEvent::LayoutRequest;
  // A panel asks when it needs another size: the font or the style has changed.
  if (watched == client_ && (isResize || (isRequest && sizes_ != MeasurePanels()))) {
    LayOut();
    EnforceMinimumSize();
    BringUpToDate();
  }
  const bool isPanel = watched == pala_ || watched == ppalkki_ || watched == pyla_;
  if (isPanel && event->type() == QEvent::MouseButtonPress) pala_->RestFocus();
  return QMainWindow::eventFilter(watched, event);
}

void Ikkuna::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange) EnforceMinimumSize();
  const bool isNormal = (windowState() & (Qt::WindowMinimized | Qt::WindowMaximized)) == 0;
  if (event->type() == QEvent::WindowStateChange && isNormal) unusedPlacement_.reset();
}

void Ikkuna::closeEvent(QCloseEvent* event) {
  // With the session ending while a box of the start is open, the settings are not read yet.
  if (isReady_ && !CleanUp(editor_)) {
    event->ignore();
    return;
  }
  isReady_ = false;
  QMainWindow::closeEvent(event);
}

void Ikkuna::PrepareForSessionEnd() {
  if (isReady_) static_cast<void>(PutAsideAtSessionEnd(editor_));
}

void Ikkuna::EndSession() {
  if (std::exchange(isReady_, false)) CleanUpAtSessionEnd(editor_);
}

void Ikkuna::dragEnterEvent(QDragEnterEvent* event) {
  if (DroppedFile(*event).empty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

// Whatever the source proposes: told that its file was moved here, it would delete it. And it
// waits for this call to end, so a message box may not come before.
void Ikkuna::dropEvent(QDropEvent* event) {
  const bool canCopy = event->possibleActions().testFlag(Qt::CopyAction);
  event->setDropAction(canCopy ? Qt::CopyAction : Qt::IgnoreAction);
  event->accept();
  QTimer::singleShot(0, this, [this, path = DroppedFile(*event)] {
    activateWindow();
    OpenDroppedFile(editor_, path);
    BringUpToDate();
  });
}

void Ikkuna::BringUpToDate() {
  if (std::exchange(panelIsStale_, false)) ShowPanel();
  if (mapIsStale_ && !editor_.redrawSuppressed) ShowMap();
  pala_->ShowState(editor_.view, editor_.pointerText);
  WriteHint(hint_, editor_);
  pala_->ShowHint(hint_);
  ShowMenus();
  if (std::exchange(shownPointer_, editor_.pointer) != editor_.pointer) {
    surface_->setCursor(CursorOf(editor_.pointer));
  }
}

void Ikkuna::ShowPanel() {
  // A handler may be running, with a box of its own open.
  const bool before = std::exchange(editor_.panel.panelRefreshing, true);
  RefreshPanel(editor_.panel.contents, editor_);
  ppalkki_->Apply(editor_.panel.contents);
  pyla_->ShowTool(editor_.document.toolIndex);
  editor_.panel.panelRefreshing = before;
  pala_->RestFocus();
}

void Ikkuna::ShowMap() {
  mapIsStale_ = false;
  const ToolDrawing tool = ToolDrawingOf(editor_);
  surface_->Draw({.document = editor_.document,
                  .selection = editor_.selection,
                  .view = editor_.view,
                  .show = editor_.show,
                  .tool = tool});
}

void Ikkuna::ShowMenus() {
  const auto commands = Commands();
  for (std::size_t i = 0; i < commands.size(); ++i) {
    QAction* action = actions_[i];
    action->setEnabled(commands[i].isEnabled(editor_));
    const std::string_view caption = CaptionOf(commands[i], editor_);
    if (!ShowsSame(action->text(), caption)) action->setText(ToQt(caption));
  }
  if (shownRecent_ && shownRecent_->slots == editor_.recent.slots) return;
  shownRecent_ = editor_.recent;
  for (int slot = 0; slot < kRecentSlots; ++slot) {
    const RecentMenuItem item = RecentMenuItemOf(editor_.recent, slot);
    QAction* action = menuRekentti_[static_cast<std::size_t>(slot)];
    action->setVisible(item.visible);
    // Only the leading "&" is a mnemonic: one inside a path is part of it.
    action->setText("&" + ToQt(item.caption).mid(1).replace("&", "&&"));
  }
}

void Ikkuna::Unload() { close(); }

void Ikkuna::ShowAbout() { About(this).exec(); }

std::string Ikkuna::ShowRecover() { return Recover(editor_, this).Choose(); }

std::string Ikkuna::ShowImport() { return Import(editor_, this).Choose(); }

}  // namespace vesmora
