#include "generators/assets_consts_generator.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "generators/pascal_identifier.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/color.h"
#include "platform/host/ide_events_listener.h"

namespace fs = std::filesystem;

namespace qx {
namespace {

constexpr const char* kLogTag = "AssetsDesigner";
constexpr std::size_t kCommentColumn = 80;

// Whether the file's folder is the folder or lies below it, links on the way
// followed: a save never writes outside the project.
bool LiesInFolder(const fs::path& file, const fs::path& folder) {
  std::error_code error;
  const fs::path realFolder = fs::weakly_canonical(folder, error);
  if (error) return false;
  const fs::path realParent = fs::weakly_canonical(fs::absolute(file).parent_path(), error);
  if (error) return false;
  const fs::path relative = realParent.lexically_relative(realFolder);
  return !relative.empty() && *relative.begin() != "..";
}

template <class T>
bool IsA(const TqxAsset& asset) {
  return dynamic_cast<const T*>(&asset) != nullptr;
}

// A record of the current theme: its name, the asset type it lists, and its
// field in TqxCurrentTheme.
struct TThemeRecord {
  const char* RecordName;
  const char* AssetType;
  const char* Summary;
  const char* Field;
};

// Declaration order of the current theme's records and fields.
constexpr std::array<TThemeRecord, 6> kCurrentThemeRecords = {{
    {"TqxThemeColors", TqxAssetColor::kType,
     "      /// <summary>Identifiers with current theme colors assets.</summary>",
     "      class var Color: TqxThemeColors;"},
    {"TqxThemeBitmaps", TqxAssetBitmapSet::kType,
     "      /// <summary>Identifiers with current theme bitmap assets.</summary>",
     "      class var Bitmap: TqxThemeBitmaps;"},
    {"TqxThemeFonts", TqxAssetFont::kType,
     "      /// <summary>Identifiers with current theme custom font files assets.</summary>",
     "      class var Font: TqxThemeFonts;"},
    {"TqxThemeFiles", TqxAssetFile::kType,
     "      /// <summary>Identifiers with custom user's files assets.</summary>",
     "      class var &File: TqxThemeFiles;"},
    {"TqxThemeImages", TqxAssetSVG::kType,
     "      /// <summary>Identifiers with current theme vector assets.</summary>",
     "      class var Image: TqxThemeImages;"},
    {"TqxThemeLottieAnimations", TqxAssetLottieAnimation::kType,
     "      /// <summary>Identifiers with current theme Lottie animations assets.</summary>",
     "      class var LottieAnimation: TqxThemeLottieAnimations;"},
}};

// The implementation lists the functions in another order than the declarations.
constexpr std::array<std::size_t, 6> kCurrentThemeFunctionOrder = {1, 0, 3, 2, 4, 5};

const TqxAsset& FirstOf(const TqxAssetGroup& group) { return *group.Items().front(); }

std::vector<TqxThemeName> SortedThemes(const TqxAssetsManager* manager) {
  TqxAssert::IsNotNil(manager, "FAssetsManager");
  std::vector<TqxThemeName> themes = manager->GetThemesNames();
  std::sort(themes.begin(), themes.end());
  return themes;
}

std::shared_ptr<IOTAProject> NotNil(std::shared_ptr<IOTAProject> project) {
  TqxAssert::IsNotNil(project.get(), "AProject");
  return project;
}

std::vector<TqxAssetGroup> SortedGroups(const TqxAssetsManager& manager) {
  std::vector<TqxAssetGroup> groups;
  for (TqxAssetGroup& group : manager.GetGroupedAssets()) {
    if (!group.Items().empty()) groups.push_back(std::move(group));
  }
  // Stable, so that names equal but for case keep the manager's order.
  std::stable_sort(groups.begin(), groups.end(), [](const TqxAssetGroup& a, const TqxAssetGroup& b) {
    return CompareText(a.Name(), b.Name()) < 0;
  });
  return groups;
}

}  // namespace

void TqxAssetsConstsGenerator::GenerateAssetsConsts(const std::shared_ptr<IOTAProject>& project,
                                                    bool isProjectDestroying) {
  TqxAssetsConstsGenerator generator(project);
  generator.Generate(isProjectDestroying);
}

TqxAssetsConstsGenerator::TqxAssetsConstsGenerator(std::shared_ptr<IOTAProject> project)
    : TqxAssetsConstsGenerator(project, FindAssetsManager(NotNil(project))) {}

TqxAssetsConstsGenerator::TqxAssetsConstsGenerator(std::shared_ptr<IOTAProject> project,
                                                   const TqxAssetsManager* assetsManager)
    : FProject(NotNil(std::move(project))), FNames(SortedThemes(assetsManager)), FGroups(SortedGroups(*assetsManager)) {}

const TqxAssetsManager* TqxAssetsConstsGenerator::FindAssetsManager(const std::shared_ptr<IOTAProject>& project) {
  if (TqxAssetsManager* manager = TqxIdeEventsListener::Instance().FindAssetsManager(project->GetProjectGUID()))
    return manager;
  return TqxAssetsManager::GetCurrent();
}

void TqxAssetsConstsGenerator::Generate(bool isProjectDestroying) {
  // The project is held for this run only, whatever happens in it.
  const std::shared_ptr<IOTAProject> project = std::move(FProject);
  TqxAssert::IsNotNil(project.get(), "FProject");
  BuildText();
  const fs::path projectDir = fs::path(project->GetFileName()).parent_path();
  if (!isProjectDestroying) {
    const std::string unitFileName = (projectDir / kUnitFileName).string();
    if (auto module = project->FindModuleInfo(unitFileName)) {
      const std::string fileName = module->GetFileName();
      if (!LiesInFolder(fileName, projectDir))
        throw Exception(Format("Cannot write the constants unit \"%s\": it lies outside the project's folder \"%s\"",
                               {fileName, projectDir.string()}));
      WriteTo(fileName);
      return;
    }
  }
  const std::string target = (projectDir / kUnitFileName).string();
  TqxLog::Trace(kLogTag, "Сохранение новых констант: projectFileName=\"%s\", fileName=\"%s\", ",
                {projectDir.string(), target});
  WriteTo(target);
  if (isProjectDestroying) return;
  try {
    project->AddFile(target, true);
  } catch (const std::exception&) {
    // The unit is written; whether the project lists it is the user's to fix.
  }
}

std::string TqxAssetsConstsGenerator::Text() const {
  std::string text = "\xEF\xBB\xBF";
  for (const std::string& line : FBuffer) {
    text += line;
    text += "\r\n";
  }
  return text;
}

void TqxAssetsConstsGenerator::WriteTo(const std::string& fileName) const { TqxFileIO::WriteAtomically(fileName, Text()); }

std::string TqxAssetsConstsGenerator::GenerateComment(const TqxAsset& asset) {
  if (const auto* color = dynamic_cast<const TqxAssetColor*>(&asset))
    return "// #" + TAlphaColorHelper::ToARGBHex(color->Color());
  return {};
}

bool TqxAssetsConstsGenerator::HasAssets(const TFilter& filter) const {
  return std::any_of(FGroups.begin(), FGroups.end(), [&](const TqxAssetGroup& group) { return filter(FirstOf(group)); });
}

bool TqxAssetsConstsGenerator::InTheme(const TqxAssetGroup& group, const TqxThemeName& theme) const {
  return FNames.IsThemeAsset(FirstOf(group)) && StartsStr(theme + '\\', group.Name());
}

bool TqxAssetsConstsGenerator::OfCurrentTheme(const TqxAssetGroup& group, const TqxAssetType& assetType) const {
  return FirstOf(group).GetType() == assetType && InTheme(group, FNames.GetCurrentTheme());
}

bool TqxAssetsConstsGenerator::HasAssets(const TqxAssetType& assetType, const TqxThemeName& theme) const {
  return std::any_of(FGroups.begin(), FGroups.end(), [&](const TqxAssetGroup& group) {
    return FirstOf(group).GetType() == assetType && InTheme(group, theme);
  });
}

bool TqxAssetsConstsGenerator::HasCurrentThemeRecord(const TqxAssetType& assetType) const {
  return !FNames.Themes().empty() && HasAssets(assetType, FNames.GetCurrentTheme());
}

TqxAssetsConstsGenerator::TFilter TqxAssetsConstsGenerator::NotThemeBitmapsFilter() const {
  return [this](const TqxAsset& asset) { return IsA<TqxAssetBitmapSet>(asset) && !FNames.IsThemeAsset(asset); };
}

TqxAssetsConstsGenerator::TFilter TqxAssetsConstsGenerator::NotThemeColorsFilter() const {
  return [this](const TqxAsset& asset) { return IsA<TqxAssetColor>(asset) && !FNames.IsThemeAsset(asset); };
}

TqxAssetsConstsGenerator::TFilter TqxAssetsConstsGenerator::ThemeAssetsFilter() const {
  return [this](const TqxAsset& asset) { return FNames.IsThemeAsset(asset); };
}

TqxAssetsConstsGenerator::TFilter TqxAssetsConstsGenerator::ThemeColorsFilter() const {
  return [this](const TqxAsset& asset) { return IsA<TqxAssetColor>(asset) && FNames.IsThemeAsset(asset); };
}

void TqxAssetsConstsGenerator::GenerateConstants(const TFilter& filter, bool removeThemePrefix,
                                                 const TComment& comment) {
  for (const TqxAssetGroup& group : FGroups) {
    const TqxAsset& asset = FirstOf(group);
    if (!filter(asset)) continue;
    std::string line =
        Format("      %s = '%s';", {FNames.AssetIdentifier(group.Name(), removeThemePrefix), group.Name()});
    const std::size_t length = TqxPascalIdentifier::Length(line);
    if (length < kCommentColumn) line.append(kCommentColumn - length, ' ');
    if (comment) line += comment(asset);
    Add(std::move(line));
  }
}

void TqxAssetsConstsGenerator::BuildText() {
  FBuffer.clear();
  const bool hasThemeColors = HasAssets(ThemeColorsFilter());
  GenerateBanner();
  for (const char* line : {"unit Assets.Consts;", "", "interface", "", "{$SCOPEDENUMS ON}", ""}) Add(line);
  if (hasThemeColors)
    for (const char* line : {"uses", "  Quorvex.Assets;", ""}) Add(line);
  for (const char* line : {"type", "  /// <summary>Identifiers with application assets.</summary>",
                           "  TqxAssetsConstants = record", "  private type"})
    Add(line);

  GeneratePlainBlock(NotThemeBitmapsFilter(), "Bitmaps", "TqxBitmaps", nullptr);
  GeneratePlainBlock(NotThemeColorsFilter(), "Colors", "TqxColors", GenerateComment);
  GeneratePlainBlock(IsA<TqxAssetFont>, "Fonts", "TqxFonts", nullptr);
  GeneratePlainBlock(IsA<TqxAssetFile>, "Files", "TqxFiles", nullptr);
  GeneratePlainBlock(IsA<TqxAssetSVG>, "SVG Images", "TqxImages", nullptr);
  GeneratePlainBlock(IsA<TqxAssetLottieAnimation>, "Animations", "TqxLottieAnimations", nullptr);
  if (HasAssets(ThemeAssetsFilter())) GenerateThemesBlock();
  if (hasThemeColors) GenerateCurrentThemeBlock();

  Add("  public");
  GeneratePublicFields();
  for (const char* line : {"  end;", "", "var", "  R: TqxAssetsConstants;", "", "implementation", ""}) Add(line);
  if (hasThemeColors) {
    for (const char* line : {"uses", "  Quorvex.Application;", ""}) Add(line);
    GenerateCurrentThemeFunctions();
  }
  Add("end.");
}

void TqxAssetsConstsGenerator::GenerateBanner() {
  for (const char* line : {
           "{*********************************************************************",
           " *",
           " * This unit was generated automatically!",
           " *",
           " * DO NOT make changes to this file, as they will be lost after updating the assets in ",
           " * Project -> Quorvex Assets Manager.",
           " *",
           " * Use these constants instead of entering asset names in the code. This will help you catch",
           " * situation of assets changes (removing, renaming) in assets designer in compile time.",
           " *",
           " *********************************************************************}",
           "",
       })
    Add(line);
}

void TqxAssetsConstsGenerator::GeneratePlainBlock(const TFilter& filter, const char* region, const char* record,
                                                  const TComment& comment) {
  if (!HasAssets(filter)) return;
  Add("");
  Add(Format("    {$REGION '%s'}", {region}));
  Add(Format("    %s = record", {record}));
  Add("    const");
  GenerateConstants(filter, false, comment);
  Add("    end;");
  Add("    {$ENDREGION}");
}

void TqxAssetsConstsGenerator::GenerateThemesBlock() {
  Add("");
  Add("    {$REGION 'Themes'}");
  for (const TqxThemeName& theme : FNames.Themes()) {
    Add(Format("    Tqx%s = record", {"Theme" + FNames.GenerateThemeName(theme)}));
    Add("    const");
    GenerateConstants([&](const TqxAsset& asset) {
      return FNames.IsThemeAsset(asset) && StartsStr(theme + '\\', asset.Name());
    }, true, GenerateComment);
    Add("    end;");
    Add("");
  }
  Add("    TqxThemes = record");
  for (const TqxThemeName& theme : FNames.Themes()) {
    const std::string identifier = FNames.GenerateThemeName(theme);
    Add(Format("      class var %s: Tqx%s;", {identifier, "Theme" + identifier}));
  }
  Add("    end;");
  Add("    {$ENDREGION}");
}

void TqxAssetsConstsGenerator::GenerateCurrentThemeBlock() {
  Add("");
  Add("    {$REGION 'Current Theme'}");
  for (const TThemeRecord& record : kCurrentThemeRecords) {
    if (!HasCurrentThemeRecord(record.AssetType)) continue;
    Add(Format("    %s = record", {record.RecordName}));
    for (const TqxAssetGroup& group : FGroups) {
      if (OfCurrentTheme(group, record.AssetType))
        Add(Format("      class function %s: TqxAssetName; static;", {FNames.AssetIdentifier(group.Name(), true)}));
    }
    Add("    end;");
    Add("");
  }
  Add("    TqxCurrentTheme = record");
  for (const TThemeRecord& record : kCurrentThemeRecords) {
    if (!HasCurrentThemeRecord(record.AssetType)) continue;
    Add(record.Summary);
    Add(record.Field);
  }
  Add("    end;");
  Add("    {$ENDREGION}");
}

void TqxAssetsConstsGenerator::GeneratePublicFields() {
  const std::array<std::pair<bool, std::array<const char*, 2>>, 8> fields = {{
      {HasAssets(NotThemeBitmapsFilter()),
       {"    /// <summary>Identifiers with bitmap assets.</summary>", "    class var Bitmap: TqxBitmaps;"}},
      {HasAssets(NotThemeColorsFilter()),
       {"    /// <summary>Identifiers with colors assets.</summary>", "    class var Color: TqxColors;"}},
      {HasAssets(IsA<TqxAssetSVG>),
       {"    /// <summary>Identifiers with vector assets.</summary>", "    class var Image: TqxImages;"}},
      {HasAssets(IsA<TqxAssetFile>),
       {"    /// <summary>Identifiers with custom user's files assets.</summary>", "    class var &File: TqxFiles;"}},
      {HasAssets(IsA<TqxAssetFont>),
       {"    /// <summary>Identifiers with custom font files assets.</summary>", "    class var Font: TqxFonts;"}},
      {HasAssets(IsA<TqxAssetLottieAnimation>),
       {"    /// <summary>Identifiers with Lottie animations assets.</summary>",
        "    class var LottieAnimation: TqxLottieAnimations;"}},
      {HasAssets(ThemeColorsFilter()),
       {"    /// <summary>Identifiers with current theme assets.</summary>",
        "    class var CurrentTheme: TqxCurrentTheme;"}},
      {HasAssets(ThemeAssetsFilter()),
       {"    /// <summary>Identifiers with themes names.</summary>", "    class var Theme: TqxThemes;"}},
  }};
  bool first = true;
  for (const auto& [emitted, lines] : fields) {
    if (!emitted) continue;
    if (!first) Add("");
    first = false;
    Add(lines[0]);
    Add(lines[1]);
  }
}

void TqxAssetsConstsGenerator::GenerateCurrentThemeFunctions() {
  for (std::size_t index : kCurrentThemeFunctionOrder) {
    const TThemeRecord& record = kCurrentThemeRecords[index];
    if (!HasCurrentThemeRecord(record.AssetType)) continue;
    for (const TqxAssetGroup& group : FGroups) {
      if (!OfCurrentTheme(group, record.AssetType)) continue;
      Add(Format("class function TqxAssetsConstants.%s.%s: TqxAssetName; ",
                 {record.RecordName, FNames.AssetIdentifier(group.Name(), true)}));
      Add("begin");
      Add(Format("  Result := Application.ThemeSettings.ThemeName + TqxAsset.ThemeSeparator + '%s';",
                 {FNames.RemoveThemePrefix(group.Name())}));
      Add("end;");
      Add("");
    }
  }
}

}  // namespace qx
