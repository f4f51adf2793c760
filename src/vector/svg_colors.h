#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qx {

// The colour keywords an SVG file may name, with their colour as "#AARRGGBB"
// text, plus "none" as fully transparent black. Brushes carry colours as text,
// so the table answers text rather than numbers.
class TsvgColors {
public:
  // Made on first use; the table is never written afterwards.
  static const TsvgColors& Default();

  // Case is ignored. AColor is cleared first, so a miss leaves it empty.
  bool TryGetValue(std::string_view AName, std::string& AColor) const;
  std::size_t Count() const { return FColors.size(); }

private:
  TsvgColors();

  std::unordered_map<std::string, std::string> FColors;
};

}  // namespace qx
