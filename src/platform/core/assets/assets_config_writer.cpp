#include "platform/core/assets/assets_config_writer.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_targets.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/assets/config_uris.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

using TJson = nlohmann::ordered_json;

// The shortest decimal that reads back to the same single, as a double, so
// that 1.1f is written "1.1" rather than "1.100000023841858".
double ShortestOfSingle(float value) {
  char buffer[32];
  auto result = std::to_chars(buffer, buffer + sizeof buffer - 1, value);
  *result.ptr = '\0';
  return std::strtod(buffer, nullptr);
}

class TWriter {
public:
  TWriter(const TqxAssetsManager& manager, const std::string& fileName, const TqxPlatforms* platforms,
          const TqxWritingOptions& options)
      : FManager(manager), FUris(fileName), FPlatforms(platforms), FOptions(options) {}

  TJson Document() const;

private:
  bool Keeps(const TqxAsset& asset) const;
  bool Shadowed(const TqxAsset& asset) const;
  TJson Variant(const TqxAsset& asset) const;
  TJson Bitmaps(const TqxAssetBitmapSet& set) const;

  const TqxAssetsManager& FManager;
  TqxConfigUris FUris;
  const TqxPlatforms* FPlatforms;
  TqxWritingOptions FOptions;
};

bool TWriter::Keeps(const TqxAsset& asset) const {
  if (FPlatforms && !FPlatforms->count(asset.Platform())) return false;
  return !Shadowed(asset);
}

// An any-platform variant that a device of the resolved platform never picks:
// its look-up tries (platform, device class) and (platform, any) first.
bool TWriter::Shadowed(const TqxAsset& asset) const {
  const TqxPlatform platform = FOptions.Platform;
  if (!FOptions.ResolveVariants || platform == kPlatformAny || asset.Platform() != kPlatformAny) return false;
  if (FPlatforms && !FPlatforms->count(platform)) return false;
  for (TqxDeviceClass deviceClass : {asset.DeviceClass(), kDeviceClassAny}) {
    const TqxAsset* other = FManager.FindExact(asset.Name(), platform, deviceClass);
    if (other && other->GetType() == asset.GetType()) return true;
  }
  return false;
}

TJson TWriter::Document() const {
  TJson root = TJson::object();
  root["format"] = TqxAssetsFactory::kFormatName;
  root["version"] = TqxAssetsFactory::kFormatVersion;
  TJson platforms = TJson::array();
  for (TqxPlatform platform = 0; platform < kPlatformCount; ++platform) {
    if (!FPlatforms || FPlatforms->count(platform)) platforms.push_back(TqxAssetTargets::PlatformKey(platform));
  }
  root["platforms"] = std::move(platforms);
  if (FOptions.ResolveVariants && FOptions.Platform != kPlatformAny) {
    root["resolvedFor"] = TqxAssetTargets::PlatformKey(FOptions.Platform);
  }

  // The manager lists variants by name, then platform and device class: one
  // entry for each run of the same name and kind.
  TJson assets = TJson::array();
  TJson* entry = nullptr;
  const TqxAsset* previous = nullptr;
  for (const TqxAsset* asset : FManager.GetAllAssets()) {
    if (!Keeps(*asset)) continue;
    if (!previous || previous->Name() != asset->Name() || previous->GetType() != asset->GetType()) {
      TJson fresh = TJson::object();
      fresh["name"] = asset->Name();
      fresh["kind"] = asset->GetType();
      fresh["variants"] = TJson::array();
      assets.push_back(std::move(fresh));
      entry = &assets.back();
    }
    (*entry)["variants"].push_back(Variant(*asset));
    previous = asset;
  }
  root["assets"] = std::move(assets);
  return root;
}

