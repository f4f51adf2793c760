#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

#include "kinds/asset_editor_bitmap_set.h"
#include "kinds_test_support.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/vector/vector_document.h"

namespace qx {
namespace {

using namespace test;
using Files = std::set<std::string>;

// Marks every file under the folder as old, so that a rewrite shows.
void Age(const fs::path& folder) {
  const auto old = fs::file_time_type::clock::now() - std::chrono::hours(24);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) fs::last_write_time(entry.path(), old);
  }
}

bool Untouched(const fs::path& folder) {
  const auto limit = fs::file_time_type::clock::now() - std::chrono::hours(1);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file() && fs::last_write_time(entry.path()) > limit) return false;
  }
  return true;
}

class SaveToTest : public AssetsFolderTest {};

TEST_F(SaveToTest, FileKindsCopyTheirSourceUnderTheTargetId) {
  TqxAssetFont font("Fonts\\Main\\Body");
  font.SetUri(Source("kinds/glyphs.otf", "Glyphs.OTF"));
  TqxAssetStyle style("Button", kPlatformAndroid, 1);
  style.SetUri(Source("kinds/button.json"));
  TqxAssetLottieAnimation lottie("Pulse");
  lottie.SetUri(Source("kinds/pulse.json"));
  TqxAssetFile notes("Docs\\Notes");
  notes.SetUri(Source("kinds/notes"));

  const std::string fontFile = InRoot("Fonts/Main/Body/default.OTF");
  EXPECT_EQ(Save(font), TqxFileNames{fontFile});
  EXPECT_EQ(font.Uri(), "Fonts\\Main\\Body\\default.OTF");
  EXPECT_EQ(ReadText(fontFile), ReadText(DataFile("kinds/glyphs.otf")));

  const std::string styleName = style.GetTargetId() + ".json";
  EXPECT_EQ(Save(style), TqxFileNames{InRoot("Button/" + styleName)});
  EXPECT_EQ(Save(lottie), TqxFileNames{InRoot("Pulse/default.json")});
  EXPECT_EQ(Save(notes), TqxFileNames{InRoot("Docs/Notes/default")});  // no extension, none added
  EXPECT_EQ(notes.Uri(), "Docs\\Notes\\default");

  EXPECT_EQ(FilesUnder(FRoot), (Files{"Button/" + styleName, "Docs/Notes/default", "Fonts/Main/Body/default.OTF",
                                      "Pulse/default.json"}));
}

TEST_F(SaveToTest, SavingAgainCopiesNothingAndNamesTheSameFiles) {
  TqxAssetFont font("Fonts\\Body");
  font.SetUri(Source("kinds/glyphs.otf"));
  const TqxFileNames files = Save(font);
  Age(FRoot);

  // As a save leaves it: a relative URI ...
  EXPECT_EQ(Save(font), files);
  EXPECT_TRUE(Untouched(FRoot));
  // ... and as a reload reads it back: a full path.
  font.SetUri(files[0]);
  EXPECT_EQ(Save(font), files);
  EXPECT_TRUE(Untouched(FRoot));

  // A source elsewhere with the same bytes isn't copied either; one with other bytes is.
  const std::string again = Source("kinds/glyphs.otf", "again.otf");
  font.SetUri(again);
  EXPECT_EQ(Save(font), files);
  EXPECT_TRUE(Untouched(FRoot));
  WriteText(again, "other glyphs");
  font.SetUri(again);
  EXPECT_EQ(Save(font), files);
  EXPECT_EQ(ReadText(files[0]), "other glyphs");
}

TEST_F(SaveToTest, NothingToSaveLeavesDiskAndUriAlone) {
  TqxAssetFile vanished("Docs\\Gone");
  vanished.SetUri((FBase / "Sources" / "gone.txt").string());
  EXPECT_TRUE(Save(vanished).empty());
  EXPECT_EQ(vanished.Uri(), (FBase / "Sources" / "gone.txt").string());
  TqxAssetSVG noSvg("Art\\Gone");
  noSvg.SetSVGUri((FBase / "Sources" / "gone.svg").string());
  EXPECT_TRUE(Save(noSvg).empty());
  EXPECT_EQ(noSvg.VectorUri(), "");
  TqxAssetColor color("Primary", 0, 0, 0xFF112233);
  EXPECT_TRUE(Save(color).empty());
  EXPECT_FALSE(fs::exists(FRoot));

  // A set whose scales are all empty still has its folder.
  TqxAssetBitmapSet blank("Icons\\Blank");
  blank.Add(std::make_unique<TqxBitmapInfo>(1.0f));
  EXPECT_TRUE(Save(blank).empty());
  EXPECT_TRUE(fs::is_directory(InRoot("Icons/Blank")));
  EXPECT_TRUE(FilesUnder(FRoot).empty());
}

