#include "platform/core/assets/asset_style.h"

#include <fstream>

#include <nlohmann/json.hpp>

namespace qx {

std::string TqxAssetStyle::GetStyleClass() const {
  if (!FTargetClassName.empty() || Uri().empty()) return FTargetClassName;
  std::ifstream file(Uri(), std::ios::binary);
  if (!file) return "";
  const auto json = nlohmann::json::parse(file, nullptr, /*allow_exceptions=*/false);
  if (!json.is_object()) return "";
  const auto it = json.find("className");
  return (it != json.end() && it->is_string()) ? it->get<std::string>() : "";
}

std::unique_ptr<TqxAsset> TqxAssetStyle::Clone(const TqxAssetName& newName) const {
  auto clone = CloneWithFile<TqxAssetStyle>(newName);
  clone->FTargetClassName = FTargetClassName;
  return clone;
}

}  // namespace qx
