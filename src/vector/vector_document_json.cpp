#include "vector/vector_document_json.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace qx {

namespace {

using json = nlohmann::ordered_json;

json Point(const TPointF& point) {
  return json::array({TqxVectorDocumentJson::Single(point.X), TqxVectorDocumentJson::Single(point.Y)});
}

void AddSingle(json& object, const char* name, const TqxNullable<float>& value) {
  if (value.HasValue()) object[name] = TqxVectorDocumentJson::Single(value.Value());
}

}  // namespace

double TqxVectorDocumentJson::Single(double value) {
  const float single = static_cast<float>(value);
  // JSON has no text for these; the dump writes them as null.
  if (!std::isfinite(single)) return single;
  char text[32];
  const auto result = std::to_chars(text, text + sizeof(text) - 1, single);
  *result.ptr = '\0';
  return std::strtod(text, nullptr);
}

std::string TqxVectorDocumentJson::ColorText(TAlphaColor color) {
  char text[12];
  std::snprintf(text, sizeof(text), "#%08X", static_cast<unsigned>(color));
  return text;
}

std::string TqxVectorDocumentJson::FillRuleName(TqxFillRule rule) {
  return rule == TqxFillRule::EvenOdd ? "EvenOdd" : "NonZero";
}

std::string TqxVectorDocumentJson::LineCapName(TqxStrokeLineCap cap) {
  switch (cap) {
    case TqxStrokeLineCap::Square: return "Square";
    case TqxStrokeLineCap::Round: return "Round";
    case TqxStrokeLineCap::Butt: return "Butt";
  }
  return "Unknown";
}

std::string TqxVectorDocumentJson::LineJoinName(TqxStrokeLineJoin join) {
  switch (join) {
    case TqxStrokeLineJoin::Miter: return "Miter";
    case TqxStrokeLineJoin::Round: return "Round";
    case TqxStrokeLineJoin::Bevel: return "Bevel";
  }
  return "Unknown";
}

nlohmann::ordered_json TqxVectorDocumentJson::Matrix(const TMatrix& m) {
  json values = json::array();
  for (float v : {m.m11, m.m12, m.m13, m.m21, m.m22, m.m23, m.m31, m.m32, m.m33}) values.push_back(Single(v));
  return values;
}

nlohmann::ordered_json TqxVectorDocumentJson::Brush(const TqxVectorBrush& brush) {
  json object = json::object();
  object["kind"] = "brush";
  if (brush.Fill.HasValue()) object["fill"] = brush.Fill.Value();
  AddSingle(object, "fillOpacity", brush.FillOpacity);
  if (brush.FillRule.HasValue()) object["fillRule"] = FillRuleName(brush.FillRule.Value());
  if (brush.Stroke.HasValue()) object["stroke"] = brush.Stroke.Value();
  AddSingle(object, "strokeWidth", brush.StrokeWidth);
  AddSingle(object, "strokeOpacity", brush.StrokeOpacity);
  if (brush.StrokeDashArray.HasValue()) {
    json dashes = json::array();
    for (float dash : brush.StrokeDashArray.Value()) dashes.push_back(Single(dash));
    object["strokeDashArray"] = std::move(dashes);
  }
  AddSingle(object, "strokeDashOffset", brush.StrokeDashOffset);
  if (brush.StrokeLineCap.HasValue()) object["strokeLineCap"] = LineCapName(brush.StrokeLineCap.Value());
  if (brush.StrokeLineJoin.HasValue()) object["strokeLineJoin"] = LineJoinName(brush.StrokeLineJoin.Value());
  return object;
}

nlohmann::ordered_json TqxVectorDocumentJson::Gradient(const TqxVectorGradient& gradient, bool isFill) {
  json object = json::object();
  object["kind"] = "gradient";
  object["fill"] = isFill;
  object["id"] = gradient.ID;
  if (const auto* linear = dynamic_cast<const TqxVectorLinearGradient*>(&gradient)) {
    object["type"] = "linear";
    object["start"] = Point(linear->StartPoint);
    object["end"] = Point(linear->EndPoint);
  } else if (const auto* radial = dynamic_cast<const TqxVectorRadialGradient*>(&gradient)) {
    object["type"] = "radial";
    object["center"] = Point(radial->Center);
    object["radius"] = Single(radial->Radius);
  }
  json stops = json::array();
  for (const TqxVectorGradientPoint& point : gradient.Points)
    stops.push_back(json::array({Single(point.Offset), ColorText(point.Color)}));
  object["stops"] = std::move(stops);
  object["transform"] = Matrix(gradient.Transform);
  return object;
}

nlohmann::ordered_json TqxVectorDocumentJson::Command(const TqxVectorCommand& command) {
  switch (command.Kind) {
    case TqxVectorCommandKind::DrawPath: return {{"kind", "path"}, {"path", command.Path}};
    case TqxVectorCommandKind::BeginGroup: return {{"kind", "begin"}};
    case TqxVectorCommandKind::EndGroup: return {{"kind", "end"}};
    case TqxVectorCommandKind::SetTransform: return {{"kind", "transform"}, {"matrix", Matrix(command.Matrix)}};
    case TqxVectorCommandKind::SetGradient:
      if (command.Gradient) return Gradient(*command.Gradient, command.IsFill);
      return {{"kind", "gradient"}, {"fill", command.IsFill}};
    case TqxVectorCommandKind::SetBrush: return Brush(command.Brush);
  }
  return {{"kind", "unknown"}};
}

nlohmann::ordered_json TqxVectorDocumentJson::Commands(const TqxVectorCommands& commands) {
  json list = json::array();
  for (const auto& command : commands) list.push_back(Command(*command));
  return list;
}

nlohmann::ordered_json TqxVectorDocumentJson::Document(const TqxVectorDocument& document) {
  const TRectF& box = document.ViewBox;
  return {
      {"size", json::array({Single(document.Size.Width), Single(document.Size.Height)})},
      {"viewBox", json::array({Single(box.Left), Single(box.Top), Single(box.Width()), Single(box.Height())})},
      {"commands", Commands(document.Commands)},
  };
}

}  // namespace qx
