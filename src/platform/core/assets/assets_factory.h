#pragma once

#include <set>
#include <string>

#include "platform/core/base/types.h"

namespace qx {

class TqxAssetsManager;

using TqxPlatforms = std::set<TqxPlatform>;

// How SaveConfigToFile writes a config file (docs/config-format.md).
struct TqxWritingOptions {
  // Leaves out the variants that a device of Platform would never pick: an
  // any-platform variant shadowed by one for Platform. Nothing is left out
  // when Platform is any.
  bool ResolveVariants = false;
  TqxPlatform Platform = kPlatformAny;
  // Indented text for people and diffs; compact text when false.
  bool Pretty = true;

  TqxWritingOptions() = default;
  TqxWritingOptions(bool resolveVariants, TqxPlatform platform, bool pretty)
      : ResolveVariants(resolveVariants), Platform(platform), Pretty(pretty) {}

  // The project's config.json: everything, indented.
  static TqxWritingOptions Default() { return {}; }
};

// Reads and writes the config files of an assets folder. The format is ours,
// versioned, and documented in docs/config-format.md.
class TqxAssetsFactory {
public:
  // Replaces the manager's contents with the assets of the file; URIs come back
  // as full paths. Raises Exception naming the file and the place of the fault
  // when the file can't be read or isn't a valid config, and leaves the manager
  // as it was.
  static void LoadFromFile(TqxAssetsManager& manager, const std::string& fileName);

  // Writes the manager's assets; URIs are stored relative to the file's folder.
  // The file is replaced whole or not at all. Raises Exception naming the file
  // when it can't be written.
  static void SaveConfigToFile(const TqxAssetsManager& manager, const std::string& fileName,
                               const TqxWritingOptions& options);
  // The same, keeping only the variants of the given platforms.
  static void SaveConfigToFile(const TqxAssetsManager& manager, const std::string& fileName,
                               const TqxPlatforms& platforms, const TqxWritingOptions& options);

  // The format's name and the newest version this program reads and writes.
  static constexpr const char* kFormatName = "quorvex-assets-config";
  static constexpr int kFormatVersion = 1;
};

}  // namespace qx
