#include "generators/assets_consts_names.h"

#include <algorithm>

#include "generators/pascal_identifier.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

constexpr char kSeparator = TqxAssetNameHelper::kSeparator;

}  // namespace

TqxAssetsConstsNames::TqxAssetsConstsNames(std::vector<TqxThemeName> themes) : FThemes(std::move(themes)) {}

TqxThemeName TqxAssetsConstsNames::GetCurrentTheme() const { return FThemes.empty() ? TqxThemeName() : FThemes.front(); }

bool TqxAssetsConstsNames::IsThemePath(const std::string& path) const {
  return std::any_of(FThemes.begin(), FThemes.end(), [&](const TqxThemeName& theme) {
    return path == theme || StartsStr(theme + kSeparator, path);
  });
}

bool TqxAssetsConstsNames::IsThemeAsset(const TqxAsset& asset) const {
  return IsThemePath(TqxAssetNameHelper::Path(asset.Name()));
}

TqxAssetName TqxAssetsConstsNames::RemoveThemePrefix(const TqxAssetName& name) const {
  for (const TqxThemeName& theme : FThemes) {
    const std::string prefix = theme + kSeparator;
    if (StartsStr(prefix, name)) return name.substr(prefix.size());
  }
  return name;
}

std::string TqxAssetsConstsNames::GenerateAssetName(const TqxAssetName& name, bool removeThemePrefix) const {
  std::string result = TqxPascalIdentifier::Normalize(removeThemePrefix ? RemoveThemePrefix(name) : name);
  if (TqxPascalIdentifier::IsKeyword(result)) result.insert(0, "&");
  return result;
}

std::string TqxAssetsConstsNames::AssetIdentifier(const TqxAssetName& name, bool removeThemePrefix) const {
  return TqxPascalIdentifier::ToUpper(GenerateAssetName(name, removeThemePrefix));
}

std::string TqxAssetsConstsNames::GenerateThemeName(const TqxThemeName& name) const {
  const std::size_t split = name.find(kSeparator);
  const std::string prefix = split == std::string::npos ? std::string() : name.substr(0, split);
  std::string rest = split == std::string::npos ? name : name.substr(split + 1);
  const auto sameLast = std::count_if(FThemes.begin(), FThemes.end(),
                                      [&](const TqxThemeName& theme) { return ExtractThemeName(theme) == rest; });
  // Themes told apart only by their folder keep that folder's name.
  if (sameLast >= 2) rest += kSeparator + ExtractThemeName(prefix);
  return TqxPascalIdentifier::LettersAndDigits(rest);
}

std::string TqxAssetsConstsNames::ExtractThemeName(const TqxThemeName& name) {
  const std::size_t last = name.rfind(kSeparator);
  return last == std::string::npos ? name : name.substr(last + 1);
}

}  // namespace qx
