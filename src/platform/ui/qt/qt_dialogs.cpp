#include "platform/ui/qt/qt_dialogs.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QListView>
#include <QMessageBox>
#include <QTreeView>

namespace qx {

namespace {

struct TButtonMap {
  TMsgDlgButtons Button;
  QMessageBox::StandardButton Qt;
  TModalResult Result;
};

constexpr TButtonMap kButtons[] = {
    {mbYes, QMessageBox::Yes, mrYes},       {mbNo, QMessageBox::No, mrNo},
    {mbOK, QMessageBox::Ok, mrOk},          {mbCancel, QMessageBox::Cancel, mrCancel},
    {mbAbort, QMessageBox::Abort, mrAbort}, {mbRetry, QMessageBox::Retry, mrRetry},
    {mbIgnore, QMessageBox::Ignore, mrIgnore}, {mbAll, QMessageBox::YesToAll, mrAll},
};

QMessageBox::Icon IconOf(TMsgDlgType type) {
  switch (type) {
    case TMsgDlgType::mtWarning: return QMessageBox::Warning;
    case TMsgDlgType::mtError: return QMessageBox::Critical;
    case TMsgDlgType::mtInformation: return QMessageBox::Information;
    case TMsgDlgType::mtConfirmation: return QMessageBox::Question;
    default: return QMessageBox::NoIcon;
  }
}

std::vector<std::string> ToStrings(const QStringList& list) {
  std::vector<std::string> out;
  for (const QString& s : list) out.push_back(s.toStdString());
  return out;
}

}  // namespace

TModalResult TqxQtDialogService::MessageDlg(const std::string& message, TMsgDlgType type,
                                            TMsgDlgButtons buttons, int) {
  QMessageBox box(IconOf(type), QApplication::applicationDisplayName(), QString::fromStdString(message),
                  QMessageBox::NoButton, FParent);
  QMessageBox::StandardButtons standard;
  for (auto& b : kButtons)
    if (buttons & b.Button) standard |= b.Qt;
  box.setStandardButtons(standard);
  int answer = box.exec();
  for (auto& b : kButtons)
    if (answer == b.Qt) return b.Result;
  return mrCancel;  // closed by the window's frame or Escape
}

QString TqxQtDialogService::ToQtFilter(const std::string& filter) {
  QStringList parts;
  for (auto& entry : ParseDialogFilter(filter)) {
    QStringList patterns;
    for (auto& p : entry.Patterns) patterns << QString::fromStdString(p);
    parts << QString::fromStdString(entry.Caption) + " (" + patterns.join(' ') + ")";
  }
  return parts.join(";;");
}

bool TqxQtDialogService::OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& fileNames) {
  QFileDialog dialog(FParent, QString::fromStdString(options.Title), QString::fromStdString(options.InitialDir),
                     ToQtFilter(options.Filter));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(options.MultiSelect ? QFileDialog::ExistingFiles
                                         : (options.MustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile));
  if (dialog.exec() != QDialog::Accepted) return false;
  fileNames = ToStrings(dialog.selectedFiles());
  return !fileNames.empty();
}

bool TqxQtDialogService::SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName) {
  QFileDialog dialog(FParent, QString::fromStdString(options.Title), QString::fromStdString(options.InitialDir),
                     ToQtFilter(options.Filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  fileName = dialog.selectedFiles().first().toStdString();
  return true;
}

bool TqxQtDialogService::OpenFolderDialog(const TOpenDialogOptions& options,
                                          std::vector<std::string>& folderNames) {
  QFileDialog dialog(FParent, QString::fromStdString(options.Title), QString::fromStdString(options.InitialDir));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly, true);
  if (options.MultiSelect) {
    // Qt's own dialog picks one folder; its views can be told to take several.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    for (auto* view : dialog.findChildren<QAbstractItemView*>())
      if (qobject_cast<QListView*>(view) || qobject_cast<QTreeView*>(view))
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
  }
  if (dialog.exec() != QDialog::Accepted) return false;
  folderNames = ToStrings(dialog.selectedFiles());
  return !folderNames.empty();
}

}  // namespace qx
