#include "app/qt/ikkuna.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QTimer>
#include <memory>
#include <random>

#include "app/keys.h"
#include "app/prefab_commands.h"
#include "app/program_folders.h"
#include "app/qt/about.h"
#include "app/qt/import_dialog.h"
#include "app/start_up.h"
#include "app/view_commands.h"
#include "document/numbers.h"
#include "platform/temp_folder.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"
#include "view/layout.h"

namespace vesmora {
namespace {

RandomSource MakeRandomSource() {
  auto engine = std::make_shared<std::mt19937_64>(std::random_device{}());
  return [engine] { return std::uniform_real_distribution<double>(0, 1)(*engine); };
}

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FolderOf(const QString& path) { return (path + "/").toStdString(); }

/// With the kind of slash that people here read and write.
std::string Native(const std::string& path) {
  return QDir::toNativeSeparators(QString::fromStdString(path)).toStdString();
}

Ports MakePorts(Dialogs& dialogs, WindowPort& window, Settings& settings, Shell& shell,
                Programs& programs, ProfileFiles& profiles) {
  FileStatus status;
  const auto [programFolder, gameFolder] =
      FindProgramFolders(SystemFileCalls(), FolderOf(QApplication::applicationDirPath()),
                         qEnvironmentVariable("VESMORA_GAME").toStdString());
  return {{.files = SystemFileCalls(),
           .dialogs = dialogs,
           .display = window,
           .random = MakeRandomSource()},
          window,
          settings,
          shell,
          programs,
          profiles,
          PrivateTempFolder(SystemFileCalls(), status),
          Native(programFolder),
          Native(gameFolder)};
}

QFrame* AddFrame(QWidget* parent, const char* name, const char* accessibleName) {
  auto* frame = new QFrame(parent);
  frame->setObjectName(name);
  frame->setAccessibleName(accessibleName);
  frame->setFrameStyle(QFrame::Panel | QFrame::Raised);
  frame->setAutoFillBackground(true);
  return frame;
}

void Place(QWidget* widget, const PanelRect& rect) {
  widget->setGeometry(rect.left, rect.top, rect.width, rect.height);
}

Qt::CursorShape ToQt(PointerShape shape) {
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

Key ToKey(const QKeyEvent& event) {
  const bool isKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
  const bool isWithAlt = event.modifiers().testFlag(Qt::AltModifier);
  switch (event.key()) {
    case Qt::Key_Shift:
      return Key::kShift;
    case Qt::Key_Control:
      return Key::kCtrl;
    case Qt::Key_Left:
      return Key::kLeft;
    case Qt::Key_Up:
      return isWithAlt ? Key::kOther : Key::kUp;  // opens the list of a combo box
    case Qt::Key_Right:
      return Key::kRight;
    case Qt::Key_Down:
      return isWithAlt ? Key::kOther : Key::kDown;
    case Qt::Key_Escape:
      return Key::kEscape;
    case Qt::Key_Plus:
      return isKeypad ? Key::kKeypadPlus : Key::kOther;
    case Qt::Key_Minus:
      return isKeypad ? Key::kKeypadMinus : Key::kOther;
    default:
      return Key::kOther;
  }
}

std::vector<ScreenRect> ScreenRects() {
  std::vector<ScreenRect> rects;
  for (const QScreen* screen : QApplication::screens()) {
    const QRect area = screen->availableGeometry();
    rects.push_back({area.x(), area.y(), area.width(), area.height()});
  }
  return rects;
}

/// The local file that is dropped; empty for anything else, or for several at once.
QString DroppedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? QDir::toNativeSeparators(urls.first().toLocalFile()) : QString();
}

/// A comfortable window for the first start: most of the screen, but no more than
/// a map needs.
QSize FirstSize() {
  const QSize room = QApplication::primaryScreen()->availableSize() * 0.9;
  return room.boundedTo(QSize(1280, 860));
}

}  // namespace

Ikkuna::Ikkuna()
    : dialogs_(this),
      editor_{{}, MakePorts(dialogs_, *this, settings_, shell_, *programs_, *profiles_)} {
  editor_.state.journal.folder = HoldUndoFolder(SystemFileCalls(), editor_.ports.tempFolder);
  setObjectName("Ikkuna");
  setAcceptDrops(true);
  setWindowTitle(ToQt(WindowTitle(VESMORA_VERSION, VESMORA_COMMENTS)));
  resize(FirstSize());
  BuildPanels();
  BuildMenus();
  ConnectSurface();
  ConnectPanels();
  qApp->installEventFilter(this);
}

void Ikkuna::BuildPanels() {
  client_ = new QWidget(this);
  setCentralWidget(client_);
  surface_ = new MapSurface(client_);
  pyla_ = new ToolPanel(client_);
  pala_ = new ViewPanel(client_);
  ppalkki_ = new InfoPanel(client_);
  fmaski_ = {AddFrame(client_, "Fmaski0", ""), AddFrame(client_, "Fmaski1", "")};
  pala_->ShowState(editor_.state.view, QString());  // seen behind a message at the start
}

void Ikkuna::BuildMenus() {
  std::vector<QMenu*> menus;
  for (const std::string_view caption : MenuCaptions()) {
    menus.push_back(menuBar()->addMenu(ToQt(caption)));
  }
  for (const Command& command : Commands()) {
    QMenu* menu = menus[static_cast<std::size_t>(command.menu)];
    if (command.name == "MenuExit") {
      menu->addSeparator();
      for (int slot = 0; slot < kRecentSlots; ++slot) {
        QAction* item = menu->addAction(QString());
        item->setObjectName(QString("File%1").arg(slot + 1));
        connect(item, &QAction::triggered, this, [this, slot] { MenuRekentti(editor_, slot); });
        menuRekentti_[static_cast<std::size_t>(slot)] = item;
      }
    }
    if (command.startsGroup) menu->addSeparator();
    QAction* action = menu->addAction(ToQt(command.caption));
    action->setObjectName(ToQt(command.name));
    action->setShortcut(QKeySequence(ToQt(command.shortcut), QKeySequence::PortableText));
    if (command.action != nullptr) {
      connect(action, &QAction::triggered, this, [this, run = command.action] {
        run(editor_);
        ShowMenus();
      });
    }
    actions_.push_back(action);
  }
  ShowMenus();
}

void Ikkuna::ConnectSurface() {
  connect(surface_, &MapSurface::Pressed, this, [this](const MouseInput& input) {
    pala_->setFocus();
    PressMouse(editor_.AsEditing(), input);
    ShowMenus();  // the press may have taken an undo step
  });
  connect(surface_, &MapSurface::Moved, this, [this](const MouseInput& input) {
    PointAt(editor_, input);
    // A drag goes on over the panels, but there the pointer is not on the map.
    const QPointF place(input.x, input.y);
    if (client_->childAt(place.toPoint()) != surface_) editor_.state.pointerText.clear();
    pala_->ShowState(editor_.state.view, ToQt(editor_.state.pointerText));
  });
  connect(surface_, &MapSurface::Released, this,
          [this](const MouseInput& input) { ReleaseMouse(editor_.AsEditing(), input); });
  connect(surface_, &MapSurface::WheelTurned, this,
          [this](int delta) { TurnWheel(editor_, delta); });
  connect(surface_, &MapSurface::PointerLeft, this, [this] {
    LeaveMap(editor_);
    pala_->ShowState(editor_.state.view, ToQt(editor_.state.pointerText));
  });
}

void Ikkuna::HandlePanel(const InfoPanel::Handler& handler) {
  const Editing editing = editor_.AsEditing();
  RunHandler({editing, editor_.state.panel}, handler);
  ppalkki_->Apply(editor_.state.panel.contents);
  ShowMenus();
  pala_->setFocus();  // so that keys reach the map again
}

void Ikkuna::ConnectPanels() {
  connect(ppalkki_, &InfoPanel::Triggered, this, &Ikkuna::HandlePanel);
  connect(ppalkki_, &InfoPanel::Typed, this, [this](const InfoPanel::Handler& handler) {
    const Editing editing = editor_.AsEditing();
    handler({editing, editor_.state.panel});
  });
  connect(ppalkki_, &InfoPanel::AuthorClicked, this, [this] { CBauthor_Click(editor_); });
  connect(pyla_, &ToolPanel::ToolChosen, this, [this](ToolMode tool) {
    ChangeTool(editor_.AsEditing(), tool);
    pala_->setFocus();
  });
  connect(pala_, &ViewPanel::ListClosed, this, [this] { pala_->setFocus(); });
  connect(ppalkki_, &InfoPanel::ListClosed, this, [this] { pala_->setFocus(); });
  connect(pala_, &ViewPanel::ZoomChosen, this, [this](int index) {
    ChooseZoom(editor_, index);
    pala_->setFocus();
  });
  connect(pala_, &ViewPanel::GridChosen, this, [this](int index) {
    ChooseGrid(editor_, index);
    pala_->setFocus();
  });
  connect(pala_, &ViewPanel::FixedGridToggled, this, [this](bool isFixed) {
    SetFixedGrid(editor_, isFixed);
    pala_->setFocus();
  });
}

void Ikkuna::Activate(const std::string& arguments) {
  if (activated_) return;
  activated_ = true;
  FirstActivation(editor_, arguments);
  isReady_ = true;
  pala_->setFocus();
}

void Ikkuna::RestorePlacement() {
  const WindowPlacement placement = LoadPlacement(settings_);
  unusedPlacement_ = placement;
  if (placement.state == static_cast<std::int16_t>(WindowState::kMinimised)) {
    setWindowState(Qt::WindowMinimized);
    return;
  }
  if (placement.state.value_or(0) != static_cast<std::int16_t>(WindowState::kNormal)) {
    setWindowState(Qt::WindowMaximized);
    return;
  }
  unusedPlacement_.reset();
  // The client area's place, not the frame's: before the window is up only that one
  // is certain to be met.
  const ScreenRect wanted{placement.left.value_or(RoundToInt16(geometry().x())),
                          placement.top.value_or(RoundToInt16(geometry().y())),
                          placement.width.value_or(RoundToInt16(width())),
                          placement.height.value_or(RoundToInt16(height()))};
  const ScreenRect fitting = FitToScreens(wanted, ScreenRects());
  if (placement.left || placement.top) {
    setGeometry(fitting.left, fitting.top, fitting.width, fitting.height);
  } else {
    resize(fitting.width, fitting.height);
  }
}

WindowPlacement Ikkuna::Placement() const {
  WindowState state = WindowState::kNormal;
  if (isMaximized()) state = WindowState::kMaximised;
  if (isMinimized()) state = WindowState::kMinimised;
  if (unusedPlacement_) {
    WindowPlacement placement = *unusedPlacement_;
    placement.state = static_cast<std::int16_t>(state);
    return placement;
  }
  // A maximised window keeps the place it returns to.
  const bool isNormal = state == WindowState::kNormal;
  const QRect place = isNormal ? geometry() : normalGeometry();
  return {.state = static_cast<std::int16_t>(state),
          .top = RoundToInt16(place.y()),
          .left = RoundToInt16(place.x()),
          .width = RoundToInt16(place.width()),
          .height = RoundToInt16(place.height())};
}

void Ikkuna::Minimize() { showMinimized(); }

void Ikkuna::Unminimize() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  activateWindow();
}

