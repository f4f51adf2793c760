#include "list_command.h"

#include <ostream>

namespace qx::cli {

TqxCommand ListCommand() {
  return {"list", "list PROJECT.dproj", "print the project's assets as a tree", RunList};
}

int RunList(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  (void)args;
  (void)out;
  (void)err;
  return kExitOk;
}

}  // namespace qx::cli
