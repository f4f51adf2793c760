// qxassets: the assets tools for build servers. Each command lives in a file of
// its own and is listed in MakeCommands; this file only picks one.

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "command.h"
#include "list_command.h"
#include "svg_command.h"

namespace qx::cli {
namespace {

std::vector<TqxCommand> MakeCommands() {
  return {ListCommand(), SvgCommand()};
}

void PrintUsage(const std::vector<TqxCommand>& commands, std::ostream& out) {
  out << "usage: qxassets COMMAND [ARGS...]\n\ncommands:\n";
  for (const TqxCommand& command : commands) {
    std::string synopsis = command.Synopsis;
    synopsis.resize(std::max<std::size_t>(synopsis.size(), 28), ' ');
    out << "  " << synopsis << "  " << command.Summary << '\n';
  }
  out << "  help                          show this text\n";
}

int Dispatch(const std::vector<TqxCommand>& commands, const std::vector<std::string>& args) {
  if (args.empty()) {
    PrintUsage(commands, std::cerr);
    return kExitUsage;
  }
  const std::string& name = args.front();
  if (name == "help" || name == "--help" || name == "-h") {
    PrintUsage(commands, std::cout);
    return kExitOk;
  }
  for (const TqxCommand& command : commands) {
    if (command.Name == name) {
      return command.Run({args.begin() + 1, args.end()}, std::cout, std::cerr);
    }
  }
  std::cerr << "qxassets: unknown command \"" << name << "\"\n\n";
  PrintUsage(commands, std::cerr);
  return kExitUsage;
}

}  // namespace
}  // namespace qx::cli

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  try {
    return qx::cli::Dispatch(qx::cli::MakeCommands(), args);
  } catch (const std::exception& e) {
    // Commands report their own failures; this is the last guard.
    std::cerr << "qxassets: " << e.what() << '\n';
    return qx::cli::kExitFailure;
  }
}
