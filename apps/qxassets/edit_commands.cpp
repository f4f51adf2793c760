#include "edit_commands.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>

#include "command_support.h"
#include "designer/assets_model.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/color.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;
using TArgs = std::vector<std::string>;

std::string ExistingFile(const std::string& fileName) {
  std::error_code ec;
  if (!fs::is_regular_file(fileName, ec)) throw Exception(Format("no file \"%s\"", {fileName}));
  return fs::absolute(fileName).lexically_normal().string();
}

// The files a drop of these names brings: a file itself, a folder every file
// under it, in name order.
std::vector<std::string> DroppedFiles(const TArgs& names) {
  std::vector<std::string> files;
  for (const std::string& name : names) {
    std::error_code ec;
    if (!fs::is_directory(name, ec)) {
      files.push_back(ExistingFile(name));
      continue;
    }
    std::vector<std::string> inFolder;
    for (const auto& entry : fs::recursive_directory_iterator(name)) {
      if (entry.is_regular_file()) inFolder.push_back(fs::absolute(entry.path()).lexically_normal().string());
    }
    std::sort(inFolder.begin(), inFolder.end());
    files.insert(files.end(), inFolder.begin(), inFolder.end());
  }
  return files;
}

bool IsTheme(const TqxAssetsModel& model, const TqxAssetName& name) {
  for (TqxAsset* asset : model.GetAssets(name).Items()) {
    if (asset->GetType() == TqxAssetThemeContainer::kType) return true;
  }
  return false;
}

std::size_t CountUnder(const TqxAssetsModel& model, const std::string& path) {
  return model.GetAssetsManager().GetAssetsNames([&](const TqxAssetName& n) { return StartsStr(path, n); }).size();
}

int RunAdd(TqxDesignerSession& session, const TArgs& args, std::ostream& out) {
  std::string folder;
  TArgs names;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--folder" && i + 1 < args.size()) {
      const std::string& path = args[++i];
      folder = path.empty() ? "" : CheckedName(path.back() == '\\' ? path : path + '\\', true);
    } else {
      names.push_back(args[i]);
    }
  }
  if (names.empty()) throw Exception("no file to add");
  TqxAssetsModel& model = session.Model();
  for (const std::string& file : DroppedFiles(names)) {
    const std::string caption = GenerateNodeName(model, folder, fs::path(file).stem().string());
    const TqxAssetName name = model.GenerateAssetName(CheckedName(folder + caption, false));
    auto asset = TqxAssetsEditorsManager::Instance().TryCreateAsset(name, file);
    if (!asset) continue;
    out << "added " << name << " (" << asset->GetType() << ")\n";
    model.AddAsset(std::move(asset));
  }
  SaveSession(session);
  return kExitOk;
}

template <class T>
void SetFile(T* asset, const TArgs& args) {
  if (args.size() > 2) asset->SetUri(ExistingFile(args[2]));
}

void AddNew(TqxAssetsModel& model, const std::string& kind, const TqxAssetName& name, const TArgs& args) {
  if (kind == TqxAssetColor::kType) {
    TAlphaColor color = 0;
    if (args.size() > 2 && !TAlphaColorHelper::TryParse(args[2], color)) {
      throw Exception(Format("\"%s\" is not a colour (#AARRGGBB, #RRGGBB or a colour name)", {args[2]}));
    }
    model.AddColor(name, color);
  } else if (kind == TqxAssetBitmapSet::kType) {
    std::string file = args.size() > 2 ? ExistingFile(args[2]) : "";
    TqxAssetBitmapSet* set = model.AddEmptyBitmapSet(name);
    if (!file.empty()) set->GetBitmapInfo(1.0f)->SetUri(file);
  } else if (kind == TqxAssetSVG::kType) {
    std::string file = args.size() > 2 ? ExistingFile(args[2]) : "";
    auto made = file.empty() ? nullptr : TqxAssetsEditorsManager::Instance().Editors(kind).TryCreateAsset(name, file);
    if (!file.empty() && !made) throw Exception(Format("\"%s\" is not an SVG file", {file}));
    TqxAssetSVG* svg = model.AddEmptySVG(name);
    if (made) {
      svg->SetSVGUri(file);
      svg->SetSize(static_cast<TqxAssetSVG&>(*made).Size());
    }
  } else if (kind == TqxAssetFont::kType) {
    SetFile(model.AddEmptyFont(name), args);
  } else if (kind == TqxAssetFile::kType) {
    SetFile(model.AddEmptyFile(name), args);
  } else if (kind == TqxAssetLottieAnimation::kType) {
    SetFile(model.AddEmptyLottieAnimation(name), args);
  } else if (kind == TqxAssetStyle::kType) {
    SetFile(model.AddEmptyStyle(name), args);
  } else if (kind == TqxAssetThemeContainer::kType) {
    if (args.size() > 2) throw Exception("a theme takes no file or colour");
    model.AddThemeContainer(name);
  } else {
    throw Exception(Format("unknown kind \"%s\"", {kind}));
  }
}

int RunNew(TqxDesignerSession& session, const TArgs& args, std::ostream& out) {
  if (args.size() > 3) throw Exception("too many arguments");
  TqxAssetsModel& model = session.Model();
  const TqxAssetName name = model.GenerateAssetName(CheckedName(args[1], false));
  AddNew(model, args[0], name, args);
  SaveSession(session);
  out << name << '\n';
  return kExitOk;
}

