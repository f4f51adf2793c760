#include "platform/core/assets/assets_factory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "../../../support/error_message.h"
#include "../../../support/temp_folder.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

// Every field the config keeps, so two managers compare as text.
std::vector<std::string> Describe(const TqxAssetsManager& manager) {
  std::vector<std::string> result;
  for (const TqxAsset* asset : manager.GetAllAssets()) {
    std::string text = asset->GetId() + " " + asset->GetType();
    if (auto* color = dynamic_cast<const TqxAssetColor*>(asset)) text += Format(" %x", {color->Color()});
    if (auto* file = dynamic_cast<const TqxAssetWithFile*>(asset)) text += " " + file->Uri();
    if (auto* file = dynamic_cast<const TqxAssetFile*>(asset))
      text += Format(" %d %d", {int(file->FileLocation()), int(file->ExtractionRule())});
    if (auto* style = dynamic_cast<const TqxAssetStyle*>(asset)) text += " " + style->TargetClassName();
    if (auto* svg = dynamic_cast<const TqxAssetSVG*>(asset))
      text += Format(" %s %s %gx%g", {svg->SVGUri(), svg->VectorUri(), svg->Size().Width, svg->Size().Height});
    if (auto* set = dynamic_cast<const TqxAssetBitmapSet*>(asset))
      for (const TqxBitmapInfo* info : set->GetBitmapInfos()) {
        const TRect& i = info->CapInsets();
        text += Format(" [%g %s %d,%d,%d,%d %x]",
                       {info->Scale(), info->Uri(), i.Left, i.Top, i.Right, i.Bottom, info->TintColor()});
      }
    result.push_back(text);
  }
  return result;
}

class AssetsFactoryTest : public ::testing::Test {
protected:
  AssetsFactoryTest() { std::filesystem::create_directories(FDir / "Assets"); }
  std::string Assets() const { return (FDir / "Assets").string(); }

  // One of every kind, with platform and device class variants, and URIs
  // full inside the folder, relative, outside the folder and empty.
  void Fill(TqxAssetsManager& manager) const {
    manager.Add(std::make_unique<TqxAssetColor>("Colors\\Accent", kPlatformAny, kDeviceClassAny, 0xFF2196F3));
    manager.Add(std::make_unique<TqxAssetColor>("Colors\\Accent", kPlatformAndroid, kDeviceClassAny, 0xFF4CAF50));
    manager.Add(std::make_unique<TqxAssetColor>("Colors\\Accent", kPlatformIOS, 2, 0x80007AFF));
    manager.Add(std::make_unique<TqxAssetThemeContainer>("Dark"));
    manager.Add(std::make_unique<TqxAssetColor>("Dark\\Text", kPlatformAny, kDeviceClassAny, 0xFFFFFFFF));

    auto set = std::make_unique<TqxAssetBitmapSet>("Images\\Logo", kPlatformAny, 4);
    set->Add(std::make_unique<TqxBitmapInfo>(Assets() + "/Images/Logo/any-tablet@10x.png", 1.0f));
    set->Add(std::make_unique<TqxBitmapInfo>("Images\\Logo\\any-tablet@15x.png", 1.5f));
    auto* tinted = set->Add(std::make_unique<TqxBitmapInfo>("/elsewhere/logo@2x.png", 2.0f));
    tinted->SetCapInsets({1, 2, 3, 4});
    tinted->SetTintColor(0xFF000000);
    set->Add(std::make_unique<TqxBitmapInfo>(1.25f));
    manager.Add(std::move(set));

    auto font = std::make_unique<TqxAssetFont>("Fonts\\Body", kPlatformIOS);
    font->SetUri(Assets() + "/Fonts/Body/ios.ttf");
    manager.Add(std::move(font));
    auto file = std::make_unique<TqxAssetFile>("Data\\Cities");
    file->SetUri("Data\\Cities\\default.csv");
    file->SetFileLocation(TqxFileLocation::Documents);
    file->SetExtractionRule(TqxExtractionRule::OnNewVersion);
    manager.Add(std::move(file));
    auto lottie = std::make_unique<TqxAssetLottieAnimation>("Spinner");
    lottie->SetUri(Assets() + "/Spinner/default.json");
    manager.Add(std::move(lottie));
    auto style = std::make_unique<TqxAssetStyle>("Styles\\Card", kPlatformAndroid, 1);
    style->SetUri("Styles\\Card\\android-phone-small.json");
    style->SetTargetClassName("TqxCollectionViewItem");
    manager.Add(std::move(style));
    manager.Add(std::make_unique<TqxAssetStyle>("Styles\\Plain"));
    auto svg = std::make_unique<TqxAssetSVG>("Vectors\\Star");
    svg->SetSVGUri(Assets() + "/Vectors/Star/default.svg");
    svg->SetVectorUri("Vectors\\Star\\default.vector");
    svg->SetSize({48, 24.5});
    manager.Add(std::move(svg));
  }

