#pragma once

#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/host/filesystem/deployment_entry.h"
#include "platform/host/filesystem/dproj_document.h"
#include "platform/host/project_deployment.h"

namespace qx {

// The deployment entries of a .dproj file, held in memory between reading and
// writing back. Entries are keyed by (local name, configuration, class,
// platform); writing back touches only the Platform elements whose entry was
// removed or changed, and adds new entries as DeployFile elements behind the
// last one. Removing an entry and entering it again with the same values
// leaves the file as it was. Look-ups go through an index by key, so that
// rewriting all entries of a large project costs a pass, not a pass per entry.
class TqxDprojDeployment : public IProjectDeployment,
                           public std::enable_shared_from_this<TqxDprojDeployment> {
public:
  // Replaces the entries by those of the document. A key that stands twice
  // counts with its first place.
  void Read(const TqxDprojDocument& document);
  // The edits that bring the document's deployment to the entries held.
  std::vector<TqxTextEdit> BuildEdits(const TqxDprojDocument& document) const;

  std::vector<TqxDeploymentEntry> Entries() const;
  std::optional<TqxDeploymentEntry> Find(const TqxDeploymentKey& key) const;

  void RemoveFilesOfClass(const std::string& deploymentClass) override;
  // New entries are enabled and overwrite the file on the device.
  std::shared_ptr<IProjectDeploymentFile> CreateFile(const std::string& configuration,
                                                     const std::string& platform,
                                                     const std::string& localName) override;
  void RemoveFile(const std::string& configuration, const std::string& platform,
                  const std::string& localName) override;

  // For the file objects: enter an entry, replacing any other of its key, and
  // re-establish the uniqueness of keys after an entry's key changed.
  void AddEntry(std::shared_ptr<TqxDeploymentEntry> entry);
  void KeyChanged(const std::shared_ptr<TqxDeploymentEntry>& entry);

private:
  // An entry and its place in the index, whose key is the one the entry was
  // indexed under: a file object changes the entry's fields first and tells
  // KeyChanged afterwards.
  struct TSlot;
  using TSlots = std::list<TSlot>;
  using TIndex = std::map<TqxDeploymentKey, TSlots::iterator>;
  struct TSlot {
    std::shared_ptr<TqxDeploymentEntry> Entry;
    TIndex::iterator Indexed;
    const TqxDeploymentKey& Key() const { return Indexed->first; }
  };

  void Insert(std::shared_ptr<TqxDeploymentEntry> entry);
  void Erase(TSlots::iterator slot);
  void EraseKey(const TqxDeploymentKey& key);

  TSlots FEntries;  // in the order of entering
  TIndex FByKey;
  std::unordered_map<const TqxDeploymentEntry*, TSlots::iterator> FByEntry;
};

}  // namespace qx
