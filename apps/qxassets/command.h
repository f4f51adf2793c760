#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace qx::cli {

// Exit codes shared by every command.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;  // a missing project, a bad config, a failed write
inline constexpr int kExitUsage = 2;    // wrong arguments

// One subcommand of qxassets. Run gets the arguments after the command's name
// and writes its results to out and its diagnostics to err.
struct TqxCommand {
  std::string Name;
  std::string Synopsis;  // "list PROJECT.dproj"
  std::string Summary;   // one line for the usage text
  std::function<int(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)> Run;
  std::string Help;  // what --help prints below the synopsis
};

}  // namespace qx::cli