  test::TTempFolder FDir{"factory"};
  const std::string FConfig = (FDir / "Assets/config.json").string();
};

TEST_F(AssetsFactoryTest, RoundTripKeepsEveryKindVariantAndField) {
  TqxAssetsManager original;
  Fill(original);
  TqxAssetsFactory::SaveConfigToFile(original, FConfig, TqxWritingOptions::Default());

  const std::string text = TqxFileIO::ReadAll(FConfig);
  // Stored relative with backslashes; outside the folder kept whole.
  EXPECT_NE(text.find(R"("Images\\Logo\\any-tablet@10x.png")"), std::string::npos);
  EXPECT_NE(text.find(R"("/elsewhere/logo@2x.png")"), std::string::npos);
  EXPECT_EQ(text.find(Assets()), std::string::npos);
  EXPECT_NE(text.find("\"scale\": 1.25,"), std::string::npos) << "shortest form of the single";

  TqxAssetsManager loaded;
  loaded.Add(std::make_unique<TqxAssetColor>("Stale", kPlatformAny, kDeviceClassAny, 1));
  TqxAssetsFactory::LoadFromFile(loaded, FConfig);
  EXPECT_FALSE(loaded.Contains("Stale")) << "a read replaces the contents";

  // The same assets, with every relative URI now a full path.
  std::vector<std::string> expected = Describe(original);
  for (std::string& line : expected) {
    for (const char* relative : {"Images\\Logo\\any-tablet@15x.png", "Data\\Cities\\default.csv",
                                 "Styles\\Card\\android-phone-small.json", "Vectors\\Star\\default.vector"}) {
      std::string full = Assets() + "/" + relative;
      std::replace(full.begin(), full.end(), '\\', '/');
      if (auto at = line.find(relative); at != std::string::npos) line.replace(at, std::strlen(relative), full);
    }
  }
  EXPECT_EQ(Describe(loaded), expected);

  // Writing what was read gives the same text again.
  TqxAssetsFactory::SaveConfigToFile(loaded, FConfig, TqxWritingOptions::Default());
  EXPECT_EQ(TqxFileIO::ReadAll(FConfig), text);
}

TEST_F(AssetsFactoryTest, InMemoryBitmapIsWrittenUnderTheNameItsSaveGivesIt) {
  TqxAssetsManager manager;
  auto set = std::make_unique<TqxAssetBitmapSet>("Icons\\Home", kPlatformAndroid, 1);
  set->Add(std::make_unique<TqxBitmapInfo>(1.5f))->SetBitmap(std::make_unique<TqxBitmap>(3, 3));
  set->Add(std::make_unique<TqxBitmapInfo>(2.0f))->SetBitmap(nullptr);
  manager.Add(std::move(set));
  TqxAssetsFactory::SaveConfigToFile(manager, FConfig, TqxWritingOptions::Default());

  TqxAssetsManager loaded;
  TqxAssetsFactory::LoadFromFile(loaded, FConfig);
  auto* read = loaded.Find<TqxAssetBitmapSet>("Icons\\Home", kPlatformAndroid, 1);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->GetBitmapInfo(1.5f)->Uri(), Assets() + "/Icons/Home/android-phone-small@15x.png");
  EXPECT_EQ(read->GetBitmapInfo(2.0f)->Uri(), "") << "nothing in memory, nothing to name";
}