void Ikkuna::RunPendingEvents() { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

void Ikkuna::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (firstResize_) {
    firstResize_ = false;
    RestorePlacement();
  }
  EnforceMinimumSize();
}

/// The minimum counts the frame that the window manager draws, which is known
/// only once the window is up.
void Ikkuna::EnforceMinimumSize() {
  const WindowSize minimum = MinimumWindowSize();
  const QSize frame = frameGeometry().size() - size();
  setMinimumSize(minimum.width - frame.width(), minimum.height - frame.height());
}

void Ikkuna::LayOut() {
  QMainWindow::layout()->activate();  // so that the client area has its size
  const int width = client_->width();
  const int height = client_->height();
  const WindowLayout layout = ComputeLayout(width, height);
  surface_->setGeometry(0, 0, width, height);
  Place(ppalkki_, layout.ppalkki);
  Place(pala_, layout.pala);
  Place(pyla_, layout.pyla);
  Place(fmaski_[0], layout.fmaski0);
  Place(fmaski_[1], layout.fmaski1);
  editor_.state.view.area = ComputeDrawingArea(width, height);
  RedrawMap();
}

bool Ikkuna::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (isKey && IsFirstReceiver(watched) && FilterKey(event)) return true;
  if (watched == client_ && event->type() == QEvent::Resize) LayOut();
  const bool isPanel = watched == pala_ || watched == ppalkki_ || watched == pyla_;
  if (isPanel && event->type() == QEvent::MouseButtonPress) pala_->setFocus();
  return QMainWindow::eventFilter(watched, event);
}

