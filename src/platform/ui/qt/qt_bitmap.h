#pragma once

#include <QIcon>
#include <QImage>

namespace qx {

class TqxBitmap;
class TCustomImageList;

// A deep copy of the bitmap's pixels; both keep premultiplied ARGB32.
QImage ToQImage(const TqxBitmap& bitmap);
// The image's pixels as a bitmap of the same size, whatever the image's format.
TqxBitmap FromQImage(const QImage& image);
// The image of the list at index, or a null icon for none.
QIcon ImageListIcon(const TCustomImageList* images, int index);

}  // namespace qx
