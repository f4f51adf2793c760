#pragma once

#include <compare>
#include <string>
#include <vector>

namespace qx {

// What tells deployment entries apart.
struct TqxDeploymentKey {
  std::string LocalName;
  std::string Configuration;
  std::string DeploymentClass;
  std::string Platform;
  auto operator<=>(const TqxDeploymentKey&) const = default;
};

// One deployment entry: a local file under a configuration and a class, on one
// platform.
struct TqxDeploymentEntry {
  std::string LocalName;
  std::string Configuration;
  std::string DeploymentClass;
  std::string Platform;
  bool Enabled = true;
  std::string RemoteDir;
  std::string RemoteName;
  bool Overwrite = false;
  int Operation = 0;
  // Children of the entry's Platform element that this host doesn't know,
  // as raw XML; they are written back when the entry is rewritten.
  std::vector<std::string> ExtraChildren;

  TqxDeploymentKey Key() const { return {LocalName, Configuration, DeploymentClass, Platform}; }
  bool SameValues(const TqxDeploymentEntry& other) const {
    return Key() == other.Key() && Enabled == other.Enabled && RemoteDir == other.RemoteDir &&
           RemoteName == other.RemoteName && Overwrite == other.Overwrite &&
           Operation == other.Operation;
  }
};

}  // namespace qx
