#include "vector/svg_style_sheet.h"

#include "platform/core/base/text.h"
#include "vector/svg_values.h"

namespace qx {

namespace {

// Pieces of AText cut at ASeparator, empty ones dropped.
std::vector<std::string> Pieces(std::string_view AText, char ASeparator) {
  std::vector<std::string> pieces;
  for (std::string& piece : SplitString(AText, ASeparator))
    if (!piece.empty()) pieces.push_back(std::move(piece));
  return pieces;
}

}  // namespace

TsvgNameValues::TsvgNameValues(std::string_view AText, bool ATrim) {
  for (std::string& item : Pieces(AText, ';')) FItems.push_back(ATrim ? Trim(item) : std::move(item));
}

bool TsvgNameValues::TryGetValue(std::string_view AName, std::string& AValue, bool AIgnoreCase) const {
  for (const std::string& item : FItems) {
    const std::size_t colon = item.find(':');
    if (colon == std::string::npos) continue;
    const std::string_view name = std::string_view(item).substr(0, colon);
    if (AIgnoreCase ? SameText(name, AName) : name == AName) {
      AValue = item.substr(colon + 1);
      return true;
    }
  }
  return false;
}

void ParseStyleSheet(std::string_view AText, TsvgCssClasses& AClasses) {
  for (const std::string& rawPiece : Pieces(AText, '.')) {
    const std::string piece = LowerCase(Trim(rawPiece));
    const std::size_t open = piece.find('{');
    const std::size_t close = piece.find('}');
    if (piece.empty() || open == std::string::npos || close == std::string::npos) continue;

    auto css = std::make_unique<TsvgCssClass>();
    css->Name = Trim(std::string_view(piece).substr(0, open));
    const std::string body = close > open ? piece.substr(open + 1, close - open - 1) : std::string();
    const TsvgNameValues values(body, true);

    std::string s;
    float f = 0;
    std::vector<float> array;
    TqxStrokeLineCap cap;
    TqxStrokeLineJoin join;
    if (values.TryGetValue("fill", s)) css->Fill = s;
    if (values.TryGetValue("opacity", s) && TqxSVGValues::TryStrToFloat(s, f)) css->Opacity = f;
    if (values.TryGetValue("stroke-width", s) && TqxSVGValues::TryStrToFloat(s, f)) css->StrokeWidth = f;
    if (values.TryGetValue("fill-rule", s) && SameText(s, "evenodd")) css->FillRule = TqxFillRule::EvenOdd;
    if (values.TryGetValue("stroke-dasharray", s) && TqxSVGValues::TryParseSingleArray(s, ',', array))
      css->StrokeDashArray = array;
    if (values.TryGetValue("stroke-linecap", s) && TqxSVGValues::TryStrToStrokeLineCap(s, cap))
      css->StrokeLineCap = cap;
    if (values.TryGetValue("stroke-linejoin", s) && TqxSVGValues::TryStrToStrokeLineJoin(s, join))
      css->StrokeLineJoin = join;
    AClasses[css->Name] = std::move(css);
  }
}

}  // namespace qx
