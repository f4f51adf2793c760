#pragma once

#include <gtest/gtest.h>

#include <string>

#include "designer/asset_tree.h"
#include "designer/designer_commands.h"
#include "designer/frame_asset_manager.h"
#include "frames/register_frames.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/base/log.h"
#include "platform/ui/headless_ui.h"

namespace qx::test {

// A designer without a project, with scripted dialogs and a queue the test
// drains. Assets go in through the model, as the commands put them.
class DesignerTest : public ::testing::Test {
protected:
  DesignerTest() {
    RegisterAssetEditors();
    RegisterAssetEditorFrames();
    TqxLog::SetStderrEnabled(false);
  }
  ~DesignerTest() override { TqxLog::SetStderrEnabled(true); }

  TqxAssetsModel& Model() { return Frame.Model(); }
  TqxAssetTree& Tree() { return Frame.Tree(); }
  TVirtualTree& VT() { return Frame.Tree().VTResources; }
  TqxDesignerCommands& Commands() { return Frame.Commands(); }

  TVirtualNode* Node(const TqxAssetName& name) { return Tree().FindNode(name); }
  // A folder or theme node by its path of captions, found without making one.
  TVirtualNode* Folder(const std::string& path) {
    TVirtualNode* node = nullptr;
    std::string rest = path;
    while (!rest.empty()) {
      const auto cut = rest.find('\\');
      const std::string part = rest.substr(0, cut);
      rest = cut == std::string::npos ? "" : rest.substr(cut + 1);
      TVirtualNode* found = nullptr;
      for (TVirtualNode* child : VT().ChildNodes(node))
        if (Tree().GetNodeData(child)->Caption == part && Tree().IsFolderLike(child)) found = child;
      if (found == nullptr) return nullptr;
      node = found;
    }
    return node;
  }
  void Select(std::initializer_list<TVirtualNode*> nodes) {
    VT().ClearSelection();
    for (TVirtualNode* node : nodes) VT().SetSelected(node, true);
    if (nodes.size() > 0) VT().SetFocusedNode(*nodes.begin());
  }

  // The tree in order: a folder as name{...}, a theme as name<...>, an asset as its caption.
  std::string Dump(TVirtualNode* parent = nullptr) {
    std::string text;
    for (TVirtualNode* node : VT().ChildNodes(parent)) {
      if (!text.empty()) text += ' ';
      const auto* data = Tree().GetNodeData(node);
      text += data->Caption;
      if (data->NodeType == TqxNodeType::Folder) text += "{" + Dump(node) + "}";
      if (data->NodeType == TqxNodeType::AssetContainer) text += "<" + Dump(node) + ">";
    }
    return text;
  }
  std::string Names() {
    std::string text;
    for (const auto& name : Model().GetAssetsManager().GetAssetsNames()) text += (text.empty() ? "" : " ") + name;
    return text;
  }

  TqxHeadlessUi Ui;
  TFrameAssetManager Frame;
};

}  // namespace qx::test
