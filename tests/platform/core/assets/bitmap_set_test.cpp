#include "platform/core/assets/asset_bitmap_set.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "platform/core/base/log.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

const std::string kRed = std::string(QX_TEST_DATA_DIR) + "/assets/red_4x2.png";
const std::string kBlue = std::string(QX_TEST_DATA_DIR) + "/assets/blue_8x4.png";

std::unique_ptr<TqxBitmap> Filled(int w, int h, TAlphaColor color) {
  auto bitmap = std::make_unique<TqxBitmap>(w, h);
  bitmap->Clear(color);
  return bitmap;
}

TEST(BitmapInfoTest, FileSourceLoadsOnFirstUseAndSwitchesWithTheLastSetter) {
  TqxBitmapInfo info(kRed, 1.0f);
  EXPECT_EQ(info.GetRawBitmap(), nullptr);  // not loaded yet
  TqxBitmap* loaded = info.GetBitmap();
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(info.GetBitmap(), loaded);  // cached

  info.SetBitmap(Filled(3, 3, 0xFF00FF00));
  EXPECT_EQ(info.Uri(), kRed);  // kept until a save writes the bitmap
  EXPECT_EQ(info.GetBitmap()->Width(), 3);

  info.SetUri(kBlue);
  EXPECT_EQ(info.GetRawBitmap(), nullptr);  // the held bitmap is dropped
  EXPECT_EQ(info.GetBitmap()->Width(), 8);

  info.SetBitmap(nullptr);
  EXPECT_FALSE(info.HasBitmap());
}

TEST(BitmapInfoTest, UnreadableFileGivesNoBitmapAndIsLoggedOnce) {
  int warnings = 0;
  const int sink = TqxLog::AddSink([&](TqxLogLevel level, const std::string&, const std::string&) {
    if (level == TqxLogLevel::Warning) ++warnings;
  });
  TqxLog::SetStderrEnabled(false);
  TqxBitmapInfo info(std::string(QX_TEST_DATA_DIR) + "/assets/style_label.json", 2.0f);
  EXPECT_TRUE(info.HasBitmap());  // a set file counts: saving it copies the file as it is
  EXPECT_EQ(info.GetBitmap(), nullptr);
  EXPECT_EQ(info.GetBitmap(), nullptr);
  TqxLog::RemoveSink(sink);
  TqxLog::SetStderrEnabled(true);
  EXPECT_EQ(warnings, 1);

  info.SetUri(kRed);  // a new file gets a new try
  EXPECT_NE(info.GetBitmap(), nullptr);
}

TEST(BitmapSetTest, InfosStayInScaleOrderAndOneScaleIsHeldOnce) {
  TqxAssetBitmapSet set("Icon");
  for (float scale : {3.0f, 1.0f, 2.0f}) set.Add(std::make_unique<TqxBitmapInfo>(scale));
  TqxBitmapInfo* replacement = set.Add(std::make_unique<TqxBitmapInfo>(kRed, 2.0f));

  const auto infos = set.GetBitmapInfos();
  ASSERT_EQ(infos.size(), 3u);
  EXPECT_EQ(infos[0]->Scale(), 1.0f);
  EXPECT_EQ(infos[1], replacement);
  EXPECT_EQ(infos[2]->Scale(), 3.0f);
  EXPECT_FALSE(set.IsEmpty());  // empty infos still make a folder on save
}

TEST(BitmapSetTest, FindPrefersTheScaleThenLargerThenSmaller) {
  TqxAssetBitmapSet set("Icon");
  for (float scale : {1.0f, 1.5f, 2.0f, 3.0f, 4.0f}) set.Add(std::make_unique<TqxBitmapInfo>(scale));
  EXPECT_EQ(set.FindBitmapInfo(), nullptr);

  set.GetBitmapInfo(1.5f)->SetBitmap(Filled(3, 3, 0xFF000000));
  set.GetBitmapInfo(3.0f)->SetUri(kBlue);
  EXPECT_EQ(set.FindBitmapInfo(1.0f)->Scale(), 1.5f);
  EXPECT_EQ(set.FindBitmapInfo(2.0f)->Scale(), 3.0f);
  EXPECT_EQ(set.FindBitmapInfo(4.0f)->Scale(), 3.0f);
  EXPECT_EQ(set.FindBitmap(4.0f)->Width(), 8);

  // A file that can't be read is passed over by FindBitmap.
  set.GetBitmapInfo(4.0f)->SetUri("/nonexistent/picture.png");
  TqxLog::SetStderrEnabled(false);
  EXPECT_EQ(set.FindBitmap(4.0f)->Width(), 8);
  TqxLog::SetStderrEnabled(true);
}

TEST(BitmapSetTest, CapInsetsAndTintReachEveryScale) {
  TqxAssetBitmapSet set("Button");
  for (float scale : {1.0f, 1.5f, 2.5f}) set.Add(std::make_unique<TqxBitmapInfo>(scale));
  set.SetCapInsets({1, 3, 5, 0});
  set.SetTintColor(0x80FF0000);
  // 1.5 and 2.5 land on halves: rounding goes to the even neighbour.
  EXPECT_EQ(set.GetBitmapInfo(1.5f)->CapInsets(), (TRect{2, 4, 8, 0}));
  EXPECT_EQ(set.GetBitmapInfo(2.5f)->CapInsets(), (TRect{2, 8, 12, 0}));
  for (auto* info : set.GetBitmapInfos()) EXPECT_EQ(info->TintColor(), 0x80FF0000u);
}

TEST(BitmapSetTest, CloneCopiesEveryInfoAndBitmapIndependently) {
  TqxAssetBitmapSet set("Icons\\Home", kPlatformIOS, 2);
  set.Add(std::make_unique<TqxBitmapInfo>(kRed, 1.0f))->SetCapInsets({1, 2, 3, 4});
  set.Add(std::make_unique<TqxBitmapInfo>(2.0f))->SetBitmap(Filled(2, 2, 0xFF0000FF));
  set.GetBitmapInfo(1.0f)->GetBitmap();

  auto clone = set.Clone("Icons\\Home-1");
  auto* copy = dynamic_cast<TqxAssetBitmapSet*>(clone.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->Platform(), kPlatformIOS);
  TqxBitmapInfo* copy1 = copy->GetBitmapInfo(1.0f);
  TqxBitmapInfo* copy2 = copy->GetBitmapInfo(2.0f);
  EXPECT_EQ(copy1->Uri(), kRed);
  EXPECT_EQ(copy1->CapInsets(), (TRect{1, 2, 3, 4}));
  ASSERT_NE(copy2->GetRawBitmap(), nullptr);

  copy2->GetRawBitmap()->SetPixel(0, 0, 0xFFFFFFFF);
  copy1->GetBitmap()->SetPixel(0, 0, 0xFFFFFFFF);
  copy1->SetCapInsets({});
  EXPECT_EQ(set.GetBitmapInfo(2.0f)->GetRawBitmap()->GetPixel(0, 0), 0xFF0000FFu);
  EXPECT_EQ(set.GetBitmapInfo(1.0f)->GetBitmap()->GetPixel(0, 0), 0xFFFF0000u);
  EXPECT_EQ(set.GetBitmapInfo(1.0f)->CapInsets(), (TRect{1, 2, 3, 4}));
}

}  // namespace
}  // namespace qx