TEST_F(AssetsFactoryTest, PlatformFilesKeepTheirPlatformsAndDropShadowedVariants) {
  TqxAssetsManager manager;
  Fill(manager);
  // An any variant for a device class that only iOS overrides stays in the Android file.
  manager.Add(std::make_unique<TqxAssetColor>("Colors\\Accent", kPlatformAny, 3, 0xFF111111));
  const std::string android = Assets() + "/config-android.json";
  TqxAssetsFactory::SaveConfigToFile(manager, android, {kPlatformAny, kPlatformAndroid},
                                     TqxWritingOptions(true, kPlatformAndroid, false));
  const std::string text = TqxFileIO::ReadAll(android);
  EXPECT_EQ(text.find('\n'), text.size() - 1) << "compact";
  EXPECT_NE(text.find(R"("platforms":["any","android"],"resolvedFor":"android")"), std::string::npos);

  TqxAssetsManager loaded;
  TqxAssetsFactory::LoadFromFile(loaded, android);
  auto ids = [&](const TqxAssetName& name) {
    std::vector<std::string> result;
    for (const TqxAsset* asset : loaded.GetAssets([&](const TqxAssetName& n) { return n == name; }))
      result.push_back(asset->GetTargetId());
    return result;
  };
  // (android, any) shadows every any-platform variant of the name.
  EXPECT_EQ(ids("Colors\\Accent"), (std::vector<std::string>{"android"}));
  EXPECT_EQ(ids("Fonts\\Body"), std::vector<std::string>{}) << "iOS only";
  EXPECT_EQ(ids("Styles\\Card"), (std::vector<std::string>{"android-phone-small"}));

  // Without resolving, the any variants stay; with all platforms, so does iOS.
  TqxAssetsFactory::SaveConfigToFile(manager, android, {kPlatformAny, kPlatformAndroid},
                                     TqxWritingOptions(false, kPlatformAndroid, true));
  TqxAssetsFactory::LoadFromFile(loaded, android);
  EXPECT_EQ(ids("Colors\\Accent"), (std::vector<std::string>{"default", "any-phone-large", "android"}));
  TqxAssetsFactory::SaveConfigToFile(manager, android, TqxWritingOptions(true, kPlatformAny, true));
  TqxAssetsFactory::LoadFromFile(loaded, android);
  EXPECT_EQ(loaded.Count(), manager.Count());
}

struct TMalformed {
  const char* Problem;
  std::string Text;
  const char* Place;  // expected in the message after the file name
};

std::string Config(const std::string& assets, const std::string& head = R"("format": "quorvex-assets-config", "version": 1)") {
  return "{\n  " + head + ",\n  \"assets\": [\n" + assets + "\n  ]\n}\n";
}

const std::string kColor = R"({"name": "A", "kind": "color", "variants": [{"platform": "any", "deviceClass": "any", "color": "#FF000000"}]})";

