// A session at an editor without a window in which anything may happen: input of every kind, all
// commands and handlers, files that are damaged, system calls that fail, ends without warning.
// No list leads out of its table, and Undo and Redo bring back each byte or tell that they cannot.
//
//   byte 0   the map that is open at first, a place in kWalkFiles
//   else     actions of four bytes: which of kActions, and what it is done with
#pragma once

#include <cerrno>
#include <cmath>
#include <map>
#include <random>

#include "app/commands.h"
#include "app/hints.h"
#include "app/prefab_commands.h"
#include "app/safety_net.h"
#include "app/start_up.h"
#include "app/undo_commands.h"
#include "app/view_commands.h"
#include "app/window_placement.h"
#include "document/checksum.h"
#include "map_check.h"
#include "panel/panel_handlers.h"
#include "panel/refresh_panel.h"
#include "platform/settings_file.h"
#include "platform/text.h"
#include "support/bench.h"
#include "view/layout.h"
#include "view/map_picture.h"
#include "view/memory_canvas.h"
#include "view/scenery_shape.h"

namespace vesmora {

/// What boxes, dialogs and files are filled with.
inline constexpr std::string_view kWalkTexts =
    "-1|2|999|7.5|1e39|nan|150%|75%|50%|16|CTF Red|CTF Blue|Normal|Many types|Liana|Stone||"
    "\r\n| A\n|Unknow|\xC3\xA5\xE2\x82\xAC\xFF|Much too long a name|[GAME]\nGameStyle=3\n|"
    "[game]\ngamestyle=|GameStyle=3\n[GAME|[GAME]\n[OTHER]\nGameStyle=3\n";
inline constexpr auto kWalkTextCount =
    static_cast<unsigned>(std::ranges::count(kWalkTexts, '|') + 1);

#ifdef _WIN32  // where every name is text
inline constexpr const char* kOddName = "\xC3\xBF.PMP";
#else
inline constexpr const char* kOddName = "\xFF.PMP";
#endif

/// Maps and prefabs of tests/data, and names of which nothing is there.
inline const auto kWalkFiles = [] {
  std::vector<std::string> files = {
      "full.pmp", "small.pmp", "terrain.pmp", "large.pre", "temp",      "game/MAPS/ctf_a.pmp",
      "none.pmp", "none.pre",  "no/such.pmp", kOddName,    "notes.txt", ""};
  for (const auto& entry : std::filesystem::directory_iterator(DataPath("hostile"))) {
    files.push_back("hostile/" + entry.path().filename().string());
  }
  std::sort(files.begin() + 12, files.end());
  return files;
}();

class EditorWalk : public Bench {
 public:
  /// Without `mayFail` no call fails, nothing is killed and no undo file is damaged.
  explicit EditorWalk(unsigned first, bool mayFail = true) : mayFail_(mayFail) {
    editor.ports.programFolder = DataPath("../../data/");
    now = 8'000'000'000'000;  // later than any file, so that what is kept last is the newest
    std::filesystem::create_directories(folder / "game/MAPS");
    std::filesystem::create_directories(folder / "game/MapMaker");
    PutFile(folder / "game/MapMaker/MapMaker.exe", {});
    PutFile(folder / "game/Soldat.exe", {});
    std::filesystem::copy_file(Named(1), PathOf(folder / "game/MAPS/small.pmp"));
    dialogs.before = [this] { Answer(); };
    window.onRefresh = [this] { isStale_ = true; };
    files.onOpenInPlace = [this](const std::string& path) { NoteStep(path); };
    OpenMap(editor, Named(first));
  }

  std::function<void()> onAction = [] {};  // runs after each
  std::string hint;

  void Run(std::span<const std::uint8_t> actions) {
    for (std::size_t at = 0; at + 4 <= actions.size(); at += 4) {
      std::ranges::copy(actions.subspan(at, 4), input_.begin());
      SCOPED_TRACE("action " + std::to_string(at / 4));
      Act();
      if (testing::Test::HasFailure()) return;
    }
  }

