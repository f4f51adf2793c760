#include "document_commands.h"

#include <ostream>

#include "command_support.h"
#include "generators/assets_consts_generator.h"
#include "platform/core/assets/assets_manager.h"

namespace qx::cli {

TqxCommand SaveCommand() {
  TqxCommand command{"save", "save PROJECT.dproj", "save the project as the assets designer does", nullptr,
                     "Loads Assets/config.json as the designer does and saves it back: the asset files\n"
                     "in their folders, config.json, config-android.json and config-ios.json, files no\n"
                     "asset lists removed, Assets.Consts.pas regenerated, the deployment entries of the\n"
                     "assets rewritten, and the project file written. A second save changes nothing.\n"};
  command.Run = [command](const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    return RunOnProject(command, 1, args, out, err, [](TqxDesignerSession& session, auto&, std::ostream& out) {
      SaveSession(session);
      out << "saved " << session.Model().GetAssetsManager().GetAssetsNames().size() << " assets of "
          << session.Project().GetFileName() << '\n';
      return kExitOk;
    });
  };
  return command;
}

TqxCommand ConstsCommand() {
  TqxCommand command{"consts", "consts PROJECT.dproj", "print the project's constants unit", nullptr,
                     "Prints Assets.Consts.pas as a save would write it for the project's assets.\n"
                     "Nothing is written.\n"};
  command.Run = [command](const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    return RunOnProject(command, 1, args, out, err, [](TqxDesignerSession& session, auto&, std::ostream& out) {
      TqxAssetsConstsGenerator generator(session.Designer().Project(), &session.Designer().GetAssetsManager());
      generator.BuildText();
      for (const std::string& line : generator.Lines()) out << line << '\n';
      return kExitOk;
    });
  };
  return command;
}

TqxCommand DeployCommand() {
  TqxCommand command{"deploy", "deploy PROJECT.dproj", "rewrite the project's deployment entries", nullptr,
                     "Replaces the project's deployment entries of the classes Quorvex_Assets and\n"
                     "Quorvex_AssetsConfig with those of the assets in Assets/config.json, and writes\n"
                     "the project file. Entries of other classes and the assets folder stay as they are.\n"};
  command.Run = [command](const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    return RunOnProject(command, 1, args, out, err, [](TqxDesignerSession& session, auto&, std::ostream& out) {
      session.Designer().AddToDeploy();
      session.Project().Save();
      out << "deployment entries rewritten in " << session.Project().GetFileName() << '\n';
      return kExitOk;
    });
  };
  return command;
}

}  // namespace qx::cli
