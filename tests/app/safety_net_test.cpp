// What was done and not saved: undone, redone, kept for Recover, and given back after an end that
// nobody wanted.
#include "app/safety_net.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <set>

#include "app/start_up.h"
#include "app/undo_commands.h"
#include "document/checksum.h"
#include "document/session_note.h"
#include "document/undo_file.h"
#include "platform/settings_file.h"
#include "platform/temporary_name.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class SafetyNetTest : public testing::Test, protected Bench {
 protected:
  /// The map with a step before it and something changed, down to parts of a world unit.
  void Edit(int mark) {
    TakeUndoSnapshot(editor, "Step" + std::to_string(mark));
    map.sectorDivision = mark;
    if (map.waypoints.Empty()) AddWaypoint(map, 0, 0, 1, {});
    map.waypoints[0].x = 1001 * mark;
    map.toolIndex = mark % 3 == 0 ? ToolMode::kAddWaypoint : ToolMode::kEdit;
    selection.waypoints.SetCount(0);
    if (mark % 2 == 0) ListFrom(0, map.waypoints, selection.waypoints);
  }
  /// As if the system had ended the editor, and another was started.
  Editor& StartAnew(Editor* old = nullptr) {
    files.DieBefore(0);
    (old == nullptr ? journal.folder : old->journal.folder) = {};
    next_ = std::make_unique<Editor>(editor.ports);
    next_->journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
    problems_ += FindLostMaps(*next_).Ok() ? 0 : 1;
    return *next_;
  }
  std::uint64_t NewestKept(const Editor& of) {
    const auto paths = ListRecoverable(of);
    return paths.empty() ? 0 : Fingerprint(*ReadRescued(files, paths[0])->map);
  }

  std::ptrdiff_t TimesKept(const Editor& of, std::uint64_t wanted) {
    return std::ranges::count(ListRecoverable(of), wanted, [this](const std::string& path) {
      return Fingerprint(*ReadRescued(files, path)->map);
    });
  }

  std::unique_ptr<Editor> next_;
  int problems_ = 0;  // that a start has told
};

/// At a random call of a random session. At most one finished edit is missing, and what was saved
/// or empty comes not back.
TEST_F(SafetyNetTest, KilledAnywhereTheNextStartKeepsTheMap) {
  constexpr int kRuns = 150;
  std::mt19937 random(11);
  int mark = 0;
  int kept = 0;
  for (int run = 0; run < kRuns; ++run) {
    std::filesystem::remove_all(editor.ports.settingsFolder);
    next_.reset();
    journal.folder = {};
    journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
    StartNewMap(editor);
    const std::uint64_t empty = Fingerprint(map);
    std::vector<std::uint64_t> states = {empty, empty};  // each another one
    std::set<std::uint64_t> saved = {empty};             // by the last save or New, or one before
    std::set<std::uint64_t> keptBefore = {0};            // by New
    try {
      files.DieBefore(files.Count() + 1 + static_cast<int>(random() % 150));
      while (true) {
        switch (random() % 10) {
          case 0:
          case 1:
            MenuUndo(editor);
            break;
          case 2:
            MenuRedo(editor);
            break;
          case 3:
            MenuHelp(editor);
            break;
          case 4:
            dialogs.chosenFiles = {folder / "a.pmp"};
            saved.insert(Fingerprint(map));
            MenuSaveAs(editor);
            saved = {Fingerprint(map)};
            break;
          case 5:
            if (random() % 2 == 0) break;
            if (IsChanged(editor)) keptBefore.insert(Fingerprint(map));
            MenuNew(editor);
            saved = {empty};
            break;
          default:
            Edit(++mark);
        }
        ++now;
        if (states.back() != Fingerprint(map)) states.push_back(Fingerprint(map));
      }
    } catch (const FaultyFileCalls::Killed&) {
      const std::uint64_t inMemory = Fingerprint(map);
      const auto isLate = [&](std::uint64_t state) {
        return state == inMemory || state == states.back() || state == states[states.size() - 2];
      };
      const Editor& after = StartAnew();
      const std::uint64_t newest = NewestKept(after);
      EXPECT_TRUE(isLate(newest) ||
                  (keptBefore.contains(newest) && std::ranges::any_of(saved, isLate)))
          << "run " << run << ", " << states.size() - 2 << " actions";
      EXPECT_THAT(ListFiles(files, after.journal.folder.path).names,
                  testing::Each(testing::Not(HasSubstr("Vesmora"))))
          << "swept";
      kept += newest != 0 ? 1 : 0;
    }
  }
  EXPECT_GT(kept, kRuns / 2);
}

