#include "list_command.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <sys/wait.h>

#include "../../support/temp_folder.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/file_io.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;

class ListCommandTest : public ::testing::Test {
protected:
  ListCommandTest() { TqxFileIO::WriteAtomically(FProject, "<Project/>"); }

  int Run(std::vector<std::string> args) {
    FOut.str("");
    FErr.str("");
    return RunList(args, FOut, FErr);
  }

  test::TTempFolder FTemp{"list"};
  fs::path FDir = FTemp.Path();
  std::string FProject = (FDir / "App.dproj").string();
  std::ostringstream FOut, FErr;
};

TEST_F(ListCommandTest, ExitCodesAndMessagesForEachOutcome) {
  EXPECT_EQ(Run({FProject}), kExitOk);
  EXPECT_NE(FOut.str().find("App.dproj: no assets"), std::string::npos) << FOut.str();

  fs::create_directories(FDir / "Assets");
  TqxFileIO::WriteAtomically((FDir / "Assets" / "config.json").string(), "{\"format\": \"quorvex-assets-config\",");
  EXPECT_EQ(Run({FProject}), kExitFailure);
  EXPECT_NE(FErr.str().find("config.json\": line 1, column"), std::string::npos) << FErr.str();
  EXPECT_EQ(FOut.str(), "");

  TqxFileIO::WriteAtomically((FDir / "Assets" / "config.json").string(),
                             R"({"format": "quorvex-assets-config", "version": 1, "assets": []})");
  EXPECT_EQ(Run({FProject}), kExitOk);
  EXPECT_EQ(FOut.str().substr(0, FOut.str().find(" in ")), "App.dproj: 0 assets, 0 themes, 0 variants");

  EXPECT_EQ(Run({(FDir / "Missing.dproj").string()}), kExitFailure);
  EXPECT_NE(FErr.str().find("no project file"), std::string::npos);
  EXPECT_EQ(Run({FDir.string()}), kExitFailure) << "a folder is no project";

  EXPECT_EQ(Run({FProject, FProject}), kExitUsage);
  EXPECT_EQ(Run({"--all"}), kExitUsage);
  EXPECT_NE(FErr.str().find("usage: qxassets list"), std::string::npos);
}

int RunBinary(const std::string& args) {
  const std::string command = std::string(QXASSETS_BINARY) + " " + args + " >/dev/null 2>&1";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(QxAssetsBinaryTest, DispatchesCommandsAndRefusesBadUsage) {
  EXPECT_EQ(RunBinary(""), kExitUsage);
  EXPECT_EQ(RunBinary("frobnicate"), kExitUsage);
  EXPECT_EQ(RunBinary("help"), kExitOk);
  EXPECT_EQ(RunBinary("list /nonexistent/X.dproj"), kExitFailure);
  EXPECT_EQ(RunBinary("list " QX_SOURCE_DIR "/examples/Demo/Demo.dproj"), kExitOk);
}


const fs::path kDemo = fs::path(QX_SOURCE_DIR) / "examples" / "Demo";

TEST(DemoProjectTest, ConfigNamesExactlyTheFilesOfTheAssetsFolder) {
  TqxAssetsManager manager;
  TqxAssetsFactory::LoadFromFile(manager, (kDemo / "Assets" / "config.json").string());
  const fs::path assets = fs::absolute(kDemo / "Assets").lexically_normal();
  std::set<std::string> named;
  auto name = [&](const std::string& uri) {
    if (uri.empty()) return;
    EXPECT_EQ(uri.rfind(assets.generic_string() + "/", 0), 0u) << uri << " is a full path in the folder";
    named.insert(uri);
  };
  for (const TqxAsset* asset : manager.GetAllAssets()) {
    if (auto* file = dynamic_cast<const TqxAssetWithFile*>(asset)) name(file->Uri());
    if (auto* svg = dynamic_cast<const TqxAssetSVG*>(asset)) name(svg->SVGUri());
    if (auto* set = dynamic_cast<const TqxAssetBitmapSet*>(asset)) {
      for (const TqxBitmapInfo* info : set->GetBitmapInfos()) name(info->Uri());
    }
  }
  std::set<std::string> present;
  for (const auto& entry : fs::recursive_directory_iterator(assets)) {
    const std::string file = entry.path().generic_string();
    if (entry.is_regular_file() && entry.path().parent_path() != assets) present.insert(file);
  }
  EXPECT_EQ(named, present);
}

TEST(DemoProjectTest, ListsAsATreeOfFoldersThemesAndVariants) {
  std::ostringstream out, err;
  ASSERT_EQ(RunList({(kDemo / "Demo.dproj").string()}, out, err), kExitOk) << err.str();
  const std::string text = out.str();
  const std::string tree = text.substr(text.find('\n') + 1);
  EXPECT_EQ(text.substr(0, text.find(" in ")), "Demo.dproj: 12 assets, 2 themes, 17 variants");
  EXPECT_EQ(tree,
            "Animations\\\n"
            "  Spinner  lottie-json  Any\n"
            "Colors\\\n"
            "  Accent  color  Any, Android, iOS\n"
            "  Background  color  Any, Tablet\n"
            "Dark\\  [theme]\n"
            "  Colors\\\n"
            "    Surface  color  Any\n"
            "    Text  color  Any\n"
            "Fonts\\\n"
            "  DejaVuSans  font  Any\n"
            "  DejaVuSansLicense  file  Any\n"
            "Images\\\n"
            "  Logo  bitmap-set  Any\n"
            "  Panel  bitmap-set  Any\n"
            "Light\\  [theme]\n"
            "  Colors\\\n"
            "    Surface  color  Any\n"
            "    Text  color  Any\n"
            "Vectors\\\n"
            "  Star  svg  Any\n");
  EXPECT_EQ(err.str(), "");
}

}  // namespace
}  // namespace qx::cli
