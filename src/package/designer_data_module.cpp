#include "package/designer_data_module.h"

namespace qx {

namespace {

std::unique_ptr<TDesignerDataModule>& Instance() {
  static std::unique_ptr<TDesignerDataModule> instance;
  return instance;
}

}  // namespace

void InitializeDesignerDataModule() {
  if (!Instance()) Instance() = std::make_unique<TDesignerDataModule>();
}

void FinalizeDesignerDataModule() { Instance().reset(); }

TDesignerDataModule* DesignerDataModule() { return Instance().get(); }

}  // namespace qx
