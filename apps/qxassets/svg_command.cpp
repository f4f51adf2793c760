#include "svg_command.h"

#include <ostream>

namespace qx::cli {

namespace {

const char* const kUsage =
    "usage: qxassets svg check FILE... [--json]\n"
    "       qxassets svg compile IN.svg OUT.vector\n"
    "       qxassets svg render IN.svg|IN.vector... -o OUT.png|DIR [--size WxH]\n"
    "       qxassets svg dump FILE.svg [--json]\n";

struct TSubcommand {
  const char* Name;
  int (*Run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
};

const TSubcommand kSubcommands[] = {
    {"check", RunSvgCheck},
    {"compile", RunSvgCompile},
    {"render", RunSvgRender},
    {"dump", RunSvgDump},
};

}  // namespace

TqxCommand SvgCommand() {
  return {"svg", "svg check|compile|render|dump", "check, compile, render or dump SVG images", RunSvgCommand, ""};
}

int RunSvgCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.empty()) {
    err << kUsage;
    return kExitUsage;
  }
  if (args[0] == "-h" || args[0] == "--help") {
    out << kUsage;
    return kExitOk;
  }
  for (const TSubcommand& subcommand : kSubcommands) {
    if (args[0] != subcommand.Name) continue;
    try {
      return subcommand.Run({args.begin() + 1, args.end()}, out, err);
    } catch (const EUsageError& e) {
      err << "qxassets svg " << args[0] << ": " << e.what() << "\n" << kUsage;
      return kExitUsage;
    }
  }
  err << "qxassets svg: unknown subcommand \"" << args[0] << "\"\n" << kUsage;
  return kExitUsage;
}

}  // namespace qx::cli
