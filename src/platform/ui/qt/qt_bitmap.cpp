#include "platform/ui/qt/qt_bitmap.h"

#include <QPixmap>
#include <cstring>

#include "platform/core/graphics/bitmap.h"
#include "platform/ui/image_list.h"

namespace qx {

QImage ToQImage(const TqxBitmap& bitmap) {
  QImage image(reinterpret_cast<const uchar*>(bitmap.Pixels()), bitmap.Width(), bitmap.Height(),
               bitmap.Width() * 4, QImage::Format_ARGB32_Premultiplied);
  return image.copy();
}

TqxBitmap FromQImage(const QImage& image) {
  const QImage source = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  TqxBitmap bitmap(source.width(), source.height());
  for (int y = 0; y < source.height(); ++y)
    std::memcpy(bitmap.Pixels() + std::size_t(y) * source.width(), source.constScanLine(y),
                std::size_t(source.width()) * 4);
  return bitmap;
}

QIcon ImageListIcon(const TCustomImageList* images, int index) {
  if (!images) return {};
  const TqxBitmap* bitmap = images->Get(index);
  if (!bitmap) return {};
  return QIcon(QPixmap::fromImage(ToQImage(*bitmap)));
}

}  // namespace qx
