#include "command_support.h"

#include <ostream>

#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"

namespace qx::cli {

int RunOnProject(const TqxCommand& command, std::size_t minArgs, const std::vector<std::string>& args,
                 std::ostream& out, std::ostream& err, const TqxSessionBody& body) {
  for (const std::string& arg : args) {
    if (arg == "--help" || arg == "-h") {
      out << "usage: qxassets " << command.Synopsis << "\n\n" << command.Help;
      return kExitOk;
    }
  }
  if (args.size() < minArgs) {
    err << "usage: qxassets " << command.Synopsis << '\n';
    return kExitUsage;
  }
  try {
    TqxDesignerSession session(args.front());
    return body(session, {args.begin() + 1, args.end()}, out);
  } catch (const std::exception& e) {
    std::string reason = e.what();
    std::replace(reason.begin(), reason.end(), '\n', ' ');
    err << "qxassets " << command.Name << ": " << reason << '\n';
    return kExitFailure;
  }
}

void SaveSession(TqxDesignerSession& session) {
  std::vector<std::string> failures;
  const int sink = TqxLog::AddSink([&](TqxLogLevel level, const std::string&, const std::string& text) {
    if (level == TqxLogLevel::Error) failures.push_back(text);
  });
  try {
    session.Save();
  } catch (...) {
    TqxLog::RemoveSink(sink);
    throw;
  }
  TqxLog::RemoveSink(sink);
  if (!failures.empty()) {
    throw Exception(Format("saved, but %d error(s) were logged; the first: %s",
                           {static_cast<int>(failures.size()), failures.front()}));
  }
}

std::string CheckedName(const std::string& text, bool allowFolder) {
  if (allowFolder && !text.empty() && text.back() == TqxAssetNameHelper::kSeparator) {
    const std::string path = TqxAssetNameHelper::NormalizePath(text);
    if (path == text) return path;
  } else if (TqxAssetNameHelper::IsValid(text)) {
    return text;
  }
  throw Exception(Format("\"%s\" is not a valid asset name: parts are separated by \\, and none may be "
                         "empty, \".\" or \"..\", or hold / : * ? \" < > |",
                         {text}));
}

}  // namespace qx::cli
