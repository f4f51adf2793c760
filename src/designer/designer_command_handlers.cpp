// What the designer's commands do.
#include "designer/designer_commands.h"

#include <algorithm>

#include "designer/asset_tree.h"
#include "designer/frame_asset_manager.h"
#include "platform/core/assets/asset.h"
#include "platform/ui/dialog_service.h"
#include "platform/ui/ui_services.h"

namespace qx {

namespace {

constexpr const char* kRemoveConfirmation = "Все выбранные ресурсы будут удалены. Продолжить?";

// A node's key in a walk of the tree: its ancestors' captions and its own.
using TNodeVisitor = std::function<void(TVirtualNode* node, const std::string& key)>;

// Visits the nodes of the expanded part of the tree, parents first; the
// visitor may expand a node before its children are looked at.
void WalkExpanded(TqxAssetTree& tree, TVirtualNode* parent, const std::string& parentKey,
                  const TNodeVisitor& visit) {
  for (TVirtualNode* node : tree.VTResources.ChildNodes(parent)) {
    const std::string key = parentKey + "|" + tree.GetNodeData(node)->Caption;
    visit(node, key);
    if (tree.VTResources.Expanded(node)) WalkExpanded(tree, node, key, visit);
  }
}

}  // namespace

TqxAssetName TqxDesignerCommands::GenerateUniqueNameForCurrentFolder(const std::string& AName,
                                                                     const std::string& ADefaultFolder) {
  return GenerateUniqueNameForCurrentFolder(FTree.FindFolderAmongSelected(), AName, ADefaultFolder);
}

TqxAssetName TqxDesignerCommands::GenerateUniqueNameForCurrentFolder(TVirtualNode* ANode, const std::string& AName,
                                                                     const std::string& ADefaultFolder) {
  std::string path = FTree.GetPathForNode(ANode);
  if (path.empty() && !ADefaultFolder.empty()) path = ADefaultFolder + "\\";
  return FFrame.Model().GenerateAssetName(path + AName);
}

void TqxDesignerCommands::AddEmptyAsset(TAction* AAction) {
  TVTUpdateGuard update(FTree.VTResources);
  auto& model = FFrame.Model();
  TqxAssetName name;
  if (AAction == ActionAddColor) {
    name = GenerateUniqueNameForCurrentFolder("Color", "");
    model.AddColor(name, 0);
  } else if (AAction == ActionAddBitmapSet) {
    name = GenerateUniqueNameForCurrentFolder("Image", "");
    model.AddEmptyBitmapSet(name);
  } else if (AAction == ActionAddSVG) {
    name = GenerateUniqueNameForCurrentFolder("SVG", "");
    model.AddEmptySVG(name);
  } else if (AAction == ActionAddFont) {
    name = GenerateUniqueNameForCurrentFolder("Font", "");
    model.AddEmptyFont(name);
  } else if (AAction == ActionAddCustomFile) {
    name = GenerateUniqueNameForCurrentFolder("File", "");
    model.AddEmptyFile(name);
  } else if (AAction == ActionAddLottieAnimation) {
    name = GenerateUniqueNameForCurrentFolder("Animation", "");
    model.AddEmptyLottieAnimation(name);
  } else if (AAction == ActionAddStyle) {
    name = GenerateUniqueNameForCurrentFolder("Style", "");
    model.AddEmptyStyle(name);
  } else {
    return;
  }
  FTree.ExpandNodesToAsset(name);
  FTree.SelectNode(name, true);
}

void TqxDesignerCommands::AddFolder() {
  auto& tree = FTree.VTResources;
  TVTUpdateGuard update(tree);
  TVirtualNode* parent = FTree.FindFolderAmongSelected();
  TVirtualNode* node = FTree.AddFolderNode(parent, FTree.GenerateNodeName("New Folder", parent));
  if (parent != nullptr) tree.SetExpanded(parent, true);
  tree.ClearSelection();
  tree.SetSelected(node, true);
}

void TqxDesignerCommands::AddTheme() {
  // Never inside a theme: the nearest plain folder above it, or the top level.
  TVirtualNode* node = FTree.FindFolderAmongSelectedAndAvoidThemeNode();
  FFrame.Model().AddThemeContainer(GenerateUniqueNameForCurrentFolder(node, "Theme", ""));
}

void TqxDesignerCommands::ConvertFolderToThemeContainer() {
  TVirtualNode* folder = FTree.FindFolderAmongSelectedAndAvoidThemeNode();
  if (folder == nullptr) return;
  const TqxAssetName name = FTree.GetAssetName(folder);
  FFrame.Model().AddThemeContainer(name);
  // The members keep their names: a theme and a folder of one name hold the
  // same asset names, so only the nodes move.
  if (TVirtualNode* theme = FTree.FindNode(name)) {
    FTree.VTResources.MoveTo(folder, theme, TVTNodeAttachMode::amAddChildLast, true);
    FTree.DeleteNode(folder);
  }
}

void TqxDesignerCommands::Delete() {
  if (MessageDlg(Translator.Translate(kRemoveConfirmation), TMsgDlgType::mtConfirmation, mbYesNoCancel) != mrYes)
    return;
  {
    TVTUpdateGuard update(FTree.VTResources);
    std::vector<std::string> paths;
    for (TVirtualNode* node : FTree.VTResources.SelectedNodes()) {
      const TqxAssetName name = FTree.GetAssetNameForNode(node);
      switch (FTree.NodeTypeOf(node)) {
        case TqxNodeType::Asset:
          paths.push_back(name);
          break;
        case TqxNodeType::AssetContainer:
          paths.push_back(name);
          paths.push_back(name + "\\");
          break;
        case TqxNodeType::Folder:
          paths.push_back(name + "\\");
          break;
      }
    }
    for (const auto& path : paths) FFrame.Model().RemovePath(path);
    FTree.DeleteEmptyFoldersAmongSelected();
  }
  FFrame.MarkModified();
}

void TqxDesignerCommands::CloneAsset() {
  TVirtualNode* node = FTree.VTResources.FocusedNode();
  if (node == nullptr || FTree.NodeTypeOf(node) != TqxNodeType::Asset) return;
  TqxAsset* clone = FFrame.Model().Copy(FTree.GetAssetName(node));
  if (clone == nullptr) return;
  TVTUpdateGuard update(FTree.VTResources);
  FTree.SelectNode(clone->Name(), true);
}

void TqxDesignerCommands::CopyName() {
  TVirtualNode* node = FTree.VTResources.FocusedNode();
  if (node == nullptr || FTree.NodeTypeOf(node) == TqxNodeType::Folder) return;
  if (auto* clipboard = TqxUiServices::Instance().Clipboard()) clipboard->SetText(FTree.GetAssetName(node));
}

void TqxDesignerCommands::Save() {
  std::vector<std::string> expanded, selected;
  TVTUpdateGuard update(FTree.VTResources);
  WalkExpanded(FTree, nullptr, "", [&](TVirtualNode* node, const std::string& key) {
    if (FTree.VTResources.Selected(node)) selected.push_back(key);
    if (FTree.VTResources.Expanded(node)) expanded.push_back(key);
  });

  FFrame.Save(false);
  FFrame.Load();
  FFrame.ClearModified();

  auto contains = [](const std::vector<std::string>& keys, const std::string& key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
  };
  WalkExpanded(FTree, nullptr, "", [&](TVirtualNode* node, const std::string& key) {
    if (contains(selected, key)) FTree.VTResources.SetSelected(node, true);
    if (contains(expanded, key)) FTree.VTResources.SetExpanded(node, true);
  });
  FTree.VTResources.SetFocus();
}

}  // namespace qx
