// The asset tree's side that faces the user: the control's set-up and events,
// in-place renames, moves by dragging, dropped files, and selecting by name.
#include "designer/asset_tree.h"

#include <algorithm>
#include <filesystem>

#include "designer/frame_asset_manager.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"
#include "platform/core/base/translator.h"
#include "platform/ui/main_thread_queue.h"

namespace qx {

namespace fs = std::filesystem;

namespace {

TVTNodeAttachMode AttachModeOf(TDropMode mode) {
  switch (mode) {
    case TDropMode::dmAbove:
      return TVTNodeAttachMode::amInsertBefore;
    case TDropMode::dmBelow:
      return TVTNodeAttachMode::amInsertAfter;
    default:
      return TVTNodeAttachMode::amAddChildLast;
  }
}

}  // namespace

void TqxAssetTree::SetUpTree() {
  TqxTranslator translator;
  translator.Add("Имя", "Name");
  translator.Add("Инфо", "Info");
  VTResources.Header.Columns = {
      TVTColumn{translator.Translate("Имя"), 162, TAlignment::taLeftJustify, true},
      TVTColumn{translator.Translate("Инфо"), kDefaultInfoColumnWidth, TAlignment::taCenter, false}};
  VTResources.Header.Height = 30;
  VTResources.DefaultNodeHeight = 32;
  VTResources.MultiSelect = true;
  VTResources.RightClickSelect = true;
  VTResources.FullRowSelect = true;
  VTResources.AutoSort = true;
  VTResources.Editable = true;
  VTResources.DragEnabled = true;
  VTResources.AcceptFiles = true;
  VTResources.Images = &il24x24;

  VTResources.OnCompareNodes = [this](TVirtualTree*, TVirtualNode* a, TVirtualNode* b, int, int& result) {
    VTResourcesCompareNodes(a, b, result);
  };
  VTResources.OnGetText = [this](TVirtualTree*, TVirtualNode* node, int column, std::string& text) {
    VTResourcesGetText(node, column, text);
  };
  VTResources.OnGetImageIndex = [this](TVirtualTree*, TVirtualNode* node, TVTImageKind kind, int column, bool&,
                                       int& imageIndex) {
    if (column == 0 && (kind == TVTImageKind::ikNormal || kind == TVTImageKind::ikSelected))
      imageIndex = GetNodeData(node)->ImageIndex;
  };
  VTResources.OnChange = [this](TVirtualTree*, TVirtualNode*) { VTResourcesChange(); };
  VTResources.OnEditing = [](TVirtualTree*, TVirtualNode*, int, bool& allowed) { allowed = true; };
  VTResources.OnNewText = [this](TVirtualTree*, TVirtualNode* node, int column, const std::string& text) {
    VTResourcesNewText(node, column, text);
  };
  VTResources.OnDragOver = [](TVirtualTree*, TVirtualTree*, TShiftState, TDragState, TPoint, TDropMode,
                              TDragEffect&, bool& accept) { accept = true; };
  VTResources.OnDragDrop = [this](TVirtualTree*, TVirtualTree* source, const TVTDragData& data, TShiftState,
                                  TPoint point, TDragEffect& effect, TDropMode) {
    if (source == &VTResources) effect = TDragEffect::deMove;
    VTResourcesDragDrop(source, data, point);
  };
  VTResources.OnKeyAction = [this](TVirtualTree*, int& key, TShiftState, bool&) {
    if (key == VK_DELETE && VTResources.SelectedCount() > 0 && FOnDeleteKey) FOnDeleteKey();
  };
  VTResources.OnMouseDown = [this](TVirtualTree*, TMouseButton, TShiftState, int x, int y) {
    if (VTResources.GetNodeAt(x, y) == nullptr) VTResources.ClearSelection();
  };
}

// ---------------------------------------------------------------- cells and order

void TqxAssetTree::VTResourcesCompareNodes(TVirtualNode* ANode1, TVirtualNode* ANode2, int& AResult) {
  const auto* data1 = GetNodeData(ANode1);
  const auto* data2 = GetNodeData(ANode2);
  const bool asset1 = data1->NodeType == TqxNodeType::Asset;
  const bool asset2 = data2->NodeType == TqxNodeType::Asset;
  if (asset1 != asset2) {
    AResult = asset1 ? 1 : -1;
    return;
  }
  AResult = CompareStr(data1->Caption, data2->Caption);
}

void TqxAssetTree::VTResourcesGetText(TVirtualNode* ANode, int AColumn, std::string& AText) {
  const auto* data = GetNodeData(ANode);
  switch (AColumn) {
    case -1:
      return;
    case 0:
      AText = data->Caption;
      return;
    case 1:
      AText = data->Size;
      return;
    default:
      TqxAssert::Fail(Format("Cannot get cell text. Unknown column index: column=%d", {AColumn}));
  }
}

// ---------------------------------------------------------------- selection to preview

void TqxAssetTree::VTResourcesChange() {
  FSelectedViews.clear();
  if (VTResources.SelectedCount() == 0) {
    if (FOnSelectedViewsChanged) FOnSelectedViewsChanged();
    return;
  }
  // A rename moves nodes; the views stay as they are until the user selects.
  if (IsRenaming()) return;
  for (TVirtualNode* node : VTResources.GetSortedSelection(true)) {
    if (NodeTypeOf(node) == TqxNodeType::Asset) {
      FSelectedViews.push_back(node);
      continue;
    }
    for (TVirtualNode* child : VTResources.ChildNodes(node)) {
      if (NodeTypeOf(child) == TqxNodeType::Asset) FSelectedViews.push_back(child);
    }
  }
  if (FOnSelectedViewsChanged) FOnSelectedViewsChanged();
}

void TqxAssetTree::SelectNode(const TqxAssetName& AName, bool AClearSelection) {
  if (AClearSelection) VTResources.ClearSelection();
  if (TVirtualNode* node = FindNode(AName)) VTResources.SetSelected(node, true);
}

void TqxAssetTree::ExpandNodesToAsset(const TqxAssetName& AName) {
  TVirtualNode* parent = nullptr;
  for (const std::string& part : TqxAssetNameHelper::Parts(AName)) {
    TVirtualNode* found = nullptr;
    for (TVirtualNode* child : VTResources.ChildNodes(parent)) {
      if (GetNodeData(child)->Caption == part) {
        found = child;
        break;
      }
    }
    if (found == nullptr) return;
    VTResources.SetExpanded(found, true);
    parent = found;
  }
}

void TqxAssetTree::SetInitialAssetName(const TqxAssetName& AName) {
  std::vector<TVirtualNode*> path;
  TVirtualNode* parent = nullptr;
  for (const std::string& part : TqxAssetNameHelper::Parts(AName)) {
    TVirtualNode* found = nullptr;
    for (TVirtualNode* child : VTResources.ChildNodes(parent)) {
      if (SameText(GetNodeData(child)->Caption, part)) {
        found = child;
        break;
      }
    }
    if (found == nullptr) return;
    path.push_back(found);
    parent = found;
  }
  if (path.empty()) return;
  TVTUpdateGuard update(VTResources);
  for (std::size_t i = 0; i + 1 < path.size(); ++i) VTResources.SetExpanded(path[i], true);
  VTResources.SetSelected(path.back(), true);
}

// ---------------------------------------------------------------- in-place rename

void TqxAssetTree::VTResourcesNewText(TVirtualNode* ANode, int, const std::string& AText) {
  std::string newCaption = TqxAssetNameHelper::Normalize(AText);
  if (newCaption.empty()) return;
  newCaption = GenerateNodeName(newCaption, VTResources.GetNodeParent(ANode), ANode);
  const TqxAssetName oldName = GetAssetName(ANode);
  const TqxAssetName newName = TqxAssetNameHelper::Combine(TqxAssetNameHelper::Path(oldName), newCaption);
  switch (NodeTypeOf(ANode)) {
    case TqxNodeType::Asset:
      Model().Rename(oldName, newName);
      break;
    case TqxNodeType::AssetContainer: {
      const std::string oldPath = GetPathForNode(ANode);
      Model().Rename(oldName, newName);
      QueuePathRename(ANode, oldPath, newCaption, false);
      break;
    }
    case TqxNodeType::Folder:
      QueuePathRename(ANode, "", newCaption, true);
      break;
  }
}

void TqxAssetTree::QueuePathRename(TVirtualNode* ANode, const std::string& AOldPath,
                                   const std::string& ANewCaption, bool AIsFolder) {
  // Runs after the edit has ended; until then the node keeps its caption.
  TThread::ForceQueue(nullptr, [this, ANode, AOldPath, ANewCaption, AIsFolder] {
    if (!StillInTree(ANode)) return;
    const std::string newPath =
        GetPathForNode(VTResources.GetNodeParent(ANode)) + ANewCaption + TqxAssetNameHelper::kSeparator;
    const std::string oldPath = AIsFolder ? GetPathForNode(ANode) : AOldPath;
    Model().RenamePath(oldPath, newPath);
    // The members' renames may have moved or dropped the node.
    if (!StillInTree(ANode)) return;
    GetNodeData(ANode)->Caption = ANewCaption;
    VTResources.InvalidateNode(ANode);
    if (AIsFolder) DeleteEmptyFoldersAmongSelected();
    SortAll();
  });
}

// ---------------------------------------------------------------- moves

void TqxAssetTree::MoveNodesToNewParent(const std::vector<TVirtualNode*>& ANodes, TVirtualNode* ATarget,
                                        TVTNodeAttachMode AAttachMode) {
  TVTUpdateGuard update(VTResources);
  TVirtualNode* folder = FindFolder(ATarget);
  for (TVirtualNode* node : ANodes) {
    // Renames of earlier nodes rebuild theirs; a node they took along is gone.
    if (!StillInTree(node)) continue;
    if (VTResources.GetNodeParent(node) == folder) continue;
    if (folder != nullptr && (folder == node || VTResources.HasAsParent(folder, node))) continue;
    auto* data = GetNodeData(node);
    if (data->NodeType == TqxNodeType::Folder && VTResources.GetChildCount(node) == 0) {
      VTResources.MoveTo(node, ATarget, AAttachMode);
      data->Caption = GenerateNodeName(data->Caption, folder, node);
      if (ATarget != nullptr) VTResources.SetExpanded(ATarget, true);
      SortAll();
      continue;
    }
    switch (data->NodeType) {
      case TqxNodeType::Folder: {
        const std::string oldPath = GetPathForNode(node);
        const std::string newPath = GetPathForNode(folder) + data->Caption + TqxAssetNameHelper::kSeparator;
        if (newPath != oldPath) {
          TqxLog::Trace(TFrameAssetManager::kLogTag, "Rename: old=%s, new=%s", {oldPath, newPath});
          Model().RenamePath(oldPath, newPath);
        }
        break;
      }
      case TqxNodeType::AssetContainer: {
        // A theme can't lie in a theme: it goes beside the nearest plain folder.
        folder = FindThemeContainerParentNode(folder);
        const std::string oldName = GetAssetName(node);
        const std::string oldPath = GetPathForNode(node);
        const std::string newName = GetPathForNode(folder) + GenerateNodeName(data->Caption, folder, node);
        Model().Rename(oldName, newName);
        Model().RenamePath(oldPath, GetPathForNode(folder) + data->Caption + TqxAssetNameHelper::kSeparator);
        break;
      }
      case TqxNodeType::Asset:
        Model().Rename(GetAssetName(node), GetPathForNode(folder) + GenerateNodeName(data->Caption, folder, node));
        break;
    }
  }
}

// ---------------------------------------------------------------- drops

void TqxAssetTree::VTResourcesDragDrop(TVirtualTree* ASource, const TVTDragData& AData, TPoint APoint) {
  if (ASource == &VTResources) {
    MoveNodesToNewParent(VTResources.GetSortedSelection(true), VTResources.DropTargetNode(),
                         AttachModeOf(VTResources.LastDropMode()));
    return;
  }
  if (!AData.HasFormat(CF_HDROP)) return;
  DropFiles(AData.FileNames, VTResources.GetNodeAt(APoint.X, APoint.Y));
}

void TqxAssetTree::DropFiles(const std::vector<std::string>& AFileNames, TVirtualNode* ANodeAtPoint) {
  if (AFileNames.empty()) return;
  TVTUpdateGuard update(VTResources);
  TVirtualNode* target = FindFolder(ANodeAtPoint != nullptr ? ANodeAtPoint : FindFolderAmongSelected());
  VTResources.ClearSelection();
  if (target != nullptr) VTResources.SetExpanded(target, true);
  int size = 0;
  int folders = 0;
  for (const auto& name : AFileNames) folders += fs::is_directory(name) ? 1 : 0;
  const bool multiple = folders >= 2;
  for (const auto& name : AFileNames) {
    if (fs::is_directory(name)) {
      TVirtualNode* imported =
          FLoadFromMaterialIOFolder ? FLoadFromMaterialIOFolder(target, name, multiple, size) : nullptr;
      if (imported != nullptr) continue;
      std::vector<std::string> files;
      for (const auto& entry : fs::recursive_directory_iterator(name)) {
        if (entry.is_regular_file()) files.push_back(entry.path().string());
      }
      std::sort(files.begin(), files.end());
      for (const auto& file : files) AddFileSingly(file, target);
    } else if (fs::is_regular_file(name)) {
      AddFileSingly(name, target);
    }
  }
}

void TqxAssetTree::AddFileSingly(const std::string& AFileName, TVirtualNode* ATarget) {
  const std::string base = fs::path(AFileName).stem().string();
  const std::string caption = GenerateNodeName(base, ATarget);
  const TqxAssetName assetName = Model().GenerateAssetName(GetPathForNode(ATarget) + caption);
  if (auto asset = TqxAssetsEditorsManager::Instance().TryCreateAsset(assetName, AFileName))
    Model().AddAsset(std::move(asset));
}

}  // namespace qx
