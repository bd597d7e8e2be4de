// The sessions that fuzzing kept, without their faults, and random ones, some with faults, action
// by action against a record of what map, drawing, panel, messages and files came to: behaviour
// that no other test describes changes on purpose only. VESMORA_RECORD=1 in the environment records
// anew.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "../fuzz/editor_check.h"
#include "document/session_note.h"
#include "support/record.h"
#include "support/sheet.h"

namespace vesmora {
namespace {

/// Places in kWalkFiles.
constexpr std::size_t kFull = 0;
constexpr std::size_t kTerrain = 2;
/// Of waypoints, one of which leads to many that are not there.
const auto kOddLinks = static_cast<std::size_t>(
    std::ranges::find(kWalkFiles, "hostile/target_0.pmp") - kWalkFiles.begin());

constexpr std::size_t kRandomActions = 700;
constexpr std::size_t kToolStays = 24;  // actions
constexpr int kWidth = 200;             // pixels of the window that are painted
constexpr int kHeight = 150;
constexpr std::string_view kDigits = "0123456789abcdef";

/// All arguments on a line, numbers to the last bit.
template <typename... Values>
void Put(std::ostream& out, const char* name, const Values&... values) {
  out << name;
  ((out << ' ' << values), ...);
  out << '\n';
}

/// Sums what is drawn, and paints it on both kinds of screen.
class SummingCanvas final : public Canvas {
 public:
  void Clear() override {
    Add(0);
    Paint([](Canvas& canvas) { canvas.Clear(); });
  }
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override {
    Add(1, pen, from, to);
    Paint([&](Canvas& canvas) { canvas.DrawLine(pen, from, to); });
  }
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override {
    Add(2, pen, corner, opposite);
    Paint([&](Canvas& canvas) { canvas.DrawRectangle(pen, corner, opposite); });
  }
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override {
    Add(3, pen, center, radius);
    Paint([&](Canvas& canvas) { canvas.DrawCircle(pen, center, radius); });
  }
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override {
    Add(4, color, topLeft);
    sum_ = Checksum(std::as_bytes(std::span(text)), sum_);
    Paint([&](Canvas& canvas) { canvas.DrawText(color, topLeft, text); });
  }
  TextSize MeasureText(std::string_view text) override { return coarse_.MeasureText(text); }

  std::uint64_t Sum() const { return fine_.Sum(Checksum(std::as_bytes(std::span(pixels_)), sum_)); }

 private:
  template <typename... Values>
  void Add(const Values&... values) {
    ((sum_ = Checksum(std::as_bytes(std::span(&values, 1)), sum_)), ...);
  }

  template <typename Action>
  void Paint(Action action) {
    action(coarse_);
    action(fine_);
  }

