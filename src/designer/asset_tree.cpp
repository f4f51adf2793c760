#include "designer/asset_tree.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "designer/frame_asset_manager.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_comparer.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/bitmap_info.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

namespace {

// Previews are named after the asset object, so that a change of the asset
// finds its own picture again.
std::string PreviewName(const TqxAsset* asset) {
  char text[32];
  std::snprintf(text, sizeof text, "%016llX",
                static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(asset)));
  return text;
}

IQuorvexAssetEditor& EditorOf(const TqxAsset& asset) {
  return TqxAssetsEditorsManager::Instance().Editors(asset);
}

}  // namespace

TqxAssetTree::TqxAssetTree(TFrameAssetManager& frame) : FFrame(frame) {
  SetUpTree();
  AddStockImages();
}

TqxAssetTree::~TqxAssetTree() {
  // Nodes freed from here on have no views to drop.
  FOnViewRemoved = nullptr;
  VTResources.OnChange = nullptr;
}

void TqxAssetTree::AddStockImages() {
  // Blank pictures under their stock names; whatever draws the tree paints
  // the icons of those names.
  for (const char* name : {"Folder Closed", "Font", "File", "Lottie Animation", "Theme"}) {
    TqxBitmap blank(il24x24.Width(), il24x24.Height());
    il24x24.Add(blank, name);
  }
}

TqxAssetsModel& TqxAssetTree::Model() const { return FFrame.Model(); }
bool TqxAssetTree::IsLoading() const { return FFrame.State().Contains(TqxState::Loading); }
bool TqxAssetTree::IsRenaming() const { return FFrame.State().Contains(TqxState::Renaming); }

void TqxAssetTree::SortAll() {
  // A load sorts once, when every node is in: sorting the whole tree after
  // each node made loading a large project quadratic.
  if (!IsLoading()) SortTree();
}

void TqxAssetTree::SortTree() { VTResources.SortTree(0, TSortDirection::sdAscending); }

// ---------------------------------------------------------------- building

void TqxAssetTree::Build() {
  TVTUpdateGuard update(VTResources);
  VTResources.Clear();
  FSelectedViews.clear();
  while (il24x24.Count() > kStockImageCount) il24x24.Delete(il24x24.Count() - 1);

  auto& manager = Model().GetAssetsManager();
  for (auto& group : manager.GetGroupedAssets()) {
    auto& items = group.Items();
    std::sort(items.begin(), items.end(), TqxAssetComparer());
    if (items.empty() || dynamic_cast<TqxAssetThemeContainer*>(items.front()) == nullptr) continue;
    try {
      AddNode(items.front());
    } catch (const std::exception& e) {
      TqxLog::Trace(TFrameAssetManager::kLogTag, "Не могу добавить узел ресурса в дерево: e=\"%s\"", {e.what()});
    }
  }
  for (auto& group : manager.GetGroupedAssets()) {
    auto& items = group.Items();
    if (items.empty() || dynamic_cast<TqxAssetThemeContainer*>(items.front()) != nullptr) continue;
    try {
      AddNode(items.front());
      if (dynamic_cast<TqxAssetBitmapSet*>(items.front()) != nullptr) RestoreBitmapScales(group);
    } catch (const std::exception& e) {
      TqxLog::Trace(TFrameAssetManager::kLogTag, "Не могу добавить узел ресурса в дерево: e=\"%s\"", {e.what()});
    }
  }
  SortTree();
}

void TqxAssetTree::RestoreBitmapScales(TqxAssetGroup& AGroup) {
  // Device class 5 has no bitmap sets of its own.
  for (TqxDeviceClass deviceClass = 0; deviceClass <= 4; ++deviceClass) {
    for (TqxAsset* asset : AGroup.Items()) {
      if (asset->DeviceClass() != deviceClass) continue;
      auto* bitmapSet = dynamic_cast<TqxAssetBitmapSet*>(asset);
      if (bitmapSet == nullptr) break;
      for (float scale : kBitmapScales) {
        if (!bitmapSet->Contains(scale)) bitmapSet->Add(std::make_unique<TqxBitmapInfo>(scale));
      }
      break;
    }
  }
}

// ---------------------------------------------------------------- names

TqxNodeData* TqxAssetTree::GetNodeData(TVirtualNode* ANode) const {
  TqxAssert::IsNotNil(ANode, "ANode");
  return VTResources.GetNodeData<TqxNodeData>(ANode);
}

