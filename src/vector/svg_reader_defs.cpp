// Gradients, snippets, defs and use of TqxVectorReaderSVG.
//
// Elements are turned into commands on the way, so there is no element tree to
// go back to for a `use`. Instead every element with an id records the commands
// it produces into a snippet, and `use` replays a recording. `defs` only keeps
// its commands out of the main document while the recordings go on.
#include "vector/vector_reader_svg.h"

#include <algorithm>
#include <utility>

namespace qx {

namespace {

// Linear gradient coordinates raise on a bad number; an absent one has its
// default, which is 1 for x2 so that a bare gradient runs along x.
float Coordinate(const pugi::xml_node& ANode, const char* AName, float ADefault) {
  if (!TqxVectorReaderSVG::HasAttribute(ANode, AName)) return ADefault;
  return TqxSVGValues::StrToFloat(TqxVectorReaderSVG::Attribute(ANode, AName));
}

// A stop value: the attribute wins over the same name in the stop's style.
// The style items are not trimmed, so "a:1; b:2" hides "b".
bool StopValue(const pugi::xml_node& AStop, const TsvgNameValues& AStyle, const char* AName, std::string& AValue) {
  if (TqxVectorReaderSVG::HasAttribute(AStop, AName)) {
    AValue = TqxVectorReaderSVG::Attribute(AStop, AName);
    return true;
  }
  return AStyle.TryGetValue(AName, AValue, true);
}

void AddGradient(std::unordered_map<std::string, std::unique_ptr<TqxVectorGradient>>& AGradients,
                 std::unique_ptr<TqxVectorGradient> AGradient) {
  const std::string id = AGradient->ID;
  if (!AGradients.try_emplace(id, std::move(AGradient)).second)
    throw Exception(Format("A gradient with this id already exists: id=\"%s\"", {id}));
}

}  // namespace

void TqxVectorReaderSVG::ProcessLinearGradient(const pugi::xml_node& ANode) {
  // gradientUnits is not read: coordinates are taken in the drawing's space.
  auto gradient = std::make_unique<TqxVectorLinearGradient>();
  gradient->ID = Attribute(ANode, "id");
  ReadGradientTransform(ANode, *gradient);
  gradient->StartPoint = TPointF{Coordinate(ANode, "x1", 0), Coordinate(ANode, "y1", 0)};
  gradient->EndPoint = TPointF{Coordinate(ANode, "x2", 1), Coordinate(ANode, "y2", 0)};
  ReadGradientPoints(ANode, *gradient);
  AddGradient(FGradients, std::move(gradient));
}

void TqxVectorReaderSVG::ProcessRadialGradient(const pugi::xml_node& ANode) {
  auto gradient = std::make_unique<TqxVectorRadialGradient>();
  gradient->ID = Attribute(ANode, "id");
  ReadGradientTransform(ANode, *gradient);
  // The centre is required, so an absent one raises like a bad one. The
  // gradient transform moves the centre once here; the radius stays unscaled.
  const TPointF center{StrToFloat(Attribute(ANode, "cx")), StrToFloat(Attribute(ANode, "cy"))};
  const TPointF moved = center * gradient->Transform;
  gradient->Center = TPointF{static_cast<float>(moved.X), static_cast<float>(moved.Y)};
  float radius = 0;
  if (TryStrToFloat(Attribute(ANode, "r"), radius)) gradient->Radius = radius;
  ReadGradientPoints(ANode, *gradient);
  AddGradient(FGradients, std::move(gradient));
}

void TqxVectorReaderSVG::ReadGradientPoints(const pugi::xml_node& AParent, TqxVectorGradient& AGradient) {
  for (const pugi::xml_node& stop : AParent.children()) {
    // Any element is a stop, whatever its name. Text, comments and CDATA carry
    // no attributes, and would only add transparent stops at 0.
    if (stop.type() != pugi::node_element) continue;
    const TsvgNameValues style(Attribute(stop, "style"), false);
    std::string text;
    float offset = 0;
    if (!StopValue(stop, style, "offset", text) || !TryStrToFloat(text, offset)) offset = 0;
    TAlphaColor color = 0;
    if (!StopValue(stop, style, "stop-color", text) || !TryStrToColor(text, color)) color = 0;
    float opacity = 1;
    if (!StopValue(stop, style, "stop-opacity", text) || !TryStrToFloat(text, opacity)) opacity = 1;

    // Opacity outside 0..1 is clamped by the byte the alpha lives in.
    const double alpha = static_cast<double>(color >> 24) * static_cast<double>(opacity);
    const auto byte = static_cast<TAlphaColor>(std::clamp<std::int64_t>(Round(alpha), 0, 255));
    AGradient.Points.push_back({offset, (color & 0x00FFFFFFu) | (byte << 24)});
  }
}

TqxSnippet* TqxVectorReaderSVG::ProcessSnippetAttribute(const pugi::xml_node& ANode) {
  if (!HasAttribute(ANode, "id")) return nullptr;
  const std::string id = Attribute(ANode, "id");
  auto [it, added] = FSnippets.try_emplace(id, nullptr);
  if (!added) throw Exception(Format("An element with this id already exists: id=\"%s\"", {id}));
  it->second = std::make_unique<TqxSnippet>(id);
  FCreatingSnippets[id] = it->second.get();
  return it->second.get();
}

void TqxVectorReaderSVG::ProcessDefs(const pugi::xml_node& ANode) {
  // A flag, not a counter: leaving a nested defs lets the rest of the outer
  // one reach the drawing.
  FIsParsingDefs = true;
  TsvgPaintingParams params;
  ReadPaintParams(ANode, params);  // read for its exceptions only
  TqxSnippet* snippet = ProcessSnippetAttribute(ANode);
  try {
    BeginGroup();
    ProcessTransformAttribute(ANode);
    ProcessElements(ANode);
    EndGroup(true);
  } catch (...) {
    FinishSnippet(snippet);
    throw;
  }
  FinishSnippet(snippet);
  FIsParsingDefs = false;
}

void TqxVectorReaderSVG::ProcessUse(const pugi::xml_node& ANode) {
  // Only the prefixed name is looked for, and only local references; x, y,
  // width and height are not read.
  if (!HasAttribute(ANode, "xlink:href")) return;
  const std::string href = Attribute(ANode, "xlink:href");
  const std::string id = StartsStr("#", href) ? href.substr(1) : std::string();
  const auto it = FSnippets.find(id);
  if (it == FSnippets.end()) return;
  // A target still being recorded encloses this use: replaying it would copy
  // the recording into itself.
  if (FCreatingSnippets.contains(id))
    AbortRead(Format("The element refers to itself: node=\"%s\", href=\"%s\"", {NodeName(ANode), href}));

  BeginGroup();
  try {
    AddCopiesFrom(it->second->Commands);
  } catch (...) {
    EndGroup();
    throw;
  }
  EndGroup();
}

}  // namespace qx
