// Export, Import and the author's name.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/editor.h"

namespace vesmora {

/// Writes the whole map, as it stands in memory, as a prefab.
void MenuExport(Editor& editor);

/// Lets the user choose a prefab of the program's own folder and places it.
void MenuImport(Editor& editor);

/// Asks for the author's name and writes it on the map with letter prefabs.
void CBauthor_Click(Editor& editor);

/// The folder of the prefabs, with a slash.
std::string PrefabFolder(const Ports& ports);

/// The prefabs of that folder, sorted; none when there is no such folder.
std::vector<std::string> ListPrefabs(const Ports& ports);

/// What the Import dialog shows. `lMaara` are the free slots of the map, `lMaara2` the
/// counts of the chosen prefab: polygons, sceneries, colliders, a line each.
struct ImportContents {
  std::string lName;
  std::string lAuthor;
  std::string lMaara;
  std::string lMaara2;
  bool canImport = false;
  std::unique_ptr<MapDocument> map;  // that holds the prefab alone; none when it cannot be read
};

/// `fileName` is one of ListPrefabs, or empty while nothing is chosen.
ImportContents ShowPrefab(const Editor& editor, const std::string& fileName);

}  // namespace vesmora
