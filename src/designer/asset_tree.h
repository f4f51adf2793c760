#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "designer/assets_model.h"
#include "platform/core/base/types.h"
#include "platform/ui/image_list.h"
#include "platform/ui/virtual_tree.h"

namespace qx {

class TFrameAssetManager;
class TqxAsset;

enum class TqxNodeType { Folder, AssetContainer, Asset };

// The payload of one tree node. A node's asset name comes from its position
// in the tree, never from a stored copy.
class TqxNodeData : public TNodeDataBase {
public:
  TqxNodeType NodeType = TqxNodeType::Folder;
  std::string Caption;
  // Column 1: the kind's additional info; empty for folders.
  std::string Size;
  int ImageIndex = 0;
};

// The asset tree of the designer: a projection of the local manager as
// folders, theme containers and assets. It is rebuilt on each load and kept in
// step by the model's events; empty folders are its only state of its own.
// In-place edits and drags become renames of the model, and nodes move only
// when the model's events say so.
class TqxAssetTree {
public:
  // Stock images of il24x24, in this order; previews stand behind them.
  static constexpr int kStockImageCount = 5;
  static constexpr int kDefaultTreeWidth = 247;
  static constexpr int kDefaultInfoColumnWidth = 85;

  explicit TqxAssetTree(TFrameAssetManager& frame);
  ~TqxAssetTree();
  TqxAssetTree(const TqxAssetTree&) = delete;
  TqxAssetTree& operator=(const TqxAssetTree&) = delete;

  TVirtualTree VTResources;
  TCustomImageList il24x24{24, 24};
  int TreeWidth = kDefaultTreeWidth;

  // Clears the tree and the previews of the last build, then adds theme
  // containers first, so that their members' paths resolve to them, and every
  // other name after; loaded bitmap sets get their missing scales back.
  void Build();

  // --- Names and nodes ---
  TqxNodeData* GetNodeData(TVirtualNode* ANode) const;
  // Asserts on nil.
  TqxAssetName GetAssetName(TVirtualNode* ANode) const;
  // Empty for nil and the root.
  TqxAssetName GetAssetNameForNode(TVirtualNode* ANode) const;
  // The asset name with a closing `\`; empty for nil and the root.
  std::string GetPathForNode(TVirtualNode* ANode) const;
  TqxNodeType NodeTypeOf(TVirtualNode* ANode) const;
  bool IsFolderLike(TVirtualNode* ANode) const;

  TVirtualNode* AddNode(TqxAsset* AAsset);
  TVirtualNode* AddFolderNode(TVirtualNode* AParent, const std::string& AName);
  // Walks the path with case-insensitive captions, making missing folders; nil for "".
  TVirtualNode* GetNodeForPath(const std::string& APath);
  TVirtualNode* DefineRootNode(const std::string& APath) { return GetNodeForPath(APath); }
  // Case-sensitive; the last part must be an asset or a container.
  bool TryFindNode(const TqxAssetName& AName, TVirtualNode*& ANode) const;
  TVirtualNode* FindNode(const TqxAssetName& AName) const;
  // Unique among the children of AParent (nil: the top level), AIgnored not counting.
  std::string GenerateNodeName(const std::string& AName, TVirtualNode* AParent,
                               TVirtualNode* AIgnored = nullptr) const;

  void SelectNode(const TqxAssetName& AName, bool AClearSelection);
  void ExpandNodesToAsset(const TqxAssetName& AName);
  void SetInitialAssetName(const TqxAssetName& AName);

  void DeleteNode(TVirtualNode* ANode);
  void DeleteEmptyFolders(TVirtualNode* ANode, bool ARecursive);
  bool DeleteNestedEmptyFolders(TVirtualNode* ANode);
  void DeleteEmptyFoldersAmongSelected();

  TVirtualNode* FindFolder(TVirtualNode* ANode) const;
  TVirtualNode* FindFolderAmongSelected() const;
  TVirtualNode* FindFolderAmongSelectedAndAvoidThemeNode() const;
  TVirtualNode* FindThemeContainerParentNode(TVirtualNode* ANode) const;
  bool IsInThemeContainerNode(TVirtualNode* ANode) const;

  void MoveNodesToNewParent(const std::vector<TVirtualNode*>& ANodes, TVirtualNode* ATarget,
                            TVTNodeAttachMode AAttachMode);
  // Files become assets singly; folders go to the importer first.
  void DropFiles(const std::vector<std::string>& AFileNames, TVirtualNode* ANodeAtPoint);

  // --- The model's events ---
  void AssetsChangedHandler(const TqxAssetName& AName, TqxAssetOperation AOperation);
  void AssetRenamedHandler(const TqxAssetName& AOldName, const TqxAssetName& ANewName);
  // A frame changed the asset in place.
  void NeedUpdateAssetPreviewHandler(TqxAsset* AAsset);

  // The nodes whose assets the right-hand side shows, one view each.
  const std::vector<TVirtualNode*>& SelectedViews() const { return FSelectedViews; }

  // Imports one folder of a known structure; answers the node of the imported
  // group, or nil. ASize carries the size chosen for all folders of one drop.
  std::function<TVirtualNode*(TVirtualNode* ANode, const std::string& AFolder, bool AMultiple,
                              int& ASize)>
      FLoadFromMaterialIOFolder;
  // The key Delete on a selection.
  std::function<void()> FOnDeleteKey;
  // The right-hand side: rebuild its views for SelectedViews(), retitle one, drop one.
  std::function<void()> FOnSelectedViewsChanged;
  std::function<void(TVirtualNode*)> FOnRefreshTitle;
  std::function<void(TVirtualNode*)> FOnViewRemoved;

private:
  void SetUpTree();
  void AddStockImages();
  void RestoreBitmapScales(TqxAssetGroup& AGroup);
  void SortAll();
  void SortTree();
  bool SelectedViewsContain(TVirtualNode* ANode) const;
  bool StillInTree(TVirtualNode* ANode) const;
  int AddPreview(TqxAsset* AAsset, const TqxBitmap* APreview);
  void ReplacePreview(TqxAsset* AAsset, const TqxBitmap& APreview);
  bool IsLoading() const;
  bool IsRenaming() const;
  TqxAssetsModel& Model() const;
  void AddFileSingly(const std::string& AFileName, TVirtualNode* ATarget);

  // Tree events.
  void VTResourcesCompareNodes(TVirtualNode* ANode1, TVirtualNode* ANode2, int& AResult);
  void VTResourcesGetText(TVirtualNode* ANode, int AColumn, std::string& AText);
  void VTResourcesChange();
  void VTResourcesNewText(TVirtualNode* ANode, int AColumn, const std::string& AText);
  void VTResourcesDragDrop(TVirtualTree* ASource, const TVTDragData& AData, TPoint APoint);
  void QueuePathRename(TVirtualNode* ANode, const std::string& AOldPath, const std::string& ANewCaption,
                       bool AIsFolder);

  TFrameAssetManager& FFrame;
  std::vector<TVirtualNode*> FSelectedViews;
};

}  // namespace qx
