#include "document/record_changes.h"

#include <array>
#include <cstdio>

#include "document/geometry.h"
#include "document/number_text.h"
#include "document/object_reference.h"
#include "document/same_bytes.h"
#include "document/scenery_types.h"

namespace vesmora {
namespace {

constexpr std::array<const char*, 5> kBotSettingNames = {"left", "right", "up", "down", "fly"};

/// Collects what has changed.
class Changes {
 public:
  std::vector<std::string> texts;

  void Say(const std::string& what, const std::string& before, const std::string& after) {
    texts.push_back(what + " from " + before + " to " + after);
  }
  void Place(const std::string& what, WorldPoint before, WorldPoint after) {
    if (!HaveSameBytes(before, after)) Say(what, PlaceText(before), PlaceText(after));
  }
  void Number(const std::string& what, float before, float after) {
    if (!HaveSameBytes(before, after)) Say(what, NumberText(before), NumberText(after));
  }
  void Count(const std::string& what, std::int64_t before, std::int64_t after) {
    if (before != after) Say(what, std::to_string(before), std::to_string(after));
  }
  void Color(const std::string& what, MapColor before, MapColor after) {
    if (before != after) Say(what, ColorText(before), ColorText(after));
  }
  template <typename Bytes>
  void Carried(const Bytes& before, const Bytes& after) {
    if (!HaveSameBytes(before, after)) texts.emplace_back("bytes that are only carried");
  }
};

std::string TypeText(std::uint8_t type) {
  const std::string_view name = SceneryTypeOf(type).name;
  return name.empty() ? std::to_string(type) : "\"" + std::string(name) + "\"";
}

std::string TeamText(std::uint8_t team) {
  if (team == kNormalTeam) return "Normal";
  if (team == kRedTeam) return "CTF Red";
  return team == kBlueTeam ? "CTF Blue" : std::to_string(team);
}

void CompareCorner(Changes& changes, const std::string& number, const PolygonVertex& before,
                   const PolygonVertex& after) {
  changes.Place("corner " + number, PlaceOf(before), PlaceOf(after));
  changes.Color("colour " + number, before.color, after.color);
  changes.Place("texture " + number, {before.u, before.v}, {after.u, after.v});
  changes.Number("z " + number, before.z, after.z);
  changes.Number("rhw " + number, before.rhw, after.rhw);
}

void CompareEdges(Changes& changes, const Polygon& before, const Polygon& after) {
  bool normalsDiffer = false;
  for (std::size_t i = 0; i < before.edges.size(); ++i) {
    const bool wasPassable = IsPassable(before.edges[i]);
    const bool isPassable = IsPassable(after.edges[i]);
    if (wasPassable != isPassable) {
      changes.texts.push_back("edge " + std::to_string(i + 1) +
                              (isPassable ? " made passable" : " made solid"));
    } else {
      normalsDiffer = normalsDiffer || !HaveSameBytes(before.edges[i], after.edges[i]);
    }
  }
  if (normalsDiffer) changes.texts.emplace_back("edge normals");
}

}  // namespace

std::string ColorText(MapColor color) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", color.red, color.green, color.blue);
  std::string result = text.data();
  if (color.alpha != 255) result += " alpha " + std::to_string(color.alpha);
  return result;
}

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

std::vector<std::string> ChangesIn(const Polygon& before, const Polygon& after) {
  Changes changes;
  for (std::size_t i = 0; i < before.vertices.size(); ++i) {
    CompareCorner(changes, std::to_string(i + 1), before.vertices[i], after.vertices[i]);
  }
  CompareEdges(changes, before, after);
  return changes.texts;
}

std::vector<std::string> ChangesIn(const SpawnPoint& before, const SpawnPoint& after) {
  Changes changes;
  changes.Place("place", PlaceOf(before), PlaceOf(after));
  if (before.team != after.team) changes.Say("team", TeamText(before.team), TeamText(after.team));
  changes.Count("sign byte", before.ySign, after.ySign);
  changes.Count("mark", before.active, after.active);
  changes.Carried(before.carried, after.carried);
  return changes.texts;
}

std::vector<std::string> ChangesIn(const SceneryObject& before, const SceneryObject& after) {
  Changes changes;
  changes.Place("place", PlaceOf(before), PlaceOf(after));
  if (before.type != after.type) changes.Say("type", TypeText(before.type), TypeText(after.type));
  changes.Number("rotation", before.rotation, after.rotation);
  changes.Place("scale", {before.scaleX, before.scaleY}, {after.scaleX, after.scaleY});
  changes.Count("visibility", before.level, after.level);
  changes.Count("base width", before.width, after.width);
  changes.Count("base height", before.height, after.height);
  changes.Carried(before.carried, after.carried);
  changes.Carried(before.carriedTail, after.carriedTail);
  return changes.texts;
}

std::vector<std::string> ChangesIn(const Collider& before, const Collider& after) {
  Changes changes;
  changes.Place("place", PlaceOf(before), PlaceOf(after));
  changes.Number("size", before.radius, after.radius);
  changes.Carried(before.carried, after.carried);
  return changes.texts;
}

std::vector<std::string> ChangesIn(const Waypoint& before, const Waypoint& after) {
  Changes changes;
  changes.Place("place", PlaceOf(before), PlaceOf(after));
  changes.Count("path", before.path, after.path);
  for (std::size_t i = 0; i < kBotSettingNames.size(); ++i) {
    changes.Count(kBotSettingNames[i], before.botSettings[i], after.botSettings[i]);
  }
  changes.Carried(before.carried, after.carried);
  return changes.texts;
}

}  // namespace vesmora
