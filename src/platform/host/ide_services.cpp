#include "platform/host/ide_services.h"

#include "platform/core/base/assert.h"

namespace qx {

TqxIdeServices& TqxIdeServices::Instance() {
  static TqxIdeServices services;
  return services;
}

void TqxIdeServices::RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) {
  TqxAssert::IsNotNil(wizard.get(), "AWizard");
  FWizards.push_back(std::move(wizard));
}

void TqxIdeServices::Clear() {
  FWizards.clear();
  FNTAService.reset();
  FEditorViewServices.reset();
  FNTAEditorViewServices.reset();
  FModuleServices.reset();
}

std::shared_ptr<IOTAProject> GetActiveProject() {
  auto modules = TqxIdeServices::Instance().ModuleServices();
  return modules ? modules->GetActiveProject() : nullptr;
}

void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) {
  TqxIdeServices::Instance().RegisterPackageWizard(std::move(wizard));
}

}  // namespace qx