TEST_F(SaveToTest, BitmapSetWritesOnePngNamePerFilledScale) {
  EXPECT_EQ(TqxAssetEditorBitmapSet::ScaleText(1.15f), "11");  // truncated, not rounded

  TqxAssetBitmapSet set("Logo", kPlatformIOS, 0);
  const std::string jpeg = Source("images/blocks_16x16.jpg");
  set.Add(std::make_unique<TqxBitmapInfo>(Source("images/rgba_4x3.png"), 1.0f));
  set.Add(std::make_unique<TqxBitmapInfo>(2.0f));
  set.Add(std::make_unique<TqxBitmapInfo>(jpeg, 3.0f));
  set.Add(std::make_unique<TqxBitmapInfo>(1.25f));
  set.GetBitmapInfo(1.25f)->SetBitmap(TqxBitmap::LoadFromFile(DataFile("images/palette_4x3.png")));

  const std::string t = set.GetTargetId();
  const TqxFileNames files = Save(set);
  EXPECT_EQ(files, (TqxFileNames{InRoot("Logo/" + t + "@10x.png"), InRoot("Logo/" + t + "@12x.png"),
                                 InRoot("Logo/" + t + "@30x.png")}));
  // Files are copied byte for byte, even a JPEG under the .png name.
  EXPECT_EQ(ReadText(files[2]), ReadText(jpeg));
  // A bitmap in memory is written as PNG and stays in memory.
  EXPECT_EQ(*TqxBitmap::LoadFromFile(files[1]), *TqxBitmap::LoadFromFile(DataFile("images/palette_4x3.png")));
  const TqxBitmapInfo& inMemory = *set.GetBitmapInfo(1.25f);
  EXPECT_NE(inMemory.GetRawBitmap(), nullptr);
  EXPECT_EQ(inMemory.Uri(), "Logo\\" + t + "@12x.png");
  EXPECT_EQ(set.GetBitmapInfo(3.0f)->Uri(), "Logo\\" + t + "@30x.png");
  EXPECT_EQ(set.GetBitmapInfo(2.0f)->Uri(), "");
}

TEST_F(SaveToTest, FailuresReachTheCallerAndKeepWhatWasWritten) {
  // Where the asset's folder should be, a file stands.
  fs::create_directories(FRoot);
  WriteText(InRoot("Fonts"), "in the way");
  TqxAssetFont font("Fonts\\Body");
  font.SetUri(Source("kinds/glyphs.otf"));
  try {
    Save(font);
    ADD_FAILURE() << "no exception";
  } catch (const Exception& e) {
    EXPECT_EQ(e.Message(), "[Assets Designer]: Cannot create directory for saving asset's file: path=\"" +
                               InRoot("Fonts/Body") + "\"");
  }

  // A bitmap file that vanished fails in its copy; the scales before it stay written.
  TqxAssetBitmapSet set("Icons\\Logo");
  set.Add(std::make_unique<TqxBitmapInfo>(Source("images/rgba_4x3.png"), 1.0f));
  set.Add(std::make_unique<TqxBitmapInfo>((FBase / "Sources" / "gone.png").string(), 2.0f));
  EXPECT_THROW(Save(set), Exception);
  EXPECT_EQ(FilesUnder(InRoot("Icons")), (Files{"Logo/default@10x.png"}));

  // An SVG the reader can't read: the copied source stays, no vector file.
  TqxAssetSVG svg("Art\\Broken");
  svg.SetSVGUri(Source("kinds/broken.svg"));
  EXPECT_THROW(Save(svg), Exception);
  EXPECT_EQ(FilesUnder(InRoot("Art")), (Files{"Broken/default.svg"}));
}


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
