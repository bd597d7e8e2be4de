// A document with everything that loading and saving it needs, and files to do it with.
#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "document/map_file.h"
#include "support/fake_display.h"
#include "support/scratch_folder.h"
#include "support/scripted_dialogs.h"

namespace vesmora {

using Bytes = std::vector<std::byte>;

/// A file of tests/data.
std::string DataPath(const std::string& name);
/// A whole file; a missing one fails the test.
Bytes FileBytes(const std::string& path);
void PutFile(const std::string& path, const Bytes& bytes);

/// The document's image as a map file, items as they stand in memory.
Bytes ImageOf(const MapDocument& document);

/// All there is in a document, for comparing.
using DocumentState = std::tuple<Bytes, std::array<std::int16_t, 5>, std::string, std::string, int>;
DocumentState StateOf(const MapDocument& document);

struct MapWorkbench {
  MapDocument document;
  Selection selection;
  EventLog events;
  ScriptedDialogs dialogs{events};
  FakeDisplay display{events};
  ScratchFolder folder;
  double nextRandom = 0.5;
  RandomSource random = [this] { return nextRandom; };

  MapWorkbench() = default;
  MapWorkbench(const MapWorkbench&) = delete;
  MapWorkbench& operator=(const MapWorkbench&) = delete;

  MapFileContext Context(FileCalls& files = SystemFileCalls()) {
    return {document, selection, files, dialogs, display, random};
  }
  LoadOutcome Load(const std::string& path, bool shiftDown = false) {
    return LoadMap(Context(), path, false, shiftDown);
  }
  /// Loads a file of these bytes.
  LoadOutcome LoadBytes(const Bytes& bytes, bool shiftDown = false);
  /// The bytes that a save or an undo snapshot gives; empty when it fails.
  Bytes Saved(const std::string& name = "saved.pmp");
  Bytes Snapshot();
};

}  // namespace vesmora
