#pragma once

#include "platform/core/assets/asset.h"

namespace qx {

// Orders the variants of a name: by platform, then by device class, "any"
// first on both. Usable with std::sort.
struct TqxAssetComparer {
  static int Compare(const TqxAsset& a, const TqxAsset& b) {
    if (a.Platform() != b.Platform()) return a.Platform() < b.Platform() ? -1 : 1;
    if (a.DeviceClass() != b.DeviceClass()) return a.DeviceClass() < b.DeviceClass() ? -1 : 1;
    return 0;
  }
  bool operator()(const TqxAsset* a, const TqxAsset* b) const { return Compare(*a, *b) < 0; }
};

}  // namespace qx
