#pragma once

#include <string>
#include <vector>

#include "platform/core/assets/asset.h"
#include "platform/core/base/types.h"

namespace qx {

// What the constants unit needs to know about themes, and the identifiers it
// makes of asset and theme names. A theme is a folder: the assets of theme X
// are named X\... All comparisons of names with themes are case-sensitive.
class TqxAssetsConstsNames {
public:
  // The themes in the order the unit lists them; the first is the current one.
  explicit TqxAssetsConstsNames(std::vector<TqxThemeName> themes);

  const std::vector<TqxThemeName>& Themes() const { return FThemes; }
  // The first theme, or "".
  TqxThemeName GetCurrentTheme() const;

  // The path is a theme's name, or lies in a theme's folder.
  bool IsThemePath(const std::string& path) const;
  // The asset's folder is a theme or lies in one.
  bool IsThemeAsset(const TqxAsset& asset) const;
  // The name less its leading "theme\", for the first theme that starts it.
  TqxAssetName RemoveThemePrefix(const TqxAssetName& name) const;

  // The identifier of a constant, before upper-casing: optionally without the
  // theme folder, made a valid identifier, and escaped with "&" when it is
  // one of the reserved words that would break the unit.
  std::string GenerateAssetName(const TqxAssetName& name, bool removeThemePrefix) const;
  // GenerateAssetName in upper case, as the unit writes it.
  std::string AssetIdentifier(const TqxAssetName& name, bool removeThemePrefix) const;
  // The identifier of a theme: its name after the first folder, and when
  // several themes end in the same folder name, that first folder's name
  // appended; then only letters and digits are kept. "A\Dark" and "B\Dark"
  // give "DarkA" and "DarkB".
  std::string GenerateThemeName(const TqxThemeName& name) const;

  // The text after the last `\`, or the whole.
  static std::string ExtractThemeName(const TqxThemeName& name);

private:
  std::vector<TqxThemeName> FThemes;
};

}  // namespace qx
