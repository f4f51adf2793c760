#pragma once

#include "command.h"

namespace qx::cli {

// `qxassets save PROJECT.dproj`: the designer's save of the project as it
// stands: assets folder, config files, constants unit, deployment entries,
// project file.
TqxCommand SaveCommand();
// `qxassets consts PROJECT.dproj`: prints the constants unit of the project's
// assets; changes nothing.
TqxCommand ConstsCommand();
// `qxassets deploy PROJECT.dproj`: rewrites the project's deployment entries
// of the assets; the assets folder is left alone.
TqxCommand DeployCommand();

}  // namespace qx::cli
