// The example project's config files are what the factory writes for the
// assets built here. Run with QX_UPDATE_EXAMPLES=1 to rewrite them after a
// deliberate change of the example or of the format.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>

#include <unistd.h>

#include "list_command.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/file_io.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;

const fs::path kDemo = fs::path(QX_SOURCE_DIR) / "examples" / "Demo";

void AddColor(TqxAssetsManager& manager, const TqxAssetName& name, TAlphaColor color,
              TqxPlatform platform = kPlatformAny, TqxDeviceClass deviceClass = kDeviceClassAny) {
  manager.Add(std::make_unique<TqxAssetColor>(name, platform, deviceClass, color));
}

template <class T>
void AddFile(TqxAssetsManager& manager, const TqxAssetName& name, const std::string& uri) {
  auto asset = std::make_unique<T>(name);
  asset->SetUri(uri);
  manager.Add(std::move(asset));
}

// The example's assets as a save leaves them: URIs relative to the assets folder.
void BuildDemoAssets(TqxAssetsManager& manager) {
  AddColor(manager, "Colors\\Accent", 0xFF2196F3);
  AddColor(manager, "Colors\\Accent", 0xFF1E88E5, kPlatformAndroid);
  AddColor(manager, "Colors\\Accent", 0xFF007AFF, kPlatformIOS);
  AddColor(manager, "Colors\\Background", 0xFFFAFAFA);
  AddColor(manager, "Colors\\Background", 0xFFF0F0F0, kPlatformAny, 4);

  manager.Add(std::make_unique<TqxAssetThemeContainer>("Light"));
  AddColor(manager, "Light\\Colors\\Text", 0xDE000000);
  AddColor(manager, "Light\\Colors\\Surface", 0xFFFFFFFF);
  manager.Add(std::make_unique<TqxAssetThemeContainer>("Dark"));
  AddColor(manager, "Dark\\Colors\\Text", 0xFFFFFFFF);
  AddColor(manager, "Dark\\Colors\\Surface", 0xFF121212);

  auto logo = std::make_unique<TqxAssetBitmapSet>("Images\\Logo");
  for (auto [scale, text] : {std::pair{1.0f, "10"}, {1.5f, "15"}, {2.0f, "20"}, {3.0f, "30"}, {4.0f, "40"}}) {
    logo->Add(std::make_unique<TqxBitmapInfo>(std::string("Images\\Logo\\default@") + text + "x.png", scale));
  }
  manager.Add(std::move(logo));
  auto panel = std::make_unique<TqxAssetBitmapSet>("Images\\Panel");
  panel->Add(std::make_unique<TqxBitmapInfo>("Images\\Panel\\default@10x.png", 1.0f));
  panel->Add(std::make_unique<TqxBitmapInfo>("Images\\Panel\\default@20x.png", 2.0f));
  panel->SetCapInsets({5, 5, 5, 5});
  panel->SetTintColor(0xFF2196F3);
  manager.Add(std::move(panel));

  AddFile<TqxAssetFont>(manager, "Fonts\\DejaVuSans", "Fonts\\DejaVuSans\\default.ttf");
  AddFile<TqxAssetFile>(manager, "Fonts\\DejaVuSansLicense", "Fonts\\DejaVuSansLicense\\default.txt");
  AddFile<TqxAssetLottieAnimation>(manager, "Animations\\Spinner", "Animations\\Spinner\\default.json");
  // Its .vector file joins when SVG compiling does; until then VectorUri stays empty.
  auto star = std::make_unique<TqxAssetSVG>("Vectors\\Star");
  star->SetSVGUri("Vectors\\Star\\default.svg");
  star->SetSize({48, 48});
  manager.Add(std::move(star));
}

struct TConfigFile {
  const char* Name;
  TqxPlatforms Platforms;
  TqxWritingOptions Options;
};

const TConfigFile kConfigFiles[] = {
    {"config.json", {kPlatformAny, kPlatformAndroid, kPlatformIOS}, TqxWritingOptions::Default()},
    {"config-android.json", {kPlatformAny, kPlatformAndroid}, TqxWritingOptions(true, kPlatformAndroid, false)},
    {"config-ios.json", {kPlatformAny, kPlatformIOS}, TqxWritingOptions(true, kPlatformIOS, false)},
};

TEST(DemoProjectTest, ConfigFilesAreWhatTheFactoryWrites) {
  TqxAssetsManager manager;
  BuildDemoAssets(manager);
  const bool update = std::getenv("QX_UPDATE_EXAMPLES") != nullptr;
  const fs::path scratch = fs::temp_directory_path() / ("qx_demo_" + std::to_string(::getpid()));
  fs::create_directories(scratch);
  for (const TConfigFile& file : kConfigFiles) {
    const fs::path committed = kDemo / "Assets" / file.Name;
    const fs::path target = update ? committed : scratch / file.Name;
    TqxAssetsFactory::SaveConfigToFile(manager, target.string(), file.Platforms, file.Options);
    if (!update) {
      EXPECT_EQ(TqxFileIO::ReadAll(target.string()), TqxFileIO::ReadAll(committed.string())) << file.Name;
    }
  }
  fs::remove_all(scratch);
}

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
