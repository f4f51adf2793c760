#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/core/base/translator.h"
#include "platform/designtime/form_base_picker.h"
#include "platform/ui/action_list.h"
#include "platform/ui/dialog_service.h"

namespace qx {

class TqxAsset;
class TqxAssetWithFile;
class TqxAssetFile;

// The pickers of assets that are one file: Open points the asset at a file
// the user picks, Save copies the file elsewhere, Clear forgets it. They work
// on the asset directly; each change raises the change event. While one of
// their dialogs is up the popup refuses to close.
class TFilePickerBase : public TFormBasePicker {
public:
  TqxAssetWithFile* Asset() const { return FAsset; }
  virtual void SetAsset(TqxAsset* AAsset);

  TAction* LoadAction() const { return FLoad; }
  TAction* SaveAction() const { return FSave; }
  TAction* ClearAction() const { return FClear; }
  const TActionList& Actions() const { return FActions; }

  void Load();
  void Save();
  void Clear();
  // Enabling of Save and Clear.
  void UpdateActions();

  bool IsWorkingWithDialogs() const { return FIsWorkingWithDialogs; }

protected:
  // Action names differ between the pickers.
  TFilePickerBase(int AWidth, int AHeight, const char* ALoadName, const char* ASaveName, const char* AClearName);

  // After Load or Clear changed the file, before the change event.
  virtual void UriChanged() {}
  virtual bool CanSave() const;
  bool DoCanClose() override { return !FIsWorkingWithDialogs; }
  std::string Translate(const std::string& AText) const { return FTranslator.Translate(AText); }

  TqxAssetWithFile* FAsset = nullptr;
  TqxTranslator FTranslator;

private:
  TOpenDialogOptions DialogOptions() const;

  bool FIsWorkingWithDialogs = false;
  TActionList FActions;
  TAction *FLoad, *FSave, *FClear;
};

// Picks the file of a font, 319 x 57.
class TFontFilePicker : public TFilePickerBase {
public:
  TFontFilePicker();
  void SetAsset(TqxAsset* AAsset) override;
};

// Picks a custom file and where and how the app unpacks it, 319 x 165.
class TCustomFilePicker : public TFilePickerBase {
public:
  TCustomFilePicker();
  void SetAsset(TqxAsset* AAsset) override;

  // cbFileLocation and cbExtractionRule: labels, items, selection (-1 none).
  std::string FileLocationLabel() const { return Translate("Место распаковки:"); }
  std::string ExtractionRuleLabel() const { return Translate("Правило распаковки:"); }
  const std::vector<std::string>& FileLocationItems() const { return FFileLocationItems; }
  const std::vector<std::string>& ExtractionRuleItems() const { return FExtractionRuleItems; }
  int FileLocationIndex() const { return FFileLocationIndex; }
  int ExtractionRuleIndex() const { return FExtractionRuleIndex; }
  // The user's choice: written into the asset, then the change event.
  void SelectFileLocation(int AIndex);
  void SelectExtractionRule(int AIndex);

private:
  TqxAssetFile& FileAsset() const;

  std::vector<std::string> FFileLocationItems, FExtractionRuleItems;
  int FFileLocationIndex = -1, FExtractionRuleIndex = -1;
};

}  // namespace qx
