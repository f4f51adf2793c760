#include "designer/designer_commands.h"


#include "designer/asset_tree.h"
#include "designer/frame_asset_manager.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

namespace {

constexpr const char* kAdding = "Adding";
constexpr const char* kGeneration = "Generation";
constexpr const char* kImport = "Import";
constexpr const char* kConvert = "Convert";
constexpr const char* kRemoveConfirmation = "Все выбранные ресурсы будут удалены. Продолжить?";

}  // namespace

TqxDesignerCommands::TqxDesignerCommands(TFrameAssetManager& frame, TqxAssetTree& tree)
    : FFrame(frame), FTree(tree) {
  ActionList.Images = &ImageCollection;
  CreateActions();
  CreateMenus();
  CreateToolBar();
  ActionList.OnUpdate = [this](TAction*, bool&) { ActionListUpdate(); };
  FTree.FOnDeleteKey = [this] { ActionDelete->Execute(); };
}

TqxDesignerCommands::~TqxDesignerCommands() { FTree.FOnDeleteKey = nullptr; }

TAction* TqxDesignerCommands::AddAction(const std::string& name, const std::string& category,
                                        const std::string& caption, const std::string& captionEn,
                                        const std::string& hint, const std::string& hintEn,
                                        const std::string& image) {
  Translator.Add(caption, captionEn);
  if (!hint.empty()) Translator.Add(hint, hintEn);
  TAction* action = ActionList.Add(name);
  action->SetCategory(category);
  action->SetCaption(Translator.Translate(caption));
  if (!hint.empty()) action->SetHint(Translator.Translate(hint));
  if (!image.empty()) {
    int index = ImageCollection.IndexOfName(image);
    if (index < 0) index = ImageCollection.Add(TqxBitmap(ImageCollection.Width(), ImageCollection.Height()), image);
    action->SetImageIndex(index);
  }
  return action;
}

void TqxDesignerCommands::CreateActions() {
  ActionAddBitmapSet = AddAction("ActionAddBitmapSet", kAdding, "Добавить набор изображений", "Add image set",
                                 "Добавляет набор изображений", "Adding image set", "Add Image");
  ActionAddSVG = AddAction("ActionAddSVG", kAdding, "Добавить SVG изображение", "Add SVG image",
                           "Добавляет файл с SVG изображением", "Adds file with SVG image", "Add SVG");
  ActionAddColor = AddAction("ActionAddColor", kAdding, "Добавить цвет", "Add color", "Добавляет ресурс цвета",
                             "Adds color", "Add Color");
  ActionAddFont = AddAction("ActionAddFont", kAdding, "Добавить шрифт", "Add font",
                            "Добавляет ресурс с файлом шрифта", "Adds font file", "Add Font");
  ActionAddCustomFile = AddAction("ActionAddCustomFile", kAdding, "Добавить файл", "Add file",
                                  "Добавляет произвольный файл", "Adds custom file", "Add File");
  ActionAddLottieAnimation =
      AddAction("ActionAddLottieAnimation", kAdding, "Добавить анимацию Lottie", "Add Lottie animation",
                "Добавляет ресурс с файлом Lottie анимацией", "Adds file with Lottie animation", "Add Lottie Animation");
  ActionAddStyle = AddAction("ActionAddStyle", kAdding, "Добавить стиль", "Add style", "", "", "");
  ActionAddStyle->SetVisible(false);
  ActionAddFolder = AddAction("ActionAddFolder", kAdding, "Добавить папку", "Add folder",
                              "Добавляет папку для группировки ресурсов", "Adds folder for grouping assets.",
                              "Add Folder");
  ActionAddTheme = AddAction("ActionAddTheme", kAdding, "Добавить тему", "Add theme", "Создает пустую папку-тему",
                             "Adds empty theme", "Add Theme");
  ActionDelete = AddAction("ActionDelete", kAdding, "Удалить", "Delete", "Удаляет выделенные ресурсы",
                           "Deletes selected assets", "Remove");
  ActionCopyName = AddAction("ActionCopyName", kAdding, "Скопировать имя ассета", "Copy asset name",
                             "Копирует идентификатор ассета для использования в коде",
                             "Copies asset id for using in code", "");
  ActionCloneAsset = AddAction("ActionCloneAsset", kAdding, "Сделать копию", "Clone",
                               "Делает копию выбранных ресурсов", "Makes copy of selected assets", "");
  ActionGenerateThemeColors =
      AddAction("ActionGenerateThemeColors", kGeneration, "Сгенерировать тему", "Generate theme",
                "Генерирует набор ресурсов темы.", "Generates theme assets set.", "Add Theme");
  ActionGenerateRoundMask = AddAction(
      "ActionGenerateRoundMask", kGeneration, "Сгенерировать маску", "Generate mask",
      "Генерирует маску, которую можно использовать в TqxImage", "Generates mask, which can be used in TqxImage.",
      "Add Mask");
  ActionGenerateImageStub = AddAction(
      "ActionGenerateImageStub", kGeneration, "Сгенерировать изображение заглушку", "Generate a stub image",
      "Генерирует изображение указанного размера для использования в быстром прототипировании UI.",
      "Generates an image of the specified size for use in rapid UI prototyping.", "Add Iimage Stub");
  ActionImportIconPack = AddAction("ActionImportIconPack", kImport, "Добавить Material Icon из папки",
                                   "Add Material Icon from folder", "", "", "");
  ActionImportIconsCollections = AddAction("ActionImportIconsCollections", kImport, "Добавить Material Icons",
                                           "Add Material Icon", "", "", "");
  ActionConvertFolderToThemeContainer = AddAction("ActionConvertFolderToThemeContainer", kConvert,
                                                  "Сконвертировать в тему", "Convert to Theme", "", "", "");
  ActionSave = AddAction("ActionSave", "", "Сохранить", "Save", "", "", "Save");
  Translator.Add(kRemoveConfirmation, "All selected resource will be removed. Continue?");

  // The generators and importers hand over to dialogs that are not part of
  // the designer yet; their actions stay hidden until they get a handler.
  for (TAction* action : {ActionGenerateThemeColors, ActionGenerateRoundMask, ActionGenerateImageStub,
                          ActionImportIconPack, ActionImportIconsCollections})
    action->SetVisible(false);

  for (TAction* action : {ActionAddColor, ActionAddBitmapSet, ActionAddSVG, ActionAddFont, ActionAddCustomFile,
                          ActionAddLottieAnimation, ActionAddStyle})
    action->OnExecute = [this](TAction* sender) { AddEmptyAsset(sender); };
  ActionAddFolder->OnExecute = [this](TAction*) { AddFolder(); };
  ActionAddTheme->OnExecute = [this](TAction*) { AddTheme(); };
  ActionConvertFolderToThemeContainer->OnExecute = [this](TAction*) { ConvertFolderToThemeContainer(); };
  ActionDelete->OnExecute = [this](TAction*) { Delete(); };
  ActionCloneAsset->OnExecute = [this](TAction*) { CloneAsset(); };
  ActionCopyName->OnExecute = [this](TAction*) { CopyName(); };
  ActionSave->OnExecute = [this](TAction*) { Save(); };
}

