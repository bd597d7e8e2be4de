#include "app/file_messages.h"

#include <algorithm>

namespace vesmora {
namespace {

const std::string kSavedWithWarning = "Your map was saved succesful but with this warning.\n\n";

void TellFileError(Editing& editing, const std::string& path, const std::string& what) {
  editing.ports.dialogs.Show(
      {.text = "File '" + path + "' " + what, .title = "File error", .icon = MessageIcon::kNone});
}

void WarnAboutSpawns(Editing& editing, const std::string& reason) {
  editing.ports.dialogs.Show({.text = kSavedWithWarning + reason,
                              .title = "Spawn warning",
                              .icon = MessageIcon::kExclamation});
}

}  // namespace

void TellLoadReport(Editing& editing, const std::string& path, const LoadReport& report) {
  if (report.status.failure == FileFailure::kError) {
    TellFileError(editing, path, "could not be read: " + report.status.reason);
  } else if (report.status.failure == FileFailure::kMissing) {
    TellFileError(editing, path, "not found.");
  }
  if (report.isCutShort) TellFileError(editing, path, "is damaged: it ends too early.");
  if (report.hasWrongSize) TellFileError(editing, path, "is not Soldat 1.0.5b mapfile.");
  if (report.hasWrongLayout) editing.ports.dialogs.Show({});
  const int used = std::clamp<int>(report.polygonCount, 0, kPolygonCapacity);
  if (used != report.polygonCount) {
    TellFileError(editing, path,
                  "is damaged: it names " + std::to_string(report.polygonCount) + " polygons, " +
                      std::to_string(used) + " are used.");
  }
}

void TellSaveStatus(Editing& editing, const std::string& path, const FileStatus& status) {
  if (status.Ok()) return;
  editing.ports.dialogs.Show({.text = "File '" + path + "' could not be saved: " + status.reason,
                              .title = "File error",
                              .icon = MessageIcon::kCritical});
}

void TellSaveFindings(Editing& editing, const SaveFindings& findings) {
  if (findings.duplicateVertices) {
    RefreshAll(editing);
    editing.ports.dialogs.Show(
        {.text = kSavedWithWarning +
                 "There is polygon(s) wich have two vertices exactly same position.\n"
                 "All those vertices are now selected and after this message\n"
                 "you should click Disconnect button and fix those vertices.",
         .title = "Polygon warning",
         .icon = MessageIcon::kNone});
  }
  switch (findings.spawns) {
    case SpawnProblem::kFlagMapWithoutName:
      return WarnAboutSpawns(editing,
                             "First spawpoint is NOT deathmatch spawpoint\n"
                             "and you have been save your map without ctf specified name.\n"
                             "Every Capture The Flag map requires ctf_ in start of the filename.");
    case SpawnProblem::kWrongFlagOrder:
      return WarnAboutSpawns(editing,
                             "Every Capture The Flag map requires that\n"
                             "first spawpoint is red flag and second spawpoint is blue flag.");
    case SpawnProblem::kNone:
      return;
  }
}

}  // namespace vesmora
