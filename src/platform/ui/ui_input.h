#pragma once

#include <string>
#include <vector>

namespace qx {

struct TPoint {
  int X = 0, Y = 0;
  bool operator==(const TPoint&) const = default;
};

// Modifier keys and mouse buttons held during an input event, as a bit set.
using TShiftState = unsigned;
inline constexpr TShiftState ssShift = 1, ssAlt = 2, ssCtrl = 4, ssLeft = 8, ssRight = 16;

enum class TMouseButton { mbLeft, mbRight, mbMiddle };

// Virtual key codes of the keys the controls act on.
inline constexpr int VK_RETURN = 0x0D, VK_ESCAPE = 0x1B, VK_END = 0x23, VK_HOME = 0x24,
                     VK_LEFT = 0x25, VK_UP = 0x26, VK_RIGHT = 0x27, VK_DOWN = 0x28,
                     VK_DELETE = 0x2E, VK_F2 = 0x71;

// Where a dragged item would land relative to the row under the cursor.
enum class TDropMode { dmNowhere, dmAbove, dmOnNode, dmBelow };
enum class TDragState { dsDragEnter, dsDragLeave, dsDragMove };
enum class TDragEffect { deNone, deCopy, deMove, deLink };

// The clipboard format of a list of dropped files.
inline constexpr int CF_HDROP = 15;

// What a drop carries: the formats it offers and, for CF_HDROP, the file names.
struct TVTDragData {
  std::vector<int> Formats;
  std::vector<std::string> FileNames;
  bool HasFormat(int format) const {
    for (int f : Formats)
      if (f == format) return true;
    return false;
  }
  static TVTDragData Files(std::vector<std::string> names) {
    return TVTDragData{{CF_HDROP}, std::move(names)};
  }
};

}  // namespace qx
