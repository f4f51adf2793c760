#pragma once

#include <QIcon>
#include <QImage>

namespace qx {

class TqxBitmap;
class TCustomImageList;

// A deep copy of the bitmap's pixels; both keep premultiplied ARGB32.
QImage ToQImage(const TqxBitmap& bitmap);
// The image of the list at index, or a null icon for none.
QIcon ImageListIcon(const TCustomImageList* images, int index);

}  // namespace qx
