#include "platform/host/filesystem/dproj_deployment.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "platform/host/filesystem/deployment_xml.h"
#include "platform/host/filesystem/dproj_deployment_file.h"

namespace qx {

void TqxDprojDeployment::Read(const TqxDprojDocument& document) {
  FEntries.clear();
  FByKey.clear();
  FByEntry.clear();
  TqxDeploymentXml xml(document);
  for (const auto& file : xml.DeployFiles())
    for (const auto& occurrence : file.Platforms)
      if (FByKey.count(occurrence.Entry.Key()) == 0)
        Insert(std::make_shared<TqxDeploymentEntry>(occurrence.Entry));
}

std::vector<TqxTextEdit> TqxDprojDeployment::BuildEdits(const TqxDprojDocument& document) const {
  TqxDeploymentXml xml(document);
  std::vector<TqxTextEdit> edits;
  std::set<TqxDeploymentKey> written;
  for (const auto& file : xml.DeployFiles()) {
    std::vector<TqxTextEdit> fileEdits;
    bool anyKept = false;
    for (const auto& occurrence : file.Platforms) {
      const TqxDeploymentKey key = occurrence.Entry.Key();
      auto it = FByKey.find(key);
      if (it == FByKey.end()) {
        fileEdits.push_back(document.RemoveWithLine(occurrence.Platform));
        continue;
      }
      anyKept = true;
      // A key that stands twice in the file is represented by its first place.
      const TqxDeploymentEntry& held = *it->second->Entry;
      if (!written.insert(key).second || held.SameValues(occurrence.Entry)) continue;
      TqxDeploymentEntry entry = held;
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
  std::map<std::tuple<std::string, std::string, std::string>, std::size_t> groupOf;
  for (const auto& slot : FEntries) {
    const TqxDeploymentKey& key = slot.Key();
    if (written.count(key) != 0) continue;
    auto [group, added] =
        groupOf.try_emplace({key.LocalName, key.Configuration, key.DeploymentClass}, groups.size());
    if (added) groups.emplace_back();
    groups[group->second].push_back(slot.Entry.get());
  }
  if (!groups.empty()) edits.push_back(xml.InsertDeployFiles(groups));
  return edits;
}

std::vector<TqxDeploymentEntry> TqxDprojDeployment::Entries() const {
  std::vector<TqxDeploymentEntry> entries;
  entries.reserve(FEntries.size());
  for (const auto& slot : FEntries) entries.push_back(*slot.Entry);
  return entries;
}

std::optional<TqxDeploymentEntry> TqxDprojDeployment::Find(const TqxDeploymentKey& key) const {
  auto it = FByKey.find(key);
  if (it == FByKey.end()) return std::nullopt;
  return *it->second->Entry;
}

void TqxDprojDeployment::RemoveFilesOfClass(const std::string& deploymentClass) {
  for (auto slot = FEntries.begin(); slot != FEntries.end();) {
    auto next = std::next(slot);
    if (slot->Key().DeploymentClass == deploymentClass) Erase(slot);
    slot = next;
  }
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
  // Keys sort by local name and configuration first: the entries of every
  // class under that pair stand together.
  auto it = FByKey.lower_bound({localName, configuration, "", ""});
  while (it != FByKey.end() && it->first.LocalName == localName &&
         it->first.Configuration == configuration) {
    auto slot = (it++)->second;
    if (slot->Key().Platform == platform) Erase(slot);
  }
}

void TqxDprojDeployment::AddEntry(std::shared_ptr<TqxDeploymentEntry> entry) {
  EraseKey(entry->Key());
  Insert(std::move(entry));
}

void TqxDprojDeployment::KeyChanged(const std::shared_ptr<TqxDeploymentEntry>& entry) {
  auto found = FByEntry.find(entry.get());
  if (found == FByEntry.end()) return;
  auto slot = found->second;
  const TqxDeploymentKey& indexed = slot->Key();
  // Setters mostly repeat what the entry holds: no key is built for them.
  if (entry->LocalName == indexed.LocalName && entry->Configuration == indexed.Configuration &&
      entry->DeploymentClass == indexed.DeploymentClass && entry->Platform == indexed.Platform)
    return;
  auto node = FByKey.extract(slot->Indexed);
  node.key() = entry->Key();
  EraseKey(node.key());
  slot->Indexed = FByKey.insert(std::move(node)).position;
}

void TqxDprojDeployment::Insert(std::shared_ptr<TqxDeploymentEntry> entry) {
  TqxDeploymentKey key = entry->Key();
  auto slot = FEntries.insert(FEntries.end(), {std::move(entry), {}});
  slot->Indexed = FByKey.emplace(std::move(key), slot).first;
  FByEntry.emplace(slot->Entry.get(), slot);
}

void TqxDprojDeployment::Erase(TSlots::iterator slot) {
  FByKey.erase(slot->Indexed);
  FByEntry.erase(slot->Entry.get());
  FEntries.erase(slot);
}

void TqxDprojDeployment::EraseKey(const TqxDeploymentKey& key) {
  auto it = FByKey.find(key);
  if (it != FByKey.end()) Erase(it->second);
}

}  // namespace qx
