#include "platform/core/assets/asset_targets.h"

#include <array>

#include "platform/core/base/text.h"

namespace qx {

namespace {

struct TName {
  const char* Key;
  const char* DisplayName;
};

constexpr std::array<TName, kPlatformCount> kPlatforms = {{
    {"any", "Any"},
    {"android", "Android"},
    {"ios", "iOS"},
}};

constexpr std::array<TName, kDeviceClassCount> kDeviceClasses = {{
    {"any", "Any"},
    {"phone-small", "Phone Small"},
    {"phone-normal", "Phone Normal"},
    {"phone-large", "Phone Large"},
    {"tablet", "Tablet"},
    {"tablet-large", "Tablet Large"},
}};

template <size_t N>
const TName& Entry(const std::array<TName, N>& table, int value) {
  static const TName kUnknown{"unknown", "Unknown"};
  return (value >= 0 && value < static_cast<int>(N)) ? table[value] : kUnknown;
}

template <size_t N>
bool TryParse(const std::array<TName, N>& table, const std::string& key, int& value) {
  for (size_t i = 0; i < N; ++i) {
    if (SameText(key, table[i].Key)) {
      value = static_cast<int>(i);
      return true;
    }
  }
  return false;
}

}  // namespace

bool TqxAssetTargets::IsValidPlatform(TqxPlatform platform) {
  return platform >= 0 && platform < kPlatformCount;
}

bool TqxAssetTargets::IsValidDeviceClass(TqxDeviceClass deviceClass) {
  return deviceClass >= 0 && deviceClass < kDeviceClassCount;
}

std::string TqxAssetTargets::PlatformKey(TqxPlatform platform) { return Entry(kPlatforms, platform).Key; }

std::string TqxAssetTargets::PlatformDisplayName(TqxPlatform platform) {
  return Entry(kPlatforms, platform).DisplayName;
}

std::string TqxAssetTargets::DeviceClassKey(TqxDeviceClass deviceClass) {
  return Entry(kDeviceClasses, deviceClass).Key;
}

std::string TqxAssetTargets::DeviceClassDisplayName(TqxDeviceClass deviceClass) {
  return Entry(kDeviceClasses, deviceClass).DisplayName;
}

bool TqxAssetTargets::TryParsePlatformKey(const std::string& key, TqxPlatform& platform) {
  return TryParse(kPlatforms, key, platform);
}

bool TqxAssetTargets::TryParseDeviceClassKey(const std::string& key, TqxDeviceClass& deviceClass) {
  return TryParse(kDeviceClasses, key, deviceClass);
}

std::string TqxAssetTargets::TargetId(TqxPlatform platform, TqxDeviceClass deviceClass) {
  if (platform == kPlatformAny && deviceClass == kDeviceClassAny) return "default";
  if (deviceClass == kDeviceClassAny) return PlatformKey(platform);
  return PlatformKey(platform) + "-" + DeviceClassKey(deviceClass);
}

std::string TqxAssetTargets::TargetDisplayName(TqxPlatform platform, TqxDeviceClass deviceClass) {
  if (platform == kPlatformAny && deviceClass == kDeviceClassAny) return "Any";
  if (deviceClass == kDeviceClassAny) return PlatformDisplayName(platform);
  if (platform == kPlatformAny) return DeviceClassDisplayName(deviceClass);
  return PlatformDisplayName(platform) + " " + DeviceClassDisplayName(deviceClass);
}

}  // namespace qx
