#include "list_command.h"

#include <filesystem>
#include <map>
#include <ostream>
#include <sstream>

#include "platform/core/assets/asset_targets.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;

struct TextLess {
  bool operator()(const std::string& a, const std::string& b) const {
    const int byText = CompareText(a, b);
    return byText != 0 ? byText < 0 : CompareStr(a, b) < 0;
  }
};

// A folder or a theme, and the assets directly in it.
struct TNode {
  bool IsTheme = false;
  std::map<std::string, TNode, TextLess> Folders;
  std::map<std::string, std::string, TextLess> Assets;  // short name -> "kind  variants"
};

TNode& FolderOf(TNode& root, const TqxAssetName& name, bool includeLast) {
  std::vector<std::string> parts = SplitString(name, '\\');
  if (!includeLast) parts.pop_back();
  TNode* node = &root;
  for (const std::string& part : parts) node = &node->Folders[part];
  return *node;
}

std::string Describe(const TqxAssetGroup& group) {
  std::string kinds, variants;
  for (const TqxAsset* asset : group.Items()) {
    const std::string kind = asset->GetType();
    if (kinds.empty()) {
      kinds = kind;
    } else if (kinds.find(kind) == std::string::npos) {
      kinds += "/" + kind;
    }
    if (!variants.empty()) variants += ", ";
    variants += TqxAssetTargets::TargetDisplayName(asset->Platform(), asset->DeviceClass());
  }
  return kinds + "  " + variants;
}

void Print(const TNode& node, int depth, std::ostream& out) {
  const std::string indent(depth * 2, ' ');
  for (const auto& [name, folder] : node.Folders) {
    out << indent << name << "\\" << (folder.IsTheme ? "  [theme]" : "") << '\n';
    Print(folder, depth + 1, out);
  }
  for (const auto& [name, text] : node.Assets) out << indent << name << "  " << text << '\n';
}

void PrintUsage(std::ostream& err) { err << "usage: qxassets list PROJECT.dproj\n"; }

}  // namespace

TqxCommand ListCommand() {
  return {"list", "list PROJECT.dproj", "print the project's assets as a tree", RunList, ""};
}

std::string FormatAssetsTree(const TqxAssetsManager& manager) {
  TNode root;
  for (const TqxAssetGroup& group : manager.GetGroupedAssets()) {
    if (group.Items().empty()) continue;
    if (group.Items().front()->GetType() == TqxAssetThemeContainer::kType) {
      FolderOf(root, group.Name(), true).IsTheme = true;
    } else {
      FolderOf(root, group.Name(), false).Assets[SplitString(group.Name(), '\\').back()] = Describe(group);
    }
  }
  std::ostringstream out;
  Print(root, 0, out);
  return out.str();
}

int RunList(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
    PrintUsage(out);
    out << "\nPrints the assets of the project's Assets/config.json as a tree: folders and\n"
           "themes as nodes, each asset name with its kind and its variants. Changes nothing.\n";
    return kExitOk;
  }
  if (args.size() != 1 || StartsStr("-", args[0])) {
    PrintUsage(err);
    return kExitUsage;
  }
  const fs::path project = args[0];
  std::error_code ec;
  if (!fs::is_regular_file(project, ec)) {
    err << "qxassets list: no project file \"" << project.string() << "\"\n";
    return kExitFailure;
  }
  const fs::path config = project.parent_path() / "Assets" / "config.json";
  const std::string title = project.filename().string();
  if (!fs::exists(config, ec)) {
    out << title << ": no assets (" << config.string() << " does not exist)\n";
    return kExitOk;
  }
  TqxAssetsManager manager;
  try {
    TqxAssetsFactory::LoadFromFile(manager, config.string());
  } catch (const Exception& e) {
    err << "qxassets list: " << e.Message() << '\n';
    return kExitFailure;
  }
  const std::size_t names = manager.GetAssetsNames().size();
  const std::size_t themes = manager.GetThemesNames().size();
  out << title << ": " << names - themes << " assets, " << themes << " themes, " << manager.Count()
      << " variants in " << config.string() << '\n'
      << FormatAssetsTree(manager);
  return kExitOk;
}

}  // namespace qx::cli
