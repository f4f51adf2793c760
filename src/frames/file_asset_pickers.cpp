#include "frames/file_asset_pickers.h"

#include <filesystem>

#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_with_file.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/exception.h"
#include "platform/ui/dialog_service.h"

namespace qx {

namespace {

// Raises the flag for the life of a dialog, and lowers it however the dialog ends.
class TDialogGuard {
public:
  explicit TDialogGuard(bool& flag) : FFlag(flag) { FFlag = true; }
  ~TDialogGuard() { FFlag = false; }
  TDialogGuard(const TDialogGuard&) = delete;
  TDialogGuard& operator=(const TDialogGuard&) = delete;

private:
  bool& FFlag;
};

bool FileExists(const std::string& fileName) {
  std::error_code error;
  return !fileName.empty() && std::filesystem::is_regular_file(fileName, error);
}

}  // namespace

TFilePickerBase::TFilePickerBase(int AWidth, int AHeight, const char* ALoadName, const char* ASaveName,
                                 const char* AClearName)
    : TFormBasePicker(AWidth, AHeight) {
  FTranslator.Add("Открыть", "Open");
  FTranslator.Add("Сохранить", "Save");
  FTranslator.Add("Очистить", "Clear");
  FTranslator.Add("Все файлы (*.*)|*.*", "All files (*.*)|*.*");
  FLoad = FActions.Add(ALoadName);
  FSave = FActions.Add(ASaveName);
  FClear = FActions.Add(AClearName);
  FLoad->SetCaption(Translate("Открыть"));
  FSave->SetCaption(Translate("Сохранить"));
  FClear->SetCaption(Translate("Очистить"));
  FLoad->OnExecute = [this](TAction*) { Load(); };
  FSave->OnExecute = [this](TAction*) { Save(); };
  FClear->OnExecute = [this](TAction*) { Clear(); };
}

void TFilePickerBase::SetAsset(TqxAsset* AAsset) {
  FAsset = AAsset ? TqxAssert::IsClass<TqxAssetWithFile>(AAsset, "AAsset has no file") : nullptr;
}

TOpenDialogOptions TFilePickerBase::DialogOptions() const {
  TOpenDialogOptions options;
  options.Filter = Translate("Все файлы (*.*)|*.*");
  return options;
}

void TFilePickerBase::Load() {
  TqxAssert::IsNotNil(FAsset, "FAsset");
  {
    TDialogGuard guard(FIsWorkingWithDialogs);
    std::vector<std::string> fileNames;
    if (OpenFileDialog(DialogOptions(), fileNames) && !fileNames.empty()) {
      FAsset->SetUri(fileNames.front());
      UriChanged();
      Change();
    }
  }
  UpdateActions();
}

void TFilePickerBase::Save() {
  TqxAssert::IsNotNil(FAsset, "FAsset");
  TDialogGuard guard(FIsWorkingWithDialogs);
  std::string fileName;
  // A source that vanished meanwhile leaves nothing to copy.
  if (!SaveFileDialog(DialogOptions(), fileName) || !FileExists(FAsset->Uri())) return;
  std::error_code error;
  std::filesystem::copy_file(FAsset->Uri(), fileName, std::filesystem::copy_options::overwrite_existing, error);
  if (error) throw Exception("Cannot copy \"" + FAsset->Uri() + "\" to \"" + fileName + "\": " + error.message());
}

void TFilePickerBase::Clear() {
  TqxAssert::IsNotNil(FAsset, "FAsset");
  FAsset->SetUri("");
  UriChanged();
  Change();
  UpdateActions();
}

bool TFilePickerBase::CanSave() const { return FAsset && !FAsset->Uri().empty(); }

void TFilePickerBase::UpdateActions() {
  FSave->SetEnabled(CanSave());
  FClear->SetEnabled(FAsset && !FAsset->Uri().empty());
}

TFontFilePicker::TFontFilePicker() : TFilePickerBase(319, 57, "ActionLoad", "ActionSave", "ActionClear") {}

void TFontFilePicker::SetAsset(TqxAsset* AAsset) {
  TFilePickerBase::SetAsset(AAsset);
  UpdateActions();
}

TCustomFilePicker::TCustomFilePicker() : TFilePickerBase(319, 165, "ActionLoad", "ActionSave", "ActionClear") {
  FTranslator.Add("Место распаковки:", "File location:");
  FTranslator.Add("Правило распаковки:", "Extraction rule:");
  FFileLocationItems = {"Private documents", "Public documents"};
  FExtractionRuleItems = {"Overwrite", "Skip, if the file is exist", "Raise exception, if file is exist"};
}

TqxAssetFile& TCustomFilePicker::FileAsset() const {
  TqxAssert::IsNotNil(FAsset, "FAsset");
  return *TqxAssert::IsClass<TqxAssetFile>(FAsset, "FAsset is not TqxAssetFile");
}

void TCustomFilePicker::SetAsset(TqxAsset* AAsset) {
  TFilePickerBase::SetAsset(AAsset);
  if (FAsset) {
    // A value the list has no item for selects nothing rather than a wrong item.
    auto indexIn = [](int value, const std::vector<std::string>& items) {
      return value >= 0 && value < int(items.size()) ? value : -1;
    };
    FExtractionRuleIndex = indexIn(int(FileAsset().ExtractionRule()), FExtractionRuleItems);
    FFileLocationIndex = indexIn(int(FileAsset().FileLocation()), FFileLocationItems);
  }
  UpdateActions();
}

void TCustomFilePicker::SelectFileLocation(int AIndex) {
  if (AIndex < 0 || AIndex >= int(FFileLocationItems.size())) return;
  FFileLocationIndex = AIndex;
  FileAsset().SetFileLocation(TqxFileLocation(AIndex));
  Change();
}

void TCustomFilePicker::SelectExtractionRule(int AIndex) {
  if (AIndex < 0 || AIndex >= int(FExtractionRuleItems.size())) return;
  FExtractionRuleIndex = AIndex;
  FileAsset().SetExtractionRule(TqxExtractionRule(AIndex));
  Change();
}

}  // namespace qx
