#include <gtest/gtest.h>

#include <chrono>
#include <memory>

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
  EXPECT_EQ(ReadBytes(fontFile), ReadBytes(DataFile("kinds/glyphs.otf")));

  const std::string styleName = style.GetTargetId() + ".json";
  EXPECT_EQ(Save(style), TqxFileNames{InRoot("Button/" + styleName)});
  EXPECT_EQ(style.Uri(), "Button\\" + styleName);
  EXPECT_EQ(Save(lottie), TqxFileNames{InRoot("Pulse/default.json")});
  EXPECT_EQ(Save(notes), TqxFileNames{InRoot("Docs/Notes/default")});  // no extension, none added
  EXPECT_EQ(notes.Uri(), "Docs\\Notes\\default");

  EXPECT_EQ(FilesUnder(FRoot), (Files{"Button/" + styleName, "Docs/Notes/default", "Fonts/Main/Body/default.OTF",
                                      "Pulse/default.json"}));
}

TEST_F(SaveToTest, SavingAgainCopiesNothingAndNamesTheSameFiles) {
  TqxAssetFont font("Fonts\\Body");
  font.SetUri(Source("kinds/glyphs.otf"));
  TqxAssetBitmapSet set("Icons\\Logo");
  set.Add(std::make_unique<TqxBitmapInfo>(Source("images/rgba_4x3.png"), 1.0f));
  auto memory = std::make_unique<TqxBitmapInfo>(2.0f);
  memory->SetBitmap(TqxBitmap::LoadFromFile(DataFile("images/palette_4x3.png")));
  set.Add(std::move(memory));

  const TqxFileNames fontFiles = Save(font);
  const TqxFileNames setFiles = Save(set);
  Age(FRoot);

  // As the designer leaves them after a save: relative URIs ...
  EXPECT_EQ(Save(font), fontFiles);
  EXPECT_EQ(Save(set), setFiles);
  EXPECT_TRUE(Untouched(FRoot));
  // ... and as a reload reads them back: full paths, case as on disk.
  font.SetUri(fontFiles[0]);
  set.GetBitmapInfo(1.0f)->SetUri(setFiles[0]);
  EXPECT_EQ(Save(font), fontFiles);
  EXPECT_EQ(Save(set), setFiles);
  EXPECT_TRUE(Untouched(FRoot));

  // A source elsewhere with the same bytes isn't copied either.
  const std::string again = Source("kinds/glyphs.otf", "again.otf");
  font.SetUri(again);
  EXPECT_EQ(Save(font), fontFiles);
  EXPECT_TRUE(Untouched(FRoot));
  // One with other bytes is.
  WriteBytes(again, "other glyphs");
  font.SetUri(again);
  EXPECT_EQ(Save(font), fontFiles);
  EXPECT_EQ(ReadBytes(fontFiles[0]), "other glyphs");
}

TEST_F(SaveToTest, NothingToSaveLeavesDiskAndUriAlone) {
  TqxAssetFont empty("Fonts\\Empty");
  EXPECT_TRUE(Save(empty).empty());
  TqxAssetFile vanished("Docs\\Gone");
  vanished.SetUri((FBase / "Sources" / "gone.txt").string());
  EXPECT_TRUE(Save(vanished).empty());
  EXPECT_EQ(vanished.Uri(), (FBase / "Sources" / "gone.txt").string());
  TqxAssetSVG noSvg("Art\\Gone");
  noSvg.SetSVGUri((FBase / "Sources" / "gone.svg").string());
  EXPECT_TRUE(Save(noSvg).empty());
  EXPECT_EQ(noSvg.VectorUri(), "");
  TqxAssetBitmapSet noInfos("Icons\\None");
  EXPECT_TRUE(Save(noInfos).empty());
  TqxAssetColor color("Primary", 0, 0, 0xFF112233);
  EXPECT_TRUE(Save(color).empty());
  TqxAssetThemeContainer theme("Dark");
  EXPECT_TRUE(Save(theme).empty());
  EXPECT_FALSE(fs::exists(FRoot));

  // A set whose scales are all empty still has its folder.
  TqxAssetBitmapSet blank("Icons\\Blank");
  blank.Add(std::make_unique<TqxBitmapInfo>(1.0f));
  EXPECT_TRUE(Save(blank).empty());
  EXPECT_TRUE(fs::is_directory(InRoot("Icons/Blank")));
  EXPECT_TRUE(FilesUnder(FRoot).empty());
}