  std::uint64_t sum_ = 0;
  std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(kWidth * kHeight);
  MemoryCanvas coarse_{{pixels_.data(), kWidth, kWidth, kHeight}, false};
  Sheet fine_{kWidth, kHeight, 1.5F};
};

void PutPanel(std::ostream& out, const PanelContents& panel) {
  Put(out, "map", panel.Lkartta1, panel.lAuthor, panel.Lkartta2);
  Put(out, "selected", panel.Fvalinta, panel.Lvalinta, static_cast<int>(panel.highlightedTool));
  const auto check = [&out](const CheckContents& box) {
    Put(out, "check", static_cast<int>(box.tick), box.enabled);
  };
  for (const ButtonContents& button :
       {panel.CBtausta1, panel.CBtausta2, panel.CBverticevari, panel.CByhista, panel.CBerota,
        panel.CBtexPalauta, panel.CBtexPoista}) {
    const Rgb face = button.color.value_or(Rgb{});
    Put(out, "button", button.enabled, button.color.has_value(), +face.red, +face.green,
        +face.blue);
  }
  for (const ComboContents& combo :
       {panel.CBspawn, panel.CBscenery, panel.CBscenery2, panel.CBcollider}) {
    Put(out, "combo", static_cast<int>(combo.list), combo.text, combo.enabled);
  }
  check(panel.CBtexEiKorjaus);
  check(panel.CBverticeLapi);
  std::ranges::for_each(panel.CBnayta, check);
  std::ranges::for_each(panel.CBbotValinta, check);
  for (const auto& options : {std::span<const OptionContents>(panel.OBbotNayta),
                              std::span<const OptionContents>(panel.OBbotKumpi)}) {
    for (const OptionContents& option : options) Put(out, "option", option.chosen, option.enabled);
  }
}

/// What is kept for Recover, which lies on the disk.
std::string KeptBy(const Editor& editor) {
  std::string kept;
  for (const std::string& path : ListRecoverable(editor)) {
    const RecoverContents contents = ShowRecoverable(editor, path);
    kept += contents.lNimi + " " + contents.lSyy + " " + contents.lMaara + "\n";
  }
  return kept;
}

/// The state after an action, and what it asked for.
std::string Seen(EditorWalk& walk) {
  std::ostringstream out;
  out << std::hexfloat;
  const Editor& editor = walk.editor;
  const Activity& activity = editor.activity;
  const ViewTransform& view = editor.view;
  Put(out, "status", walk.Status(), walk.journal.redoAvailable, walk.journal.redoCaption);
  Put(out, "doing", static_cast<int>(activity.Kind()), activity.PlacedCorners(), activity.Liana(),
      activity.Anchor(), static_cast<int>(editor.pointer), editor.pointerText, walk.hint);
  Put(out, "view", view.centerX, view.centerY, view.zoom, view.gridSize, view.fixedGrid,
      view.panning, view.area.width, view.area.height, editor.show.pathFilter);
  for (const std::int16_t flag : editor.show.showFlags) Put(out, "shows", flag);
  for (int slot = 0; slot < kRecentSlots; ++slot) {
    Put(out, "recent", RecentMenuItemOf(editor.recent, slot).caption);
  }
  const SelectionBlock selected = PackSelection(walk.selection, walk.map);
  Put(out, "image", Checksum(ImageOf(walk.map)), walk.map.fileName, walk.map.author);
  Put(out, "selection", Checksum(std::as_bytes(std::span(&selected, 1))));
  Put(out, "keys", Checksum(std::as_bytes(std::span(editor.waypointKeys))));
  const SessionNote note = ReadSessionNote(SystemFileCalls(), walk.journal.folder.path);
  Put(out, "note", note.sequence, note.savedMap == editor.savedMap, note.file, note.mapPath,
      editor.recoveredFrom.empty());
  Put(out, "untold", walk.editor.clipboard.overflow, walk.journal.failureTold);
  PutPanel(out, editor.panel.contents);
  for (const std::string& event : walk.events) Put(out, "event", event);
  const ScriptedDialogs& dialogs = walk.dialogs;
  for (const Message& message : dialogs.messages) Put(out, "message", message);
  for (const FileRequest& asked : dialogs.requests) {
    Put(out, "file", asked.title, asked.directory, asked.fileName);
  }
  for (const TextRequest& asked : dialogs.textRequests) {
    Put(out, "text", asked.title, asked.prompt, asked.answer);
  }
  for (const std::int32_t initial : dialogs.colorRequests) Put(out, "color", initial);
  SummingCanvas canvas;
  const ToolDrawing tool = ToolDrawingOf(editor);
  DrawMap({walk.map, walk.selection, walk.editor.view, editor.show, tool}, canvas);
  Put(out, "drawn", canvas.Sum());
  std::string text = out.str();
  for (const std::string& folder : {walk.folder.Path(), DataPath("../../")}) {
    for (std::size_t at = 0; (at = text.find(folder)) != std::string::npos;) {
      text.replace(at, folder.size(), "~/");
    }
  }
  return text;
}

using Record = std::map<std::string, std::string>;  // two digits an action, by session

Record ReadRecord(const std::string& path) {
  Record record;
  std::ifstream file(path);
  for (std::string name, sums; file >> name >> sums;) record[name] = sums;
  return record;
}

/// Any work on a map, a place in kWalkFiles.
Bytes RandomSession(std::mt19937& random, std::size_t map) {
  Bytes session(1 + kRandomActions * 4);
  for (std::byte& byte : session) byte = static_cast<std::byte>(random());
  session[0] = static_cast<std::byte>(map);
  return session;
}

/// Random work of these actions, on objects rather than anywhere.
Bytes WorkOnObjects(std::size_t map, unsigned seed, std::span<const int> actions) {
  std::mt19937 random(seed);
  Bytes session = RandomSession(random, map);
  for (std::size_t at = 1; at < session.size(); at += 4) {
    session[at] = static_cast<std::byte>(actions[random() % actions.size()]);
    session[at + 3] &= std::byte{0x7C};  // the place is that of an object
  }
  return session;
}

/// What fuzzing kept, and random work with mouse, keys, panel and Edit menu on one map.
std::map<std::string, Bytes> Sessions() {
  std::map<std::string, Bytes> sessions;
  for (unsigned seed = 0; seed < 3; ++seed) {
    using Walk = EditorWalk;
    constexpr std::array kEdits = {Walk::kPress, Walk::kPress, Walk::kRelease, Walk::kMove,
                                   Walk::kEdit,  Walk::kEdit,  Walk::kEdit,    Walk::kPanel};
    constexpr std::array kTools = {Walk::kPress, Walk::kPress, Walk::kMove, Walk::kMove,
                                   Walk::kKey,   Walk::kKey,   Walk::kEdit, Walk::kTool};
    constexpr std::array kFailing = {Walk::kPress, Walk::kRelease, Walk::kEdit,  Walk::kEdit,
                                     Walk::kPanel, Walk::kCommand, Walk::kFault, Walk::kFault};
    const std::string number = std::to_string(seed);
    sessions["objects" + number] = WorkOnObjects(seed == 0 ? kOddLinks : kTerrain, seed, kEdits);
    sessions["tools" + number] = WorkOnObjects(seed == 0 ? kFull : kTerrain, seed, kTools);
    sessions["failing" + number] = WorkOnObjects(kTerrain, seed, kFailing);
  }
  for (const auto& entry :
       std::filesystem::directory_iterator(DataPath("../../fuzz/corpus/editor"))) {
    sessions[entry.path().filename().string()] = FileBytes(entry.path().string());
  }
  for (std::size_t seed = 0; seed < kWalkFiles.size(); ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    Bytes& session = sessions["random" + std::to_string(seed)] = RandomSession(random, seed);
    for (std::size_t at = 1; at < session.size(); at += 4) {
      const std::size_t stays = at / 4 % (2 * kToolStays);
      // A tool is used for a while, then anything.
      const unsigned end =
          stays < kToolStays ? EditorWalk::kFirstTool : EditorWalk::kFirstBeyondEdits;
      session[at] = static_cast<std::byte>(stays == 0 ? end : random() % end);
    }
  }
  return sessions;
}

TEST(RecordedSessionsTest, GoAsTheyDid) {
#if defined(__clang__) || defined(_WIN32)
  GTEST_SKIP() << "the sign of a not-a-number and the last bit of a sine are the compiler's choice";
#endif
  const std::string path = DataPath("recorded_sessions.txt");
  const bool isRecording = IsRecording();
  const Record known = ReadRecord(path);
  Record record;
  for (const auto& session : Sessions()) {
    const std::string& name = session.first;
    const Bytes& bytes = session.second;
    const std::span input(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    if (input.size() < 5) continue;  // no action
    std::string& sums = record[name];
    EditorWalk walk(input[0], name.starts_with("failing"));
    std::string kept;
    int recoverable = 0;
    walk.onAction = [&] {
      if (std::exchange(recoverable, walk.editor.recoverable) != walk.editor.recoverable) {
        kept = KeptBy(walk.editor);
      }
      const std::string seen = Seen(walk) + kept;
      const auto sum = Checksum(std::as_bytes(std::span(seen)));
      sums += {kDigits[sum % 16], kDigits[sum / 16 % 16]};
      if (isRecording || (known.contains(name) && known.at(name).starts_with(sums))) return;
      ADD_FAILURE() << name << ", action " << sums.size() / 2 << ", comes to\n"
                    << seen.substr(0, 3000);
    };
    walk.Run(input.subspan(1));
    if (HasFailure()) return;
  }
  if (!isRecording) {
    EXPECT_TRUE(record == known) << "other sessions, or shorter ones, than are on record";
    return;
  }
  std::ofstream file(path);
  for (const auto& [name, sums] : record) file << name << ' ' << sums << '\n';
}

}  // namespace
}  // namespace vesmora
