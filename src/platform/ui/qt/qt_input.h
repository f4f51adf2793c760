#pragma once

#include <Qt>

#include "platform/ui/ui_input.h"

namespace qx {

TShiftState ToShiftState(Qt::KeyboardModifiers modifiers);
TMouseButton ToMouseButton(Qt::MouseButton button);
// The virtual key of a key the controls act on; 0 for others.
int ToVirtualKey(int qtKey);

}  // namespace qx
