#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/ui/dialog_service.h"

namespace qx {

// Message boxes and file dialogs of Qt.
class TqxQtDialogService : public IqxDialogService {
public:
  // The window the dialogs stand over; may be null.
  void SetParentWidget(QWidget* parent) { FParent = parent; }

  TModalResult MessageDlg(const std::string& message, TMsgDlgType type, TMsgDlgButtons buttons,
                          int helpContext) override;
  bool OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& fileNames) override;
  bool OpenFolderDialog(const TOpenDialogOptions& options, std::vector<std::string>& folderNames) override;
  bool SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName) override;

  // "Images (*.png)|*.png" as Qt writes it: "Images (*.png) (*.png)".
  static QString ToQtFilter(const std::string& filter);

private:
  QPointer<QWidget> FParent;
};

}  // namespace qx
