#include "platform/host/filesystem/dproj_deployment_file.h"

#include "platform/host/filesystem/dproj_deployment.h"

namespace qx {

TqxDprojDeploymentFile::TqxDprojDeploymentFile(std::weak_ptr<TqxDprojDeployment> owner,
                                               std::shared_ptr<TqxDeploymentEntry> entry)
    : FOwner(std::move(owner)),
      FLocalName(entry->LocalName),
      FConfiguration(entry->Configuration),
      FClass(entry->DeploymentClass) {
  FEntries.push_back(std::move(entry));
}

void TqxDprojDeploymentFile::SetDeploymentClass(const std::string& value) {
  FClass = value;
  for (auto& entry : FEntries) entry->DeploymentClass = value;
  EachKeyChanged();
}

void TqxDprojDeploymentFile::SetConfiguration(const std::string& value) {
  FConfiguration = value;
  for (auto& entry : FEntries) entry->Configuration = value;
  EachKeyChanged();
}

void TqxDprojDeploymentFile::EachKeyChanged() {
  if (auto owner = FOwner.lock())
    for (const auto& entry : FEntries) owner->KeyChanged(entry);
}

const TqxDeploymentEntry* TqxDprojDeploymentFile::Find(const std::string& platform) const {
  for (const auto& entry : FEntries)
    if (entry->Platform == platform) return entry.get();
  return nullptr;
}

TqxDeploymentEntry& TqxDprojDeploymentFile::Ensure(const std::string& platform) {
  for (auto& entry : FEntries)
    if (entry->Platform == platform) return *entry;
  // A further platform starts with the values of a new entry, not another platform's.
  auto entry = std::make_shared<TqxDeploymentEntry>();
  entry->LocalName = FLocalName;
  entry->Configuration = FConfiguration;
  entry->DeploymentClass = FClass;
  entry->Platform = platform;
  entry->Overwrite = true;
  FEntries.push_back(entry);
  if (auto owner = FOwner.lock()) owner->AddEntry(entry);
  return *entry;
}

bool TqxDprojDeploymentFile::GetEnabled(const std::string& platform) const {
  const auto* entry = Find(platform);
  return entry != nullptr && entry->Enabled;
}

void TqxDprojDeploymentFile::SetEnabled(const std::string& platform, bool value) {
  Ensure(platform).Enabled = value;
}

std::string TqxDprojDeploymentFile::GetRemoteDir(const std::string& platform) const {
  const auto* entry = Find(platform);
  return entry != nullptr ? entry->RemoteDir : std::string();
}

void TqxDprojDeploymentFile::SetRemoteDir(const std::string& platform, const std::string& value) {
  Ensure(platform).RemoteDir = value;
}

std::string TqxDprojDeploymentFile::GetRemoteName(const std::string& platform) const {
  const auto* entry = Find(platform);
  return entry != nullptr ? entry->RemoteName : std::string();
}

void TqxDprojDeploymentFile::SetRemoteName(const std::string& platform, const std::string& value) {
  Ensure(platform).RemoteName = value;
}

int TqxDprojDeploymentFile::GetOperation(const std::string& platform) const {
  const auto* entry = Find(platform);
  return entry != nullptr ? entry->Operation : 0;
}

void TqxDprojDeploymentFile::SetOperation(const std::string& platform, int value) {
  Ensure(platform).Operation = value;
}

bool TqxDprojDeploymentFile::GetOverwrite(const std::string& platform) const {
  const auto* entry = Find(platform);
  return entry != nullptr && entry->Overwrite;
}

void TqxDprojDeploymentFile::SetOverwrite(const std::string& platform, bool value) {
  Ensure(platform).Overwrite = value;
}

}  // namespace qx
