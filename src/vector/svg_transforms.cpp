// The transform readers of TqxSVGValues.
#include "vector/svg_values.h"

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {

namespace {

// Items of `text` split at `separators`, empty ones dropped.
std::vector<std::string> Items(std::string_view text, std::string_view separators) {
  std::vector<std::string> items;
  size_t begin = 0;
  while (begin <= text.size()) {
    size_t end = text.find_first_of(separators, begin);
    if (end == std::string_view::npos) end = text.size();
    if (end > begin) items.emplace_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return items;
}

// An argument the step is expected to have; a missing one reads as an empty
// number, which raises like any other bad number.
float Argument(const std::vector<std::string>& args, size_t index) {
  return TqxSVGValues::StrToFloat(index < args.size() ? std::string_view(args[index]) : std::string_view());
}

// One step: the text in front of its ")", commas already blanks, trimmed and
// lower case. Each kind overwrites its field of the record; all go into the
// matrix.
void ApplyStep(TqxVectorTransform& T, std::string_view step) {
  const auto rest = [&](std::string_view prefix) { return step.substr(prefix.size()); };
  if (StartsStr("translate(", step)) {
    const auto args = Items(rest("translate("), " ");
    const float tx = Argument(args, 0);
    // A lone number moves along x only, as SVG reads translate(tx).
    const float ty = args.size() == 1 ? 0.0f : Argument(args, 1);
    T.AddTranslation(tx, ty);
  } else if (StartsStr("translatex(", step)) {
    T.AddTranslation(TqxSVGValues::StrToFloat(rest("translatex(")), 0);
  } else if (StartsStr("translatey(", step)) {
    T.AddTranslation(0, TqxSVGValues::StrToFloat(rest("translatey(")));
  } else if (StartsStr("rotate(", step)) {
    // Only this step reads through a tolerant reader: a rotation about a
    // centre, "rotate(a cx cy)", is no angle and drops the step in silence.
    float degrees = 0;
    if (TqxSVGValues::TryStrToDegree(rest("rotate("), degrees)) T.AddRotation(degrees);
  } else if (StartsStr("scale(", step)) {
    const auto args = Items(rest("scale("), " ");
    const float sx = Argument(args, 0);
    T.AddScaling(sx, args.size() == 1 ? sx : Argument(args, 1));
  } else if (StartsStr("scalex(", step)) {
    T.AddScaling(TqxSVGValues::StrToFloat(rest("scalex(")), 1);
  } else if (StartsStr("scaley(", step)) {
    T.AddScaling(1, TqxSVGValues::StrToFloat(rest("scaley(")));
  }
}

}  // namespace

TMatrix TqxSVGValues::StrToMatrix(std::string_view S) {
  const auto args = Items(S, " ,");
  if (args.size() < 6) throw Exception(Format("'%s' is not a valid matrix", {S}));
  TMatrix matrix;
  matrix.m11 = StrToFloat(args[0]);
  matrix.m12 = StrToFloat(args[1]);
  matrix.m21 = StrToFloat(args[2]);
  matrix.m22 = StrToFloat(args[3]);
  matrix.m31 = StrToFloat(args[4]);
  matrix.m32 = StrToFloat(args[5]);
  return matrix;
}

TqxVectorTransform TqxSVGValues::ParseTransform(std::string_view AValue) {
  TqxVectorTransform transform;
  for (const auto& piece : SplitString(Trim(AValue), ')')) {
    if (piece.empty()) continue;
    ApplyStep(transform, LowerCase(Trim(StringReplaceAll(piece, ",", " "))));
  }
  return transform;
}

bool TqxSVGValues::ReadTransform(const pugi::xml_node& ANode, TqxVectorTransform& T) {
  const pugi::xml_attribute attribute = ANode.attribute("transform");
  if (!attribute) return false;
  T = ParseTransform(attribute.value());
  return true;
}

void TqxSVGValues::ParseGradientTransform(std::string_view AValue, TqxVectorGradient& AGradient) {
  const std::string value = Trim(AValue);
  if (!StartsText("matrix(", value)) return;
  // The last character is taken for the closing ")" without looking at it.
  const std::string_view inner = value.size() > 8 ? std::string_view(value).substr(7, value.size() - 8) : "";
  AGradient.Transform = StrToMatrix(inner);
}

void TqxSVGValues::ReadGradientTransform(const pugi::xml_node& ANode, TqxVectorGradient& AGradient) {
  const pugi::xml_attribute attribute = ANode.attribute("gradientTransform");
  if (attribute) ParseGradientTransform(attribute.value(), AGradient);
}

}  // namespace qx
