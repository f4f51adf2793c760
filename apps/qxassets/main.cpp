// qxassets: the assets tools for build servers. Each command lives in a file of
// its own and is listed in MakeCommands; this file only picks one.

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "command.h"
#include "document_commands.h"
#include "edit_commands.h"
#include "list_command.h"
#include "svg_command.h"

namespace qx::cli {
namespace {

std::vector<TqxCommand> MakeCommands() {
  return {ListCommand(), SaveCommand(), AddCommand(),    NewCommand(),   RmCommand(),
          MvCommand(),   ConstsCommand(), DeployCommand(), SvgCommand()};
}

void PrintUsage(const std::vector<TqxCommand>& commands, std::ostream& out) {
  out << "usage: qxassets COMMAND [ARGS...]\n\ncommands:\n";
  auto line = [&](std::string synopsis, const std::string& summary) {
    synopsis.resize(std::max<std::size_t>(synopsis.size(), 42), ' ');
    out << "  " << synopsis << "  " << summary << '\n';
  };
  for (const TqxCommand& command : commands) line(command.Synopsis, command.Summary);
  line("help", "show this text; COMMAND --help tells more of each");
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
