#pragma once

#include <string>
#include <vector>

#include "platform/core/base/translator.h"
#include "platform/core/base/types.h"
#include "platform/ui/action_list.h"
#include "platform/ui/image_list.h"
#include "platform/ui/menu_item.h"

namespace qx {

class TFrameAssetManager;
class TqxAssetTree;
class TVirtualNode;

// One place on the toolbar: an action (with its drop-down menu, if any) or a
// separator.
struct TqxToolButton {
  TAction* Action = nullptr;
  TMenuItem* DropDown = nullptr;
  bool IsSeparator() const { return Action == nullptr; }
};

// The user's operations of the assets designer, as actions with captions in
// both languages, images, enabling rules, the toolbar and the menus that show
// them. Every change of assets goes through the model; the tree follows its
// events.
class TqxDesignerCommands {
public:
  TqxDesignerCommands(TFrameAssetManager& frame, TqxAssetTree& tree);
  ~TqxDesignerCommands();
  TqxDesignerCommands(const TqxDesignerCommands&) = delete;
  TqxDesignerCommands& operator=(const TqxDesignerCommands&) = delete;

  TqxTranslator Translator;
  // Named pictures of the actions; whatever draws them paints by name.
  TCustomImageList ImageCollection{24, 24};
  TActionList ActionList;

  TAction* ActionAddBitmapSet;
  TAction* ActionAddSVG;
  TAction* ActionAddColor;
  TAction* ActionAddFont;
  TAction* ActionAddCustomFile;
  TAction* ActionAddLottieAnimation;
  TAction* ActionAddStyle;
  TAction* ActionAddFolder;
  TAction* ActionAddTheme;
  TAction* ActionDelete;
  TAction* ActionCopyName;
  TAction* ActionCloneAsset;
  TAction* ActionGenerateThemeColors;
  TAction* ActionGenerateRoundMask;
  TAction* ActionGenerateImageStub;
  TAction* ActionImportIconPack;
  TAction* ActionImportIconsCollections;
  TAction* ActionConvertFolderToThemeContainer;
  TAction* ActionSave;

  TMenuItem pmIconsImports;
  TMenuItem pmThemes;
  TMenuItem pmTreeView;
  // Left to right; ActionSave has its own button at the right end.
  std::vector<TqxToolButton> ToolBar;

  // Enables the actions that depend on the selection and the document's state.
  void ActionListUpdate();

  // A unique asset name in the folder of the selection (a theme counts).
  TqxAssetName GenerateUniqueNameForCurrentFolder(const std::string& AName, const std::string& ADefaultFolder);
  TqxAssetName GenerateUniqueNameForCurrentFolder(TVirtualNode* ANode, const std::string& AName,
                                                  const std::string& ADefaultFolder);

  // The handlers; each action's OnExecute calls one.
  void AddEmptyAsset(TAction* AAction);
  void AddFolder();
  void AddTheme();
  void ConvertFolderToThemeContainer();
  void Delete();
  void CloneAsset();
  void CopyName();
  // Saves, reloads and clears Modified, keeping what was selected and expanded.
  void Save();

private:
  TAction* AddAction(const std::string& name, const std::string& category, const std::string& caption,
                     const std::string& captionEn, const std::string& hint, const std::string& hintEn,
                     const std::string& image);
  void CreateActions();
  void CreateMenus();
  void CreateToolBar();

  TFrameAssetManager& FFrame;
  TqxAssetTree& FTree;
};

}  // namespace qx
