#include "platform/host/notifier.h"

#include "platform/core/base/assert.h"

namespace qx {

int TqxNotifierList::Add(std::shared_ptr<IOTAModuleNotifier> notifier) {
  TqxAssert::IsNotNil(notifier.get(), "ANotifier");
  int id = FNextId++;
  FNotifiers.emplace(id, std::move(notifier));
  return id;
}

bool TqxNotifierList::Remove(int id) { return FNotifiers.erase(id) != 0; }

std::vector<std::shared_ptr<IOTAModuleNotifier>> TqxNotifierList::Snapshot() const {
  std::vector<std::shared_ptr<IOTAModuleNotifier>> list;
  list.reserve(FNotifiers.size());
  for (const auto& [id, notifier] : FNotifiers) list.push_back(notifier);
  return list;
}

}  // namespace qx
