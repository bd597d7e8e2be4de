// The files that the tool writes are those that the editor writes.
#include <gmock/gmock.h>

#include "app/file_commands.h"
#include "document/prefab_file.h"
#include "launch/sector_compiler.h"
#include "support/bench.h"
#include "support/tool_run.h"
#include "tools/prefab_import.h"

namespace vesmora {
namespace {

/// What the editor saves after opening a map and doing something with it; empty when it refuses.
template <typename Do>
Bytes EditedAndSaved(const std::string& source, Do edit) {
  Bench bench;
  EXPECT_EQ(OpenMap(bench.editor, bench.PutMap("map.pmp", source)), LoadOutcome::kLoaded);
  if (!edit(bench)) return {};
  EXPECT_TRUE(MenuSave(bench.editor));
  return FileBytes(bench.folder / "map.pmp");
}

Bytes Compiled(const std::string& source) {
  return EditedAndSaved(source, [](Bench& bench) { return CompileSectors(bench.editor); });
}
Bytes Resaved(const std::string& source) {
  return EditedAndSaved(source, [](Bench& /*bench*/) { return true; });
}

TEST(SameAsEditorTest, EveryMapIsWrittenAsTheEditorWritesIt) {
  for (const std::string& map : AllMaps()) {
    SCOPED_TRACE(map);
    ToolRun run;
    run.Put("map.pmp", map);
    for (const auto& [command, wanted] :
         {std::pair{"resave", Resaved(map)}, std::pair{"compile", Compiled(map)}}) {
      const int status = run({command, "@/map.pmp", "-o", "@/out.pmp"});
      EXPECT_EQ(status == 2, wanted.empty()) << run.console.told;
      if (!wanted.empty()) {
        EXPECT_TRUE(FileBytes(run.folder / "out.pmp") == wanted) << command;
      }
      EXPECT_NE(run({command, "@/map.pmp", "--in-place"}), wanted.empty() ? 0 : 2);
      EXPECT_TRUE(FileBytes(run.folder / "map.pmp") ==
                  (wanted.empty() ? FileBytes(DataPath(map)) : wanted));
      run.Put("map.pmp", map);
    }
    Bench bench;
    bench.Load(DataPath(map));
    EXPECT_NE(run({"prefab", "export", "@/map.pmp", "-o", "@/out.pre"}), 2);
    EXPECT_TRUE(FileBytes(run.folder / "out.pre") == WritePrefab(bench.map));
  }
}

TEST(SameAsEditorTest, PrefabsComeInAsTheyDoInTheEditor) {
  for (const std::string map : {"small.pmp", "full.pmp", "hostile/noise_0.pmp"}) {
    for (const std::string prefab : {"bunker.pre", "large.pre"}) {
      SCOPED_TRACE(map + " " + prefab);
      ToolRun run;
      run.Put("map.pmp", map);
      const int status = run({"prefab", "import", DataPath(prefab), "@/map.pmp", "--in-place"});
      EXPECT_EQ(status, run.console.told.empty() ? 0 : 1);
      Bench imported;
      imported.Load(DataPath(map));
      imported.TakeMessages();
      ImportPrefab(imported.editor, DataPath(prefab), ImportManner::kQuiet);
      EXPECT_TRUE(FileBytes(run.folder / "map.pmp") == imported.Saved());
    }
  }
}

/// Dropped by the mouse: the same but for what two roundings on the way leave.
TEST(SameAsEditorTest, PrefabsAreDroppedWhereTold) {
  Bench bench;
  OpenMap(bench.editor, bench.PutMap("map.pmp"));
  ImportPrefab(bench.editor, DataPath("bunker.pre"), ImportManner::kPlaced);
  const ViewTransform& view = bench.editor.view;
  bench.Click(view.LaskeRuutuX(120), view.LaskeRuutuY(-40) - 1);
  const WorldPoint dropped = bench.selection.box.Center();
  ToolRun run;
  run.Put("map.pmp");
  EXPECT_EQ(run({"prefab", "import", DataPath("bunker.pre"), "@/map.pmp", "-o", "@/out.pmp", "--at",
                 std::to_string(dropped.x) + "," + std::to_string(dropped.y)}),
            0);
  MenuSave(bench.editor);
  Bench wanted;
  Bench got;
  wanted.Load(bench.folder / "map.pmp");
  got.Load(run.folder / "out.pmp");
  ASSERT_EQ(got.map.polygons.last, wanted.map.polygons.last);
  for (int slot = 0; slot <= got.map.polygons.last; ++slot) {
    for (std::size_t corner = 0; corner < 3; ++corner) {
      const PolygonVertex& a = got.map.polygons[slot].vertices[corner];
      const PolygonVertex& b = wanted.map.polygons[slot].vertices[corner];
      EXPECT_NEAR(a.x, b.x, 1e-3);
      EXPECT_NEAR(a.y, b.y, 1e-3);
      EXPECT_NEAR(a.u, b.u, 1e-4);
      EXPECT_EQ(a.color, b.color);
    }
  }
}

TEST(SameAsEditorTest, AnUndoFileBecomesTheMapThatWasSavedThen) {
  for (const std::string map : {"terrain.pmp", "full.pmp"}) {
    Bench bench;
    bench.Load(DataPath(map));
    const Bytes undo = bench.Snapshot();
    const Bytes wanted = bench.Saved();
    ToolRun run;
    PutFile(run.folder / "undo.tmp", undo);
    EXPECT_EQ(run({"rescue", "@/undo.tmp", "-o", "@/out.pmp"}), 0) << run.console.told;
    EXPECT_TRUE(FileBytes(run.folder / "out.pmp") == wanted);
  }
}

}  // namespace
}  // namespace vesmora
