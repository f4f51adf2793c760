#include "generators/assets_deployment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

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
#include "platform/core/base/log.h"
#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/filesystem/file_system_host.h"
#include "platform/host/ide_events_listener.h"
#include "platform/host/supported_platforms.h"

namespace qx {
namespace {

using test::DprojFixture;
using ::testing::ContainerEq;

const char* kAssets = TqxAssetsDeployment::kAssetsClass;
const char* kConfig = TqxAssetsDeployment::kAssetsConfigClass;

std::string Line(const TqxDeploymentEntry& e) {
  return e.DeploymentClass + " | " + e.Configuration + " | " + e.Platform + " | " + e.LocalName + " | " +
         e.RemoteDir + " | " + e.RemoteName + (e.Enabled ? "" : " | disabled") +
         (e.Operation != 0 ? " | operation " + std::to_string(e.Operation) : "");
}

// The entries of a project, one line each, sorted.
std::vector<std::string> Describe(const std::vector<TqxDeploymentEntry>& entries) {
  std::vector<std::string> lines;
  for (const auto& entry : entries) lines.push_back(Line(entry));
  std::sort(lines.begin(), lines.end());
  return lines;
}

struct TExpected {
  std::string Class;
  std::vector<std::string> Platforms;
  std::string LocalName, RemoteDir, RemoteName;
};

std::vector<std::string> Describe(const std::vector<TExpected>& expected) {
  std::vector<TqxDeploymentEntry> entries;
  for (const auto& e : expected)
    for (const auto& platform : e.Platforms)
      for (const char* configuration : {"Debug", "Release"})
        entries.push_back({e.LocalName, configuration, e.Class, platform, true, e.RemoteDir, e.RemoteName, false, 0, {}});
  return Describe(entries);
}

std::vector<std::string> OurLines(const TqxDprojDeployment& deployment) {
  std::vector<TqxDeploymentEntry> ours;
  for (const auto& entry : deployment.Entries())
    if (entry.DeploymentClass == kAssets || entry.DeploymentClass == kConfig) ours.push_back(entry);
  return Describe(ours);
}

std::vector<std::string> ForeignLines(const TqxDprojDeployment& deployment) {
  std::vector<TqxDeploymentEntry> foreign;
  for (const auto& entry : deployment.Entries())
    if (entry.DeploymentClass != kAssets && entry.DeploymentClass != kConfig) foreign.push_back(entry);
  return Describe(foreign);
}

std::vector<TExpected> ConfigFiles() {
  return {
      {kConfig, QuorvexSupportedAndroidPlatforms, "Assets\\config-android.json", "assets", "config.json"},
      {kConfig, QuorvexSupportediOSPlatforms, "Assets\\config-ios.json", "assets", "config.json"},
  };
}

std::vector<TExpected> WithConfigFiles(std::vector<TExpected> assetFiles) {
  for (auto& config : ConfigFiles()) assetFiles.push_back(std::move(config));
  return assetFiles;
}

// A project over a copy of a real .dproj whose deployment already holds
// entries of our classes from an earlier save, and entries of the user's own.
class AssetsDeploymentTest : public DprojFixture {
protected:
  void SetUp() override {
    DprojFixture::SetUp();
    FProjectFile = Copy("shop_crlf_bom.dproj", "Shop.dproj");
    FProject = TqxDprojProject::Open(FProjectFile);
    FForeign = ForeignLines(*FProject->Deployment());
  }
  std::string AssetsDir() const { return (FDir / "Assets").string(); }
  // A file in the assets folder, as a full path the way a loaded config gives it.
  std::string AssetFile(const std::string& relative) { return Touch("Assets/" + relative); }

