#include "generators/assets_consts_generator.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "../support/dproj_fixture.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/base/exception.h"
#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/ide_events_listener.h"

namespace qx {
namespace {

using test::DprojFixture;

// A project that stands nowhere on disk and records what it was given.
class TFakeProject : public IOTAProject {
public:
  explicit TFakeProject(std::string fileName) : FFileName(std::move(fileName)) {}
  std::string GetFileName() const override { return FFileName; }
  TGUID GetProjectGUID() const override { return TGUID::FromName(FFileName); }
  std::string GetFrameworkType() const override { return "xfm"; }
  std::shared_ptr<IOTAModuleInfo> FindModuleInfo(const std::string&) const override { return FModule; }
  void AddFile(const std::string& fileName, bool) override { FAdded.push_back(fileName); }
  void MarkModified() override {}
  int AddNotifier(std::shared_ptr<IOTAModuleNotifier>) override { return 1; }
  void RemoveNotifier(int) override {}
  std::shared_ptr<IProjectDeployment> GetProjectDeployment() override { return nullptr; }

  std::string FFileName;
  std::shared_ptr<IOTAModuleInfo> FModule;
  std::vector<std::string> FAdded;
};

void AddTheme(TqxAssetsManager& manager, const std::string& name) {
  manager.Add(std::make_unique<TqxAssetThemeContainer>(name));
}
void AddColor(TqxAssetsManager& manager, const std::string& name, TAlphaColor color) {
  manager.Add(std::make_unique<TqxAssetColor>(name, kPlatformAny, kDeviceClassAny, color));
}
template <class T>
void AddAsset(TqxAssetsManager& manager, const std::string& name) {
  manager.Add(std::make_unique<T>(name));
}

std::vector<std::string> LinesOf(const TqxAssetsManager& manager) {
  TqxAssetsConstsGenerator generator(std::make_shared<TFakeProject>("/nowhere/App.dproj"), &manager);
  generator.BuildText();
  return generator.Lines();
}

std::string TextOf(const TqxAssetsManager& manager) {
  TqxAssetsConstsGenerator generator(std::make_shared<TFakeProject>("/nowhere/App.dproj"), &manager);
  generator.BuildText();
  return generator.Text();
}

bool Has(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// Index of the line, or -1.
long IndexOf(const std::vector<std::string>& lines, const std::string& line) {
  auto it = std::find(lines.begin(), lines.end(), line);
  return it == lines.end() ? -1 : static_cast<long>(it - lines.begin());
}

class AssetsConstsGeneratorTest : public DprojFixture {};

TEST_F(AssetsConstsGeneratorTest, EmptyManagerGivesTheBareRecord) {
  TqxAssetsManager manager;
  EXPECT_EQ(TextOf(manager), ReadData("consts/no_assets.pas"));
}

TEST_F(AssetsConstsGeneratorTest, TwoThemesWithColoursAndAPlainBitmap) {
  TqxAssetsManager manager;
  AddTheme(manager, "Light");
  AddTheme(manager, "Dark");
  AddColor(manager, "Light\\Primary", 0xFFEEDDCC);
  AddColor(manager, "Dark\\Primary", 0xFF112233);
  AddAsset<TqxAssetBitmapSet>(manager, "Icons\\home");
  EXPECT_EQ(TextOf(manager), ReadData("consts/two_themes.pas"));
}

TEST_F(AssetsConstsGeneratorTest, ThemesHoldingOnlyFontsHaveNoCurrentTheme) {
  TqxAssetsManager manager;
  AddTheme(manager, "Dark");
  AddTheme(manager, "Light");
  AddTheme(manager, "Themes\\Light Indigo");
  AddAsset<TqxAssetFont>(manager, "Light\\Roboto");
  AddAsset<TqxAssetFont>(manager, "Dark\\Roboto");
  AddAsset<TqxAssetFont>(manager, "Mono");
  EXPECT_EQ(TextOf(manager), ReadData("consts/theme_fonts_only.pas"));
}

TEST_F(AssetsConstsGeneratorTest, PlainKindsWithLongLinesKeywordsAndOddNames) {
  TqxAssetsManager manager;
  for (const char* name : {"Icons\\home", "_x", "3d", "ic-arrow.left"}) AddAsset<TqxAssetBitmapSet>(manager, name);
  AddColor(manager, "gamma", 0xFFABCDEF);
  AddColor(manager, "Beta", 0x00000000);
  AddColor(manager, "alpha", 0xFF102030);
  AddColor(manager, "begin", 0xFF000000);
  AddColor(manager, "beginning", 0x80FFFFFF);
  AddColor(manager, "Palette\\Brand\\Very long colour name for the primary action button", 0xFF2196F3);
  AddColor(manager, "Surface_container_highest_variant1", 0xFFE6E0E9);
  AddColor(manager, "Фон", 0xFFFAFAFA);
  AddAsset<TqxAssetFont>(manager, "Roboto-Bold");
  for (const char* name : {"type", "file", "Data\\in"}) AddAsset<TqxAssetFile>(manager, name);
  AddAsset<TqxAssetSVG>(manager, "Logos\\Main logo");
  AddAsset<TqxAssetLottieAnimation>(manager, "Loader");
  // Styles have no record of their own outside themes.
  AddAsset<TqxAssetStyle>(manager, "Styles\\Card");
  EXPECT_EQ(TextOf(manager), ReadData("consts/plain_kinds.pas"));
}

TEST(AssetsConstsNamesTest, IdentifiersOfAssetNames) {
  const TqxAssetsConstsNames names({"Dark", "Light"});
  // The plain record's golden holds most forms; these are the ones it doesn't.
  const std::pair<const char*, const char*> plain[] = {
      {"File", "&FILE"}, {"program", "PROGRAM"}, {"ёлка 2", "ЁЛКА_2"}, {"Straße", "STRAßE"},
      {"Dark\\Primary", "DARK_PRIMARY"}, {"", ""}};
  for (const auto& [name, identifier] : plain) EXPECT_EQ(names.AssetIdentifier(name, false), identifier) << name;
  // In a theme's record the theme folder goes, and what is left may be a keyword.
  EXPECT_EQ(names.AssetIdentifier("Dark\\Icons\\back", true), "ICONS_BACK");
  EXPECT_EQ(names.AssetIdentifier("Light\\end", true), "&END");
  EXPECT_EQ(names.AssetIdentifier("Lightness\\Primary", true), "LIGHTNESS_PRIMARY");
  EXPECT_EQ(names.AssetIdentifier("dark\\Primary", true), "DARK_PRIMARY");
}

TEST(AssetsConstsNamesTest, ThemeIdentifiersTellApartThemesOfOneName) {
  const TqxAssetsConstsNames names({"A\\Dark", "B\\Dark", "C\\Light", "Themes\\Light Indigo", "Ocean-2"});
  EXPECT_EQ(names.GenerateThemeName("A\\Dark"), "DarkA");
  EXPECT_EQ(names.GenerateThemeName("C\\Light"), "Light");
  EXPECT_EQ(names.GenerateThemeName("Themes\\Light Indigo"), "LightIndigo");
  EXPECT_EQ(names.GenerateThemeName("Ocean-2"), "Ocean2");
}

TEST_F(AssetsConstsGeneratorTest, ThemesSortByCodeUnitAndFolderLookalikesStayPlain) {
  TqxAssetsManager manager;
  AddTheme(manager, "alpha");
  AddTheme(manager, "Zeta");
  AddColor(manager, "alpha\\Primary", 0xFF0000FF);
  AddColor(manager, "Zeta\\Primary", 0xFFFF0000);
  AddColor(manager, "Zeta\\Secondary", 0xFF00FF00);
  AddColor(manager, "Zetamax\\Primary", 0xFF000000);
  const auto lines = LinesOf(manager);
  // Zeta comes first, so it is the current theme: its colours get functions.
  EXPECT_LT(IndexOf(lines, "    TqxThemeZeta = record"), IndexOf(lines, "    TqxThemealpha = record"));
  EXPECT_TRUE(Has(lines, "      class function SECONDARY: TqxAssetName; static;"));
  EXPECT_TRUE(Has(lines, "  Result := Application.ThemeSettings.ThemeName + TqxAsset.ThemeSeparator + 'Secondary';"));
  // A folder that merely starts like a theme is an ordinary folder.
  const long plain = IndexOf(lines, "    TqxColors = record");
  ASSERT_GE(plain, 0);
  EXPECT_EQ(lines[plain + 2], "      ZETAMAX_PRIMARY = 'Zetamax\\Primary';" + std::string(38, ' ') + "// #FF000000");
  EXPECT_EQ(lines[plain + 3], "    end;");
}

TEST_F(AssetsConstsGeneratorTest, CurrentThemeListsOnlyTheFirstThemeInDeclarationAndBodyOrder) {
  TqxAssetsManager manager;
  AddTheme(manager, "Dark");
  AddTheme(manager, "Light");
  AddColor(manager, "Dark\\Primary", 0xFF000000);
  AddAsset<TqxAssetBitmapSet>(manager, "Dark\\Icons\\back");
  AddAsset<TqxAssetLottieAnimation>(manager, "Dark\\Spinner");
  AddColor(manager, "Light\\Only light", 0xFFFFFFFF);
  const auto lines = LinesOf(manager);

  // Declarations: colours before bitmaps; bodies: bitmaps before colours.
  EXPECT_LT(IndexOf(lines, "    TqxThemeColors = record"), IndexOf(lines, "    TqxThemeBitmaps = record"));
  EXPECT_LT(IndexOf(lines, "class function TqxAssetsConstants.TqxThemeBitmaps.ICONS_BACK: TqxAssetName; "),
            IndexOf(lines, "class function TqxAssetsConstants.TqxThemeColors.PRIMARY: TqxAssetName; "));
  EXPECT_TRUE(Has(lines, "  Result := Application.ThemeSettings.ThemeName + TqxAsset.ThemeSeparator + 'Icons\\back';"));
  EXPECT_FALSE(Has(lines, "      class function ONLY_LIGHT: TqxAssetName; static;"));
  EXPECT_FALSE(Has(lines, "    TqxThemeFonts = record"));
  // Theme Lottie animations also stand in the plain record, under the full name.
  EXPECT_TRUE(Has(lines, "    TqxLottieAnimations = record"));
  // Theme bitmaps and colours don't.
  EXPECT_FALSE(Has(lines, "    TqxBitmaps = record"));
  EXPECT_FALSE(Has(lines, "    TqxColors = record"));
}

TEST_F(AssetsConstsGeneratorTest, ThemeBitmapsWithoutThemeColoursDeclareNoCurrentTheme) {
  TqxAssetsManager manager;
  AddTheme(manager, "Dark");
  AddAsset<TqxAssetBitmapSet>(manager, "Dark\\Icons\\back");
  const auto lines = LinesOf(manager);
  EXPECT_TRUE(Has(lines, "    {$REGION 'Themes'}"));
  EXPECT_TRUE(Has(lines, "    class var Theme: TqxThemes;"));
  for (const char* absent : {"uses", "    {$REGION 'Current Theme'}", "    class var CurrentTheme: TqxCurrentTheme;"})
    EXPECT_FALSE(Has(lines, absent)) << absent;
}

class AssetsConstsWritingTest : public DprojFixture {
protected:
  void SetUp() override {
    DprojFixture::SetUp();
    FProjectFile = Copy("shop_crlf_bom.dproj", "Shop.dproj");
    FProject = TqxDprojProject::Open(FProjectFile);
    AddColor(FManager, "Primary", 0xFF123456);
  }
  std::string Expected() { return TextOf(FManager); }
  std::string BesideProject() const { return (FDir / "Assets.Consts.pas").string(); }

  std::string FProjectFile;
  std::shared_ptr<TqxDprojProject> FProject;
  TqxAssetsManager FManager;
};

TEST_F(AssetsConstsWritingTest, UnitThatTheProjectHoldsIsRewrittenWhereTheProjectKeepsIt) {
  // In a subfolder, under a name in another case, as project files from Windows have it.
  const std::string kept = Touch("Source/assets.consts.pas", "old");
  FProject->AddFile(kept, true);
  const std::string projectText = FProject->PendingText();
  TqxAssetsConstsGenerator(FProject, &FManager).Generate(false);
  EXPECT_EQ(Read(kept), Expected());
  EXPECT_FALSE(std::filesystem::exists(BesideProject()));
  EXPECT_EQ(FProject->PendingText(), projectText);
}

TEST_F(AssetsConstsWritingTest, AUnitKeptOutsideTheProjectsFolderIsRefused) {
  const std::filesystem::path outside = FDir.parent_path() / (FDir.filename().string() + "_shared");
  std::filesystem::create_directories(outside);
  const std::string shared = (outside / "Assets.Consts.pas").string();
  std::ofstream(shared) << "old";
  // Once named outright, once through a link inside the project.
  std::filesystem::create_directory_symlink(outside, FDir / "Linked");
  for (const std::string& include : {shared, (FDir / "Linked" / "Assets.Consts.pas").string()}) {
    auto project = std::make_shared<TFakeProject>((FDir / "App.dproj").string());
    project->FModule = std::make_shared<TqxDprojModuleInfo>(include);
    try {
      TqxAssetsConstsGenerator(project, &FManager).Generate(false);
      ADD_FAILURE() << include;
    } catch (const Exception& e) {
      EXPECT_NE(std::string(e.what()).find("outside the project's folder"), std::string::npos) << e.what();
    }
    EXPECT_EQ(Read(shared), "old");
    EXPECT_FALSE(std::filesystem::exists(BesideProject()));
    EXPECT_TRUE(project->FAdded.empty());
  }
  std::filesystem::remove_all(outside);
}

TEST_F(AssetsConstsWritingTest, ClosingProjectGetsTheUnitBesideItAndStaysUnchanged) {
  const std::string elsewhere = Touch("Source/Assets.Consts.pas", "old");
  FProject->AddFile(elsewhere, true);
  FProject->Save();
  const std::string projectText = Read(FProjectFile);

  TqxAssetsConstsGenerator(FProject, &FManager).Generate(true);
  EXPECT_EQ(Read(BesideProject()), Expected());
  EXPECT_EQ(Read(elsewhere), "old");
  EXPECT_FALSE(FProject->IsModified());
  EXPECT_EQ(FProject->PendingText(), projectText);
}

TEST_F(AssetsConstsWritingTest, ClassEntryReadsTheProjectsIdeWideManager) {
  std::filesystem::create_directories(FDir / "Assets");
  TqxAssetsFactory::SaveConfigToFile(FManager, (FDir / "Assets" / "config.json").string(), TqxWritingOptions::Default());
  TqxIdeEventsListener& listener = TqxIdeEventsListener::Instance();
  listener.ProjectOpened(FProject);
  // Another manager is current; the project's own is the one read.
  TqxAssetsManager other;
  TqxAssetsManager::SetCurrent(&other);

  TqxAssetsConstsGenerator::GenerateAssetsConsts(FProject, false);
  EXPECT_EQ(Read(BesideProject()), Expected());

  // Without an entry for the project, the current manager is read.
  listener.Finalize();
  TqxAssetsManager::SetCurrent(&other);
  TqxAssetsConstsGenerator::GenerateAssetsConsts(FProject, false);
  EXPECT_EQ(Read(BesideProject()), ReadData("consts/no_assets.pas"));
  TqxAssetsManager::SetCurrent(nullptr);
}

}  // namespace
}  // namespace qx
