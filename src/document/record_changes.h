// What differs between two states of one object, in words for people.
#pragma once

#include <string>
#include <vector>

#include "document/records.h"

namespace vesmora {

/// One piece of text a change: "corner 2 from 10,20 to 10,25", "colour 1 from #ff0000 to #00ff00".
/// Compared bit by bit, so that what is not a number equals itself. Empty when nothing differs
/// that belongs to the object: not the letter of the author's name that a collider's record holds,
/// and not the connections of a waypoint.
std::vector<std::string> ChangesIn(const Polygon& before, const Polygon& after);
std::vector<std::string> ChangesIn(const SpawnPoint& before, const SpawnPoint& after);
std::vector<std::string> ChangesIn(const SceneryObject& before, const SceneryObject& after);
std::vector<std::string> ChangesIn(const Collider& before, const Collider& after);
std::vector<std::string> ChangesIn(const Waypoint& before, const Waypoint& after);

/// "#ff8000", and the alpha value behind it where that is not 255.
std::string ColorText(MapColor color);

/// With commas between them.
std::string Joined(const std::vector<std::string>& parts);

}  // namespace vesmora