TEST_F(SafetyNetTest, AnUndoFileWithAByteOfAnotherIsKnown) {
  Load(DataPath("small.pmp"));
  Bytes file = ExactUndoFile(map, selection, 5);
  constexpr std::size_t kAboutTheMark = kUndoFileSize - 400;  // from there on, each one
  for (std::size_t at = 0; at < file.size(); at += at < kAboutTheMark ? 331 : 1) {
    const bool isSector = at >= kSectorsOffset && at < kSectorsOffset + sizeof(map.sectors);
    if (isSector) continue;  // no edit changes them
    file[at] ^= std::byte{1};
    EXPECT_FALSE(MarkOfWhole(file).has_value()) << at;
    file[at] ^= std::byte{1};
  }
  EXPECT_EQ(MarkOfWhole(file)->sequence, 5);
}

TEST_F(SafetyNetTest, ASessionThatDoesNotEndAfterAllGoesOnWithItsSteps) {
  Edit(1);
  CleanUpAtSessionEnd(editor);
  EXPECT_EQ(NewestKept(editor), Fingerprint(map));
  Edit(2);
  EXPECT_EQ(journal.caption, "&Undo Step2");
  MenuUndo(editor);
  EXPECT_EQ(map.sectorDivision, 1);
}

TEST_F(SafetyNetTest, AMapThatCannotBeKeptStaysOpenUnlessItIsGivenUp) {
  AddSpawn(map, 5, 5, 0);
  const DocumentState state = StateOf(map);
  files.FailAll("CreateNew", ENOSPC);
  OpenMap(editor, PutMap("small.pmp"));
  MenuNew(editor);
  EXPECT_TRUE(StateOf(map) == state) << "not the same was asked";
  MenuNew(editor);
  EXPECT_TRUE(map.spawns.Empty()) << "asked twice";
  EXPECT_THAT(TakeMessages(), SizeIs(2));
  AddSpawn(map, 6, 6, 0);
  EXPECT_FALSE(CleanUp(editor));
  AddSpawn(map, 7, 7, 0);
  EXPECT_FALSE(CleanUp(editor)) << "another map";
  const std::uint64_t open = Fingerprint(map);
  CleanUpAtSessionEnd(editor);
  files.FailAll("CreateNew", 0);
  EXPECT_EQ(NewestKept(StartAnew()), open) << "from the undo files";
}

TEST_F(SafetyNetTest, WhatCannotBeRedoneIsKeptOnce) {
  for (int mark = 1; mark <= 5; ++mark) Edit(mark);
  const std::uint64_t open = Fingerprint(map);
  for (int i = 0; i < 2; ++i) MenuUndo(editor);
  files.FailAll("OpenInPlace", ENOSPC);
  for (int i = 0; i < 2; ++i) MenuUndo(editor);
  EXPECT_THAT(TakeMessages(), SizeIs(1)) << "that there is no redoing, once";
  files.FailAll("OpenInPlace", 0);
  EXPECT_THAT(ListRecoverable(editor), SizeIs(1));
  EXPECT_EQ(NewestKept(editor), open);
  // One that is open and whose own file has gone does not go for another.
  MenuNew(editor);
  const auto kept = ListRecoverable(editor);
  window.chosenRescue = kept[1];
  MenuRecover(editor);
  DeleteFile(files, kept[1]);
  window.chosenRescue = kept[0];
  MenuRecover(editor);
  EXPECT_EQ(NewestKept(editor), open);
  DeleteFile(files, kept[0]);
  MenuRecover(editor);
  EXPECT_THAT(ListRecoverable(editor), SizeIs(editor.recoverable)) << "it has looked again";
  EXPECT_TRUE(std::filesystem::exists(Temp("VesmoraUndo0.tmp")));
  CleanUpAtSessionEnd(editor);
  EXPECT_FALSE(std::filesystem::exists(Temp("VesmoraUndo0.tmp"))) << "what was kept needs none";
}

