#pragma once

#include <string>

#include "platform/core/assets/asset_with_file.h"

namespace qx {

// Where an app finds a custom file at run time.
enum class TqxFileLocation {
  Bundle = 0,     // stays inside the app's package, read-only
  Documents = 1,  // copied to the app's documents folder, which the user may see and back up
  Cache = 2,      // copied to the app's cache folder, which the system may clear
};

// When a file outside the package is copied there from the package.
enum class TqxExtractionRule {
  IfMissing = 0,       // once, when no file is there yet; changes made by the app stay
  OnNewVersion = 1,    // again whenever the app's version changes
  Always = 2,          // at every start, overwriting
};

// Any file the app carries as it is.
class TqxAssetFile : public TqxAssetWithFile {
public:
  static constexpr const char* kType = "file";

  explicit TqxAssetFile(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                        TqxDeviceClass deviceClass = kDeviceClassAny)
      : TqxAssetWithFile(std::move(name), platform, deviceClass) {}

  TqxFileLocation FileLocation() const { return FFileLocation; }
  void SetFileLocation(TqxFileLocation location) { FFileLocation = location; }
  // Meaningless for TqxFileLocation::Bundle.
  TqxExtractionRule ExtractionRule() const { return FExtractionRule; }
  void SetExtractionRule(TqxExtractionRule rule) { FExtractionRule = rule; }

  TqxAssetType GetType() const override { return kType; }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override;

  // Lower-case words for config files: "bundle", "documents", "cache";
  // "if-missing", "on-new-version", "always". Parsing ignores case.
  static std::string FileLocationToString(TqxFileLocation location);
  static std::string ExtractionRuleToString(TqxExtractionRule rule);
  static bool TryParse(const std::string& text, TqxFileLocation& location);
  static bool TryParse(const std::string& text, TqxExtractionRule& rule);

private:
  TqxFileLocation FFileLocation = TqxFileLocation::Bundle;
  TqxExtractionRule FExtractionRule = TqxExtractionRule::IfMissing;
};

}  // namespace qx
