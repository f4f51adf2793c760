#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/ui/dialog_service.h"

namespace qx {

// Dialogs answered from a script, for tests. Each dialog takes the next answer
// of its kind; a dialog without one, or an answer that isn't one of the
// dialog's buttons, raises Exception, so an unexpected question fails the test.
class TqxScriptedDialogs : public IqxDialogService {
public:
  enum class TKind { Message, OpenFile, OpenFolder, SaveFile };
  struct TShown {
    TKind Kind;
    std::string Message;
    TMsgDlgType Type = TMsgDlgType::mtCustom;
    TMsgDlgButtons Buttons = 0;
    TOpenDialogOptions Options;
  };

  void AnswerMessage(TModalResult result) { FMessageAnswers.push_back(result); }
  void AnswerOpenFile(std::vector<std::string> fileNames) { FFileAnswers.push_back({true, std::move(fileNames)}); }
  void CancelOpenFile() { FFileAnswers.push_back({false, {}}); }
  void AnswerOpenFolder(std::vector<std::string> folders) { FFolderAnswers.push_back({true, std::move(folders)}); }
  void CancelOpenFolder() { FFolderAnswers.push_back({false, {}}); }
  void AnswerSaveFile(std::string fileName) { FSaveAnswers.push_back({true, {std::move(fileName)}}); }
  void CancelSaveFile() { FSaveAnswers.push_back({false, {}}); }

  const std::vector<TShown>& Shown() const { return FShown; }
  // Answers scripted and not asked for yet.
  int PendingAnswers() const;

  TModalResult MessageDlg(const std::string& message, TMsgDlgType type, TMsgDlgButtons buttons,
                          int helpContext) override;
  bool OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& fileNames) override;
  bool OpenFolderDialog(const TOpenDialogOptions& options, std::vector<std::string>& folderNames) override;
  bool SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName) override;

private:
  struct TPathAnswer {
    bool Confirmed;
    std::vector<std::string> Paths;
  };
  bool TakePaths(std::deque<TPathAnswer>& answers, const char* what, std::vector<std::string>& out);

  std::deque<TModalResult> FMessageAnswers;
  std::deque<TPathAnswer> FFileAnswers, FFolderAnswers, FSaveAnswers;
  std::vector<TShown> FShown;
};

}  // namespace qx