  // One asset of every kind that deploys, and some that don't.
  void FillManager() {
    auto* font = FManager.Add(std::make_unique<TqxAssetFont>("Fonts\\Roboto"));
    font->SetUri(AssetFile("Fonts/Roboto/default.ttf"));
    auto* androidFont = FManager.Add(std::make_unique<TqxAssetFont>("Fonts\\Roboto", kPlatformAndroid));
    androidFont->SetUri(AssetFile("Fonts/Roboto/android.otf"));
    auto* file = FManager.Add(std::make_unique<TqxAssetFile>("terms"));
    file->SetUri(AssetFile("terms/default.PDF"));
    auto* lottie = FManager.Add(std::make_unique<TqxAssetLottieAnimation>("Anim\\Loader"));
    lottie->SetUri(AssetFile("Anim/Loader/default.json"));
    auto* svg = FManager.Add(std::make_unique<TqxAssetSVG>("Dark\\Logos\\Main"));
    svg->SetSVGUri(AssetFile("Dark/Logos/Main/default.svg"));
    svg->SetVectorUri(AssetFile("Dark/Logos/Main/default.vector"));
    auto* bitmaps = FManager.Add(std::make_unique<TqxAssetBitmapSet>("Icons\\home"));
    bitmaps->Add(std::make_unique<TqxBitmapInfo>(AssetFile("Icons/home/default@10x.png"), 1.0f));
    bitmaps->Add(std::make_unique<TqxBitmapInfo>(1.5f));
    bitmaps->Add(std::make_unique<TqxBitmapInfo>("Icons\\home\\default@20x.png", 2.0f));
    bitmaps->Add(std::make_unique<TqxBitmapInfo>(AssetFile("Icons/home/default@12x.png"), 1.25f));
    FManager.Add(std::make_unique<TqxAssetThemeContainer>("Dark"));
    FManager.Add(std::make_unique<TqxAssetColor>("Dark\\Primary", kPlatformAny, kDeviceClassAny, 0xFF000000));
    FManager.Add(std::make_unique<TqxAssetStyle>("Styles\\Card"))->SetUri(AssetFile("Styles/Card/default.json"));
  }

  std::vector<TExpected> ExpectedAssetFiles() const {
    const auto& all = QuorvexSupportedPlatforms;
    return {
        {kAssets, all, "Assets\\Fonts\\Roboto\\default.ttf", "assets\\fonts\\Fonts\\Roboto", "default.ttf"},
        {kAssets, all, "Assets\\Fonts\\Roboto\\android.otf", "assets\\fonts\\Fonts\\Roboto", "android.otf"},
        {kAssets, all, "Assets\\terms\\default.PDF", "assets\\terms", "default.PDF"},
        {kAssets, all, "Assets\\Anim\\Loader\\default.json", "assets\\Anim\\Loader", "default.json"},
        {kAssets, all, "Assets\\Dark\\Logos\\Main\\default.vector", "assets\\Dark\\Logos\\Main", "default.vector"},
        {kAssets, all, "Assets\\Icons\\home\\default@10x.png", "assets\\Icons\\home", "default@10x.png"},
        {kAssets, all, "Assets\\Icons\\home\\default@20x.png", "assets\\Icons\\home", "default@20x.png"},
        {kAssets, all, "Assets\\Icons\\home\\default@12x.png", "assets\\Icons\\home", "default@12x.png"},
    };
  }

