#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace qx {

class TAssetsView;
class TFrameAssetManager;
class TVirtualNode;

// The views of the designer's right-hand side: one TAssetsView for each node
// the tree's selection shows, made afresh on every selection change. A change
// a view's frames make to an asset reaches the tree's preview of it and marks
// the document modified. Whatever shows the views listens to the three events.
class TqxAssetViews {
public:
  using TView = std::pair<TVirtualNode*, std::unique_ptr<TAssetsView>>;

  explicit TqxAssetViews(TFrameAssetManager& frame);
  ~TqxAssetViews();
  TqxAssetViews(const TqxAssetViews&) = delete;
  TqxAssetViews& operator=(const TqxAssetViews&) = delete;

  // In the order of the tree's selection.
  const std::vector<TView>& Views() const { return FViews; }
  TAssetsView* ViewOf(const TVirtualNode* node) const;

  // The views were made again; the earlier ones are gone.
  std::function<void()> FOnViewsChanged;
  // The view's node is being deleted; the view goes right after this.
  std::function<void(TAssetsView& view)> FOnViewRemoved;

private:
  void Rebuild();
  void RefreshTitle(TVirtualNode* node);
  void Remove(TVirtualNode* node);

  TFrameAssetManager& FFrame;
  std::vector<TView> FViews;
};

}  // namespace qx
