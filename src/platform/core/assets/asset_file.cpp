#include "platform/core/assets/asset_file.h"

#include <array>

#include "platform/core/base/text.h"

namespace qx {

namespace {

constexpr std::array<const char*, 3> kLocations = {"bundle", "documents", "cache"};
constexpr std::array<const char*, 3> kRules = {"if-missing", "on-new-version", "always"};

template <class TEnum>
bool TryParseWord(const std::array<const char*, 3>& words, const std::string& text, TEnum& value) {
  for (size_t i = 0; i < words.size(); ++i) {
    if (SameText(text, words[i])) {
      value = static_cast<TEnum>(i);
      return true;
    }
  }
  return false;
}

}  // namespace

std::unique_ptr<TqxAsset> TqxAssetFile::Clone(const TqxAssetName& newName) const {
  auto clone = CloneWithFile<TqxAssetFile>(newName);
  clone->FFileLocation = FFileLocation;
  clone->FExtractionRule = FExtractionRule;
  return clone;
}

std::string TqxAssetFile::FileLocationToString(TqxFileLocation location) {
  return kLocations.at(static_cast<size_t>(location));
}

std::string TqxAssetFile::ExtractionRuleToString(TqxExtractionRule rule) { return kRules.at(static_cast<size_t>(rule)); }

bool TqxAssetFile::TryParse(const std::string& text, TqxFileLocation& location) {
  return TryParseWord(kLocations, text, location);
}

bool TqxAssetFile::TryParse(const std::string& text, TqxExtractionRule& rule) {
  return TryParseWord(kRules, text, rule);
}

}  // namespace qx
