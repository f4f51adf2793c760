#include "platform/ui/qt/qt_bitmap.h"

#include <QPixmap>

#include "platform/core/graphics/bitmap.h"
#include "platform/ui/image_list.h"

namespace qx {

QImage ToQImage(const TqxBitmap& bitmap) {
  QImage image(reinterpret_cast<const uchar*>(bitmap.Pixels()), bitmap.Width(), bitmap.Height(),
               bitmap.Width() * 4, QImage::Format_ARGB32_Premultiplied);
  return image.copy();
}

QIcon ImageListIcon(const TCustomImageList* images, int index) {
  if (!images) return {};
  const TqxBitmap* bitmap = images->Get(index);
  if (!bitmap) return {};
  return QIcon(QPixmap::fromImage(ToQImage(*bitmap)));
}

}  // namespace qx
