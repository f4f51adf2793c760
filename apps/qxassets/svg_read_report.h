#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/core/vector/vector_document.h"
#include "vector/vector_reader_svg.h"

namespace qx::cli {

// What one read of an SVG file came to: the verdict, the reader's log lines
// ("- " and the message), and the message of the exception that ended the
// read, if one did. Such a read is Failed whatever the reader's verdict was
// at the time, as the reader's own class functions have it.
struct TsvgReadReport {
  TqxResultParsing Verdict = TqxResultParsing::Success;
  std::vector<std::string> Log;
  std::string Error;
  bool HasError = false;
};

// Reads the file into ADocument, which keeps whatever was drawn before a
// failure. Never raises.
TsvgReadReport ReadSvgFile(const std::string& fileName, TqxVectorDocument& document);

// "Success", "SuccessWithWarnings" or "Failed".
std::string VerdictName(TqxResultParsing verdict);
// 0, 1 or 2: the exit code of a command whose worst verdict this is.
int VerdictExitCode(TqxResultParsing verdict);
TqxResultParsing Worse(TqxResultParsing a, TqxResultParsing b);

// {"verdict": ..., "log": [...], "error": text or null}
nlohmann::ordered_json ReportJson(const TsvgReadReport& report);

}  // namespace qx::cli