 private:
  /// As a file has it.
  using State = std::pair<DocumentState, SelectionBlock>;
  struct Step {
    State before;
    State after = {};  // once it was undone
    std::string files;
    bool isSpoiled = false;  // one of its files was damaged
  };

  void Act() {
    ++now;
    NoteBefore();
    nextRandom = input_[3] / 256.0;
    const auto end = std::ranges::lower_bound(kEnds, input_[0]);
    (this->*kActions[static_cast<std::size_t>(end - kEnds.begin())])();
    FollowJournal();
    BringUpToDate();
    CheckState();
    onAction();
    events.clear();
    dialogs.messages.clear();
    dialogs.requests.clear();
    dialogs.textRequests.clear();
    dialogs.colorRequests.clear();
  }

  void NoteBefore() {
    *before_ = map;
    isPlain_ = editor.activity.Is(ActivityKind::kNone);
  }

  void CheckState() {
    CheckRanges(map, selection);
    const Activity& activity = editor.activity;
    EXPECT_LE(activity.Anchor(), map.waypoints.last);
    EXPECT_TRUE(activity.PlacedCorners() <= 2 && map.polygons.last >= -1);
    EXPECT_EQ(activity.PlacedCorners() > 0, activity.Is(ActivityKind::kTriangle));
    const bool isEdits = activity.HoldsButton() || activity.Is(ActivityKind::kPlacement);
    EXPECT_TRUE(activity.Is(ActivityKind::kNone) || isEdits == editor.IsTool(ToolMode::kEdit));
    EXPECT_FALSE(editor.panel.panelRefreshing);
    EXPECT_LT(journal.undoAvailable + journal.redoAvailable + 2, kUndoSteps + 1);
  }

  void BringUpToDate() {
    if (std::exchange(isStale_, false)) RefreshPanel(editor.panel.contents, editor);
    WriteHint(hint, editor);
  }

  /// Another one for each dialog.
  void Answer() {
    BringUpToDate();
    const unsigned number = input_[3]++;
    const auto color = static_cast<std::int32_t>(number * 65793);
    dialogs.answers = {number % 2 == 0};
    dialogs.chosenFiles = {Named(number)};
    dialogs.texts = {Text(number)};
    dialogs.chosenColors = {number % 4 == 0 ? std::nullopt : std::optional(color)};
  }
  static std::string Text(unsigned number) {
    std::string_view rest = kWalkTexts;
    for (number %= kWalkTextCount; number > 0; --number) rest.remove_prefix(rest.find('|') + 1);
    return std::string(rest.substr(0, rest.find('|')));
  }
  std::string Named(unsigned number) {
    const std::string& name = kWalkFiles[number % kWalkFiles.size()];
    const auto source = PathOf(DataPath(name));
    if (!std::filesystem::is_regular_file(source)) return name.empty() ? name : folder / name;
    static std::map<std::string, Bytes> contents;
    Bytes& bytes = contents[name];
    if (bytes.empty()) bytes = FileBytes(DataPath(name));
    const std::string path = folder / name.substr(name.find('/') + 1);
    if (!std::filesystem::exists(PathOf(path))) PutFile(path, bytes);
    return path;
  }

  // What Undo and Redo are measured by: the map at the moment each of their files is written.

