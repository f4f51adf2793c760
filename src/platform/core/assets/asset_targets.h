#pragma once

#include <string>

#include "platform/core/base/types.h"

namespace qx {

// The two axes of an asset's variants. Value 0 on either axis means "any".
// Device classes 1 to 3 are the Android phone sizes the form designer knows;
// 4 and 5 are the tablet sizes.
inline constexpr TqxDeviceClass kDeviceClassPhoneSmall = 1;
inline constexpr TqxDeviceClass kDeviceClassPhoneNormal = 2;
inline constexpr TqxDeviceClass kDeviceClassPhoneLarge = 3;
inline constexpr TqxDeviceClass kDeviceClassTablet = 4;
inline constexpr TqxDeviceClass kDeviceClassTabletLarge = 5;

// Names of the values, from one table. Key: a lower-case token fit for file
// names and config files ("android", "phone-small"); display name: what a
// person reads ("Android", "Phone Small").
class TqxAssetTargets {
public:
  static bool IsValidPlatform(TqxPlatform platform);
  static bool IsValidDeviceClass(TqxDeviceClass deviceClass);

  static std::string PlatformKey(TqxPlatform platform);
  static std::string PlatformDisplayName(TqxPlatform platform);
  static std::string DeviceClassKey(TqxDeviceClass deviceClass);
  static std::string DeviceClassDisplayName(TqxDeviceClass deviceClass);

  // Inverse of the keys, ignoring case; false for an unknown key.
  static bool TryParsePlatformKey(const std::string& key, TqxPlatform& platform);
  static bool TryParseDeviceClassKey(const std::string& key, TqxDeviceClass& deviceClass);

  // "default" for any/any; otherwise "<platform>" or "<platform>-<device class>",
  // e.g. "android", "android-phone-small", "any-tablet".
  static std::string TargetId(TqxPlatform platform, TqxDeviceClass deviceClass);
  // "Any", "Android", "Android Phone Small", "Tablet".
  static std::string TargetDisplayName(TqxPlatform platform, TqxDeviceClass deviceClass);
};

}  // namespace qx
