#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/host/guid.h"

namespace qx {

// One file of a project's deployment as the IDE keeps it: a local file, under
// a configuration and a deployment class, sent to a remote folder and name on
// each platform it is entered for.
class IProjectDeploymentFile {
public:
  virtual ~IProjectDeploymentFile() = default;

  virtual std::string GetLocalName() const = 0;
  virtual std::string GetDeploymentClass() const = 0;
  virtual void SetDeploymentClass(const std::string& value) = 0;
  virtual std::string GetConfiguration() const = 0;
  virtual void SetConfiguration(const std::string& value) = 0;

  virtual bool GetEnabled(const std::string& platform) const = 0;
  virtual void SetEnabled(const std::string& platform, bool value) = 0;
  virtual std::string GetRemoteDir(const std::string& platform) const = 0;
  virtual void SetRemoteDir(const std::string& platform, const std::string& value) = 0;
  virtual std::string GetRemoteName(const std::string& platform) const = 0;
  virtual void SetRemoteName(const std::string& platform, const std::string& value) = 0;
  // How the file is treated on the device; 0, the default, copies it as it is.
  virtual int GetOperation(const std::string& platform) const = 0;
  virtual void SetOperation(const std::string& platform, int value) = 0;
  virtual bool GetOverwrite(const std::string& platform) const = 0;
  virtual void SetOverwrite(const std::string& platform, bool value) = 0;
};

// The project's deployment manager, as far as the assets deployment uses it.
class IProjectDeployment {
public:
  // The interface id under which the IDE offers the service.
  static TGUID IID() { return TGUID::Parse("{5B9DE738-9557-45F2-90EE-FC21EAEE29FE}"); }

  virtual ~IProjectDeployment() = default;

  // Every entry of the class, on every platform and configuration.
  virtual void RemoveFilesOfClass(const std::string& deploymentClass) = 0;
  // An entry for (configuration, platform, local name); its class is set on the
  // file object. Entering the same key again replaces the earlier entry.
  virtual std::shared_ptr<IProjectDeploymentFile> CreateFile(const std::string& configuration,
                                                             const std::string& platform,
                                                             const std::string& localName) = 0;
  // The entries of (configuration, platform, local name), whatever their class.
  virtual void RemoveFile(const std::string& configuration, const std::string& platform,
                          const std::string& localName) = 0;
};

}  // namespace qx