int RunRm(TqxDesignerSession& session, const TArgs& args, std::ostream& out) {
  if (args.size() != 1) throw Exception("one name expected");
  TqxAssetsModel& model = session.Model();
  const std::string name = CheckedName(args[0], true);
  const bool isFolder = name.back() == '\\';
  std::vector<std::string> paths{name};
  if (!isFolder && !model.GetAssetsManager().Contains(name)) throw Exception(Format("no asset \"%s\"", {name}));
  if (!isFolder && IsTheme(model, name)) paths.push_back(name + '\\');
  std::size_t count = 0;
  for (const std::string& path : paths) count += path.back() == '\\' ? CountUnder(model, path) : 1;
  if (count == 0) throw Exception(Format("no asset under \"%s\"", {name}));
  for (const std::string& path : paths) model.RemovePath(path);
  SaveSession(session);
  out << "removed " << count << " asset(s)\n";
  return kExitOk;
}

int RunMv(TqxDesignerSession& session, const TArgs& args, std::ostream& out) {
  if (args.size() != 2) throw Exception("an old and a new name expected");
  TqxAssetsModel& model = session.Model();
  const std::string from = CheckedName(args[0], true);
  const bool isFolder = from.back() == '\\';
  std::string to = isFolder && args[1].back() != '\\' ? args[1] + '\\' : args[1];
  to = CheckedName(to, isFolder);
  std::vector<std::pair<std::string, std::string>> renamed;
  session.Designer().FOnAssetRenamed = [&](const TqxAssetName& oldName, const TqxAssetName& newName) {
    renamed.emplace_back(oldName, newName);
  };
  if (isFolder) {
    if (CountUnder(model, from) == 0) throw Exception(Format("no asset under \"%s\"", {from}));
    model.RenamePath(from, to);
  } else {
    if (!model.GetAssetsManager().Contains(from)) throw Exception(Format("no asset \"%s\"", {from}));
    const bool isTheme = IsTheme(model, from);
    model.Rename(from, to);
    if (renamed.empty()) throw Exception(Format("\"%s\" could not be renamed to \"%s\"", {from, to}));
    // A theme's members follow its container, under the name it got.
    if (isTheme) model.RenamePath(from + '\\', renamed.front().second + '\\');
  }
  SaveSession(session);
  if (!isFolder) {
    out << renamed.front().second << '\n';
  } else {
    for (const auto& [oldName, newName] : renamed) out << oldName << " -> " << newName << '\n';
  }
  return kExitOk;
}

TqxCommand MakeCommand(std::string name, std::string synopsis, std::string summary, std::size_t minArgs,
                       int (*body)(TqxDesignerSession&, const TArgs&, std::ostream&), std::string help) {
  TqxCommand command{std::move(name), std::move(synopsis), std::move(summary), nullptr, std::move(help)};
  command.Run = [command, minArgs, body](const TArgs& args, std::ostream& out, std::ostream& err) {
    return RunOnProject(command, minArgs, args, out, err, body);
  };
  return command;
}

}  // namespace

std::string GenerateNodeName(const TqxAssetsModel& model, const std::string& folderPath, const std::string& name) {
  std::set<std::string> captions;
  for (const TqxAssetName& assetName : model.GetAssetsManager().GetAssetsNames()) {
    if (!StartsStr(folderPath, assetName)) continue;
    const std::string rest = assetName.substr(folderPath.size());
    captions.insert(rest.substr(0, rest.find('\\')));
  }
  if (captions.count(name) == 0) return name;
  for (int i = 1;; ++i) {
    std::string candidate = Format("%s-%d", {name, i});
    if (captions.count(candidate) == 0) return candidate;
  }
}

TqxCommand AddCommand() {
  return MakeCommand("add", "add PROJECT.dproj FILE... [--folder PATH]", "add files as assets of their kinds", 2,
                     RunAdd,
                     "Each FILE becomes an asset named after it (without its extension) in the folder\n"
                     "PATH (the top level by default), as a drop on the designer's tree makes it: .png,\n"
                     ".jpg, .jpeg and .bmp a bitmap set at scale 1, .svg an SVG image, .ttf and .otf a\n"
                     "font, anything else a custom file. A name taken in the folder gets -1, -2, ...\n"
                     "A folder adds every file under it. Ends with the designer's save.\n");
}

TqxCommand NewCommand() {
  return MakeCommand("new", "new PROJECT.dproj KIND NAME [FILE|COLOUR]", "add an asset of any kind", 3, RunNew,
                     "KIND is one of color, bitmap-set, font, file, lottie-json, style, svg,\n"
                     "theme-container. NAME is the full name, folders separated by \\; a taken name\n"
                     "gets -1, -2, ... FILE is the asset's file (for a bitmap set, its scale 1.0);\n"
                     "COLOUR is #AARRGGBB, #RRGGBB or a colour name. Prints the name the asset got.\n"
                     "Ends with the designer's save.\n");
}

TqxCommand RmCommand() {
  return MakeCommand("rm", "rm PROJECT.dproj NAME", "remove an asset, a theme or a folder", 2, RunRm,
                     "NAME is an asset's name, a theme's name (its members go with it), or a folder\n"
                     "path ending in \\ (every asset under it goes). Ends with the designer's save,\n"
                     "which deletes the files of what was removed.\n");
}

TqxCommand MvCommand() {
  return MakeCommand("mv", "mv PROJECT.dproj OLD NEW", "rename an asset, a theme or a folder", 3, RunMv,
                     "Renames the asset OLD, a theme with its members, or with OLD ending in \\ every\n"
                     "asset under that folder. A taken name gets -1, -2, ... Prints the name the asset\n"
                     "got (for a folder, each rename). Ends with the designer's save.\n");
}

}  // namespace qx::cli
