#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "command.h"
#include "designer_session.h"

namespace qx::cli {

// What a command that works on a project gets: its session and the arguments
// behind the project's name.
using TqxSessionBody =
    std::function<int(TqxDesignerSession& session, const std::vector<std::string>& args, std::ostream& out)>;

// The frame of every project command: "--help" prints the help and succeeds;
// too few arguments print the usage line and fail with kExitUsage; the body
// runs on a session of the project named first, and any failure in it is one
// line on err, "qxassets NAME: reason", with kExitFailure.
int RunOnProject(const TqxCommand& command, std::size_t minArgs, const std::vector<std::string>& args,
                 std::ostream& out, std::ostream& err, const TqxSessionBody& body);

// The designer's save, failing when any asset's files could not be saved
// (the rest of the save has gone through then, as in the designer).
void SaveSession(TqxDesignerSession& session);

// A name given on the command line, checked: a valid asset name, or a folder
// path ending in `\` when allowed. Raises Exception naming the text otherwise.
std::string CheckedName(const std::string& text, bool allowFolder);

}  // namespace qx::cli
