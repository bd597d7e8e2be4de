#include "document/undo_journal.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

#include "support/faulty_file_calls.h"
#include "support/map_builder.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class UndoJournalTest : public testing::Test {
 protected:
  UndoJournalTest() { Restart(bench_.folder.Path()); }

  void Restart(const std::string& folder) {
    journal_ = UndoJournal{};
    journal_.folder = folder;
  }

  /// A snapshot of a map that `mark` tells apart from every other.
  void Take(int mark, FileCalls& files = SystemFileCalls()) {
    bench_.document.sectorDivision = mark;
    TakeUndoSnapshot(journal_, bench_.Context(files), "Step" + std::to_string(mark));
  }
  /// Undoes all that is offered and returns the marks that came back.
  std::vector<int> TakeBackAll() {
    std::vector<int> marks;
    while (journal_.undoAvailable >= 0) {
      EXPECT_EQ(LoadMap(bench_.Context(), journal_.NewestFile(), true), LoadOutcome::kLoaded);
      marks.push_back(bench_.document.sectorDivision);
      EXPECT_EQ(journal_.NewestAction(), "Step" + std::to_string(marks.back()));
      ConsumeUndoStep(journal_);
    }
    return marks;
  }
  std::vector<std::string> Files() { return ListFiles(SystemFileCalls(), journal_.folder).names; }

  MapWorkbench bench_;
  UndoJournal journal_;
};

TEST_F(UndoJournalTest, TwelveSnapshotsKeepTheLastTen) {
  EXPECT_EQ(journal_.caption, "&Undo");
  for (int mark = 1; mark <= 12; ++mark) {
    Take(mark);
    const std::string name = "VesmoraUndo" + std::to_string((mark - 1) % 10) + ".tmp";
    EXPECT_EQ(journal_.NewestFile(), bench_.folder / name);
    EXPECT_EQ(std::filesystem::file_size(bench_.folder / name), 507172U);
    EXPECT_EQ(journal_.caption, "&Undo Step" + std::to_string(mark));
    EXPECT_EQ(journal_.undoAvailable, std::min(mark, 10) - 1);
  }
  EXPECT_EQ(Files().size(), 11U) << "ten steps and a spare";
  EXPECT_THAT(TakeBackAll(), ElementsAre(12, 11, 10, 9, 8, 7, 6, 5, 4, 3));
  EXPECT_EQ(journal_.caption, "&Undo");
  EXPECT_EQ(journal_.undoSlot, 1);

  Take(13);
  EXPECT_EQ(journal_.NewestFile(), bench_.folder / "VesmoraUndo2.tmp");
  ClearHistory(journal_);
  EXPECT_EQ(journal_.caption, "&Undo");
  EXPECT_EQ(Files().size(), 11U);
  Take(14);
  EXPECT_EQ(journal_.NewestFile(), bench_.folder / "VesmoraUndo3.tmp");
  EXPECT_THAT(TakeBackAll(), ElementsAre(14));
}

