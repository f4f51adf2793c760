#include <gtest/gtest.h>

#include "platform/core/base/exception.h"
#include "platform/ui/headless_ui.h"
#include "platform/ui/ui_services.h"

namespace qx::test {
namespace {

TEST(MainThreadQueue, ForceQueueRunsLaterInOrderAndNestedPostsWaitATurn) {
  TqxHeadlessUi ui;
  std::vector<std::string> order;
  TThread::ForceQueue(nullptr, [&] {
    order.push_back("first");
    TThread::ForceQueue(nullptr, [&] { order.push_back("nested"); });
  });
  TThread::ForceQueue(nullptr, [&] { order.push_back("second"); });
  EXPECT_TRUE(order.empty());
  EXPECT_EQ(ui.Queue.ProcessQueue(), 2);
  EXPECT_EQ(order, (std::vector<std::string>{"first", "second"}));
  EXPECT_EQ(ui.Queue.ProcessAll(), 1);
  EXPECT_EQ(order.back(), "nested");
}

TEST(Timer, FiresEachIntervalAndRestartsTheDelay) {
  TqxHeadlessUi ui;
  TTimer timer;
  std::vector<long long> firedAt;
  timer.OnTimer = [&](TTimer*) { firedAt.push_back(ui.Clock.Now()); };
  timer.SetInterval(300);
  ui.Clock.Advance(1000);
  timer.SetEnabled(true);  // armed at 1000
  ui.Clock.Advance(200);
  timer.Restart();  // typing again at 1200 puts the delay off
  ui.Clock.Advance(299);
  EXPECT_TRUE(firedAt.empty());
  ui.Clock.Advance(1);
  ui.Clock.Advance(300);
  EXPECT_EQ(firedAt, (std::vector<long long>{1500, 1800}));

  // A handler that disables its timer makes it a one-shot.
  timer.OnTimer = [&](TTimer* t) {
    firedAt.push_back(ui.Clock.Now());
    t->SetEnabled(false);
  };
  ui.Clock.Advance(1000);
  EXPECT_EQ(firedAt.size(), 3u);
  EXPECT_EQ(ui.Clock.ActiveCount(), 0);

  // A timer that goes stops its ticks.
  auto armed = std::make_unique<TTimer>();
  armed->SetEnabled(true);
  EXPECT_EQ(ui.Clock.ActiveCount(), 1);
  armed.reset();
  EXPECT_EQ(ui.Clock.ActiveCount(), 0);
}

TEST(Dialogs, ScriptedAnswersAreCheckedAgainstTheQuestion) {
  TqxHeadlessUi ui;
  ui.Dialogs.AnswerMessage(mrNo);
  ui.Dialogs.AnswerMessage(mrCancel);
  EXPECT_EQ(MessageDlg("Continue?", TMsgDlgType::mtConfirmation, mbYesNoCancel), mrNo);
  EXPECT_EQ(MessageDlg("Continue?", TMsgDlgType::mtConfirmation, mbYesNoCancel), mrCancel);
  EXPECT_THROW(MessageDlg("Unasked", TMsgDlgType::mtWarning, mbOK), Exception);
  ui.Dialogs.AnswerMessage(mrYes);
  EXPECT_THROW(MessageDlg("OK only", TMsgDlgType::mtInformation, mbOK), Exception);  // not a button

  std::vector<std::string> names{"stale"};
  TOpenDialogOptions folders, fonts;
  folders.MultiSelect = true;
  fonts.Filter = "Fonts|*.ttf";
  ui.Dialogs.CancelOpenFolder();
  ui.Dialogs.AnswerOpenFolder({"/a", "/b"});
  ui.Dialogs.AnswerOpenFile({"/x.ttf", "/y.ttf"});
  EXPECT_FALSE(OpenFolderDialog(folders, names));
  EXPECT_TRUE(names.empty());
  EXPECT_TRUE(OpenFolderDialog(folders, names));
  EXPECT_EQ(names, (std::vector<std::string>{"/a", "/b"}));
  EXPECT_THROW(OpenFileDialog(fonts, names), Exception);  // two files, single choice
  EXPECT_EQ(ui.Dialogs.PendingAnswers(), 0);
}

TEST(Dialogs, WithoutServicesDialogsFailAndTheClipboardIsAbsent) {
  {
    TqxHeadlessUi ui;
    TqxUiServices::Instance().Clipboard()->SetText("Colors\\Primary");
    EXPECT_EQ(ui.Clipboard.GetText(), "Colors\\Primary");
  }
  EXPECT_EQ(TqxUiServices::Instance().Clipboard(), nullptr);
  EXPECT_THROW(MessageDlg("?", TMsgDlgType::mtConfirmation, mbYesNoCancel), Exception);
}

TEST(Dialogs, FilterTextSplitsIntoCaptionsAndPatterns) {
  EXPECT_EQ(ParseDialogFilter("Images (*.png;*.jpg)|*.png;;*.jpg|All files|*.*|Dangling"),
            (std::vector<TFileFilterEntry>{{"Images (*.png;*.jpg)", {"*.png", "*.jpg"}}, {"All files", {"*.*"}}}));
}

}  // namespace
}  // namespace qx::test
