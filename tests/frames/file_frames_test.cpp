#include <gtest/gtest.h>

#include "../support/temp_folder.h"
#include "frames/file_asset_frames.h"
#include "frames/file_asset_pickers.h"
#include "frames/lottie_animation_picker.h"
#include "frames_fixture.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/lottie_animation.h"
#include "platform/ui/image_list.h"
#include "platform/ui/ui_services.h"

namespace qx::test {
namespace {

using FileFramesTest = FramesTest;

const std::string kSpinner = std::string(QX_TEST_DATA_DIR) + "/frames/spinner.json";


TEST_F(FileFramesTest, FontFrameTitleAndPictureFollowTheExtension) {
  TqxAssetFont font("Body");
  TEditorFont frame;
  frame.SetAsset(&font);
  EXPECT_EQ(frame.Title(), "Empty");

  font.SetUri("C:\\fonts\\a.TTF");
  frame.UpdatePreview();
  EXPECT_EQ(frame.Title(), "TTF");
  TqxBitmap box(64, 64);
  frame.PaintPreview(box);
  EXPECT_EQ(box, *FileFrameImages().Get(FileFrameImages().IndexOfName("Font File TTF")));

  font.SetUri("/fonts/c.woff2");
  frame.UpdatePreview();
  EXPECT_EQ(frame.Title(), "woff2");
  EXPECT_EQ(frame.ImageIndex(), -1);
  font.SetUri("README");
  EXPECT_EQ(frame.GetTitle(), "README");
}

TEST_F(FileFramesTest, PickerActionsLoadSaveAndClearRealFiles) {
  TTempFolder folder("file-picker");
  WriteText(folder / "a.ttf", "font bytes");
  TqxAssetFont font("Body");
  TEditorFont frame;
  frame.SetAsset(&font);
  int changes = 0;
  frame.FOnChanged = [&](TqxAsset*) { ++changes; };
  frame.OpenEditor();
  auto* picker = Ui.Popups.CurrentAs<TFontFilePicker>();
  ASSERT_NE(picker, nullptr);
  EXPECT_FALSE(picker->SaveAction()->Enabled());
  EXPECT_FALSE(picker->ClearAction()->Enabled());

  Ui.Dialogs.CancelOpenFile();
  picker->LoadAction()->Execute();
  EXPECT_EQ(changes, 0);

  Ui.Dialogs.AnswerOpenFile({(folder / "a.ttf").string()});
  picker->LoadAction()->Execute();
  EXPECT_EQ(font.Uri(), (folder / "a.ttf").string());
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(frame.Title(), "ttf");
  EXPECT_TRUE(picker->ClearAction()->Enabled());

  Ui.Dialogs.AnswerSaveFile((folder / "copy.ttf").string());
  picker->SaveAction()->Execute();
  EXPECT_EQ(ReadText(folder / "copy.ttf"), "font bytes");
  EXPECT_EQ(changes, 1);  // a copy changes nothing

  picker->ClearAction()->Execute();
  EXPECT_EQ(font.Uri(), "");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(frame.Title(), "Empty");
  EXPECT_FALSE(picker->SaveAction()->Enabled());
  EXPECT_FALSE(picker->ClearAction()->Execute());
  EXPECT_EQ(Ui.Dialogs.PendingAnswers(), 0);
}

// Answers a dialog while checking that the popup holds on meanwhile.
class TDialogsWatchingPopup : public TqxScriptedDialogs {
public:
  TqxHeadlessPopups* Popups = nullptr;
  std::vector<bool> ClosedDuringDialog;
  bool OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& names) override {
    ClosedDuringDialog.push_back(Popups->CloseCurrent());
    return TqxScriptedDialogs::OpenFileDialog(options, names);
  }
  bool SaveFileDialog(const TOpenDialogOptions& options, std::string& name) override {
    ClosedDuringDialog.push_back(Popups->CloseCurrent());
    return TqxScriptedDialogs::SaveFileDialog(options, name);
  }
};

TEST_F(FileFramesTest, PopupStaysOpenWhileItsDialogIsUp) {
  TDialogsWatchingPopup dialogs;
  dialogs.Popups = &Ui.Popups;
  TqxUiServices::Instance().SetDialogs(&dialogs);
  TqxAssetFile file("Data\\Seed");
  file.SetUri(kSpinner);
  TEditorFile frame;
  frame.SetAsset(&file);
  frame.OpenEditor();
  auto* picker = Ui.Popups.CurrentAs<TCustomFilePicker>();
  ASSERT_NE(picker, nullptr);
  dialogs.CancelOpenFile();
  picker->Load();
  dialogs.CancelSaveFile();
  picker->Save();
  EXPECT_EQ(dialogs.ClosedDuringDialog, (std::vector<bool>{false, false}));
  EXPECT_FALSE(picker->IsWorkingWithDialogs());
  // A dialog that fails still gives the popup back.
  EXPECT_THROW(picker->Load(), Exception);
  EXPECT_TRUE(Ui.Popups.CloseCurrent());
  TqxUiServices::Instance().SetDialogs(&Ui.Dialogs);
}

TEST_F(FileFramesTest, CustomFilePickerWritesLocationAndRule) {
  TqxAssetFile file("Data\\Seed");
  file.SetUri("/data/seed.db");
  file.SetExtractionRule(TqxExtractionRule::Always);
  TEditorFile frame;
  frame.SetAsset(&file);
  EXPECT_EQ(frame.Title(), "db");
  int changes = 0;
  frame.FOnChanged = [&](TqxAsset*) { ++changes; };
  frame.OpenEditor();
  auto* picker = Ui.Popups.CurrentAs<TCustomFilePicker>();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->ExtractionRuleIndex(), 2);
  picker->SelectFileLocation(1);
  picker->SelectExtractionRule(0);
  picker->SelectExtractionRule(7);  // no such item
  EXPECT_EQ(file.FileLocation(), TqxFileLocation(1));
  EXPECT_EQ(file.ExtractionRule(), TqxExtractionRule(0));
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(picker->SaveAction()->Enabled());  // the name is enough here
}

