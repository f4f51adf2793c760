// The example project: its config names exactly the files of its folder, and
// the list command shows it as a tree.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "list_command.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;

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
