#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/assets/asset.h"

namespace qx {

// Turns the text of an assets config file into assets, checking all of it
// before anything is returned. URIs become full paths against the folder of
// fileName. Raises Exception whose message names fileName and the place of the
// first fault: line and column for bad UTF-8 and JSON syntax, the JSON path
// (assets[3].variants[0].color) for a field that is wrong or missing.
class TqxAssetsConfigReader {
public:
  static std::vector<std::unique_ptr<TqxAsset>> Read(std::string_view text, const std::string& fileName);

  // The start of every message: names the file.
  static std::string MessagePrefix(const std::string& fileName);
};

}  // namespace qx
