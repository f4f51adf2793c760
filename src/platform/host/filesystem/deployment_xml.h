#pragma once

#include <string>
#include <vector>

#include <pugixml.hpp>

#include "platform/host/filesystem/deployment_entry.h"
#include "platform/host/filesystem/dproj_document.h"

namespace qx {

// Where the deployment entries of a project file stand, and how new ones are
// written in the file's own style.
class TqxDeploymentXml {
public:
  // One Platform element of a DeployFile element, as an entry.
  struct TOccurrence {
    TqxDeploymentEntry Entry;
    pugi::xml_node Platform;
  };
  struct TDeployFile {
    pugi::xml_node Node;
    std::vector<TOccurrence> Platforms;
  };

  explicit TqxDeploymentXml(const TqxDprojDocument& document);

  // The DeployFile elements of Project/ProjectExtensions/BorlandProject/Deployment,
  // in file order, whether their platforms are split or combined.
  const std::vector<TDeployFile>& DeployFiles() const { return FDeployFiles; }

  // Platform element text of an entry (first line not indented), at the indent
  // the Platform element itself stands at.
  std::string PlatformText(const TqxDeploymentEntry& entry, const std::string& indent) const;
  // A DeployFile element holding entries that share local name, configuration and class.
  std::string DeployFileText(const std::vector<const TqxDeploymentEntry*>& entries,
                             const std::string& indent) const;
  // The edit that puts these DeployFile groups behind the last DeployFile, or
  // first in Deployment, making the elements on the way when they are missing.
  TqxTextEdit InsertDeployFiles(const std::vector<std::vector<const TqxDeploymentEntry*>>& groups) const;

private:
  void Read();
  void DetectIndents();

  const TqxDprojDocument& FDocument;
  pugi::xml_node FDeployment;
  std::vector<TDeployFile> FDeployFiles;
  std::string FPlatformStep;
  std::string FLeafStep;
};

}  // namespace qx
