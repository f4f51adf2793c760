#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/host/filesystem/deployment_entry.h"
#include "platform/host/project_deployment.h"

namespace qx {

class TqxDprojDeployment;

// A file object of the deployment: one local name under one configuration and
// class, with an entry for each platform it was given. Setting a value for a
// platform it has no entry for enters the file on that platform.
class TqxDprojDeploymentFile : public IProjectDeploymentFile {
public:
  TqxDprojDeploymentFile(std::weak_ptr<TqxDprojDeployment> owner,
                         std::shared_ptr<TqxDeploymentEntry> entry);

  std::string GetLocalName() const override { return FLocalName; }
  std::string GetDeploymentClass() const override { return FClass; }
  void SetDeploymentClass(const std::string& value) override;
  std::string GetConfiguration() const override { return FConfiguration; }
  void SetConfiguration(const std::string& value) override;

  bool GetEnabled(const std::string& platform) const override;
  void SetEnabled(const std::string& platform, bool value) override;
  std::string GetRemoteDir(const std::string& platform) const override;
  void SetRemoteDir(const std::string& platform, const std::string& value) override;
  std::string GetRemoteName(const std::string& platform) const override;
  void SetRemoteName(const std::string& platform, const std::string& value) override;
  int GetOperation(const std::string& platform) const override;
  void SetOperation(const std::string& platform, int value) override;
  bool GetOverwrite(const std::string& platform) const override;
  void SetOverwrite(const std::string& platform, bool value) override;

private:
  const TqxDeploymentEntry* Find(const std::string& platform) const;
  TqxDeploymentEntry& Ensure(const std::string& platform);
  void EachKeyChanged();

  std::weak_ptr<TqxDprojDeployment> FOwner;
  std::string FLocalName;
  std::string FConfiguration;
  std::string FClass;
  std::vector<std::shared_ptr<TqxDeploymentEntry>> FEntries;
};

}  // namespace qx
