// The basic shapes of TqxVectorReaderSVG. Each shape becomes one path, drawn in
// a group of its own with its brush; the texts come from TqxSVGShapePaths.
#include "vector/vector_reader_svg.h"

#include <array>
#include <initializer_list>

#include "vector/svg_shape_paths.h"

namespace qx {

namespace {

const char* const kCannotParse = "Cannot parse attribute value: node=\"%s\", name=\"%s\", attributeValue=\"%s\"";
const char* const kAttributeNotExisted = "The attribute is not existed: node=\"%s\", attributeName=%s";

using TShapeNumbers = std::array<float, 4>;

// Reads ANames in order into AValues, an absent attribute as 0. Returns the
// name of the first attribute that does not parse, and reads no further, or
// nullptr when all did.
const char* FirstBadNumber(const pugi::xml_node& ANode, std::initializer_list<const char*> ANames,
                           TShapeNumbers& AValues) {
  AValues.fill(0);
  std::size_t i = 0;
  for (const char* name : ANames) {
    if (TqxVectorReaderSVG::HasAttribute(ANode, name) &&
        !TqxSVGValues::TryStrToFloat(TqxVectorReaderSVG::Attribute(ANode, name), AValues[i]))
      return name;
    ++i;
  }
  return nullptr;
}

}  // namespace

void TqxVectorReaderSVG::ProcessCircle(const pugi::xml_node& ANode) {
  TShapeNumbers v;
  if (const char* bad = FirstBadNumber(ANode, {"cx", "cy", "r"}, v))
    return Warn(kCannotParse, {NodeName(ANode), bad, Attribute(ANode, bad)});
  ProcessPath(ANode, TqxSVGShapePaths::Circle(v[0], v[1], v[2]));
}

void TqxVectorReaderSVG::ProcessEllipse(const pugi::xml_node& ANode) {
  TShapeNumbers v;
  if (const char* bad = FirstBadNumber(ANode, {"cx", "cy", "rx", "ry"}, v))
    return Warn(kCannotParse, {NodeName(ANode), bad, Attribute(ANode, bad)});
  ProcessPath(ANode, TqxSVGShapePaths::Ellipse(v[0], v[1], v[2], v[3]));
}

void TqxVectorReaderSVG::ProcessLine(const pugi::xml_node& ANode) {
  TShapeNumbers v;
  if (const char* bad = FirstBadNumber(ANode, {"x1", "y1", "x2", "y2"}, v))
    return Warn(kCannotParse, {NodeName(ANode), bad, Attribute(ANode, bad)});
  ProcessPath(ANode, TqxSVGShapePaths::Line(v[0], v[1], v[2], v[3]));
}

void TqxVectorReaderSVG::ProcessRect(const pugi::xml_node& ANode) {
  // Corner radii are not supported: rx and ry are never read.
  TShapeNumbers v;
  if (const char* bad = FirstBadNumber(ANode, {"width", "height", "x", "y"}, v))
    return Warn(kCannotParse, {NodeName(ANode), bad, Attribute(ANode, bad)});
  ProcessPath(ANode, TqxSVGShapePaths::Rect(v[2], v[3], v[0], v[1]));
}

void TqxVectorReaderSVG::ProcessPolygon(const pugi::xml_node& ANode) {
  if (!HasAttribute(ANode, "points")) return Warn(kAttributeNotExisted, {NodeName(ANode), "points"});
  if (const auto data = TqxSVGShapePaths::Points(StrToPoints(Attribute(ANode, "points")), true))
    ProcessPath(ANode, *data);
}

void TqxVectorReaderSVG::ProcessPolyline(const pugi::xml_node& ANode) {
  if (!HasAttribute(ANode, "points")) return Warn(kAttributeNotExisted, {NodeName(ANode), "points"});
  if (const auto data = TqxSVGShapePaths::Points(StrToPoints(Attribute(ANode, "points")), false))
    ProcessPath(ANode, *data);
}

void TqxVectorReaderSVG::ProcessPath(const pugi::xml_node& ANode) {
  // The data is never parsed here: whatever `d` holds goes to the document.
  if (!HasAttribute(ANode, "d")) return Warn(kAttributeNotExisted, {NodeName(ANode), "d"});
  ProcessPath(ANode, Attribute(ANode, "d"));
}

void TqxVectorReaderSVG::ProcessPath(const pugi::xml_node& ANode, const std::string& AData) {
  TqxSnippet* snippet = ProcessSnippetAttribute(ANode);
  try {
    TsvgPaintingParams params;
    ReadPaintParams(ANode, params);
    BeginGroup();
    ProcessPaintAttributes(ANode, params);
    DrawPath(AData);
    EndGroup();
  } catch (...) {
    FinishSnippet(snippet);
    throw;
  }
  FinishSnippet(snippet);
}

}  // namespace qx