/// An unused key climbs from the focused widget through its parents, each of which
/// passes by here: only the first time counts.
bool Ikkuna::IsFirstReceiver(const QObject* watched) const {
  const QWidget* focused = focusWidget();
  if (focused == menuBar()) return false;  // its arrows walk through the menus
  return isActiveWindow() && watched == (focused != nullptr ? focused : this);
}

bool Ikkuna::FilterKey(QEvent* event) {
  const auto& keyEvent = static_cast<const QKeyEvent&>(*event);
  const Key key = ToKey(keyEvent);
  if (event->type() == QEvent::KeyPress) return KeyDown(editor_, key);
  if (!keyEvent.isAutoRepeat()) KeyUp(editor_, key);
  return false;
}

void Ikkuna::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange) EnforceMinimumSize();
  const bool isNormal = (windowState() & (Qt::WindowMinimized | Qt::WindowMaximized)) == 0;
  if (event->type() == QEvent::WindowStateChange && isNormal) unusedPlacement_.reset();
}

void Ikkuna::closeEvent(QCloseEvent* event) {
  // With the session ending while a box of the start is open, the settings are not read yet.
  if (isReady_) CleanUp(editor_);
  isReady_ = false;
  QMainWindow::closeEvent(event);
}

void Ikkuna::dragEnterEvent(QDragEnterEvent* event) {
  if (DroppedFile(*event).isEmpty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

// Whatever the source proposes: told that its file was moved here, it would delete it. And it
// waits for this call to end, so a message box may not come before.
void Ikkuna::dropEvent(QDropEvent* event) {
  const bool canCopy = event->possibleActions().testFlag(Qt::CopyAction);
  event->setDropAction(canCopy ? Qt::CopyAction : Qt::IgnoreAction);
  event->accept();
  QTimer::singleShot(0, this, [this, path = DroppedFile(*event).toStdString()] {
    activateWindow();
    OpenDroppedFile(editor_, path);
  });
}

void Ikkuna::RedrawMap() {
  EditorState& state = editor_.state;
  if (state.redrawSuppressed) return;
  const ToolDrawing tool = ToolDrawingOf(state);
  surface_->Draw({.document = state.document,
                  .selection = state.selection,
                  .view = state.view,
                  .show = state.show,
                  .tool = tool});
  pala_->ShowState(state.view, ToQt(state.pointerText));
  ShowMenus();
}

void Ikkuna::RefreshInfoPanel() {
  const Editing editing = editor_.AsEditing();
  vesmora::RefreshInfoPanel({editing, editor_.state.panel});
  ppalkki_->Apply(editor_.state.panel.contents);
  pyla_->ShowTool(editor_.state.document.toolIndex);
  ShowMenus();
  pala_->setFocus();
}

void Ikkuna::ShowMenus() {
  const auto commands = Commands();
  for (std::size_t i = 0; i < commands.size(); ++i) {
    actions_[i]->setEnabled(IsEnabled(commands[i], editor_.state));
    actions_[i]->setText(ToQt(CaptionOf(commands[i], editor_.state)));
  }
  for (int slot = 0; slot < kRecentSlots; ++slot) {
    const RecentMenuItem item = RecentMenuItemOf(editor_.state.recent, slot);
    QAction* action = menuRekentti_[static_cast<std::size_t>(slot)];
    action->setVisible(item.visible);
    // Only the leading "&" is a mnemonic: one inside a path is part of it.
    action->setText("&" + ToQt(item.caption).mid(1).replace("&", "&&"));
  }
}

void Ikkuna::SetPointer(PointerShape shape) { surface_->setCursor(ToQt(shape)); }

void Ikkuna::Unload() { close(); }

void Ikkuna::ShowAbout() { About(this).exec(); }

std::string Ikkuna::ShowImport() { return Import(editor_, this).Choose(); }

}  // namespace vesmora
