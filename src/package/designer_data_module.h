#pragma once

#include <memory>

#include "platform/ui/image_list.h"

namespace qx {

// Images the design-time editors share, made once when the package registers.
class TDesignerDataModule {
public:
  // The images of the package's editor tabs, registered with the IDE under "Quorvex".
  TCustomImageList ImageListTabs{16, 16};
};

// Makes the shared module; a second call keeps the one there is.
void InitializeDesignerDataModule();
void FinalizeDesignerDataModule();
// The shared module, or nullptr before InitializeDesignerDataModule.
TDesignerDataModule* DesignerDataModule();

}  // namespace qx
