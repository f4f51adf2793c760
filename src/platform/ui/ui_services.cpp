#include "platform/ui/ui_services.h"

namespace qx {

TqxUiServices& TqxUiServices::Instance() {
  static TqxUiServices instance;
  return instance;
}

}  // namespace qx
