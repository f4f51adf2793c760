#include "platform/core/assets/assets_config_writer.h"

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
#include "platform/core/base/json_writer.h"

namespace qx {
namespace {

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
          const TqxWritingOptions& options, std::string& out)
      : FManager(manager), FUris(fileName), FPlatforms(platforms), FOptions(options), FJson(out, options.Pretty) {}

  void Document();

private:
  bool Keeps(const TqxAsset& asset) const;
  bool Shadowed(const TqxAsset& asset) const;
  void Variant(const TqxAsset& asset);
  void Bitmaps(const TqxAssetBitmapSet& set);
  void Uri(const char* key, const std::string& uri) { FJson.Member(key, FUris.ToStored(uri)); }

  const TqxAssetsManager& FManager;
  TqxConfigUris FUris;
  const TqxPlatforms* FPlatforms;
  TqxWritingOptions FOptions;
  TqxJsonWriter FJson;
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

void TWriter::Document() {
  FJson.BeginObject();
  FJson.Member("format", TqxAssetsFactory::kFormatName);
  FJson.Member("version", TqxAssetsFactory::kFormatVersion);
  FJson.Key("platforms");
  FJson.BeginArray();
  for (TqxPlatform platform = 0; platform < kPlatformCount; ++platform) {
    if (!FPlatforms || FPlatforms->count(platform)) FJson.String(TqxAssetTargets::PlatformKey(platform));
  }
  FJson.EndArray();
  if (FOptions.ResolveVariants && FOptions.Platform != kPlatformAny) {
    FJson.Member("resolvedFor", TqxAssetTargets::PlatformKey(FOptions.Platform));
  }

  // The manager lists variants by name, then platform and device class: one
  // entry for each run of the same name and kind.
  FJson.Key("assets");
  FJson.BeginArray();
  const TqxAsset* previous = nullptr;
  for (const TqxAsset* asset : FManager.GetAllAssets()) {
    if (!Keeps(*asset)) continue;
    if (!previous || previous->Name() != asset->Name() || previous->GetType() != asset->GetType()) {
      if (previous) {
        FJson.EndArray();
        FJson.EndObject();
      }
      FJson.BeginObject();
      FJson.Member("name", asset->Name());
      FJson.Member("kind", asset->GetType());
      FJson.Key("variants");
      FJson.BeginArray();
    }
    Variant(*asset);
    previous = asset;
  }
  if (previous) {
    FJson.EndArray();
    FJson.EndObject();
  }
  FJson.EndArray();
  FJson.EndObject();
}

void TWriter::Variant(const TqxAsset& asset) {
  FJson.BeginObject();
  FJson.Member("platform", TqxAssetTargets::PlatformKey(asset.Platform()));
  FJson.Member("deviceClass", TqxAssetTargets::DeviceClassKey(asset.DeviceClass()));
  const TqxAssetType type = asset.GetType();
  if (type == TqxAssetColor::kType) {
    FJson.Member("color", TqxAssetsConfigWriter::ColorText(static_cast<const TqxAssetColor&>(asset).Color()));
  } else if (type == TqxAssetBitmapSet::kType) {
    Bitmaps(static_cast<const TqxAssetBitmapSet&>(asset));
  } else if (type == TqxAssetFile::kType) {
    const auto& file = static_cast<const TqxAssetFile&>(asset);
    Uri("uri", file.Uri());
    FJson.Member("location", TqxAssetFile::FileLocationToString(file.FileLocation()));
    FJson.Member("extraction", TqxAssetFile::ExtractionRuleToString(file.ExtractionRule()));
  } else if (type == TqxAssetStyle::kType) {
    const auto& style = static_cast<const TqxAssetStyle&>(asset);
    Uri("uri", style.Uri());
    FJson.Member("targetClass", style.TargetClassName());
  } else if (type == TqxAssetFont::kType || type == TqxAssetLottieAnimation::kType) {
    Uri("uri", static_cast<const TqxAssetWithFile&>(asset).Uri());
  } else if (type == TqxAssetSVG::kType) {
    const auto& svg = static_cast<const TqxAssetSVG&>(asset);
    Uri("svgUri", svg.SVGUri());
    Uri("vectorUri", svg.VectorUri());
    FJson.Key("size");
    FJson.BeginObject();
    FJson.Member("width", svg.Size().Width);
    FJson.Member("height", svg.Size().Height);
    FJson.EndObject();
  }
  // A theme container has nothing but its target.
  FJson.EndObject();
}

void TWriter::Bitmaps(const TqxAssetBitmapSet& set) {
  FJson.Key("bitmaps");
  FJson.BeginArray();
  for (const TqxBitmapInfo* info : set.GetBitmapInfos()) {
    FJson.BeginObject();
    FJson.Member("scale", ShortestOfSingle(info->Scale()));
    if (info->Source() == TqxBitmapInfo::TqxSource::Memory) {
      // Not on disk yet: the name its set's save gives it.
      FJson.Member("uri", info->HasBitmap() ? TqxAssetsConfigWriter::InMemoryBitmapUri(set, info->Scale()) : "");
    } else {
      Uri("uri", info->Uri());
    }
    const TRect& insets = info->CapInsets();
    if (insets != TRect{}) {
      FJson.Key("capInsets");
      FJson.BeginObject();
      FJson.Member("left", insets.Left);
      FJson.Member("top", insets.Top);
      FJson.Member("right", insets.Right);
      FJson.Member("bottom", insets.Bottom);
      FJson.EndObject();
    }
    if (info->HasTintColor()) FJson.Member("tint", TqxAssetsConfigWriter::ColorText(info->TintColor()));
    FJson.EndObject();
  }
  FJson.EndArray();
}

}  // namespace

std::string TqxAssetsConfigWriter::Write(const TqxAssetsManager& manager, const std::string& fileName,
                                         const TqxPlatforms* platforms, const TqxWritingOptions& options) {
  std::string text;
  text.reserve(manager.Count() * (options.Pretty ? 200 : 120));
  TWriter(manager, fileName, platforms, options, text).Document();
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