  std::string FProjectFile;
  std::shared_ptr<TqxDprojProject> FProject;
  std::vector<std::string> FForeign;
  TqxAssetsManager FManager;
};

TEST_F(AssetsDeploymentTest, RewriteReplacesOurEntriesAndKeepsTheUsersOwn) {
  FillManager();
  TqxAssetsDeployment(FProject).AddToDeploy(&FManager);
  EXPECT_THAT(OurLines(*FProject->Deployment()), ContainerEq(Describe(WithConfigFiles(ExpectedAssetFiles()))));
  EXPECT_THAT(ForeignLines(*FProject->Deployment()), ContainerEq(FForeign));

  // A second rewrite of what was saved changes nothing: entries don't accumulate.
  FProject->Save();
  auto reopened = TqxDprojProject::Open(FProjectFile);
  const std::string saved = Read(FProjectFile);
  TqxAssetsDeployment(reopened).AddToDeploy(&FManager);
  EXPECT_EQ(reopened->PendingText(), saved);

  // Without assets only the config entries stay.
  TqxAssetsManager none;
  TqxAssetsDeployment(reopened).AddToDeploy(&none);
  EXPECT_THAT(OurLines(*reopened->Deployment()), ContainerEq(Describe(ConfigFiles())));
  EXPECT_THAT(ForeignLines(*reopened->Deployment()), ContainerEq(FForeign));
}

TEST_F(AssetsDeploymentTest, SingleAssetFilesAreEnteredOnlyWhenOnDiskAndRemovedByLocalName) {
  TqxAssetBitmapSet bitmaps("Icons\\back");
  bitmaps.Add(std::make_unique<TqxBitmapInfo>(AssetFile("Icons/back/default@10x.png"), 1.0f));
  bitmaps.Add(std::make_unique<TqxBitmapInfo>((FDir / "Assets/Icons/back/default@20x.png").string(), 2.0f));
  TqxAssetsDeployment deployment(FProject);
  const auto before = Describe(FProject->Deployment()->Entries());
  deployment.AddFiles(&bitmaps);
  auto expected = Describe(std::vector<TExpected>{{kAssets, QuorvexSupportedPlatforms,
                                                   "Assets\\Icons\\back\\default@10x.png", "assets\\Icons\\back",
                                                   "default@10x.png"}});
  expected.insert(expected.end(), before.begin(), before.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_THAT(Describe(FProject->Deployment()->Entries()), ContainerEq(expected));
  deployment.RemoveFiles(&bitmaps);
  EXPECT_THAT(Describe(FProject->Deployment()->Entries()), ContainerEq(before));
}

// A project the IDE gives no deployment service.
class TProjectWithoutDeployment : public IOTAProject {
public:
  std::string GetFileName() const override { return "/nowhere/App.dproj"; }
  TGUID GetProjectGUID() const override { return TGUID::FromName("App"); }
  std::string GetFrameworkType() const override { return "xfm"; }
  std::shared_ptr<IOTAModuleInfo> FindModuleInfo(const std::string&) const override { return nullptr; }
  void AddFile(const std::string&, bool) override {}
  void MarkModified() override {}
  int AddNotifier(std::shared_ptr<IOTAModuleNotifier>) override { return 1; }
  void RemoveNotifier(int) override {}
  std::shared_ptr<IProjectDeployment> GetProjectDeployment() override { return nullptr; }
};

TEST(AssetsDeploymentFailureTest, MissingServiceIsLoggedAndStopsTheRewrite) {
  std::vector<std::string> errors;
  const int sink = TqxLog::AddSink([&](TqxLogLevel level, const std::string&, const std::string& text) {
    if (level == TqxLogLevel::Error) errors.push_back(text);
  });
  TqxAssetsManager manager;
  auto project = std::make_shared<TProjectWithoutDeployment>();
  TqxAssetsDeployment deployment(project);
  TqxLog::RemoveSink(sink);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_NE(errors[0].find("Сервис деплоя не доступен"), std::string::npos);
  EXPECT_THROW(deployment.AddToDeploy(&manager), EqxAssertError);
}

class AssetsDeploymentRegistrationTest : public AssetsDeploymentTest {
protected:
  void TearDown() override {
    UnregisterAssetsDeployment();
    TqxIdeEventsListener::Instance().Finalize();
    AssetsDeploymentTest::TearDown();
  }
  // A project folder with a saved assets folder.
  void SaveAssets() {
    FillManager();
    TqxAssetsFactory::SaveConfigToFile(FManager, AssetsDir() + "/config.json", TqxWritingOptions::Default());
  }
};

TEST_F(AssetsDeploymentRegistrationTest, OpeningAProjectWithAnIdeWideManagerRewritesItsDeployment) {
  SaveAssets();
  // The listener hears of the opening first and loads the project's manager.
  TqxIdeEventsListener::Instance().Initialize();
  RegisterAssetsDeployment();
  RegisterAssetsDeployment();  // once is enough

  TqxFileSystemHost host;
  auto project = host.OpenProject(FProjectFile);
  EXPECT_THAT(OurLines(*project->Deployment()), ContainerEq(Describe(WithConfigFiles(ExpectedAssetFiles()))));
  EXPECT_THAT(ForeignLines(*project->Deployment()), ContainerEq(FForeign));
  host.CloseAll();
}

TEST_F(AssetsDeploymentRegistrationTest, NothingHappensWithoutAManagerOrAfterUnregistering) {
  SaveAssets();
  const auto before = Describe(FProject->Deployment()->Entries());
  RegisterAssetsDeployment();
  {
    // No IDE-wide manager for the project.
    TqxFileSystemHost host;
    auto project = host.OpenProject(FProjectFile);
    EXPECT_THAT(Describe(project->Deployment()->Entries()), ContainerEq(before));
    host.CloseAll();
  }
  UnregisterAssetsDeployment();
  TqxIdeEventsListener::Instance().Initialize();
  TqxFileSystemHost host;
  auto project = host.OpenProject(FProjectFile);
  EXPECT_NE(TqxIdeEventsListener::Instance().FindAssetsManager(project->GetProjectGUID()), nullptr);
  EXPECT_THAT(Describe(project->Deployment()->Entries()), ContainerEq(before));
  host.CloseAll();
}

}  // namespace
}  // namespace qx