TqxAssetName TqxAssetTree::GetAssetName(TVirtualNode* ANode) const {
  TqxAssert::IsNotNil(ANode, "Node");
  return GetAssetNameForNode(ANode);
}

TqxAssetName TqxAssetTree::GetAssetNameForNode(TVirtualNode* ANode) const {
  std::string name;
  for (TVirtualNode* node = ANode; node != nullptr && node != VTResources.RootNode();
       node = VTResources.GetNodeParent(node)) {
    const auto* data = GetNodeData(node);
    name = name.empty() ? data->Caption : data->Caption + TqxAssetNameHelper::kSeparator + name;
  }
  return name;
}

std::string TqxAssetTree::GetPathForNode(TVirtualNode* ANode) const {
  const std::string name = GetAssetNameForNode(ANode);
  return name.empty() ? name : name + TqxAssetNameHelper::kSeparator;
}

TqxNodeType TqxAssetTree::NodeTypeOf(TVirtualNode* ANode) const { return GetNodeData(ANode)->NodeType; }

bool TqxAssetTree::IsFolderLike(TVirtualNode* ANode) const {
  if (ANode == nullptr || ANode == VTResources.RootNode()) return false;
  return NodeTypeOf(ANode) != TqxNodeType::Asset;
}

// ---------------------------------------------------------------- nodes

TVirtualNode* TqxAssetTree::AddNode(TqxAsset* AAsset) {
  TqxAssert::IsNotNil(AAsset, "AAsset");
  auto& editor = EditorOf(*AAsset);
  const auto options = editor.GetOptions();
  auto data = std::make_unique<TqxNodeData>();
  data->NodeType = options.Contains(TqxAssetEditorOption::AssetContainer) ? TqxNodeType::AssetContainer
                                                                          : TqxNodeType::Asset;
  data->Caption = AAsset->GetShortName();
  if (options.Contains(TqxAssetEditorOption::UniquePreview)) {
    auto preview = editor.GeneratePreview(AAsset, TSize{il24x24.Width(), il24x24.Height()});
    data->ImageIndex = AddPreview(AAsset, preview.get());
  } else {
    data->ImageIndex = editor.GetPreviewImageIndex();
  }
  data->Size = editor.GetAdditionalInfo(AAsset);

  TVirtualNode* parent = GetNodeForPath(AAsset->GetRelativePath());
  TVirtualNode* node = VTResources.AddChild(parent, std::move(data));
  SortAll();
  return node;
}

int TqxAssetTree::AddPreview(TqxAsset* AAsset, const TqxBitmap* APreview) {
  TqxAssert::IsNotNil(AAsset, "AAsset");
  TqxAssert::IsNotNil(APreview, "APreview");
  return il24x24.Add(*APreview, PreviewName(AAsset));
}

void TqxAssetTree::ReplacePreview(TqxAsset* AAsset, const TqxBitmap& APreview) {
  const int index = il24x24.IndexOfName(PreviewName(AAsset));
  if (index >= kStockImageCount) il24x24.Replace(index, APreview);
}

TVirtualNode* TqxAssetTree::AddFolderNode(TVirtualNode* AParent, const std::string& AName) {
  auto data = std::make_unique<TqxNodeData>();
  data->NodeType = TqxNodeType::Folder;
  data->Caption = AName;
  TVirtualNode* node = VTResources.AddChild(AParent, std::move(data));
  SortAll();
  if (AParent != nullptr && !IsLoading()) VTResources.SetExpanded(AParent, true);
  FFrame.MarkModified();
  return node;
}

TVirtualNode* TqxAssetTree::GetNodeForPath(const std::string& APath) {
  TVirtualNode* parent = nullptr;
  for (const std::string& part : TqxAssetNameHelper::Parts(APath)) {
    TVirtualNode* found = nullptr;
    for (TVirtualNode* child : VTResources.ChildNodes(parent)) {
      if (IsFolderLike(child) && SameText(GetNodeData(child)->Caption, part)) {
        found = child;
        break;
      }
    }
    parent = found != nullptr ? found : AddFolderNode(parent, part);
  }
  return parent;
}

