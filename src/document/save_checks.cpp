#include "document/save_checks.h"

#include "platform/text.h"

namespace vesmora {
namespace {

constexpr std::uint8_t kTeamNormal = 0;
constexpr std::uint8_t kTeamRed = 1;
constexpr std::uint8_t kTeamBlue = 2;

bool SamePlace(const PolygonVertex& a, const PolygonVertex& b) { return a.x == b.x && a.y == b.y; }

void WarnAboutSpawns(Dialogs& dialogs, const std::string& reason) {
  dialogs.Show({.text = "Your map was saved succesful but with this warning.\n\n" + reason,
                .title = "Spawn warning",
                .icon = MessageIcon::kExclamation});
}

}  // namespace

void CheckDuplicateVertices(const MapDocument& document, Selection& selection, Display& display,
                            Dialogs& dialogs) {
  bool found = false;
  for (std::int16_t i = 0; i <= document.lastPolygon; ++i) {
    // Corners 2 and 0 are not compared: only these two pairs count.
    const auto& corners = document.polygons[static_cast<std::size_t>(i)].vertices;
    const bool firstPair = SamePlace(corners[0], corners[1]);
    const bool secondPair = SamePlace(corners[1], corners[2]);
    if (!firstPair && !secondPair) continue;
    if (!found) ClearSelection(selection, display);
    found = true;
    if (firstPair) selection.vertices.Add({i, 0});
    selection.vertices.Add({i, 1});
    if (secondPair) selection.vertices.Add({i, 2});
  }
  if (!found) return;
  UpdateSelectionBox(selection, document);
  display.RedrawMap();
  display.RefreshInfoPanel();
  dialogs.Show({.text = "Your map was saved succesful but with this warning.\n\n"
                        "There is polygon(s) wich have two vertices exactly same position.\n"
                        "All those vertices are now selected and after this message\n"
                        "you should click Disconnect button and fix those vertices.",
                .title = "Polygon warning",
                .icon = MessageIcon::kNone});
}

void CheckCtfSpawns(const MapDocument& document, const std::string& path, Dialogs& dialogs) {
  if (document.lastSpawn < 0) return;
  const bool isCtfMap = EqualsIgnoringCase(FileNamePart(path).substr(0, 4), "CTF_");
  const std::uint8_t first = document.spawns[0].team;
  if (!isCtfMap) {
    if (first != kTeamNormal) {
      WarnAboutSpawns(dialogs,
                      "First spawpoint is NOT deathmatch spawpoint\n"
                      "and you have been save your map without ctf specified name.\n"
                      "Every Capture The Flag map requires ctf_ in start of the filename.");
    }
    return;
  }
  if (document.lastSpawn < 1) return;
  if (first != kTeamRed || document.spawns[1].team != kTeamBlue) {
    WarnAboutSpawns(dialogs,
                    "Every Capture The Flag map requires that\n"
                    "first spawpoint is red flag and second spawpoint is blue flag.");
  }
}

}  // namespace vesmora
