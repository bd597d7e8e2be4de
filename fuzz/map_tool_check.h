// Checks, compares and draws a map file that may hold anything, as vesmora-map does. It ends in
// findings, differences and a whole picture, or tells that there is no map; what it has mended it
// finds no more. The input is that of map_check.h; undo files are rescued first.
#pragma once

#include "map_check.h"
#include "map_tool/commands.h"

namespace vesmora {

/// One command on bytes in memory.
inline map_tool::Outcome RunOn(map_tool::Arguments& arguments, map_tool::Command command,
                               const Bytes& bytes, map_tool::Workbench& bench) {
  static const map_tool::Input kInput{"map.pmp", "map.pmp", ""};
  arguments.command = command;
  const FileContents file{.status = {}, .bytes = bytes, .size = bytes.size()};
  const map_tool::Task task{
      .arguments = arguments, .input = kInput, .file = file, .target = "out", .random = 0.5};
  switch (command) {
    case map_tool::Command::kCheck:
      return map_tool::CheckOne(task, bench);
    case map_tool::Command::kInfo:
      return map_tool::TellInfo(task, bench);
    case map_tool::Command::kRender:
      return map_tool::RenderOne(task, bench);
    case map_tool::Command::kDiff: {
      static const Bytes kOther = MakeBaseFile(8, false);
      const FileContents other{.status = {}, .bytes = kOther, .size = kOther.size()};
      return map_tool::DiffTwo(task, kInput, other, bench);
    }
    default:
      return map_tool::MakeMap(task, bench);
  }
}

inline void CheckMapToolInput(std::span<const std::uint8_t> data) {
  using map_tool::Command;
  if (data.size() < 3) return;
  static const auto bench = std::make_unique<map_tool::Workbench>();
  map_tool::Arguments arguments;
  arguments.json = (data[2] & 1U) != 0;
  Bytes file = DecodeMapFile(data);
  if ((data[0] & 1U) != 0) {
    const bool isWhole = file.size() == kUndoFileSize;
    const map_tool::Outcome rescued = RunOn(arguments, Command::kRescue, file, *bench);
    EXPECT_EQ(rescued.status == map_tool::kTrouble, !isWhole);
    EXPECT_EQ(rescued.bytes.size(), isWhole ? kMapFileSize : 0);
    if (!isWhole) return;
    file = rescued.bytes;
  }
  const bool isMap = file.size() == kMapFileSize;
  for (const Command command : {Command::kInfo, Command::kCheck, Command::kDiff}) {
    EXPECT_EQ(RunOn(arguments, command, file, *bench).status == map_tool::kTrouble, !isMap);
  }
  map_tool::PictureOptions& picture = arguments.picture;
  picture.width = 1 + data[2] % 200;
  picture.height = 90;
  picture.filled = (data[2] & 2U) != 0;
  picture.svg = (data[2] & 4U) != 0;
  if ((data[2] & 8U) != 0) picture.zoom = 100;
  if ((data[2] & 16U) != 0) picture.center = WorldPoint{-3e38f, 20};
  picture.show.showFlags = {1, 1, 1, 1, 1, 1, 0};
  EXPECT_EQ(RunOn(arguments, Command::kRender, file, *bench).bytes.empty(), !isMap);
  if (!isMap) return;

  const Bytes saved = RunOn(arguments, Command::kResave, file, *bench).bytes;
  ASSERT_EQ(saved.size(), kMapFileSize);
  arguments.json = false;
  const std::string found = RunOn(arguments, Command::kCheck, saved, *bench).text;
  EXPECT_EQ(found.find("[table-gap]"), std::string::npos) << found;
  EXPECT_EQ(found.find("[free-slots]"), std::string::npos) << found;
  RunOn(arguments, Command::kCompile, saved, *bench);
}

}  // namespace vesmora