TEST_F(SafetyNetTest, AStepThatCannotBeReadGoesAndSoDoesWhatWasUndone) {
  for (int mark = 1; mark <= 3; ++mark) Edit(mark);
  const std::uint64_t open = Fingerprint(map);
  MenuUndo(editor);
  DeleteFile(files, journal.NewestFile());
  std::filesystem::create_directory(journal.NewestFile());
  MenuUndo(editor);
  EXPECT_EQ(map.sectorDivision, 2);
  EXPECT_EQ(journal.caption + journal.redoCaption, "&Undo Step1&Redo");
  EXPECT_EQ(NewestKept(editor), open);
}

TEST_F(SafetyNetTest, WhatCannotBeKeptAtTheStartIsFoundByTheNextOne) {
  int failures = 0;
  for (int call = 1; call < files.Count(); ++call) {
    std::filesystem::remove_all(editor.ports.settingsFolder);
    StartNewMap(editor);
    for (int mark = 1; mark <= 3; ++mark) Edit(mark);
    const std::uint64_t open = Fingerprint(map);
    Edit(4);
    const int calls = files.Count();
    files.FailCall(calls + call, EIO, FaultyFileCalls::Lasting(call % 2));
    Editor& first = StartAnew();
    files.FailCall(0, 0);
    const int last = files.Count();
    failures += NewestKept(first) == open ? 0 : 1;
    for (int i = 0; i < 4; ++i) TakeUndoSnapshot(first, "Color");
    Editor& second = StartAnew(&first);
    EXPECT_GE(TimesKept(second, open), 1) << "call " << call;
    second.journal.folder = {};
    journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
    if (last < calls + call) break;
  }
  EXPECT_GT(failures, 10);
  EXPECT_GT(problems_, 10);
}

TEST_F(SafetyNetTest, WhatTwoEditorsLeftIsSafeWhenTheNextOneCannotKeepIt) {
  const auto second = std::make_unique<Editor>(editor.ports);
  second->journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
  AddSpawn(second->document, 1, 2, 0);
  TakeUndoSnapshot(*second, "Move");
  Edit(1);
  const std::uint64_t open = Fingerprint(map);
  Edit(2);
  const std::uint64_t others = Fingerprint(second->document);
  second->journal.folder = {};
  for (const char* call : {"CreateNew", "Rename"}) files.FailAll(call, ENOSPC);
  Editor& after = StartAnew();
  EXPECT_THAT(ListRecoverable(after), SizeIs(0));
  for (int i = 0; i < 2; ++i) TakeUndoSnapshot(after, "Color");
  EXPECT_EQ(after.journal.undoAvailable, 1);
  for (const char* call : {"CreateNew", "Rename"}) files.FailAll(call, 0);
  const Editor& last = StartAnew(&after);
  EXPECT_EQ(TimesKept(last, open), 1);
  EXPECT_EQ(TimesKept(last, others), 1);
}

TEST_F(SafetyNetTest, AStartThatIsKilledKeepsNothingTwice) {
  bool isKilled = true;
  for (int call = 1; isKilled; ++call) {
    std::filesystem::remove_all(editor.ports.settingsFolder);
    StartNewMap(editor);
    Edit(1);
    const std::uint64_t open = Fingerprint(map);
    Edit(2);
    isKilled = false;
    try {
      files.DieBefore(files.Count() + call);
      journal.folder = {};
      const auto other = std::make_unique<Editor>(editor.ports);
      other->journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
      FindLostMaps(*other);
    } catch (const FaultyFileCalls::Killed&) {
      isKilled = true;
    }
    EXPECT_EQ(TimesKept(StartAnew(), open), 1) << "call " << call;
    next_.reset();
    journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
  }
}

TEST_F(SafetyNetTest, OfDamagedStepsTheLatestIsKept) {
  Edit(1);
  const std::uint64_t first = Fingerprint(map);
  for (int mark = 2; mark <= 4; ++mark) Edit(mark);
  for (int slot = 0; slot < 4; ++slot) {
    const std::string path = Temp("VesmoraUndo" + std::to_string(slot) + ".tmp");
    Bytes bytes = FileBytes(path);
    bytes[kMapFileSize] ^= std::byte{1};
    PutFile(path, bytes);
    const int age = slot == 1 ? 0 : 60;
    std::filesystem::last_write_time(
        path, std::filesystem::file_time_type::clock::now() - std::chrono::seconds(age));
  }
  EXPECT_EQ(NewestKept(StartAnew()), first);
}