TEST_F(AssetsFactoryTest, MalformedConfigsNameFileAndPlaceAndLeaveTheManagerAlone) {
  const std::string valid = Config(kColor);
  const std::vector<TMalformed> cases = {
      {"truncated", valid.substr(0, valid.find("#FF") + 3), "line 4, column 100: syntax error"},
      {"syntax", Config("{\"name\": \"A\",, }"), "line 4, column 14: syntax error"},
      {"not UTF-8", Config("{\"name\": \"Caf\xE9\"}"), "not valid UTF-8 at line 4, column 14"},
      {"not an object", "[1, 2]", "not an assets config"},
      {"no format", R"({"version": 1, "assets": []})", "not an assets config (\"format\" is missing"},
      {"newer version", Config(kColor, R"("format": "quorvex-assets-config", "version": 2)"),
       "format version 2 is newer than this program reads (1)"},
      {"version as text", Config(kColor, R"("format": "quorvex-assets-config", "version": "1")"),
       "version: expected an integer, found \"1\""},
      {"no assets", R"({"format": "quorvex-assets-config", "version": 1})", "assets: missing field"},
      {"assets twice", Config(kColor + "], \"assets\": [" + kColor), "assets: the field appears twice"},
      {"header after bad assets", "{\"assets\": [1], \"format\": \"other\", \"version\": 1}", "not an assets config"},
      {"entry not an object", Config("7"), "assets[0]: expected an object, found 7"},
      {"wrong colour type", Config(kColor + ",\n" + R"({"name": "B", "kind": "color", "variants": [{"platform": "any", "deviceClass": "any", "color": 12}]})"),
       "assets[1].variants[0].color: expected a colour \"#AARRGGBB\", found 12"},
      {"missing uri", Config(R"({"name": "F", "kind": "font", "variants": [{"platform": "ios", "deviceClass": "any"}]})"),
       "assets[0].variants[0].uri: missing field"},
      {"bad platform", Config(R"({"name": "F", "kind": "theme-container", "variants": [{"platform": "windows", "deviceClass": "any"}]})"),
       "assets[0].variants[0].platform: expected \"any\", \"android\" or \"ios\", found \"windows\""},
      {"unknown kind", Config(R"({"name": "S", "kind": "sound", "variants": [{"platform": "any", "deviceClass": "any"}]})"),
       "assets[0].kind: unknown kind \"sound\""},
      {"duplicate id", Config(kColor + ",\n" + kColor), "assets[1].variants[0]: duplicate of assets[0].variants[0] (A, any, any)"},
      {"invalid name", Config(R"({"name": "..\\A", "kind": "theme-container", "variants": [{"platform": "any", "deviceClass": "any"}]})"),
       "assets[0].name: not a valid asset name"},
      {"no variants", Config(R"({"name": "A", "kind": "color", "variants": []})"), "assets[0].variants: an asset needs"},
      {"deep field", Config(R"({"name": "I", "kind": "bitmap-set", "variants": [{"platform": "any", "deviceClass": "any", "bitmaps": [{"scale": 1, "uri": ""}, {"scale": 2, "uri": "", "capInsets": {"left": 1, "top": 1.5, "right": 0, "bottom": 0}}]}]})"),
       "assets[0].variants[0].bitmaps[1].capInsets.top: expected an integer, found 1.5"},
      {"same scale twice", Config(R"({"name": "I", "kind": "bitmap-set", "variants": [{"platform": "any", "deviceClass": "any", "bitmaps": [{"scale": 2, "uri": ""}, {"scale": 2.0, "uri": ""}]}]})"),
       "assets[0].variants[0].bitmaps[1].scale: the same scale twice"},
  };

  TqxAssetsManager manager;
  manager.Add(std::make_unique<TqxAssetColor>("Kept", kPlatformAny, kDeviceClassAny, 0xFF123456));
  const auto before = Describe(manager);
  for (const TMalformed& c : cases) {
    TqxFileIO::WriteAtomically(FConfig, c.Text);
    const std::string message = test::ErrorOf([&] { TqxAssetsFactory::LoadFromFile(manager, FConfig); });
    EXPECT_TRUE(message.starts_with("Cannot read the assets config \"" + FConfig + "\": "))
        << c.Problem << ": " << message;
    EXPECT_NE(message.find(c.Place), std::string::npos) << c.Problem << ": " << message;
    EXPECT_EQ(Describe(manager), before) << c.Problem;
  }

  // The valid text of the table does load, so the cases fail for their own fault.
  TqxFileIO::WriteAtomically(FConfig, valid);
  TqxAssetsFactory::LoadFromFile(manager, FConfig);
  EXPECT_TRUE(manager.Contains("A"));
}