  static MapDocument AsFiled(const MapDocument& map) {
    MapDocument filed = map;
    StoreAuthor(filed);
    filed.author = ReadAuthor(filed);
    return filed;
  }
  void NoteStep(const std::string& path) {
    const bool isUndo = path.find("VesmoraUndo") != std::string::npos;
    const bool isRedo = path.find("VesmoraRedo") != std::string::npos;
    if (!(isUndo || isRedo) || !path.ends_with(".tmp")) return;
    FollowJournal();
    const auto filed = std::make_unique<MapDocument>(AsFiled(map));
    if (isUndo) WaypointsToMemory(*filed);
    written_ = {.before = {StateOf(*filed), PackSelection(selection, *filed)}, .files = path};
    isUndoWritten_ = isUndo;
    if (!std::exchange(isPlain_, false)) return;
    const auto expected = std::make_unique<MapDocument>(AsFiled(*before_));
    if (isUndo) {
      expected->randomId = map.randomId;
      WaypointsToFile(*expected);
      WaypointsToMemory(*expected);
    }
    EXPECT_TRUE(written_.before.first == StateOf(*expected)) << "a step of something else";
  }
  /// The steps that the journal has taken, dropped or forgotten since the last time.
  void FollowJournal() {
    const int steps = (journal.undoSlot - std::exchange(slot_, journal.undoSlot) + 15) % 10 - 5;
    if (steps > 0 && std::exchange(isUndoWritten_, false)) undo_.push_back(std::move(written_));
    for (int i = steps; i < 0 && !undo_.empty(); ++i) undo_.pop_back();
    const auto keep = [](auto& list, int available) {
      EXPECT_LE(available + 1, static_cast<int>(list.size())) << "a step that never was";
      while (static_cast<int>(list.size()) > std::max(available + 1, 0)) list.pop_front();
    };
    keep(undo_, journal.undoAvailable);
    keep(redo_, journal.redoAvailable);
  }
  void GoBack(const Command& command) {
    const bool isUndo = command.action == MenuUndo;
    if ((isUndo ? undo_ : redo_).empty()) return RunCommand(editor, command);
    Step step = (isUndo ? undo_ : redo_).back();
    const State before = {StateOf(map), PackSelection(selection, map)};
    const bool isHelp = isUndo && journal.NewestAction() == "Help";
    const int failures = files.Failures();
    written_.files.clear();
    RunCommand(editor, command);
    const State after = {StateOf(map), PackSelection(selection, map)};
    const bool isDone = journal.undoSlot != slot_;
    if (isUndo && isDone && journal.redoAvailable >= 0) {
      redo_.push_back({step.before, written_.before, step.files + written_.files, step.isSpoiled});
    }
    if (!isUndo) redo_.pop_back();
    if (!isUndo && isDone) {
      undo_.push_back(step);
      slot_ = journal.undoSlot;
    }
    if (isHelp || step.isSpoiled) return;
    const bool choosesTool = isUndo && !editor.IsTool(ToolMode::kEdit);  // with nothing selected
    const State& expected = isUndo ? step.before : step.after;
    if (after == State(expected.first, choosesTool ? after.second : expected.second)) return;
    EXPECT_GT(files.Failures(), failures) << command.name << " brings back another map";
    EXPECT_FALSE(dialogs.messages.empty()) << command.name << " tells nothing";
    EXPECT_TRUE(after == before || IsEmpty(map)) << command.name << " fails half";
  }

  // The actions.