TEST_F(UndoJournalTest, AFailedSnapshotIsToldOnceAndCostsNoStep) {
  const auto fails = [&](int held, const auto& breakFiles) {
    FaultyFileCalls files;
    Restart(bench_.folder.Path());
    std::vector<int> marks;
    for (int mark = 1; mark <= held; ++mark) {
      Take(mark, files);
      if (mark > held - 10) marks.insert(marks.begin(), mark);
    }
    const std::string caption = journal_.caption;
    bench_.dialogs.messages.clear();
    breakFiles(files);
    Take(100, files);
    const bool failed = journal_.caption == caption;
    if (failed) {
      EXPECT_EQ(bench_.dialogs.messages.size(), 1U);
      EXPECT_EQ(bench_.dialogs.messages.at(0).title, "File error");
      EXPECT_THAT(bench_.dialogs.messages.at(0).text, HasSubstr("VesmoraUndo"));
      EXPECT_EQ(bench_.document.sectorDivision, 100) << "the edit goes on with the map";
    } else {
      EXPECT_THAT(bench_.dialogs.messages, IsEmpty());
      marks.insert(marks.begin(), 100);
      marks.resize(std::min<std::size_t>(marks.size(), 10));
    }
    EXPECT_EQ(TakeBackAll(), marks) << held << " steps, " << files.Names().back();
    return failed;
  };
  for (const int held : {0, 3, 10, 11}) {
    int failures = 0;
    for (const auto lasting :
         {FaultyFileCalls::Lasting::kOnce, FaultyFileCalls::Lasting::kForGood}) {
      for (int call = 1; call <= 6; ++call) {
        failures += fails(held, [&](FaultyFileCalls& files) {
          files.FailCall(files.Count() + call, EIO, lasting);
        });
      }
    }
    EXPECT_GE(failures, 8);  // open, write, close and rename
    for (const std::uint64_t room : {0U, 1U, 434868U, 502112U, 507171U}) {
      EXPECT_TRUE(fails(held, [&](FaultyFileCalls& files) { files.LimitFileSize(room); }));
    }
    EXPECT_FALSE(fails(held, [&](FaultyFileCalls& files) { files.LimitFileSize(507172); }));
    EXPECT_FALSE(fails(held, [&](FaultyFileCalls& files) { files.LimitTransfer(99999); }));
  }
}

TEST_F(UndoJournalTest, OneMessageForARowOfFailures) {
  FaultyFileCalls files;
  Take(1, files);
  for (const std::size_t told : {1U, 2U}) {
    files.FailAll("Write", ENOSPC);
    for (int mark = 2; mark < 5; ++mark) Take(mark, files);
    EXPECT_EQ(bench_.dialogs.messages.size(), told);
    EXPECT_EQ(Files().size(), told) << "no half-written file stays";
    files.FailAll("Write", 0);
    Take(5, files);
  }
  EXPECT_THAT(TakeBackAll(), ElementsAre(5, 5, 1));
}

TEST_F(UndoJournalTest, WithoutAFolderNothingIsWrittenAnywhere) {
  Restart("");  // what the program has when no temporary folder can be made
  for (int mark = 0; mark < 3; ++mark) Take(mark);
  EXPECT_EQ(bench_.dialogs.messages.size(), 1U);
  EXPECT_EQ(journal_.undoAvailable, -1);
  EXPECT_EQ(journal_.caption, "&Undo");
  DeleteSnapshotFiles(journal_, SystemFileCalls());
  for (const char* name : {"VesmoraUndo0.tmp", "VesmoraUndo1.tmp", "VesmoraUndo2.tmp"}) {
    EXPECT_FALSE(std::filesystem::exists(name)) << name << " in the current folder";
  }
}

TEST_F(UndoJournalTest, AFolderThatWasSweptAwayIsMadeAnew) {
  Restart(bench_.folder / "gone/");
  for (int mark = 1; mark < 4; ++mark) Take(mark);
  EXPECT_THAT(bench_.dialogs.messages, IsEmpty());
  EXPECT_THAT(TakeBackAll(), ElementsAre(3, 2, 1));
}

TEST_F(UndoJournalTest, TheEndDeletesEverySnapshotFileAndNothingElse) {
  const std::vector<std::string> kept = {"VesmoraUndo3", "backup.pmp", "xVesmoraUndo1.tmp"};
  for (const std::string& name : kept) PutFile(bench_.folder / name, {});
  for (const char* name : {"VesmoraUndo77.bak", "VesmoraUndo.tmp", "VesmoraUndo0.tmp.new"}) {
    PutFile(bench_.folder / name, {});
  }
  std::filesystem::create_directory(bench_.folder / "VesmoraUndo9.tmp");
  Take(1);
  DeleteSnapshotFiles(journal_, SystemFileCalls());
  EXPECT_EQ(Files(), kept);

  FaultyFileCalls files;
  for (int mark = 2; mark < 5; ++mark) Take(mark);
  files.FailCall(9, EACCES);  // after the listing and a look at seven names
  DeleteSnapshotFiles(journal_, files);
  EXPECT_EQ(files.Names().at(8), "Unlink");
  EXPECT_EQ(Files().size(), kept.size() + 1) << "one that stays does not keep the others";
}

}  // namespace
}  // namespace vesmora
