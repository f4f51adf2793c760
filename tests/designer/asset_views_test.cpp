#include "designer/asset_views.h"

#include "designer_fixture.h"
#include "frames/assets_view.h"
#include "platform/core/assets/asset_color.h"

namespace qx::test {
namespace {

class AssetViewsTest : public DesignerTest {
protected:
  AssetViewsTest() {
    Views.FOnViewsChanged = [this] { ++Rebuilds; };
    Views.FOnViewRemoved = [this](TAssetsView& view) { Removed.push_back(view.AssetName()); };
  }
  std::vector<std::string> ShownNames() {
    std::vector<std::string> names;
    for (const auto& [node, view] : Views.Views()) names.push_back(view->AssetName());
    return names;
  }

  TqxAssetViews& Views = Frame.Views();
  int Rebuilds = 0;
  std::vector<std::string> Removed;
};

TEST_F(AssetViewsTest, ASelectionShowsOneViewPerAssetAndAFolderOnlyItsOwnAssets) {
  Model().AddColor("Icons\\Back", 0);
  Model().AddColor("Icons\\Arrows\\Up", 0);
  Model().AddColor("Icons\\Add", 0);
  Model().AddColor("Primary", 0);
  Rebuilds = 0;

  Select({Folder("Icons"), Node("Primary")});
  EXPECT_EQ(ShownNames(), (std::vector<std::string>{"Icons\\Add", "Icons\\Back", "Primary"}));
  EXPECT_GE(Rebuilds, 1);
  EXPECT_EQ(Views.ViewOf(Node("Icons\\Add")), Views.Views()[0].second.get());
  EXPECT_EQ(Views.ViewOf(Folder("Icons")), nullptr);

  VT().ClearSelection();
  EXPECT_TRUE(Views.Views().empty());
}

TEST_F(AssetViewsTest, ViewsFollowRenamesDeletionsAndTheirOwnChanges) {
  TqxAssetColor* color = Model().AddColor("Primary", 0);
  Model().AddColor("Accent", 0);
  Select({Node("Primary"), Node("Accent")});
  Frame.ClearModified();

  // A tile's frame changed the colour: the tree's info column and the document follow.
  color->SetColor(0xFF336699);
  TAssetsView* primary = Views.ViewOf(Node("Primary"));
  ASSERT_EQ(primary->OrderedList().size(), 1u);
  primary->OrderedList()[0]->FOnNeedUpdatePreview(color);
  EXPECT_TRUE(Frame.GetModified());
  EXPECT_EQ(Tree().GetNodeData(Node("Primary"))->Size, "#336699");

  Model().Rename("Primary", "Brand");
  ASSERT_NE(Views.ViewOf(Node("Brand")), nullptr);
  EXPECT_EQ(Views.ViewOf(Node("Brand"))->AssetName(), "Brand");

  Model().RemovePath("Accent");
  EXPECT_EQ(Removed, std::vector<std::string>{"Accent"});
  EXPECT_EQ(Node("Accent"), nullptr);
  for (const auto& [node, view] : Views.Views()) EXPECT_NE(view->AssetName(), "Accent");
}

}  // namespace
}  // namespace qx::test
