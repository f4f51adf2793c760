#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "command.h"
#include "platform/core/base/exception.h"

namespace qx::cli {

// The svg subcommands that report verdicts exit with the worst of them: 0 for
// Success, 1 for SuccessWithWarnings, 2 for Failed. Bad usage is 2 as well
// (kExitUsage), since in both cases nothing useful was produced.
inline constexpr int kExitWarnings = 1;
inline constexpr int kExitFailed = 2;

// Raised by a subcommand for a command line it can't run; RunSvgCommand
// prints the message with the usage and answers kExitUsage.
class EUsageError : public Exception {
public:
  using Exception::Exception;
};

// True for "-x" and "--xyz", false for "-" and plain arguments.
inline bool IsOption(const std::string& arg) { return arg.size() > 1 && arg[0] == '-'; }

// `qxassets svg SUBCOMMAND ...`.
TqxCommand SvgCommand();
int RunSvgCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// check FILE... [--json]: each file's verdict and log; exits with the worst
// verdict.
int RunSvgCheck(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// compile IN.svg OUT.vector: writes the vector document unless the read raised.
int RunSvgCompile(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// render IN.svg|IN.vector... -o OUT.png|DIR [--size WxH]: PNG pictures; 1 when
// some input could not be drawn.
int RunSvgRender(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// dump FILE [--json]: the read document, its verdict and log as one JSON object.
int RunSvgDump(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace qx::cli
