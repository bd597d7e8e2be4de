#include "tools/prefab_import.h"

#include <gmock/gmock.h>

#include "document/prefab_file.h"
#include "support/bench.h"
#include "support/map_builder.h"
#include "tools/edit_commands.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::IsEmpty;

struct ImportBench : Bench {
  ImportBench() { AddNumbered(map, 1); }

  void PutLetter(int code, const std::array<ScreenPoint, 3>& corners) {
    MapDocument letter;
    AddTriangle(letter, corners);
    PutFile(folder / (std::to_string(code) + ".pre"), WritePrefab(letter));
  }
};

TEST(PrefabImportTest, LettersStandInARowOnTheLine) {
  using Row = std::tuple<const char*, std::vector<SelectionBox>>;
  for (const auto& [text, letters] :  // as they stand when their middle is at 0, 25
       {Row{"AB", {{-15, 5, 5, 45}, {5, 15, -5, 55}}},
        Row{" a_?b c", {{-35, -15, 5, 45}, {25, 35, -5, 55}}},
        Row{"a\xC4", {{-14, 6, 5, 45}, {6, 14, 21, 29}}}, Row{"xyz", {}}}) {
    ImportBench bench;
    bench.PutLetter('a', {{{10, 100}, {30, 100}, {10, 140}}});
    bench.PutLetter('b', {{{-7, -7}, {3, -7}, {3, 53}}});
    bench.PutLetter(0xE4, {{{0, 0}, {8, 0}, {8, 8}}});
    ListSlots(bench.selection, {0});
    ChangeTool(bench.editor, ToolMode::kAddPolygon);
    bench.Click(-300, 200);  // a half-built triangle is no part of the text
    ClearHistory(bench.journal);
    PlaceAuthorText(bench.editor, text, bench.folder.Path());
    EXPECT_EQ(bench.map.polygons.last, static_cast<int>(letters.size())) << text;
    EXPECT_EQ(bench.selection.TotalCounter() + 1, 3 * bench.map.polygons.last) << text;
    for (std::int16_t slot = 1; slot <= bench.map.polygons.last; ++slot) {
      Selection letter;
      ListVertices(letter, {{slot, 0}, {slot, 1}, {slot, 2}});
      EXPECT_EQ(BoundsOf(letter, bench.map), letters.at(static_cast<std::size_t>(slot - 1)));
    }
    EXPECT_EQ(bench.editor.activity.Is(ActivityKind::kPlacement), !letters.empty());
    EXPECT_EQ(bench.selection.moveSnapshotTaken, !letters.empty());
    EXPECT_THAT(bench.Steps(), IsEmpty()) << "the caller's step is the only one";
  }
}

}  // namespace
}  // namespace vesmora