// Cut and damaged copies of a real config either load or raise Exception:
// nothing else escapes, nothing crashes, and a failure leaves the manager whole.
TEST_F(AssetsFactoryTest, DamagedConfigsNeverEscapeAsAnythingButException) {
  TqxAssetsManager full;
  Fill(full);
  TqxAssetsFactory::SaveConfigToFile(full, FConfig, TqxWritingOptions::Default());
  const std::string text = TqxFileIO::ReadAll(FConfig);
  std::vector<std::string> damaged;
  for (std::size_t length = 0; length < text.size(); length += 97) damaged.push_back(text.substr(0, length));
  std::uint32_t seed = 12345;
  auto next = [&] { return seed = seed * 1103515245u + 12345u; };
  const char replacements[] = {'"', '{', '}', '[', ']', ',', ':', '0', '\\', '\xFF', 'x', ' '};
  for (int i = 0; i < 60; ++i) {
    std::string copy = text;
    copy[next() % copy.size()] = replacements[next() % sizeof replacements];
    damaged.push_back(std::move(copy));
  }

  TqxAssetsManager manager;
  manager.Add(std::make_unique<TqxAssetColor>("Kept", kPlatformAny, kDeviceClassAny, 1));
  int loaded = 0;
  for (const std::string& copy : damaged) {
    TqxFileIO::WriteAtomically(FConfig, copy);
    TqxAssetsManager target;
    target.Add(std::make_unique<TqxAssetColor>("Kept", kPlatformAny, kDeviceClassAny, 1));
    const std::string message = test::ErrorOf([&] { TqxAssetsFactory::LoadFromFile(target, FConfig); });
    if (message == "no exception") {
      ++loaded;
    } else {
      EXPECT_NE(message.find(FConfig), std::string::npos);
      EXPECT_EQ(Describe(target), Describe(manager));
    }
  }
  EXPECT_LT(loaded, static_cast<int>(damaged.size()) / 2) << "most damage is caught";
}

TEST_F(AssetsFactoryTest, MissingFilesFailWithTheirNames) {
  TqxAssetsManager manager;
  const std::string missing = Assets() + "/none.json";
  const std::string message = test::ErrorOf([&] { TqxAssetsFactory::LoadFromFile(manager, missing); });
  EXPECT_NE(message.find("\"" + missing + "\": cannot open the file"), std::string::npos) << message;
  const std::string noFolder = (FDir / "NoFolder" / "config.json").string();
  EXPECT_THROW(TqxAssetsFactory::SaveConfigToFile(manager, noFolder, TqxWritingOptions::Default()), Exception);
}

TEST_F(AssetsFactoryTest, ReadsFieldsInAnyOrderWithAByteOrderMarkAndUnknownFields) {
  // The header after the assets.
  TqxFileIO::WriteAtomically(FConfig, "{\"assets\": [" + kColor + "], \"version\": 1, \"format\": \"quorvex-assets-config\"}");
  TqxAssetsManager first;
  TqxAssetsFactory::LoadFromFile(first, FConfig);
  EXPECT_TRUE(first.Contains("A"));

  TqxFileIO::WriteAtomically(FConfig, "\xEF\xBB\xBF" + Config(R"({"name": "A", "kind": "color", "note": "x", "variants": [{"platform": "ANDROID", "deviceClass": "tablet", "color": "#ff0000ff", "extra": [1]}]})",
                                                       R"("format": "quorvex-assets-config", "version": 1, "generator": "hand")"));
  TqxAssetsManager manager;
  TqxAssetsFactory::LoadFromFile(manager, FConfig);
  auto* color = manager.Find<TqxAssetColor>("A", kPlatformAndroid, 4);
  ASSERT_NE(color, nullptr);
  EXPECT_EQ(color->Color(), 0xFF0000FFu);
}

}  // namespace
}  // namespace qx
