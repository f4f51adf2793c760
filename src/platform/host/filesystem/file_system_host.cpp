#include "platform/host/filesystem/file_system_host.h"

#include <algorithm>
#include <filesystem>

#include "platform/core/base/text.h"
#include "platform/host/ide_messages.h"

namespace qx {

TqxFileSystemHost::TqxFileSystemHost(TMessageManager& messages) : FMessages(messages) {}

TqxFileSystemHost::~TqxFileSystemHost() = default;

std::shared_ptr<TqxDprojProject> TqxFileSystemHost::FindProject(const std::string& fileName) const {
  std::string fullName =
      std::filesystem::absolute(std::filesystem::path(fileName)).lexically_normal().string();
  for (const auto& project : FProjects)
    if (project->GetFileName() == fullName) return project;
  return nullptr;
}

std::shared_ptr<TqxDprojProject> TqxFileSystemHost::OpenProject(const std::string& fileName) {
  if (auto open = FindProject(fileName)) {
    SetActive(open);
    return open;
  }
  auto project = TqxDprojProject::Open(fileName);
  FProjects.push_back(project);
  SetActive(project);
  TqxProjectOpenedMessage message(project);
  FMessages.SendMessage(this, message);
  return project;
}

void TqxFileSystemHost::CloseProject(const std::shared_ptr<IOTAProject>& project) {
  auto it = std::find_if(FProjects.begin(), FProjects.end(),
                         [&](const auto& p) { return p.get() == project.get(); });
  if (it == FProjects.end()) return;
  auto closing = *it;  // keeps it alive while its notifiers run
  closing->NotifyDestroyed();
  FProjects.erase(std::find(FProjects.begin(), FProjects.end(), closing));
  if (FActive == closing) SetActive(FProjects.empty() ? nullptr : FProjects.back());
}

void TqxFileSystemHost::CloseAll() {
  while (!FProjects.empty()) CloseProject(FProjects.back());
}

std::shared_ptr<IOTAProject> TqxFileSystemHost::GetActiveProject() { return FActive; }

void TqxFileSystemHost::SetActiveProject(const std::shared_ptr<IOTAProject>& project) {
  if (!project) {
    SetActive(nullptr);
    return;
  }
  for (const auto& p : FProjects)
    if (p.get() == project.get()) SetActive(p);
}

void TqxFileSystemHost::SetActive(std::shared_ptr<TqxDprojProject> project) {
  if (FActive == project) return;
  FActive = std::move(project);
  if (FOnActiveProjectChanged) FOnActiveProjectChanged(FActive);
}

}  // namespace qx
