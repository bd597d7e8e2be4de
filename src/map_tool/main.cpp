#include <exception>
#include <random>
#include <thread>

#include "map_tool/exit_status.h"
#include "map_tool/map_tool.h"
#include "platform/temp_folder.h"

namespace {

int RunProgram(int count, char** values) {
  std::mt19937 generator(std::random_device{}());
  vesmora::map_tool::World world{
      .console = vesmora::SystemConsole(),
      .files = vesmora::SystemFileCalls(),
      .random = [&] { return std::uniform_real_distribution(0.0, 1.0)(generator); },
      .tempFolder = [] { return vesmora::PrivateTempFolder(vesmora::SystemFileCalls(), "").path; },
      .processors = static_cast<int>(std::thread::hardware_concurrency()),
      .gameFolder = vesmora::EnvironmentText("VESMORA_GAME"),
      .wantsColors = vesmora::EnvironmentText("NO_COLOR").empty()};
  if (!world.gameFolder.empty() && !world.gameFolder.ends_with('/')) world.gameFolder += '/';
  return vesmora::map_tool::RunMapTool(vesmora::ProgramArguments(count, values), world);
}

}  // namespace

int main(int count, char** values) {
  try {
    return RunProgram(count, values);
  } catch (const std::exception& problem) {
    vesmora::Console& console = vesmora::SystemConsole();
    console.Tell("vesmora-map: ");
    console.Tell(problem.what());
    console.Tell("\n");
    return vesmora::map_tool::kTrouble;
  }
}