TEST_F(SaveToTest, BitmapSetWritesOnePngNamePerFilledScale) {
  EXPECT_EQ(TqxAssetEditorBitmapSet::ScaleText(1.0f), "10");
  EXPECT_EQ(TqxAssetEditorBitmapSet::ScaleText(1.5f), "15");
  EXPECT_EQ(TqxAssetEditorBitmapSet::ScaleText(1.25f), "12");
  EXPECT_EQ(TqxAssetEditorBitmapSet::ScaleText(1.15f), "11");  // truncated, not rounded
  EXPECT_EQ(TqxAssetEditorBitmapSet::ScaleText(4.0f), "40");

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
  EXPECT_EQ(FilesUnder(FRoot), (Files{"Logo/" + t + "@10x.png", "Logo/" + t + "@12x.png", "Logo/" + t + "@30x.png"}));
  // Files are copied byte for byte, even a JPEG under the .png name.
  EXPECT_EQ(ReadBytes(files[2]), ReadBytes(jpeg));
  // A bitmap in memory is written as PNG and stays in memory.
  EXPECT_EQ(*TqxBitmap::LoadFromFile(files[1]), *TqxBitmap::LoadFromFile(DataFile("images/palette_4x3.png")));
  const TqxBitmapInfo& inMemory = *set.GetBitmapInfo(1.25f);
  EXPECT_EQ(inMemory.Source(), TqxBitmapInfo::TqxSource::Memory);
  EXPECT_NE(inMemory.GetRawBitmap(), nullptr);
  EXPECT_EQ(inMemory.Uri(), "Logo\\" + t + "@12x.png");
  EXPECT_EQ(set.GetBitmapInfo(3.0f)->Uri(), "Logo\\" + t + "@30x.png");
  EXPECT_EQ(set.GetBitmapInfo(2.0f)->Uri(), "");
}

TEST_F(SaveToTest, SvgCopiesItsSourceAndCompilesTheVectorFileBesideIt) {
  TqxAssetSVG svg("Art\\Logo");
  svg.SetSVGUri(Source("kinds/logo.svg"));
  const TqxFileNames files = Save(svg);
  ASSERT_EQ(files, (TqxFileNames{InRoot("Art/Logo/default.svg"), InRoot("Art/Logo/default.vector")}));
  EXPECT_EQ(svg.SVGUri(), "Art\\Logo\\default.svg");
  EXPECT_EQ(svg.VectorUri(), "Art\\Logo\\default.vector");
  TqxVectorDocument compiled;
  compiled.LoadFromFile(files[1]);
  EXPECT_EQ(compiled.Size, (TSizeF{48, 32}));
  EXPECT_FALSE(compiled.Commands.empty());
  EXPECT_EQ(compiled.Commands.size(), svg.VectorDocument().Commands.size());

  // Again: the source stays, the vector file is compiled again to the same bytes.
  Age(FRoot);
  EXPECT_EQ(Save(svg), files);
  EXPECT_TRUE(Untouched(FRoot));
  EXPECT_EQ(compiled.Commands.size(), svg.VectorDocument().Commands.size());
}

TEST_F(SaveToTest, FailuresReachTheCallerAndKeepWhatWasWritten) {
  // Where the asset's folder should be, a file stands.
  fs::create_directories(FRoot);
  WriteBytes(InRoot("Fonts"), "in the way");
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

}  // namespace
}  // namespace qx
