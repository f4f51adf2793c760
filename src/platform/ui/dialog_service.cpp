#include "platform/ui/dialog_service.h"

#include "platform/core/base/exception.h"
#include "platform/ui/ui_services.h"

namespace qx {

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (true) {
    size_t end = text.find(separator, start);
    parts.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) return parts;
    start = end + 1;
  }
}

IqxDialogService& Service() {
  auto* service = TqxUiServices::Instance().Dialogs();
  if (!service) throw Exception("No dialog service is installed");
  return *service;
}

}  // namespace

std::vector<TFileFilterEntry> ParseDialogFilter(const std::string& filter) {
  std::vector<TFileFilterEntry> entries;
  if (filter.empty()) return entries;
  auto parts = Split(filter, '|');
  for (size_t i = 0; i + 1 < parts.size(); i += 2) {
    TFileFilterEntry entry{parts[i], {}};
    for (auto& pattern : Split(parts[i + 1], ';'))
      if (!pattern.empty()) entry.Patterns.push_back(pattern);
    entries.push_back(std::move(entry));
  }
  return entries;
}

TModalResult MessageDlg(const std::string& message, TMsgDlgType type, TMsgDlgButtons buttons,
                        int helpContext) {
  return Service().MessageDlg(message, type, buttons, helpContext);
}

bool OpenFileDialog(const TOpenDialogOptions& options, std::vector<std::string>& fileNames) {
  fileNames.clear();
  return Service().OpenFileDialog(options, fileNames);
}

bool OpenFolderDialog(const TOpenDialogOptions& options, std::vector<std::string>& folderNames) {
  folderNames.clear();
  return Service().OpenFolderDialog(options, folderNames);
}

bool SaveFileDialog(const TOpenDialogOptions& options, std::string& fileName) {
  fileName.clear();
  return Service().SaveFileDialog(options, fileName);
}

}  // namespace qx
