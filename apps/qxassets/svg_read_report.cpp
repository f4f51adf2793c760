#include "svg_read_report.h"

#include <exception>

#include "svg_command.h"

namespace qx::cli {

TsvgReadReport ReadSvgFile(const std::string& fileName, TqxVectorDocument& document) {
  TsvgReadReport report;
  TqxVectorReaderSVG reader(document);
  try {
    reader.LoadFromFile(fileName);
    report.Verdict = reader.Result();
  } catch (const std::exception& e) {
    report.Verdict = TqxResultParsing::Failed;
    report.Error = e.what();
    report.HasError = true;
  }
  report.Log = reader.Logs();
  return report;
}

std::string VerdictName(TqxResultParsing verdict) {
  switch (verdict) {
    case TqxResultParsing::Success: return "Success";
    case TqxResultParsing::SuccessWithWarnings: return "SuccessWithWarnings";
    case TqxResultParsing::Failed: return "Failed";
  }
  return "Failed";
}

int VerdictExitCode(TqxResultParsing verdict) {
  switch (verdict) {
    case TqxResultParsing::Success: return kExitOk;
    case TqxResultParsing::SuccessWithWarnings: return kExitWarnings;
    case TqxResultParsing::Failed: return kExitFailed;
  }
  return kExitFailed;
}

TqxResultParsing Worse(TqxResultParsing a, TqxResultParsing b) {
  return static_cast<int>(a) >= static_cast<int>(b) ? a : b;
}

nlohmann::ordered_json ReportJson(const TsvgReadReport& report) {
  nlohmann::ordered_json object = nlohmann::ordered_json::object();
  object["verdict"] = VerdictName(report.Verdict);
  object["log"] = report.Log;
  object["error"] = report.HasError ? nlohmann::ordered_json(report.Error) : nlohmann::ordered_json(nullptr);
  return object;
}

}  // namespace qx::cli
