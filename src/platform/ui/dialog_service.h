#pragma once

#include <string>
#include <vector>

namespace qx {

enum class TMsgDlgType { mtWarning, mtError, mtInformation, mtConfirmation, mtCustom };

// Buttons of a message dialog, as a bit set.
using TMsgDlgButtons = unsigned;
inline constexpr TMsgDlgButtons mbYes = 1, mbNo = 2, mbOK = 4, mbCancel = 8, mbAbort = 16,
                                mbRetry = 32, mbIgnore = 64, mbAll = 128;
inline constexpr TMsgDlgButtons mbYesNoCancel = mbYes | mbNo | mbCancel;
inline constexpr TMsgDlgButtons mbOKCancel = mbOK | mbCancel;

// The answer of a modal dialog.
using TModalResult = int;
inline constexpr TModalResult mrNone = 0, mrOk = 1, mrCancel = 2, mrAbort = 3, mrRetry = 4,
                              mrIgnore = 5, mrYes = 6, mrNo = 7, mrAll = 12;

struct TOpenDialogOptions {
  std::string Title;
  // "Images (*.png;*.jpg)|*.png;*.jpg|All files (*.*)|*.*": caption and patterns by pairs.
  std::string Filter;
  std::string InitialDir;
  bool MultiSelect = false;
  bool MustExist = true;
};

// One entry of a dialog filter.
struct TFileFilterEntry {
  std::string Caption;
  std::vector<std::string> Patterns;
  bool operator==(const TFileFilterEntry&) const = default;
};

// Splits a filter text into its entries; a trailing caption without patterns is dropped.
std::vector<TFileFilterEntry> ParseDialogFilter(const std::string& filter);

// Modal dialogs of the platform. The application installs the real one; tests
// install one with scripted answers.
class IqxDialogService {
public:
  virtual ~IqxDialogService() = default;
  virtual TModalResult MessageDlg(const std::string& message, TMsgDlgType type,
                                  TMsgDlgButtons buttons, int helpContext) = 0;
  // Answers false on cancel; fileNames holds the chosen files otherwise.
  virtual bool OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& fileNames) = 0;
  // Folders only; several at a time when the options allow it.
  virtual bool OpenFolderDialog(const TOpenDialogOptions& options,
                                std::vector<std::string>& folderNames) = 0;
  // Answers false on cancel; fileName holds the chosen name otherwise. The
  // file need not exist (MustExist is ignored).
  virtual bool SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName) = 0;
};

// The installed service's answer. Without a service this raises Exception:
// a question nobody can answer must not pass for an answer.
TModalResult MessageDlg(const std::string& message, TMsgDlgType type, TMsgDlgButtons buttons,
                        int helpContext = 0);
bool OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& fileNames);
bool OpenFolderDialog(const TOpenDialogOptions& options, std::vector<std::string>& folderNames);
bool SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName);

}  // namespace qx