  /// On some object, near the last place, or anywhere, beyond the window's edges included.
  MouseInput Somewhere(MouseButton button) const {
    const ViewTransform& view = editor.view;
    const auto [action, a, b, how] = input_;
    ScreenPoint place{static_cast<float>(a * 6 - 150), static_cast<float>(b * 4 - 100)};
    if (how % 4 == 0) {
      const auto chosen = [number = a + 256 * b](auto& table) -> auto& {
        return table[number % std::max(table.Count(), 1)];
      };
      const SceneryObject& scenery = chosen(map.sceneries);
      const auto [along, across] = SidesOf(scenery);
      const std::array<WorldPoint, 5> objects = {
          {PlaceOf(chosen(map.polygons).vertices[b % 3U]),
           PlaceOf(chosen(map.waypoints)),
           PlaceOf(scenery),
           {scenery.x + along.x, scenery.y + along.y},
           {scenery.x + along.x + across.x, scenery.y + along.y + across.y}}};
      constexpr std::array kBeside = {0.F, 0.F, 0.F, 2.5F, -3.5F, 5.F};
      const WorldPoint object = objects[how / 4 % 5U];
      place = {view.LaskeRuutuX(object.x + kBeside[how / 20 % 6U]), view.LaskeRuutuY(object.y)};
    } else if (how % 4 == 1) {
      place = {view.lastMouseX + static_cast<float>(a % 32 - 16),
               view.lastMouseY + static_cast<float>(b % 32 - 16)};
    }
    const bool isPlace = std::isfinite(place.x + place.y);
    return {button, isPlace ? place.x : 0, isPlace ? place.y : 0, how == 2, how == 6};
  }
  MouseButton Button() const { return input_[3] > 208 ? MouseButton::kRight : MouseButton::kLeft; }
  void DoMove() { PointAt(editor, Somewhere(MouseButton::kNone)); }
  void DoPress() {
    const MouseInput place = Somewhere(Button());
    if (input_[3] % 4 == 0) {  // as a hand does, so that the object there is found
      PointAt(editor, place);
      NoteBefore();
    }
    PressMouse(editor, place);
  }
  void DoRelease() { ReleaseMouse(editor, Somewhere(Button())); }
  void DoKey() {
    const auto key = static_cast<Key>(input_[1] % (static_cast<int>(Key::kEscape) + 1));
    const KeyModifiers held{.shift = input_[2] % 2 == 0, .ctrl = input_[2] % 4 < 2};
    if (input_[3] % 3 == 0) return KeyUp(editor, key);
    if (KeyDown(editor, key, held)) events.push_back("taken");
  }
  void DoTool() { ChooseTool(editor, static_cast<ToolMode>(input_[1] % kToolCount)); }
  void DoView() {
    const int number = input_[1];
    const int what = input_[3] % 8;
    if (what == 0) ChooseZoom(editor, number % static_cast<int>(kZoomLevels.size()));
    if (what == 1) ChooseGrid(editor, number % static_cast<int>(kGridSizes.size()));
    if (what == 2) SetFixedGrid(editor, number % 2 == 0);
    if (what == 3) LeaveMap(editor);
    if (what == 4) {
      const PanelSizes sizes{332, 40, 40, 800};
      const WindowSize least = MinimumWindowSize(sizes, {8, 30}, {number * 8, 700});
      const ScreenRect wanted{number * 9 - 900, input_[2] * 8, number * 8, input_[2] * 6};
      const std::array<ScreenRect, 2> screens = {{{0, 0, 1024, 768}, {1024, 0, 1900, 1000}}};
      const ScreenRect seen = FitToScreens(wanted, screens);
      EXPECT_TRUE(least.width <= 1200 && seen.width <= 1900 && seen.left < 2924);
      EXPECT_EQ(ComputeLayout(sizes, seen.width, seen.height).ppalkki.width, 332);
      editor.view.area = ComputeDrawingArea(sizes, seen.width, seen.height);
    }
    const int notches = input_[2] % 2 == 0 ? 120 : input_[2] + 1;  // a whole one, or anything
    if (what > 4) TurnWheel(editor, number < 128 ? -notches : notches);
  }
  void DoPanel() {
    static constexpr auto kPlain = std::to_array<void (*)(PanelEditing&)>(
        {CBtausta1_Click, CBtausta2_Click, CBverticevari_Click, CByhista_Click, CBerota_Click,
         CBtexPalauta_Click, CBtexPoista_Click, ForgetTyping, CBspawn_DropDown, CBscenery_DropDown,
         CBscenery2_DropDown});
    static constexpr auto kTexted = std::to_array<void (*)(PanelEditing&, const std::string&)>(
        {CBspawn_Click, CBscenery_Click, CBscenery2_Click, CBcollider_Click, CBscenery2_Change,
         CBcollider_Change, CBscenery2_Enter, CBcollider_Enter});
    const int number = input_[2];
    const bool isTicked = input_[3] % 2 == 0;
    std::vector<std::function<void(PanelEditing&)>> acts(kPlain.begin(), kPlain.end());
    const auto with = [](auto run, auto... values) {
      return [=](PanelEditing& editing) { run(editing, values...); };
    };
    for (const auto run : kTexted) acts.push_back(with(run, Text(input_[2])));
    for (const auto run : {CBtexEiKorjaus_Click, CBverticeLapi_Click}) {
      acts.push_back(with(run, isTicked));
    }
    acts.push_back(with(CBnayta_Click, number % 7, isTicked));
    acts.push_back(with(CBbotValinta_Click, number % 5, isTicked));
    acts.push_back(with(OBbotKumpi_Click, number % 2 + 1));
    acts.push_back(with(OBbotNayta_Click, number % 3));
    RunHandler(editor, acts[input_[1] % acts.size()]);
  }
  const Command& ChosenCommand() const { return Commands()[input_[1] % Commands().size()]; }
  void DoCommand() { Do(ChosenCommand()); }
  void DoEdit() {
    const auto inMenu = [](const Command& command) { return command.menu == CommandMenu::kEdit; };
    const auto first = std::ranges::find_if(Commands(), inMenu);
    const auto count = std::ranges::count_if(Commands(), inMenu);
    Do(first[input_[1] % count]);
  }
  void Do(const Command& command) {
    if (!command.isEnabled(editor)) return;
    const auto lost = ListRecoverable(editor);
    window.chosenRescue = lost.empty() || input_[2] % 4 == 0 ? "" : lost[input_[2] % lost.size()];
    window.chosenPrefab = Named(input_[2]);
    programs.windows.clear();
    if (input_[2] % 3 == 0) programs.windows = {"Soldat", "Soldat Map Maker"};
    programs.problem = input_[2] % 3 == 1 ? "no such program" : "";
    if (command.action == MenuUndo || command.action == MenuRedo) return GoBack(command);
    RunCommand(editor, command);
  }
  void DoDrop() { OpenDroppedFile(editor, Named(input_[1])); }
  void DoOther() {
    const int slot = input_[2] % kRecentSlots;
    if (input_[1] % 2 == 0) return CBauthor_Click(editor);
    if (RecentMenuItemOf(editor.recent, slot).visible) MenuRekentti(editor, slot);
  }
  /// All that is shown of the map and of files.
  void DoLook() {
    static std::vector<std::uint32_t> pixels(2048 * 1536);
    const DrawingArea& area = editor.view.area;
    MemoryCanvas canvas({pixels.data(), area.width, area.width, area.height}, false);
    const ToolDrawing tool = ToolDrawingOf(editor);
    DrawMap({map, selection, editor.view, editor.show, tool}, canvas);
    MemoryCanvas picture({pixels.data(), 200, 200, 100}, false);
    DrawPicture(map, 200, 100, picture);
    auto prefabs = ListPrefabs(editor.ports);
    prefabs.insert(prefabs.end(), {"", "none.pre"});
    const ImportContents prefab = ShowPrefab(editor, prefabs[input_[1] % prefabs.size()]);
    events.push_back(prefab.lName + prefab.lAuthor + prefab.lMaara + prefab.lMaara2 +
                     std::to_string(prefab.map ? Fingerprint(*prefab.map) : 0));
    for (const std::string& path : ListRecoverable(editor)) ShowRecoverable(editor, path);
  }
  /// Any bytes, as files hold them.
  void DoScramble() {
    ChooseTool(editor, map.toolIndex);  // ends what is in progress
    std::minstd_rand random(input_[1] + 256U * input_[2]);
    const auto scramble = [&](auto& records) {
      auto& record = records[random() % records.size()];
      std::array<std::uint8_t, sizeof(record)> bytes;
      const unsigned mask = input_[3] % 4 == 0 ? 0xFFU : 0U;  // not-a-number and -1
      for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random() | mask);
      std::memcpy(&record, bytes.data(), sizeof(record));
    };
    VisitTables(map, [&](auto& table) {
      scramble(table.slots);
      table.SetCount(std::max(table.Count() - input_[3] % 2, 0));
    });
    scramble(map.sectors);
    map.sectorDivision = static_cast<std::int32_t>(random() % 99);
    map.texture = MakeTextureName(Text(input_[2]));
    DropMissing(selection, map);
  }
  void DoDamage() {
    std::vector<std::filesystem::path> paths = {PathOf(folder / "game/soldat.ini")};
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(PathOf(folder.Path()))) {
      paths.push_back(entry.path());
    }
    std::sort(paths.begin() + 1, paths.end());
    const auto& path = paths[input_[1] < 64 || !mayFail_ ? 0 : input_[1] % paths.size()];
    const std::u8string u8 = path.u8string();
    const std::string name(u8.begin(), u8.end());
    for (auto* steps : {&undo_, &redo_}) {
      for (Step& step : *steps) step.isSpoiled |= step.files.find(name) != std::string::npos;
    }
    const auto size = std::filesystem::file_size(path, error);
    const auto place = (error ? 0 : size) / 256 * input_[2];
    if (input_[3] % 8 == 0) std::filesystem::remove_all(path, error);
    if (input_[3] % 8 == 1) std::filesystem::resize_file(path, place, error);
    if (input_[3] % 8 == 2) std::ofstream(path, std::ios::app) << Text(input_[2]);
    if (input_[3] % 8 > 2) {
      std::fstream(path).seekp(static_cast<std::streamoff>(place)) << Text(input_[3]);
    }
  }
  /// At one of the next calls, at two of them, or from there on.
  void DoFault() {
    if (!mayFail_) return;
    using Lasting = FaultyFileCalls::Lasting;
    constexpr std::array kErrors = {EIO, ENOSPC, ENOENT, EACCES};
    const int how = input_[3] % 8;
    const int first = files.Count() + 1 + input_[1] % 32;
    files.FailCall(how > 0 ? first : 0, kErrors[input_[2] % kErrors.size()],
                   how == 1 ? Lasting::kForGood : Lasting::kOnce);
    files.FailAlso(how % 2 == 0 ? first + 1 + input_[2] % 8 : 0);
    files.LimitFileSize(how == 3 ? input_[2] * 4096U : ~std::uint64_t{0});
  }
  void DoEnd() {
    settings.stored.failure = input_[2] % 4 == 1 ? FileFailure::kError : FileFailure::kNone;
    if (input_[1] % 3 == 0 && !Close()) return;
    if (input_[1] % 3 == 1) CleanUpAtSessionEnd(editor);
    StartAnew();
  }
  /// False when the window would stay.
  bool Close() {
    const bool mustBeKept = IsChanged(editor) && !editor.refused;
    if (!CleanUp(editor)) return false;
    if (!mustBeKept) return true;
    Repair();
    const std::uint64_t open = WithoutTriangle(editor, [this] { return Fingerprint(map); });
    const auto kept = ListRecoverable(editor);
    const auto newest = kept.empty() ? std::nullopt : ReadRescued(files, kept[0]);
    EXPECT_TRUE(newest && Fingerprint(*newest->map) == open) << "not kept at the end";
    return true;
  }
  /// No call fails any more.
  void Repair() {
    files.FailCall(0, 0);
    files.FailAlso(0);
  }
  void DoKill() {
    if (mayFail_) files.DieBefore(files.Count() + 1 + input_[3] % 64);
    try {
      DoCommand();
    } catch (const FaultyFileCalls::Killed&) {
      StartAnew();
    }
    files.DieBefore(0);
  }
  void StartAnew() {
    const Ports ports = editor.ports;
    journal.folder = {};
    other_ = {};
    if (input_[2] % 2 == 0) other_ = HoldUndoFolder(files, ports.tempFolder);
    std::destroy_at(holder.get());
    std::construct_at(holder.get(), ports);
    undo_.clear();
    redo_.clear();
    slot_ = journal.undoSlot;
    isPlain_ = isUndoWritten_ = false;
    journal.folder = HoldUndoFolder(files, ports.tempFolder);
    editor.view.area = {1200, 800, 332, 40, 40};
    FirstActivation(editor, "\"" + Named(input_[2]) + "\"");
  }
  /// Another run's settings, in a file that may be damaged.
  void DoSettings() {
    const std::string path = folder / "settings/Vesmora.ini";
    SettingsFile stored(files, path);
    LoadRecent(editor.recent, stored);
    window.placement = LoadPlacement(stored);
    editor.recent.slots[input_[1] % 5U] = Text(input_[2]);
    StoreRecent(editor.recent, stored);
    StorePlacement(window.placement, stored);
    if (!stored.Store().Ok()) return;
    Repair();
    SettingsFile again(files, path);
    RecentFiles recent;
    LoadRecent(recent, again);
    for (std::string& slot : editor.recent.slots) slot = TrimBlanks(slot);
    EXPECT_EQ(recent.slots, editor.recent.slots);
  }

  using Action = void (EditorWalk::*)();
  static constexpr auto kActions = std::to_array<Action>(
      {&EditorWalk::DoMove, &EditorWalk::DoPress, &EditorWalk::DoRelease, &EditorWalk::DoKey,
       &EditorWalk::DoPanel, &EditorWalk::DoEdit, &EditorWalk::DoTool, &EditorWalk::DoView,
       &EditorWalk::DoCommand, &EditorWalk::DoOther, &EditorWalk::DoScramble, &EditorWalk::DoLook,
       &EditorWalk::DoDrop, &EditorWalk::DoDamage, &EditorWalk::DoFault, &EditorWalk::DoEnd,
       &EditorWalk::DoKill, &EditorWalk::DoSettings});
  /// Where the first bytes end that mean it.
  static constexpr std::array<std::uint8_t, kActions.size()> kEnds = {
      63, 99, 123, 139, 163, 185, 193, 201, 209, 213, 218, 222, 227, 235, 243, 247, 251, 255};

 public:
  // First bytes of these actions.
  static constexpr int kMove = kEnds[0];
  static constexpr int kPress = kEnds[1];
  static constexpr int kRelease = kEnds[2];
  static constexpr int kKey = kEnds[3];
  static constexpr int kPanel = kEnds[4];
  static constexpr int kEdit = kEnds[5];
  static constexpr int kTool = kEnds[6];
  static constexpr int kCommand = kEnds[8];
  static constexpr int kFault = kEnds[14];
  /// First bytes from here on mean a tool, and from there on more than editing and looking.
  static constexpr unsigned kFirstTool = kEnds[5] + 1;
  static constexpr unsigned kFirstBeyondEdits = kEnds[7] + 1;

 private:
  const bool mayFail_;
  std::array<std::uint8_t, 4> input_{};
  const std::unique_ptr<MapDocument> before_ = std::make_unique<MapDocument>();
  bool isPlain_ = false;  // no step yet in this action, and nothing was in progress before it
  bool isStale_ = false;
  UndoFolder other_;  // another editor's, while it runs
  // What Undo and Redo must bring back.
  std::deque<Step> undo_;
  std::deque<Step> redo_;
  Step written_;  // its file, at least in part
  bool isUndoWritten_ = false;
  std::int16_t slot_ = journal.undoSlot;  // as last followed
};

inline void CheckEditorInput(std::span<const std::uint8_t> data) {
  if (data.empty()) return;
  EditorWalk(data[0]).Run(data.subspan(1));
}

}  // namespace vesmora
