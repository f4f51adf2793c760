#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "platform/core/base/text.h"
#include "platform/core/vector/vector_document.h"

namespace qx::test {

// One line per command, so that whole command lists compare as text:
// "{" and "}" for groups, "path M0,0", "transform 1 0 0 1 5 5",
// "gradient g fill", "brush fill=#FFFF0000 width=2 ..." with the fields that
// have a value only.
inline std::string DumpBrush(const TqxVectorBrush& b) {
  std::string s = "brush";
  const auto num = [&](const char* name, const TqxNullable<float>& v) {
    if (v.HasValue()) s += Format(" %s=%g", {name, v.Value()});
  };
  if (b.Fill.HasValue()) s += " fill=" + b.Fill.Value();
  num("fill-opacity", b.FillOpacity);
  if (b.FillRule.HasValue()) s += b.FillRule.Value() == TqxFillRule::EvenOdd ? " rule=evenodd" : " rule=nonzero";
  if (b.Stroke.HasValue()) s += " stroke=" + b.Stroke.Value();
  num("width", b.StrokeWidth);
  num("stroke-opacity", b.StrokeOpacity);
  if (b.StrokeDashArray.HasValue()) {
    s += " dash=";
    for (std::size_t i = 0; i < b.StrokeDashArray.Value().size(); ++i)
      s += (i ? "," : "") + Format("%g", {b.StrokeDashArray.Value()[i]});
  }
  num("dash-offset", b.StrokeDashOffset);
  if (b.StrokeLineCap.HasValue()) s += Format(" cap=%d", {static_cast<int>(b.StrokeLineCap.Value())});
  if (b.StrokeLineJoin.HasValue()) s += Format(" join=%d", {static_cast<int>(b.StrokeLineJoin.Value())});
  return s;
}

inline std::string DumpCommand(const TqxVectorCommand& c) {
  switch (c.Kind) {
    case TqxVectorCommandKind::BeginGroup: return "{";
    case TqxVectorCommandKind::EndGroup: return "}";
    case TqxVectorCommandKind::DrawPath: return "path " + c.Path;
    case TqxVectorCommandKind::SetTransform: {
      const TMatrix& m = c.Matrix;
      return Format("transform %g %g %g %g %g %g", {m.m11, m.m12, m.m21, m.m22, m.m31, m.m32});
    }
    case TqxVectorCommandKind::SetGradient:
      return "gradient " + (c.Gradient ? c.Gradient->ID : std::string("?")) + (c.IsFill ? " fill" : " stroke");
    case TqxVectorCommandKind::SetBrush: return DumpBrush(c.Brush);
  }
  return "?";
}

inline std::vector<std::string> Dump(const TqxVectorCommands& commands) {
  std::vector<std::string> lines;
  for (const auto& c : commands) lines.push_back(DumpCommand(*c));
  return lines;
}

inline std::string SvgDataFile(const std::string& name) { return std::string(QX_TEST_DATA_DIR) + "/svg/" + name; }

}  // namespace qx::test
