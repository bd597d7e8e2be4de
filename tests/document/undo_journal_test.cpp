// The files of the undo steps and the ring they make.
#include "document/undo_journal.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

#include "document/snapshot.h"
#include "support/bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class UndoJournalTest : public testing::Test, protected Bench {
 protected:
  UndoJournalTest() { Restart(folder.Path()); }

  void Restart(const std::string& path) {
    LetGo(journal.folder);
    journal = UndoJournal{};
    journal.folder = HoldUndoFolder(SystemFileCalls(), path);
    files.FailCall(0, 0);
    files.LimitFileSize(~std::uint64_t{0});
    dialogs.messages.clear();
  }
  /// Snapshots of maps that their marks tell apart; whether the last was taken.
  bool Take(int first, int last) {
    bool isTaken = false;
    for (int mark = first; mark <= last; ++mark) {
      map.sectorDivision = mark;
      const std::int16_t before = journal.undoSlot;
      TakeUndoSnapshot(editor, "Step" + std::to_string(mark));
      isTaken = journal.undoSlot != before;
    }
    return isTaken;
  }
  /// Undoes all that is offered and returns the marks that came back.
  std::vector<int> TakeBackAll() {
    std::vector<int> marks;
    while (journal.undoAvailable >= 0) {
      const LoadReport report =
          LoadMap(map, selection, SystemFileCalls(), journal.NewestFile(), true);
      EXPECT_EQ(report.outcome, LoadOutcome::kLoaded);
      marks.push_back(map.sectorDivision);
      EXPECT_EQ(journal.caption, "&Undo Step" + std::to_string(marks.back()));
      ConsumeUndoStep(journal);
    }
    EXPECT_EQ(journal.caption, "&Undo");
    return marks;
  }
  std::vector<std::string> Files() {
    std::vector<std::string> names = ListFiles(SystemFileCalls(), journal.folder.path).names;
    std::erase(names, "Vesmora-in-use");  // by which Windows holds the folder
    return names;
  }
};

TEST_F(UndoJournalTest, TwelveSnapshotsKeepTheLastTen) {
  Take(1, 1);
  EXPECT_EQ(journal.NewestFile(), folder / "VesmoraUndo0.tmp");
  EXPECT_EQ(std::filesystem::file_size(journal.NewestFile()), 507172U);
  Take(2, 12);
  EXPECT_EQ(journal.NewestFile(), folder / "VesmoraUndo1.tmp");
  EXPECT_EQ(Files().size(), 10U);
  EXPECT_THAT(TakeBackAll(), ElementsAre(12, 11, 10, 9, 8, 7, 6, 5, 4, 3));
  Take(13, 13);
  ClearHistory(journal);
  EXPECT_EQ(journal.caption, "&Undo");
  Take(14, 14);
  EXPECT_THAT(TakeBackAll(), ElementsAre(14));
}

TEST_F(UndoJournalTest, AFailedSnapshotIsToldAndCostsNoStepThatWouldHaveStayed) {
  for (const int held : {0, 3, 11}) {
    int failures = 0;
    for (int way = 0; way < 14; ++way) {
      Restart(folder.Path());
      Take(1, held);
      const auto lasting = static_cast<FaultyFileCalls::Lasting>(way % 2);
      if (way < 12) files.FailCall(files.Count() + 1 + way / 2, EIO, lasting);
      if (way >= 12) files.LimitFileSize(507159U + static_cast<unsigned>(way));
      const bool isTaken = Take(100, 100);
      failures += isTaken ? 0 : 1;
      EXPECT_EQ(dialogs.messages.size(), isTaken ? 0U : 1U);
      EXPECT_EQ(map.sectorDivision, 100) << "the edit goes on with the map";
      std::vector<int> marks;
      if (isTaken) marks.push_back(100);
      // The oldest of ten gives its file to the new step, which then has neither.
      const std::size_t kept = isTaken ? 10 : 9;
      for (int mark = held; mark > 0 && marks.size() < kept; --mark) marks.push_back(mark);
      EXPECT_EQ(TakeBackAll(), marks) << held << " steps, " << files.Names().back();
    }
    EXPECT_GE(failures, 9);  // open, write, close and rename; no room
  }
}

TEST_F(UndoJournalTest, OneMessageForARowOfFailures) {
  Take(1, 1);
  for (const std::size_t told : {1U, 2U}) {
    files.FailAll("Write", ENOSPC);
    Take(2, 4);
    EXPECT_EQ(dialogs.messages.size(), told);
    EXPECT_EQ(Files().size(), told) << "no half-written file stays";
    files.FailAll("Write", 0);
    Take(5, 5);
  }
  EXPECT_THAT(TakeBackAll(), ElementsAre(5, 5, 1));
  EXPECT_EQ(dialogs.messages[0].title, "File error");
  Restart(folder / "lost/");  // is made anew
  Take(1, 3);
  EXPECT_THAT(TakeBackAll(), ElementsAre(3, 2, 1));
  Restart("");  // what the program has when no temporary folder can be made
  EXPECT_FALSE(Take(1, 2));
  EXPECT_FALSE(std::filesystem::exists("VesmoraUndo0.tmp")) << "in the current folder";
}

TEST_F(UndoJournalTest, TheEndDeletesEverySnapshotFileAndNothingElse) {
  const std::vector<std::string> kept = {"VesmoraUndo3", "backup.pmp", "xVesmoraUndo1.tmp"};
  for (const std::string& name : kept) PutFile(folder / name, {});
  for (const char* name : {"VesmoraUndo77.bak", "VesmoraUndo.tmp"}) PutFile(folder / name, {});
  files.FailCall(files.Count() + 2, EACCES);
  DeleteSnapshotFiles(journal.folder, files);
  EXPECT_EQ(Files().size(), kept.size() + 1) << "one that stays does not keep the others";
  DeleteSnapshotFiles(journal.folder, files);
  EXPECT_EQ(Files(), kept);
}

}  // namespace
}  // namespace vesmora
