#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace qx {

// What the IDE tells an object that follows one of its modules. The IDE holds
// notifiers by interface from AddNotifier until RemoveNotifier with the id.
class IOTANotifier {
public:
  virtual ~IOTANotifier() = default;
  virtual void AfterSave() = 0;
  virtual void BeforeSave() = 0;
  // The module is going; it still answers for its file name and GUID.
  virtual void Destroyed() = 0;
  virtual void Modified() = 0;
};

class IOTAModuleNotifier : public IOTANotifier {
public:
  virtual bool CheckOverwrite() = 0;
  virtual void ModuleRenamed(const std::string& newName) = 0;
};

// Base of notifiers that care for a few calls only: the rest do nothing.
class TNotifierObject : public virtual IOTAModuleNotifier {
public:
  void AfterSave() override {}
  void BeforeSave() override {}
  void Destroyed() override {}
  void Modified() override {}
  bool CheckOverwrite() override { return true; }
  void ModuleRenamed(const std::string&) override {}
};

// Notifiers of one module under their ids. Ids start at 0 and are never reused,
// so a stale id removes nothing.
class TqxNotifierList {
public:
  int Add(std::shared_ptr<IOTAModuleNotifier> notifier);
  // False when the id is unknown (already removed, or never given).
  bool Remove(int id);
  std::size_t Count() const { return FNotifiers.size(); }
  // The notifiers in the order they were added. A copy, so that a notifier may
  // remove itself (or others) while the caller walks the list.
  std::vector<std::shared_ptr<IOTAModuleNotifier>> Snapshot() const;
  bool Contains(int id) const { return FNotifiers.count(id) != 0; }

private:
  std::map<int, std::shared_ptr<IOTAModuleNotifier>> FNotifiers;
  int FNextId = 0;
};

}  // namespace qx