TEST_F(SafetyNetTest, AnEditorWithAnotherTemporaryFolderThatDiesLaterIsFound) {
  FindLostMaps(editor);
  Edit(1);
  const std::uint64_t open = Fingerprint(map);
  Edit(2);
  editor.ports.tempFolder = folder / "other/";
  const auto second = std::make_unique<Editor>(editor.ports);
  FindLostMaps(*second);  // while the first one runs
  EXPECT_EQ(NewestKept(StartAnew()), open);
}

TEST_F(SafetyNetTest, TemporaryFilesOfTheDeadAreSweptAndNoOthers) {
  const std::string running = TemporaryName("x");
  std::string dead = running;
  const std::string process = "-" + std::to_string(ProcessNumber()) + "-";
  dead.replace(dead.find(process), process.size(), "-999999999-");
  std::string elsewhere = dead;
  elsewhere.insert(elsewhere.find("-999999999-"), "0");  // the number of another computer
  const std::string path = PutMap("small.pmp");
  const std::string settingsFolder = editor.ports.settingsFolder;
  const std::vector<std::string> folders = {folder.Path(), settingsFolder, Temp(""),
                                            settingsFolder + "Rescue/"};
  for (const std::string& place : folders) {
    std::filesystem::create_directories(place);
    for (const std::string& name : {running, dead, elsewhere}) PutFile(place + name, {});
  }
  OpenMap(editor, path);
  MenuSave(editor);
  SettingsFile stored(files, settingsFolder + "Vesmora.conf");
  stored.Write("Windows", "Width", "80");
  EXPECT_TRUE(stored.Store().Ok());
  FindLostMaps(editor);
  for (const std::string& place : folders) {
    EXPECT_FALSE(std::filesystem::exists(place + dead)) << place;
    EXPECT_TRUE(std::filesystem::exists(place + running)) << place;
    EXPECT_TRUE(std::filesystem::exists(place + elsewhere)) << place;
  }
}

#ifndef _WIN32  // where a folder that is held cannot be taken away
TEST_F(SafetyNetTest, AFolderThatWasTakenAwayIsNoLongerOurs) {
  const std::string path = PutMap("small.pmp");
  OpenMap(editor, path);
  Edit(1);
  std::filesystem::remove_all(editor.ports.tempFolder);
  // Another editor makes it anew and has steps of the same names there.
  Bench other;
  other.editor.ports.tempFolder = editor.ports.tempFolder;
  other.journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
  AddSpawn(other.map, 1, 2, 0);
  other.Snapshot("Theirs");
  const Bytes theirs = FileBytes(other.journal.NewestFile());
  const std::uint64_t open = Fingerprint(map);
  MenuUndo(editor);
  EXPECT_TRUE(map.polygons.Empty()) << "and not the other editor's map";
  EXPECT_EQ(NewestKept(editor), open);
  EXPECT_THAT(TakeMessages(), ElementsAre(testing::Field(&Message::text, HasSubstr("Recover"))));
  Edit(2);
  EXPECT_EQ(journal.folder.path, Temp("2/"));
  EXPECT_EQ(ReadSessionNote(files, journal.folder.path).savedMap, editor.savedMap);
  EXPECT_EQ(journal.caption, "&Undo Step2");
  std::filesystem::remove_all(journal.folder.path);
  files.LimitFileSize(1000);  // room for the session's note, not for a step
  Edit(1);
  EXPECT_EQ(journal.caption, "&Undo");
  files.LimitFileSize(~std::uint64_t{0});
  EXPECT_TRUE(CleanUp(editor));
  MenuNew(editor);
  EXPECT_EQ(FileBytes(other.journal.NewestFile()), theirs);
  EXPECT_FALSE(std::filesystem::exists(Temp("VesmoraRedo0.tmp")));
  // Its own end is not taken for ours.
  std::filesystem::remove_all(editor.ports.settingsFolder);
  journal.folder = {};
  other.journal.folder = {};
  Editor& after = StartAnew();
  EXPECT_EQ(NewestKept(after), Fingerprint(other.map));
}
#endif

}  // namespace
}  // namespace vesmora
