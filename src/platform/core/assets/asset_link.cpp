#include "platform/core/assets/asset_link.h"

#include <utility>

namespace qx {

void TqxAssetLink::SetDefaultName(TqxAssetName name) {
  FDefaultTheme.clear();
  FDefaultName = std::move(name);
}

void TqxAssetLink::SetDefault(TqxThemeName theme, TqxAssetName name) {
  FDefaultTheme = std::move(theme);
  FDefaultName = std::move(name);
}

std::string TqxAssetLink::Joined(char separator) const {
  if (FDefaultTheme.empty() || FDefaultName.empty()) return FDefaultName;
  return FDefaultTheme + separator + FDefaultName;
}

TqxAssetName TqxAssetLink::GetDefaultName() const { return Joined('\\'); }

std::string TqxAssetLink::GetDefaultThemeAssetName() const { return Joined(':'); }

}  // namespace qx
