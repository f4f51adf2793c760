#include <ostream>

#include "svg_command.h"
#include "svg_read_report.h"

namespace qx::cli {

// Writes the .vector file whenever the read came to an end by itself, even as
// Failed, as saving an SVG asset does; only a read that raised writes nothing.
int RunSvgCompile(const std::vector<std::string>& args, std::ostream& /*out*/, std::ostream& err) {
  std::vector<std::string> files;
  for (const std::string& arg : args) {
    if (IsOption(arg)) throw EUsageError("unknown option \"" + arg + "\"");
    files.push_back(arg);
  }
  if (files.size() != 2) throw EUsageError("expected IN.svg and OUT.vector");

  TqxVectorDocument document;
  const TsvgReadReport report = ReadSvgFile(files[0], document);
  for (const std::string& line : report.Log) err << files[0] << ": " << line << "\n";
  if (report.HasError) {
    err << files[0] << ": error: " << report.Error << "\n";
    return kExitFailed;
  }
  document.SaveToFile(files[1]);
  return VerdictExitCode(report.Verdict);
}

}  // namespace qx::cli