TEST_F(FileFramesTest, LottiePickerReadsTheAnimationAndItsDuration) {
  TTempFolder folder("lottie-picker");
  fs::copy_file(kSpinner, folder / "spin.json");
  TqxAssetLottieAnimation lottie("Spinner");
  TEditorLottieAnimation frame;
  frame.SetAsset(&lottie);
  EXPECT_FALSE(frame.AnimationVisible());
  int changes = 0;
  frame.FOnChanged = [&](TqxAsset*) { ++changes; };

  frame.OpenPicker();
  auto* picker = Ui.Popups.CurrentAs<TLottieAnimationPicker>();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->DurationText(), "-");

  Ui.Dialogs.AnswerOpenFile({(folder / "spin.json").string()});
  picker->Load();
  ASSERT_NE(picker->Animation(), nullptr);
  EXPECT_EQ(picker->DurationText(), "1:50");
  EXPECT_EQ(picker->Animation()->TotalFrame(), 46u);
  EXPECT_TRUE(frame.AnimationVisible());
  EXPECT_EQ(changes, 1);
  TqxBitmap image(64, 64);
  frame.Animation()->RenderFrame(0, image);
  EXPECT_EQ(image.GetPixel(32, 32), 0xFFE51919u);

  // The file went: nothing to save, still something to clear.
  fs::remove(folder / "spin.json");
  picker->SetAsset(&lottie);
  EXPECT_FALSE(picker->SaveAction()->Enabled());
  EXPECT_TRUE(picker->ClearAction()->Enabled());

  // A file that isn't an animation is refused loudly.
  WriteText(folder / "notes.json", "{\"not\": \"lottie\"}");
  lottie.SetUri((folder / "notes.json").string());
  EXPECT_THROW(picker->ReloadPreview(), Exception);

  picker->Clear();
  EXPECT_EQ(picker->Animation(), nullptr);
  EXPECT_FALSE(picker->ClearAction()->Enabled());
  EXPECT_EQ(changes, 2);
}

TEST(DurationToStringTest, ReadsSecondsAndHundredths) {
  EXPECT_EQ(DurationToString(0.5), "0:50");
  EXPECT_EQ(DurationToString(0.29), "0:29");
  EXPECT_EQ(DurationToString(1.999), "1:99");  // truncated, never rounded up
}

}  // namespace
}  // namespace qx::test
