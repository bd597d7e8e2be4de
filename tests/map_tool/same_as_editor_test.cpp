// The files that the tool writes are those that the editor writes.
#include <gtest/gtest.h>

#include "app/file_commands.h"
#include "document/prefab_file.h"
#include "launch/sector_compiler.h"
#include "support/bench.h"
#include "support/tool_run.h"

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

}  // namespace
}  // namespace vesmora
