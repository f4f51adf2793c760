#include "platform/ui/scripted_dialogs.h"

#include "platform/core/base/exception.h"

namespace qx {

namespace {

// The button that gives a result, 0 for results no button gives.
TMsgDlgButtons ButtonOf(TModalResult result) {
  switch (result) {
    case mrYes: return mbYes;
    case mrNo: return mbNo;
    case mrOk: return mbOK;
    case mrCancel: return mbCancel;
    case mrAbort: return mbAbort;
    case mrRetry: return mbRetry;
    case mrIgnore: return mbIgnore;
    case mrAll: return mbAll;
    default: return 0;
  }
}

}  // namespace

int TqxScriptedDialogs::PendingAnswers() const {
  return static_cast<int>(FMessageAnswers.size() + FFileAnswers.size() + FFolderAnswers.size() +
                          FSaveAnswers.size());
}

TModalResult TqxScriptedDialogs::MessageDlg(const std::string& message, TMsgDlgType type,
                                            TMsgDlgButtons buttons, int) {
  FShown.push_back({TKind::Message, message, type, buttons, {}});
  if (FMessageAnswers.empty()) throw Exception("Unexpected message dialog: " + message);
  TModalResult result = FMessageAnswers.front();
  FMessageAnswers.pop_front();
  // Closing the window answers Cancel whatever the buttons; anything else
  // must be a button the dialog shows.
  if (result != mrCancel && result != mrNone && (ButtonOf(result) & buttons) == 0)
    throw Exception("Scripted answer is not a button of the dialog: " + message);
  return result;
}

bool TqxScriptedDialogs::TakePaths(std::deque<TPathAnswer>& answers, const char* what,
                                   std::vector<std::string>& out) {
  if (answers.empty()) throw Exception(std::string("Unexpected ") + what + " dialog");
  TPathAnswer answer = std::move(answers.front());
  answers.pop_front();
  out = std::move(answer.Paths);
  return answer.Confirmed;
}

bool TqxScriptedDialogs::OpenFileDialog(const TOpenDialogOptions& options,
                                        std::vector<std::string>& fileNames) {
  FShown.push_back({TKind::OpenFile, options.Title, TMsgDlgType::mtCustom, 0, options});
  bool confirmed = TakePaths(FFileAnswers, "open-file", fileNames);
  if (confirmed && !options.MultiSelect && fileNames.size() > 1)
    throw Exception("Scripted answer picks several files in a single-file dialog");
  return confirmed;
}

bool TqxScriptedDialogs::OpenFolderDialog(const TOpenDialogOptions& options,
                                          std::vector<std::string>& folderNames) {
  FShown.push_back({TKind::OpenFolder, options.Title, TMsgDlgType::mtCustom, 0, options});
  bool confirmed = TakePaths(FFolderAnswers, "open-folder", folderNames);
  if (confirmed && !options.MultiSelect && folderNames.size() > 1)
    throw Exception("Scripted answer picks several folders in a single-folder dialog");
  return confirmed;
}

bool TqxScriptedDialogs::SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName) {
  FShown.push_back({TKind::SaveFile, options.Title, TMsgDlgType::mtCustom, 0, options});
  std::vector<std::string> names;
  bool confirmed = TakePaths(FSaveAnswers, "save-file", names);
  if (confirmed) fileName = names.at(0);
  return confirmed;
}

}  // namespace qx