bool TqxAssetTree::TryFindNode(const TqxAssetName& AName, TVirtualNode*& ANode) const {
  ANode = nullptr;
  const auto parts = TqxAssetNameHelper::Parts(AName);
  TVirtualNode* parent = nullptr;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool last = i + 1 == parts.size();
    TVirtualNode* found = nullptr;
    for (TVirtualNode* child = VTResources.GetLastChild(parent); child != nullptr;
         child = VTResources.GetPreviousSibling(child)) {
      const auto* data = GetNodeData(child);
      const bool kindFits = last ? data->NodeType != TqxNodeType::Folder : data->NodeType != TqxNodeType::Asset;
      if (kindFits && data->Caption == parts[i]) {
        found = child;
        break;
      }
    }
    if (found == nullptr) return false;
    parent = found;
  }
  ANode = parent;
  return ANode != nullptr;
}

TVirtualNode* TqxAssetTree::FindNode(const TqxAssetName& AName) const {
  TVirtualNode* node = nullptr;
  TryFindNode(AName, node);
  return node;
}

std::string TqxAssetTree::GenerateNodeName(const std::string& AName, TVirtualNode* AParent,
                                           TVirtualNode* AIgnored) const {
  auto taken = [&](const std::string& caption) {
    for (TVirtualNode* child : VTResources.ChildNodes(AParent)) {
      if (child != AIgnored && GetNodeData(child)->Caption == caption) return true;
    }
    return false;
  };
  if (!taken(AName)) return AName;
  for (int i = 1;; ++i) {
    std::string candidate = Format("%s-%d", {AName, i});
    if (!taken(candidate)) return candidate;
  }
}

// ---------------------------------------------------------------- the model's events

void TqxAssetTree::AssetsChangedHandler(const TqxAssetName& AName, TqxAssetOperation AOperation) {
  switch (AOperation) {
    case TqxAssetOperation::Added: {
      TqxLog::Trace(TFrameAssetManager::kLogTag, "AssetsChanged: Added: name=\"%s\"", {AName});
      auto items = Model().GetAssets(AName).Items();
      if (!items.empty()) AddNode(items.front());
      break;
    }
    case TqxAssetOperation::Deleting: {
      TqxLog::Trace(TFrameAssetManager::kLogTag, "AssetsChanged: Deleting: name=\"%s\"", {AName});
      // A theme keeps its node while members are left in it.
      if (TVirtualNode* node = FindNode(AName)) DeleteEmptyFolders(node, false);
      break;
    }
    case TqxAssetOperation::Renamed:
      break;
  }
  FFrame.MarkModified();
}

void TqxAssetTree::AssetRenamedHandler(const TqxAssetName& AOldName, const TqxAssetName& ANewName) {
  TVirtualNode* node = FindNode(AOldName);
  if (node == nullptr) {
    if (TVirtualNode* renamed = FindNode(ANewName)) {
      GetNodeData(renamed)->Caption = TqxAssetNameHelper::ShortName(ANewName);
      VTResources.InvalidateNode(renamed);
      if (FOnRefreshTitle && SelectedViewsContain(renamed)) FOnRefreshTitle(renamed);
    }
    return;
  }
  GetNodeData(node)->Caption = TqxAssetNameHelper::ShortName(ANewName);
  TVirtualNode* oldParent = GetNodeForPath(TqxAssetNameHelper::Path(AOldName));
  TVirtualNode* newParent = DefineRootNode(TqxAssetNameHelper::Path(ANewName));
  if (oldParent != newParent) {
    VTResources.MoveTo(node, newParent, TVTNodeAttachMode::amAddChildLast);
    // Only the parent left empty goes; emptied ancestors wait for a clean-up.
    if (oldParent != nullptr && VTResources.GetChildCount(oldParent) == 0) DeleteNode(oldParent);
  }
  SortAll();
  VTResources.InvalidateNode(node);
  if (FOnRefreshTitle && SelectedViewsContain(node)) FOnRefreshTitle(node);
}

bool TqxAssetTree::SelectedViewsContain(TVirtualNode* ANode) const {
  return std::find(FSelectedViews.begin(), FSelectedViews.end(), ANode) != FSelectedViews.end();
}

