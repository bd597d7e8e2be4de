// The checks of a map and the list that they write to.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "document/finding.h"
#include "document/map_document.h"

namespace vesmora {

class FindingList {
 public:
  void Error(std::string_view check, const ObjectReference& object, std::optional<WorldPoint> place,
             std::string text) {
    all_.push_back({check, Severity::kError, object, place, std::move(text)});
  }
  void Hint(std::string_view check, const ObjectReference& object, std::optional<WorldPoint> place,
            std::string text) {
    all_.push_back({check, Severity::kHint, object, place, std::move(text)});
  }
  std::vector<Finding> Take() { return std::move(all_); }

 private:
  std::vector<Finding> all_;
};

void CheckPolygons(const MapDocument& document, FindingList& findings);
void CheckSpawns(const MapDocument& document, const std::string& fileName, FindingList& findings);
void CheckSceneries(const MapDocument& document, FindingList& findings);
void CheckColliders(const MapDocument& document, FindingList& findings);
void CheckWaypoints(const MapDocument& document, FindingList& findings);

void CheckSectors(const MapDocument& document, FindingList& findings);

/// Of `scratch` the tables and the author are used. Free polygons are only looked at when it is
/// sure which ones are used.
void CheckWhatSaveChanges(const MapDocument& document, MapDocument& scratch,
                          bool isPolygonCountSure, FindingList& findings);

}  // namespace vesmora
