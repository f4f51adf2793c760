#include <gtest/gtest.h>

#include <memory>

#include "kinds/assets_editors_manager.h"
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

namespace qx {
namespace {

using test::DataFile;

const std::vector<TqxAssetType> kOrder = {"color", "bitmap-set", "font", "lottie-json",
                                          "style", "svg",        "file", "theme-container"};

TEST(AssetsEditorsManagerTest, RegistersTheKindsInOrderOnce) {
  TqxAssetsEditorsManager manager;
  RegisterAssetEditors(manager);
  ASSERT_EQ(manager.OrderedEditors().size(), kOrder.size());
  for (std::size_t i = 0; i < kOrder.size(); ++i) {
    EXPECT_EQ(&manager.Editors(kOrder[i]), manager.OrderedEditors()[i].get()) << kOrder[i];
  }
  EXPECT_THROW(manager.Editors("Color"), Exception);  // types are exact
  EXPECT_THROW(manager.Editors("gif"), Exception);
  EXPECT_THROW(RegisterAssetEditors(manager), Exception);  // a second registration of a type fails
  EXPECT_EQ(manager.OrderedEditors().size(), kOrder.size());

  // The package's registry: a repeated call changes nothing.
  RegisterAssetEditors();
  IQuorvexAssetEditor* color = &TqxAssetsEditorsManager::Instance().Editors("color");
  RegisterAssetEditors();
  EXPECT_EQ(&TqxAssetsEditorsManager::Instance().Editors("color"), color);
  EXPECT_EQ(TqxAssetsEditorsManager::Instance().OrderedEditors().size(), kOrder.size());

  TqxAssetFont font("Fonts\\Main");
  EXPECT_EQ(&TqxAssetsEditorsManager::Instance().Editors(font), &TqxAssetsEditorsManager::Instance().Editors("font"));
}

TEST(AssetsEditorsManagerTest, DroppedFilesBecomeTheFirstKindThatTakesThem) {
  RegisterAssetEditors();
  const auto& manager = TqxAssetsEditorsManager::Instance();
  auto typeOf = [&](const std::string& file) { return manager.TryCreateAsset("Dropped", file)->GetType(); };

  EXPECT_EQ(typeOf(DataFile("images/rgba_4x3.png")), "bitmap-set");
  EXPECT_EQ(typeOf("/pictures/PHOTO.JPEG"), "bitmap-set");
  EXPECT_EQ(typeOf("/pictures/photo.jpg"), "bitmap-set");
  EXPECT_EQ(typeOf(DataFile("images/rgb_4x3.bmp")), "bitmap-set");
  EXPECT_EQ(typeOf("/pictures/LOGO.PNG"), "bitmap-set");
  EXPECT_EQ(typeOf(DataFile("kinds/glyphs.otf")), "font");
  EXPECT_EQ(typeOf("/fonts/Body.TTF"), "font");
  EXPECT_EQ(typeOf(DataFile("kinds/logo.svg")), "svg");
  EXPECT_EQ(typeOf("/art/LOGO.SVG"), "svg");
  // JSON is never taken for an animation or a style.
  EXPECT_EQ(typeOf(DataFile("kinds/pulse.json")), "file");
  EXPECT_EQ(typeOf(DataFile("kinds/button.json")), "file");
  EXPECT_EQ(typeOf(DataFile("kinds/notes")), "file");
  EXPECT_EQ(typeOf("/pictures/anim.gif"), "file");
  EXPECT_EQ(typeOf("/folder.png/readme"), "file");  // a point in a folder's name is no extension

  auto dropped = manager.TryCreateAsset("Icons\\Logo", "/pictures/logo.png");
  auto* set = dynamic_cast<TqxAssetBitmapSet*>(dropped.get());
  ASSERT_NE(set, nullptr);
  EXPECT_EQ(set->Name(), "Icons\\Logo");
  EXPECT_EQ(set->Platform(), 0);
  EXPECT_EQ(set->DeviceClass(), 0);
  const auto infos = set->GetBitmapInfos();
  ASSERT_EQ(infos.size(), 5u);
  const float scales[] = {1.0f, 1.5f, 2.0f, 3.0f, 4.0f};
  for (std::size_t i = 0; i < infos.size(); ++i) {
    EXPECT_EQ(infos[i]->Scale(), scales[i]);
    EXPECT_EQ(infos[i]->Uri(), i == 0 ? "/pictures/logo.png" : "");
  }

  auto font = manager.TryCreateAsset("Fonts\\Body", "/fonts/Body.TTF");
  EXPECT_EQ(static_cast<TqxAssetFont&>(*font).Uri(), "/fonts/Body.TTF");
  auto file = manager.TryCreateAsset("Data", "/data/x.json");
  EXPECT_EQ(static_cast<TqxAssetFile&>(*file).Uri(), "/data/x.json");

  auto svg = manager.TryCreateAsset("Art\\Logo", DataFile("kinds/logo.svg"));
  auto& svgAsset = static_cast<TqxAssetSVG&>(*svg);
  EXPECT_EQ(svgAsset.SVGUri(), DataFile("kinds/logo.svg"));
  EXPECT_EQ(svgAsset.Size(), (TSizeF{48, 32}));
  // A file that isn't there gives an asset without a size.
  auto missing = manager.TryCreateAsset("Art\\Gone", "/nowhere/gone.svg");
  EXPECT_EQ(static_cast<TqxAssetSVG&>(*missing).Size(), (TSizeF{0, 0}));

  for (const char* type : {"color", "lottie-json", "style", "theme-container"}) {
    EXPECT_EQ(manager.Editors(type).TryCreateAsset("X", DataFile("kinds/pulse.json")), nullptr) << type;
  }
}

}  // namespace
}  // namespace qx