void TqxDesignerCommands::CreateMenus() {
  pmIconsImports.Name = "pmIconsImports";
  pmIconsImports.Images = &ImageCollection;
  pmIconsImports.AddAction(ActionImportIconsCollections);
  pmIconsImports.AddAction(ActionImportIconPack);

  pmThemes.Name = "pmThemes";
  pmThemes.Images = &ImageCollection;
  pmThemes.AddAction(ActionAddTheme);
  pmThemes.AddAction(ActionGenerateThemeColors);

  pmTreeView.Name = "pmTreeView";
  pmTreeView.Images = &ImageCollection;
  for (TAction* action : {ActionAddColor, ActionAddBitmapSet, ActionAddSVG, ActionAddLottieAnimation, ActionAddStyle,
                          ActionAddCustomFile, ActionAddTheme, ActionAddFolder})
    pmTreeView.AddAction(action);
  pmTreeView.AddLine();
  pmTreeView.AddAction(ActionImportIconsCollections);
  pmTreeView.AddAction(ActionImportIconPack);
  pmTreeView.AddLine();
  pmTreeView.AddAction(ActionGenerateThemeColors);
  pmTreeView.AddAction(ActionGenerateRoundMask);
  pmTreeView.AddAction(ActionGenerateImageStub);
  pmTreeView.AddLine();
  pmTreeView.AddAction(ActionConvertFolderToThemeContainer);
  pmTreeView.AddLine();
  pmTreeView.AddAction(ActionDelete);
  pmTreeView.AddAction(ActionCopyName);
  pmTreeView.AddAction(ActionCloneAsset);
}

void TqxDesignerCommands::CreateToolBar() {
  ToolBar = {{ActionAddBitmapSet, &pmIconsImports},
             {ActionAddSVG, nullptr},
             {ActionAddColor, nullptr},
             {ActionAddFont, nullptr},
             {ActionAddCustomFile, nullptr},
             {ActionAddLottieAnimation, nullptr},
             {ActionAddStyle, nullptr},
             {},
             {ActionGenerateThemeColors, &pmThemes},
             {ActionGenerateRoundMask, nullptr},
             {ActionGenerateImageStub, nullptr},
             {ActionAddFolder, nullptr},
             {},
             {ActionDelete, nullptr}};
}

// ---------------------------------------------------------------- enabling

void TqxDesignerCommands::ActionListUpdate() {
  const auto selection = FTree.VTResources.GetSortedSelection(false);
  const bool single = selection.size() == 1;
  const TqxNodeType type = single ? FTree.NodeTypeOf(selection.front()) : TqxNodeType::Folder;
  ActionCopyName->SetEnabled(single && type != TqxNodeType::Folder);
  ActionCloneAsset->SetEnabled(single && type == TqxNodeType::Asset);
  ActionDelete->SetEnabled(!selection.empty());
  ActionSave->SetEnabled(FFrame.GetModified());
  ActionConvertFolderToThemeContainer->SetEnabled(single && type == TqxNodeType::Folder &&
                                                  !FTree.IsInThemeContainerNode(selection.front()));
}

}  // namespace qx
