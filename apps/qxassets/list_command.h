#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "command.h"

namespace qx {
class TqxAssetsManager;
}

namespace qx::cli {

// `qxassets list PROJECT.dproj`: the assets of a project as a tree.
TqxCommand ListCommand();

int RunList(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The tree text: folders and themes as nodes, each asset name with its kind and
// its variants.
std::string FormatAssetsTree(const TqxAssetsManager& manager);

}  // namespace qx::cli
