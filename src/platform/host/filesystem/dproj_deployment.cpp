#include "platform/host/filesystem/dproj_deployment.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/host/filesystem/deployment_xml.h"
#include "platform/host/filesystem/dproj_deployment_file.h"

namespace qx {

void TqxDprojDeployment::Read(const TqxDprojDocument& document) {
  FEntries.clear();
  std::set<TqxDeploymentKey> seen;
  TqxDeploymentXml xml(document);
  for (const auto& file : xml.DeployFiles())
    for (const auto& occurrence : file.Platforms)
      if (seen.insert(occurrence.Entry.Key()).second)
        FEntries.push_back(std::make_shared<TqxDeploymentEntry>(occurrence.Entry));
}

std::vector<TqxTextEdit> TqxDprojDeployment::BuildEdits(const TqxDprojDocument& document) const {
  std::map<TqxDeploymentKey, const TqxDeploymentEntry*> held;
  for (const auto& entry : FEntries) held.emplace(entry->Key(), entry.get());

  TqxDeploymentXml xml(document);
  std::vector<TqxTextEdit> edits;
  std::set<TqxDeploymentKey> written;
  for (const auto& file : xml.DeployFiles()) {
    std::vector<TqxTextEdit> fileEdits;
    bool anyKept = false;
    for (const auto& occurrence : file.Platforms) {
      const TqxDeploymentKey key = occurrence.Entry.Key();
      auto it = held.find(key);
      if (it == held.end()) {
        fileEdits.push_back(document.RemoveWithLine(occurrence.Platform));
        continue;
      }
      anyKept = true;
      // A key that stands twice in the file is represented by its first place.
      if (!written.insert(key).second || it->second->SameValues(occurrence.Entry)) continue;
      TqxDeploymentEntry entry = *it->second;
      if (entry.ExtraChildren.empty()) entry.ExtraChildren = occurrence.Entry.ExtraChildren;
      std::size_t start = document.StartOf(occurrence.Platform);
      fileEdits.push_back({start, document.EndOf(occurrence.Platform) - start,
                           xml.PlatformText(entry, document.IndentOf(occurrence.Platform))});
    }
    if (!anyKept && !file.Platforms.empty())
      edits.push_back(document.RemoveWithLine(file.Node));
    else
      edits.insert(edits.end(), fileEdits.begin(), fileEdits.end());
  }

  // New entries: one DeployFile per local name, configuration and class, in the
  // order they were entered.
  std::vector<std::vector<const TqxDeploymentEntry*>> groups;
  for (const auto& entry : FEntries) {
    if (written.count(entry->Key()) != 0) continue;
    auto group = std::find_if(groups.begin(), groups.end(), [&](const auto& g) {
      return g.front()->LocalName == entry->LocalName &&
             g.front()->Configuration == entry->Configuration &&
             g.front()->DeploymentClass == entry->DeploymentClass;
    });
    if (group == groups.end())
      groups.push_back({entry.get()});
    else
      group->push_back(entry.get());
  }
  if (!groups.empty()) edits.push_back(xml.InsertDeployFiles(groups));
  return edits;
}

std::vector<TqxDeploymentEntry> TqxDprojDeployment::Entries() const {
  std::vector<TqxDeploymentEntry> entries;
  entries.reserve(FEntries.size());
  for (const auto& entry : FEntries) entries.push_back(*entry);
  return entries;
}

std::optional<TqxDeploymentEntry> TqxDprojDeployment::Find(const TqxDeploymentKey& key) const {
  for (const auto& entry : FEntries)
    if (entry->Key() == key) return *entry;
  return std::nullopt;
}

void TqxDprojDeployment::RemoveFilesOfClass(const std::string& deploymentClass) {
  std::erase_if(FEntries, [&](const auto& e) { return e->DeploymentClass == deploymentClass; });
}

std::shared_ptr<IProjectDeploymentFile> TqxDprojDeployment::CreateFile(
    const std::string& configuration, const std::string& platform, const std::string& localName) {
  auto entry = std::make_shared<TqxDeploymentEntry>();
  entry->LocalName = localName;
  entry->Configuration = configuration;
  entry->Platform = platform;
  entry->Overwrite = true;
  AddEntry(entry);
  return std::make_shared<TqxDprojDeploymentFile>(weak_from_this(), entry);
}

void TqxDprojDeployment::RemoveFile(const std::string& configuration, const std::string& platform,
                                    const std::string& localName) {
  std::erase_if(FEntries, [&](const auto& e) {
    return e->Configuration == configuration && e->Platform == platform && e->LocalName == localName;
  });
}

void TqxDprojDeployment::AddEntry(std::shared_ptr<TqxDeploymentEntry> entry) {
  const TqxDeploymentKey key = entry->Key();
  std::erase_if(FEntries, [&](const auto& e) { return e->Key() == key; });
  FEntries.push_back(std::move(entry));
}

void TqxDprojDeployment::KeyChanged(const std::shared_ptr<TqxDeploymentEntry>& entry) {
  if (std::find(FEntries.begin(), FEntries.end(), entry) == FEntries.end()) return;
  const TqxDeploymentKey key = entry->Key();
  std::erase_if(FEntries, [&](const auto& e) { return e != entry && e->Key() == key; });
}

}  // namespace qx
