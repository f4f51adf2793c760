#include <ostream>

#include "svg_command.h"
#include "svg_read_report.h"

namespace qx::cli {

namespace {

void PrintReport(std::ostream& out, const std::string& fileName, const TsvgReadReport& report) {
  out << fileName << ": " << VerdictName(report.Verdict) << "\n";
  for (const std::string& line : report.Log) out << "  " << line << "\n";
  if (report.HasError) out << "  error: " << report.Error << "\n";
}

}  // namespace

int RunSvgCheck(const std::vector<std::string>& args, std::ostream& out, std::ostream& /*err*/) {
  bool json = false;
  std::vector<std::string> files;
  for (const std::string& arg : args) {
    if (arg == "--json")
      json = true;
    else if (IsOption(arg))
      throw EUsageError("unknown option \"" + arg + "\"");
    else
      files.push_back(arg);
  }
  if (files.empty()) throw EUsageError("no SVG file given");

  TqxResultParsing worst = TqxResultParsing::Success;
  nlohmann::ordered_json results = nlohmann::ordered_json::array();
  for (const std::string& fileName : files) {
    TqxVectorDocument document;
    const TsvgReadReport report = ReadSvgFile(fileName, document);
    worst = Worse(worst, report.Verdict);
    if (json) {
      nlohmann::ordered_json result = {{"file", fileName}};
      result.update(ReportJson(report));
      results.push_back(std::move(result));
    } else {
      PrintReport(out, fileName, report);
    }
  }
  // Invalid UTF-8 in a log line (an element name from a broken file) must not
  // stop the report, so it is replaced rather than raised on.
  if (json) out << results.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << "\n";
  return VerdictExitCode(worst);
}

}  // namespace qx::cli
