#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/core/base/nullable.h"
#include "platform/core/vector/vector_brush.h"

namespace qx {

// One class rule of a `style` element. There is no stroke colour: a stroke
// colour cannot come from a style sheet.
class TsvgCssClass {
public:
  std::string Name;  // lower case
  TqxNullable<std::string> Fill;
  TqxNullable<TqxFillRule> FillRule;
  TqxNullable<float> Opacity;
  TqxNullable<float> StrokeWidth;
  TqxNullable<std::vector<float>> StrokeDashArray;
  TqxNullable<float> StrokeDashOffset;  // never filled by the sheet reader
  TqxNullable<TqxStrokeLineCap> StrokeLineCap;
  TqxNullable<TqxStrokeLineJoin> StrokeLineJoin;
};

// Classes by lower-case name; a later rule of a name replaces the earlier one.
using TsvgCssClasses = std::unordered_map<std::string, std::unique_ptr<TsvgCssClass>>;

// "name:value" items, looked up by the text in front of the first ":". The
// value is everything behind that ":", untrimmed, and the first item of a name
// wins, so blanks around the ":" matter on purpose.
class TsvgNameValues {
public:
  TsvgNameValues() = default;
  // Items of AText cut at ";", empty ones dropped; each is trimmed when ATrim.
  TsvgNameValues(std::string_view AText, bool ATrim);

  void Add(std::string AItem) { FItems.push_back(std::move(AItem)); }
  // AIgnoreCase compares names case-insensitively; AValue is untouched on a miss.
  bool TryGetValue(std::string_view AName, std::string& AValue, bool AIgnoreCase = false) const;
  const std::vector<std::string>& Items() const { return FItems; }

private:
  std::vector<std::string> FItems;
};

// Reads the text of a `style` element into AClasses. A text splitter rather
// than a CSS parser: the sheet is cut at every ".", so each piece holding both
// braces is one class rule.
void ParseStyleSheet(std::string_view AText, TsvgCssClasses& AClasses);

}  // namespace qx
