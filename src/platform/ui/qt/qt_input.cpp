#include "platform/ui/qt/qt_input.h"

namespace qx {

TShiftState ToShiftState(Qt::KeyboardModifiers modifiers) {
  TShiftState shift = 0;
  if (modifiers & Qt::ShiftModifier) shift |= ssShift;
  if (modifiers & Qt::ControlModifier) shift |= ssCtrl;
  if (modifiers & Qt::AltModifier) shift |= ssAlt;
  return shift;
}

TMouseButton ToMouseButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::RightButton: return TMouseButton::mbRight;
    case Qt::MiddleButton: return TMouseButton::mbMiddle;
    default: return TMouseButton::mbLeft;
  }
}

int ToVirtualKey(int qtKey) {
  switch (qtKey) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return VK_RETURN;
    case Qt::Key_Escape: return VK_ESCAPE;
    case Qt::Key_End: return VK_END;
    case Qt::Key_Home: return VK_HOME;
    case Qt::Key_Left: return VK_LEFT;
    case Qt::Key_Up: return VK_UP;
    case Qt::Key_Right: return VK_RIGHT;
    case Qt::Key_Down: return VK_DOWN;
    case Qt::Key_Delete: return VK_DELETE;
    case Qt::Key_F2: return VK_F2;
    default: return 0;
  }
}

}  // namespace qx
