#pragma once

#include <string>
#include <vector>

#include "command.h"

namespace qx {
class TqxAssetsModel;
}

namespace qx::cli {

// `qxassets add PROJECT FILE... [--folder PATH]`: each file becomes an asset
// of its kind, as a drop on the designer's tree makes it; a folder adds every
// file under it.
TqxCommand AddCommand();
// `qxassets new PROJECT KIND NAME [FILE|COLOUR]`: an asset of any kind, as the
// designer's add commands make it, with the file or colour a picker would set.
TqxCommand NewCommand();
// `qxassets rm PROJECT NAME`: removes an asset, a theme with its members, or
// every asset under a folder path ending in `\`.
TqxCommand RmCommand();
// `qxassets mv PROJECT OLD NEW`: renames an asset, a theme with its members,
// or a folder path; prints the name the asset got.
TqxCommand MvCommand();

// The caption a new child of the folder gets: the name itself when no child
// of the folder (asset or subfolder) has it, else the first free "name-1",
// "name-2", ...; case-sensitive.
std::string GenerateNodeName(const TqxAssetsModel& model, const std::string& folderPath, const std::string& name);

}  // namespace qx::cli