void TqxAssetTree::NeedUpdateAssetPreviewHandler(TqxAsset* AAsset) {
  TqxAssert::IsNotNil(AAsset, "AAsset");
  if (TVirtualNode* node = FindNode(AAsset->Name())) {
    auto& editor = EditorOf(*AAsset);
    if (editor.GetOptions().Contains(TqxAssetEditorOption::UniquePreview)) {
      if (auto preview = editor.GeneratePreview(AAsset, TSize{il24x24.Width(), il24x24.Height()}))
        ReplacePreview(AAsset, *preview);
    }
    GetNodeData(node)->Size = editor.GetAdditionalInfo(AAsset);
    VTResources.InvalidateNode(node);
  }
  FFrame.MarkModified();
}

// ---------------------------------------------------------------- deleting

void TqxAssetTree::DeleteNode(TVirtualNode* ANode) {
  // The node's subtree goes with it, and so do the views of its nodes.
  for (auto it = FSelectedViews.begin(); it != FSelectedViews.end();) {
    if (*it == ANode || VTResources.HasAsParent(*it, ANode)) {
      TVirtualNode* gone = *it;
      it = FSelectedViews.erase(it);
      if (FOnViewRemoved) FOnViewRemoved(gone);
    } else {
      ++it;
    }
  }
  VTResources.DeleteNode(ANode);
}

void TqxAssetTree::DeleteEmptyFolders(TVirtualNode* ANode, bool ARecursive) {
  while (ANode != nullptr && ANode != VTResources.RootNode() && VTResources.GetChildCount(ANode) == 0) {
    TVirtualNode* parent = VTResources.GetNodeParent(ANode);
    DeleteNode(ANode);
    if (!ARecursive) break;
    ANode = parent;
  }
}

bool TqxAssetTree::DeleteNestedEmptyFolders(TVirtualNode* ANode) {
  if (ANode == nullptr || ANode == VTResources.RootNode()) return false;
  for (TVirtualNode* child = VTResources.GetLastChild(ANode); child != nullptr;) {
    TVirtualNode* previous = VTResources.GetPreviousSibling(child);
    DeleteNestedEmptyFolders(child);
    child = previous;
  }
  if (VTResources.GetChildCount(ANode) == 0 && NodeTypeOf(ANode) == TqxNodeType::Folder) {
    DeleteNode(ANode);
    return true;
  }
  return false;
}

void TqxAssetTree::DeleteEmptyFoldersAmongSelected() {
  // A node of the snapshot may go with an earlier one's subtree.
  for (TVirtualNode* node : VTResources.SelectedNodes()) {
    if (!StillInTree(node)) continue;
    if (!DeleteNestedEmptyFolders(node)) DeleteEmptyFolders(node, false);
  }
}

bool TqxAssetTree::StillInTree(TVirtualNode* ANode) const {
  for (TVirtualNode* node = VTResources.GetFirst(); node != nullptr; node = VTResources.GetNext(node)) {
    if (node == ANode) return true;
  }
  return false;
}

// ---------------------------------------------------------------- folder queries

TVirtualNode* TqxAssetTree::FindFolder(TVirtualNode* ANode) const {
  for (TVirtualNode* node = ANode; node != nullptr && node != VTResources.RootNode();
       node = VTResources.GetNodeParent(node)) {
    if (IsFolderLike(node)) return node;
  }
  return nullptr;
}

TVirtualNode* TqxAssetTree::FindFolderAmongSelected() const {
  for (TVirtualNode* selected : VTResources.SelectedNodes()) {
    if (TVirtualNode* folder = FindFolder(selected)) return folder;
  }
  return nullptr;
}

TVirtualNode* TqxAssetTree::FindFolderAmongSelectedAndAvoidThemeNode() const {
  for (TVirtualNode* selected : VTResources.SelectedNodes()) {
    if (TVirtualNode* folder = FindThemeContainerParentNode(selected)) return folder;
  }
  return nullptr;
}

TVirtualNode* TqxAssetTree::FindThemeContainerParentNode(TVirtualNode* ANode) const {
  for (TVirtualNode* node = ANode; node != nullptr && node != VTResources.RootNode();
       node = VTResources.GetNodeParent(node)) {
    if (NodeTypeOf(node) == TqxNodeType::Folder && !IsInThemeContainerNode(node)) return node;
  }
  return nullptr;
}

bool TqxAssetTree::IsInThemeContainerNode(TVirtualNode* ANode) const {
  for (TVirtualNode* node = ANode; node != nullptr && node != VTResources.RootNode();
       node = VTResources.GetNodeParent(node)) {
    if (NodeTypeOf(node) == TqxNodeType::AssetContainer) return true;
  }
  return false;
}

}  // namespace qx
