#include <ostream>

#include "svg_command.h"
#include "svg_read_report.h"
#include "vector/vector_document_json.h"

namespace qx::cli {

// One JSON object: the read's report and the document it produced, including
// what was drawn before a failure.
int RunSvgDump(const std::vector<std::string>& args, std::ostream& out, std::ostream& /*err*/) {
  std::vector<std::string> files;
  for (const std::string& arg : args) {
    if (arg == "--json") continue;  // JSON is the only form of a dump
    if (IsOption(arg)) throw EUsageError("unknown option \"" + arg + "\"");
    files.push_back(arg);
  }
  if (files.size() != 1) throw EUsageError("expected one SVG file");

  TqxVectorDocument document;
  const TsvgReadReport report = ReadSvgFile(files[0], document);
  nlohmann::ordered_json dump = ReportJson(report);
  dump.update(TqxVectorDocumentJson::Document(document));
  out << dump.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << "\n";
  return VerdictExitCode(report.Verdict);
}

}  // namespace qx::cli
