// Paint resolution of TqxVectorReaderSVG: style sheets, `style` attributes and
// presentation attributes, merged into one brush per element.
#include "vector/vector_reader_svg.h"

#include "vector/svg_colors.h"

namespace qx {

namespace {

// A `fill` or `stroke` value: "url(#id)" names a gradient by id; anything else
// is a colour text kept as written. Quotes inside the parentheses stay.
void ReadPaintServer(std::string AValue, TqxNullable<std::string>& AField, bool& AIsCustom) {
  AIsCustom = AValue.find("url(") != std::string::npos;
  if (AIsCustom) {
    AValue = AValue.size() > 5 ? AValue.substr(4, AValue.size() - 5) : std::string();
    if (!AValue.empty() && AValue[0] == '#') AValue.erase(0, 1);
  }
  AField = AValue;
}

// "evenodd" in any case; any other text is NonZero.
TqxFillRule FillRuleOf(std::string_view AValue) {
  return SameText(AValue, "evenodd") ? TqxFillRule::EvenOdd : TqxFillRule::NonZero;
}

// A colour keyword becomes its "#AARRGGBB" text; anything else stays as it is.
std::string Resolve(const std::string& AColor) {
  std::string value;
  return TsvgColors::Default().TryGetValue(AColor, value) ? value : AColor;
}

// A plain number with no unit; raises otherwise, which ends the read.
float RawNumber(std::string_view AValue) {
  double value = 0;
  if (!qx::TryStrToFloat(Trim(AValue), value))
    throw Exception(Format("\"%s\" is not a valid floating point value", {AValue}));
  return static_cast<float>(value);
}

template <class T>
void TakeIfEmpty(TqxNullable<T>& ATarget, const TqxNullable<T>& ASource) {
  if (!ATarget.HasValue() && ASource.HasValue()) ATarget = ASource;
}

}  // namespace

void TqxVectorReaderSVG::ParseStyle(const pugi::xml_node& ANode) { ParseStyleSheet(NodeText(ANode), FCSSClasses); }

void TqxVectorReaderSVG::ReadPaintParams(const pugi::xml_node& ANode, TsvgPaintingParams& AParams) {
  AParams.ResetToDefault();
  std::string s;
  float f = 0;
  std::vector<float> array;
  TqxStrokeLineCap cap;
  TqxStrokeLineJoin join;

  if (HasAttribute(ANode, "style")) {
    const TsvgNameValues style(LowerCase(Attribute(ANode, "style")), true);
    if (style.TryGetValue("fill", s)) ReadPaintServer(s, AParams.FillColor, AParams.IsCustomFillColor);
    if (style.TryGetValue("opacity", s) && TryStrToFloat(s, f)) {
      AParams.FillOpacity = f;
      AParams.StrokeOpacity = f;
    }
    if (style.TryGetValue("stroke-dashoffset", s) && TryStrToFloat(s, f)) AParams.StrokeDashOffset = f;
    if (style.TryGetValue("fill-rule", s)) AParams.FillRule = FillRuleOf(s);
    if (style.TryGetValue("stroke-width", s) && TryStrToFloat(s, f)) AParams.StrokeWidth = f;
    if (style.TryGetValue("stroke-dasharray", s) && TryParseSingleArray(s, ',', array)) AParams.StrokeDashArray = array;
    if (style.TryGetValue("stroke-linecap", s) && TryStrToStrokeLineCap(s, cap)) AParams.StrokeLineCap = cap;
    if (style.TryGetValue("stroke-linejoin", s) && TryStrToStrokeLineJoin(s, join)) AParams.StrokeLineJoin = join;
  }

  const auto attr = [&](const char* name, std::string& value) {
    if (!HasAttribute(ANode, name)) return false;
    value = Attribute(ANode, name);
    return true;
  };
  if (attr("fill", s)) ReadPaintServer(s, AParams.FillColor, AParams.IsCustomFillColor);
  if (attr("opacity", s) && TryStrToFloat(s, f)) {
    AParams.FillOpacity = f;
    AParams.StrokeOpacity = f;
  }
  if (attr("stroke-dashoffset", s) && TryStrToFloat(s, f)) AParams.StrokeDashOffset = f;
  if (attr("fill-opacity", s)) AParams.FillOpacity = RawNumber(s);
  if (attr("stroke", s)) ReadPaintServer(s, AParams.StrokeColor, AParams.IsCustomStrokeColor);
  if (attr("stroke-width", s) && TryStrToFloat(s, f)) AParams.StrokeWidth = f;
  if (attr("stroke-opacity", s)) AParams.StrokeOpacity = RawNumber(s);
  if (attr("stroke-dasharray", s) && TryParseSingleArray(s, ' ', array)) AParams.StrokeDashArray = array;
  // Read a second time without units: "2px" passes above and raises here.
  if (attr("stroke-dashoffset", s)) AParams.StrokeDashOffset = RawNumber(s);
  if (attr("stroke-linecap", s) && TryStrToStrokeLineCap(s, cap)) AParams.StrokeLineCap = cap;
  if (attr("stroke-linejoin", s) && TryStrToStrokeLineJoin(s, join)) AParams.StrokeLineJoin = join;
  if (attr("fill-rule", s)) AParams.FillRule = FillRuleOf(s);
}

void TqxVectorReaderSVG::ProcessPaintAttributes(const pugi::xml_node& ANode, const TsvgPaintingParams& AParams) {
  TqxVectorBrush brush;
  if (HasAttribute(ANode, "class")) {
    const auto it = FCSSClasses.find(LowerCase(Attribute(ANode, "class")));
    if (it != FCSSClasses.end()) {
      const TsvgCssClass& css = *it->second;
      if (css.Fill.HasValue()) brush.Fill = Resolve(css.Fill.Value());
      if (css.Opacity.HasValue()) {
        brush.FillOpacity = css.Opacity;
        brush.StrokeOpacity = css.Opacity;
      }
      brush.StrokeDashOffset = css.StrokeDashOffset;
      brush.StrokeWidth = css.StrokeWidth;
      brush.StrokeDashArray = css.StrokeDashArray;
      brush.StrokeLineCap = css.StrokeLineCap;
      brush.StrokeLineJoin = css.StrokeLineJoin;
      brush.FillRule = css.FillRule;
    }
  }

  const auto gradient = [&](const std::string& id) -> std::shared_ptr<const TqxVectorGradient> {
    const auto it = FGradients.find(id);
    if (it == FGradients.end()) throw Exception(Format("Gradient not found: id=\"%s\"", {id}));
    return it->second->Clone();
  };
  if (AParams.FillColor.HasValue()) {
    if (AParams.IsCustomFillColor) SetGradient(gradient(AParams.FillColor.Value()), true);
    else brush.Fill = Resolve(AParams.FillColor.Value());
  }
  if (AParams.StrokeColor.HasValue()) {
    if (AParams.IsCustomStrokeColor) SetGradient(gradient(AParams.StrokeColor.Value()), false);
    else brush.Stroke = Resolve(AParams.StrokeColor.Value());
  }

  TakeIfEmpty(brush.StrokeWidth, AParams.StrokeWidth);
  TakeIfEmpty(brush.FillOpacity, AParams.FillOpacity);
  TakeIfEmpty(brush.StrokeOpacity, AParams.StrokeOpacity);
  TakeIfEmpty(brush.StrokeDashOffset, AParams.StrokeDashOffset);
  TakeIfEmpty(brush.FillRule, AParams.FillRule);
  TakeIfEmpty(brush.StrokeDashArray, AParams.StrokeDashArray);
  TakeIfEmpty(brush.StrokeLineCap, AParams.StrokeLineCap);
  TakeIfEmpty(brush.StrokeLineJoin, AParams.StrokeLineJoin);
  SetBrush(brush);
}

}  // namespace qx