TJson TWriter::Variant(const TqxAsset& asset) const {
  TJson variant = TJson::object();
  variant["platform"] = TqxAssetTargets::PlatformKey(asset.Platform());
  variant["deviceClass"] = TqxAssetTargets::DeviceClassKey(asset.DeviceClass());
  const TqxAssetType type = asset.GetType();
  if (type == TqxAssetColor::kType) {
    variant["color"] = TqxAssetsConfigWriter::ColorText(static_cast<const TqxAssetColor&>(asset).Color());
  } else if (type == TqxAssetBitmapSet::kType) {
    variant["bitmaps"] = Bitmaps(static_cast<const TqxAssetBitmapSet&>(asset));
  } else if (type == TqxAssetFile::kType) {
    const auto& file = static_cast<const TqxAssetFile&>(asset);
    variant["uri"] = FUris.ToStored(file.Uri());
    variant["location"] = TqxAssetFile::FileLocationToString(file.FileLocation());
    variant["extraction"] = TqxAssetFile::ExtractionRuleToString(file.ExtractionRule());
  } else if (type == TqxAssetStyle::kType) {
    const auto& style = static_cast<const TqxAssetStyle&>(asset);
    variant["uri"] = FUris.ToStored(style.Uri());
    variant["targetClass"] = style.TargetClassName();
  } else if (type == TqxAssetFont::kType || type == TqxAssetLottieAnimation::kType) {
    variant["uri"] = FUris.ToStored(static_cast<const TqxAssetWithFile&>(asset).Uri());
  } else if (type == TqxAssetSVG::kType) {
    const auto& svg = static_cast<const TqxAssetSVG&>(asset);
    variant["svgUri"] = FUris.ToStored(svg.SVGUri());
    variant["vectorUri"] = FUris.ToStored(svg.VectorUri());
    variant["size"] = TJson{{"width", svg.Size().Width}, {"height", svg.Size().Height}};
  }
  // A theme container has nothing but its target.
  return variant;
}

TJson TWriter::Bitmaps(const TqxAssetBitmapSet& set) const {
  TJson bitmaps = TJson::array();
  for (const TqxBitmapInfo* info : set.GetBitmapInfos()) {
    TJson item = TJson::object();
    item["scale"] = ShortestOfSingle(info->Scale());
    if (info->Source() == TqxBitmapInfo::TqxSource::Memory) {
      // Not on disk yet: the name its set's save gives it.
      item["uri"] = info->HasBitmap() ? TqxAssetsConfigWriter::InMemoryBitmapUri(set, info->Scale()) : "";
    } else {
      item["uri"] = FUris.ToStored(info->Uri());
    }
    const TRect& insets = info->CapInsets();
    if (insets != TRect{}) {
      item["capInsets"] = TJson{{"left", insets.Left}, {"top", insets.Top}, {"right", insets.Right},
                                {"bottom", insets.Bottom}};
    }
    if (info->HasTintColor()) item["tint"] = TqxAssetsConfigWriter::ColorText(info->TintColor());
    bitmaps.push_back(std::move(item));
  }
  return bitmaps;
}

}  // namespace

std::string TqxAssetsConfigWriter::Write(const TqxAssetsManager& manager, const std::string& fileName,
                                         const TqxPlatforms* platforms, const TqxWritingOptions& options) {
  std::string text = TWriter(manager, fileName, platforms, options).Document().dump(options.Pretty ? 2 : -1);
  text += '\n';
  return text;
}

std::string TqxAssetsConfigWriter::ColorText(TAlphaColor color) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "#%08X", static_cast<unsigned>(color));
  return buffer;
}

std::string TqxAssetsConfigWriter::InMemoryBitmapUri(const TqxAsset& set, float scale) {
  const std::string path = set.GetRelativePath();
  const std::string folder = path.empty() ? set.GetShortName() : path + "\\" + set.GetShortName();
  const auto scaleText = static_cast<std::int64_t>(static_cast<long double>(scale) * 10);
  return folder + "\\" + set.GetTargetId() + "@" + std::to_string(scaleText) + "x.png";
}

}  // namespace qx
