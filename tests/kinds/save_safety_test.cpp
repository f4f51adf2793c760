#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "kinds_test_support.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

using namespace test;

class SaveSafetyTest : public AssetsFolderTest {
protected:
  // Saving must fail with a message naming the asset, and write nothing
  // outside the assets folder.
  void ExpectRefused(TqxAsset& asset) {
    try {
      Save(asset);
      ADD_FAILURE() << asset.Name() << ": saved";
    } catch (const Exception& e) {
      EXPECT_NE(std::string(e.what()).find("\"" + asset.Name() + "\""), std::string::npos) << e.what();
    }
    EXPECT_TRUE(FilesUnder(FBase / "Outside").empty()) << asset.Name();
    EXPECT_EQ(FilesUnder(FBase / "Project"), FilesUnder(FRoot)) << asset.Name();
  }
  std::string Font() { return Source("kinds/glyphs.otf"); }
};

TEST_F(SaveSafetyTest, NamesThatLeadOutOfTheAssetsFolderAreRefused) {
  for (const char* name : {"..\\Outside\\Evil", "..", "Fonts\\..\\..\\..\\Outside", "Fonts\\\\Body", "\\Fonts",
                           "Fonts\\", ".\\Fonts", "/etc/Evil", "Fonts/../../Outside", ""}) {
    TqxAssetFont font(name);
    font.SetUri(Font());
    ExpectRefused(font);

    TqxAssetBitmapSet set(name);
    set.Add(std::make_unique<TqxBitmapInfo>(Source("images/rgba_4x3.png"), 1.0f));
    ExpectRefused(set);

    TqxAssetSVG svg(name);
    svg.SetSVGUri(Source("kinds/logo.svg"));
    ExpectRefused(svg);
  }
  EXPECT_TRUE(FilesUnder(FBase / "Project").empty());
}

TEST_F(SaveSafetyTest, SymbolicLinksInTheWayAreRefusedNotFollowed) {
  fs::create_directories(FRoot);
  // A folder link inside the assets folder, pointing outside.
  fs::create_directory_symlink(FBase / "Outside", InRoot("Fonts"));
  TqxAssetFont font("Fonts\\Body");
  font.SetUri(Font());
  ExpectRefused(font);

  // A file link where the asset's file goes.
  fs::create_directories(InRoot("Icons/Logo"));
  WriteText(FBase / "Outside" / "victim.png", "keep me");
  fs::create_symlink(FBase / "Outside" / "victim.png", InRoot("Icons/Logo/default@10x.png"));
  TqxAssetBitmapSet set("Icons\\Logo");
  auto info = std::make_unique<TqxBitmapInfo>(1.0f);
  info->SetBitmap(std::make_unique<TqxBitmap>(2, 2));
  set.Add(std::move(info));
  EXPECT_THROW(Save(set), Exception);
  EXPECT_EQ(ReadText(FBase / "Outside" / "victim.png"), "keep me");

  // The vector file's place taken by a link.
  fs::create_directories(InRoot("Art/Logo"));
  WriteText(FBase / "Outside" / "victim.vector", "keep me");
  fs::create_symlink(FBase / "Outside" / "victim.vector", InRoot("Art/Logo/default.vector"));
  TqxAssetSVG svg("Art\\Logo");
  svg.SetSVGUri(Source("kinds/logo.svg"));
  EXPECT_THROW(Save(svg), Exception);
  EXPECT_EQ(ReadText(FBase / "Outside" / "victim.vector"), "keep me");

  // The assets folder itself a link out of the project.
  fs::remove_all(FRoot);
  fs::create_directory_symlink(FBase / "Outside", FRoot);
  TqxAssetFont other("Other");
  other.SetUri(Font());
  EXPECT_THROW(Save(other), Exception);
  EXPECT_EQ(FilesUnder(FBase / "Outside"), (std::set<std::string>{"victim.png", "victim.vector"}));
}

TEST_F(SaveSafetyTest, SourcesOutsideTheFolderAreOnlyRead) {
  // A first save copies a dropped file in and leaves the original alone.
  const std::string original = Font();
  TqxAssetFont font("Fonts\\Body");
  font.SetUri(original);
  Save(font);
  EXPECT_EQ(ReadText(original), ReadText(DataFile("kinds/glyphs.otf")));
  EXPECT_TRUE(fs::exists(original));
  // A leftover temporary name of a write doesn't make the next write fail or follow it.
  fs::create_symlink(FBase / "Outside" / "trap", InRoot("Fonts/Body/default.otf.tmp"));
  WriteText(original, "new glyphs");
  font.SetUri(original);
  Save(font);
  EXPECT_EQ(ReadText(InRoot("Fonts/Body/default.otf")), "new glyphs");
  EXPECT_FALSE(fs::exists(FBase / "Outside" / "trap"));
}

}  // namespace
}  // namespace qx
