#include "designer/asset_views.h"

#include <algorithm>

#include "designer/asset_tree.h"
#include "designer/frame_asset_manager.h"
#include "frames/assets_view.h"

namespace qx {

TqxAssetViews::TqxAssetViews(TFrameAssetManager& frame) : FFrame(frame) {
  TqxAssetTree& tree = frame.Tree();
  tree.FOnSelectedViewsChanged = [this] { Rebuild(); };
  tree.FOnRefreshTitle = [this](TVirtualNode* node) { RefreshTitle(node); };
  tree.FOnViewRemoved = [this](TVirtualNode* node) { Remove(node); };
}

TqxAssetViews::~TqxAssetViews() {
  TqxAssetTree& tree = FFrame.Tree();
  tree.FOnSelectedViewsChanged = nullptr;
  tree.FOnRefreshTitle = nullptr;
  tree.FOnViewRemoved = nullptr;
}

TAssetsView* TqxAssetViews::ViewOf(const TVirtualNode* node) const {
  auto it = std::find_if(FViews.begin(), FViews.end(), [node](const TView& view) { return view.first == node; });
  return it == FViews.end() ? nullptr : it->second.get();
}

void TqxAssetViews::Rebuild() {
  TqxAssetTree& tree = FFrame.Tree();
  // Whatever shows the old views lets go of them before they go.
  std::vector<TView> old = std::move(FViews);
  FViews.clear();
  for (TVirtualNode* node : tree.SelectedViews()) {
    auto view = std::make_unique<TAssetsView>();
    view->SetGroup(FFrame.Model().GetAssets(tree.GetAssetName(node)));
    view->FOnNeedUpdatePreview = [this](TqxAsset* asset) { FFrame.Tree().NeedUpdateAssetPreviewHandler(asset); };
    FViews.emplace_back(node, std::move(view));
  }
  if (FOnViewsChanged) FOnViewsChanged();
}

void TqxAssetViews::RefreshTitle(TVirtualNode* node) {
  if (TAssetsView* view = ViewOf(node)) view->RefreshTitle();
}

void TqxAssetViews::Remove(TVirtualNode* node) {
  auto it = std::find_if(FViews.begin(), FViews.end(), [node](const TView& view) { return view.first == node; });
  if (it == FViews.end()) return;
  if (FOnViewRemoved) FOnViewRemoved(*it->second);
  FViews.erase(it);
}

}  // namespace qx
