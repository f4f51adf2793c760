#pragma once

#include <memory>

#include "platform/host/guid.h"
#include "platform/host/message_manager.h"
#include "platform/host/project.h"

namespace qx {

// Sent by the host when it has opened a project; the value is the project.
class TqxProjectOpenedMessage : public TMessage<std::shared_ptr<IOTAProject>> {
public:
  using TMessage::TMessage;
};

// Sent by the assets designer when it has finished with the IDE-wide assets
// manager of the project with this GUID, so that the manager may go.
class TqxCanRemoveAssetsManager : public TMessage<TGUID> {
public:
  using TMessage::TMessage;
};

}  // namespace qx
