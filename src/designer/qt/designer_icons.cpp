#include "designer/qt/designer_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <functional>
#include <map>
#include <string>

#include "platform/core/graphics/bitmap.h"
#include "platform/ui/image_list.h"
#include "platform/ui/qt/qt_bitmap.h"

namespace qx {
namespace {

// Every glyph is drawn on a 24x24 grid; the painter scales it to the list.
using TGlyph = std::function<void(QPainter&)>;

void Folder(QPainter& p) {
  p.setPen(QPen(QColor(0x9a, 0x6b, 0x10), 1));
  p.setBrush(QColor(0xf2, 0xc2, 0x4b));
  QPainterPath path;
  path.moveTo(2, 6);
  path.lineTo(9, 6);
  path.lineTo(11, 8);
  path.lineTo(22, 8);
  path.lineTo(22, 20);
  path.lineTo(2, 20);
  path.closeSubpath();
  p.drawPath(path);
}

void Page(QPainter& p) {
  p.setPen(QPen(QColor(0x55, 0x5f, 0x6d), 1));
  p.setBrush(Qt::white);
  QPainterPath path;
  path.moveTo(5, 2);
  path.lineTo(15, 2);
  path.lineTo(20, 7);
  path.lineTo(20, 22);
  path.lineTo(5, 22);
  path.closeSubpath();
  p.drawPath(path);
  p.drawLine(QPointF(15, 2), QPointF(15, 7));
  p.drawLine(QPointF(15, 7), QPointF(20, 7));
}

void Letter(QPainter& p, const QString& text, const QColor& color, int pixelSize) {
  QFont font = p.font();
  font.setBold(true);
  font.setPixelSize(pixelSize);
  p.setFont(font);
  p.setPen(color);
  p.drawText(QRectF(0, 0, 24, 24), Qt::AlignCenter, text);
}

void Font(QPainter& p) { Letter(p, "A", QColor(0x2d, 0x4a, 0x8a), 18); }

void Lottie(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x00, 0xb3, 0x98));
  p.drawEllipse(QRectF(2, 2, 20, 20));
  p.setBrush(Qt::white);
  p.drawPolygon(QPolygonF({QPointF(9, 7), QPointF(17, 12), QPointF(9, 17)}));
}

void Theme(QPainter& p) {
  p.setPen(QPen(QColor(0x6b, 0x4c, 0x2a), 1));
  p.setBrush(QColor(0xf3, 0xe3, 0xc4));
  p.drawEllipse(QRectF(2, 3, 20, 18));
  p.setPen(Qt::NoPen);
  const QColor dots[] = {QColor(0xe5, 0x39, 0x35), QColor(0x43, 0xa0, 0x47), QColor(0x1e, 0x88, 0xe5)};
  const QPointF at[] = {QPointF(8, 9), QPointF(13, 7), QPointF(16, 12)};
  for (int i = 0; i < 3; ++i) {
    p.setBrush(dots[i]);
    p.drawEllipse(at[i], 2.2, 2.2);
  }
}

void Image(QPainter& p) {
  p.setPen(QPen(QColor(0x37, 0x47, 0x4f), 1));
  p.setBrush(QColor(0xb3, 0xe5, 0xfc));
  p.drawRect(QRectF(2.5, 4.5, 19, 15));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x38, 0x8e, 0x3c));
  p.drawPolygon(QPolygonF({QPointF(3, 19), QPointF(10, 10), QPointF(15, 16), QPointF(18, 13), QPointF(21, 19)}));
  p.setBrush(QColor(0xfb, 0xc0, 0x2d));
  p.drawEllipse(QPointF(17, 8.5), 2, 2);
}

void Color(QPainter& p) {
  QConicalGradient wheel(12, 12, 0);
  for (int i = 0; i <= 6; ++i) wheel.setColorAt(i / 6.0, QColor::fromHsv((i * 60) % 360, 220, 240));
  p.setPen(Qt::NoPen);
  p.setBrush(wheel);
  p.drawEllipse(QRectF(2, 2, 20, 20));
}

void Svg(QPainter& p) {
  p.setPen(QPen(QColor(0xe6, 0x51, 0x00), 2));
  p.setBrush(Qt::NoBrush);
  QPainterPath path;
  path.moveTo(3, 18);
  path.cubicTo(8, 2, 16, 22, 21, 6);
  p.drawPath(path);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x37, 0x47, 0x4f));
  p.drawRect(QRectF(1.5, 16.5, 3, 3));
  p.drawRect(QRectF(19.5, 4.5, 3, 3));
}

void Mask(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x45, 0x5a, 0x64));
  QPainterPath path;
  path.addRect(QRectF(2, 2, 20, 20));
  path.addEllipse(QRectF(5, 5, 14, 14));
  p.drawPath(path);
}

void Stub(QPainter& p) {
  p.setPen(QPen(QColor(0x78, 0x90, 0x9c), 1.5));
  p.setBrush(QColor(0xec, 0xef, 0xf1));
  p.drawRect(QRectF(3, 4, 18, 16));
  p.drawLine(QPointF(3, 4), QPointF(21, 20));
  p.drawLine(QPointF(21, 4), QPointF(3, 20));
}

void Remove(QPainter& p) {
  p.setPen(QPen(QColor(0xd3, 0x2f, 0x2f), 3, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(6, 6), QPointF(18, 18));
  p.drawLine(QPointF(18, 6), QPointF(6, 18));
}

void Save(QPainter& p) {
  p.setPen(QPen(QColor(0x1a, 0x23, 0x7e), 1));
  p.setBrush(QColor(0x39, 0x49, 0xab));
  p.drawRoundedRect(QRectF(3, 3, 18, 18), 2, 2);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(7, 3.5, 10, 6));
  p.setBrush(QColor(0xc5, 0xca, 0xe9));
  p.drawRect(QRectF(6, 13, 12, 8));
}

// Turns a glyph into its "add" picture: the glyph with a plus badge.
TGlyph Adding(TGlyph glyph) {
  return [glyph](QPainter& p) {
    p.save();
    p.scale(0.85, 0.85);
    glyph(p);
    p.restore();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x2e, 0x7d, 0x32));
    p.drawEllipse(QRectF(13, 13, 11, 11));
    p.setPen(QPen(Qt::white, 2));
    p.drawLine(QPointF(18.5, 15.5), QPointF(18.5, 21.5));
    p.drawLine(QPointF(15.5, 18.5), QPointF(21.5, 18.5));
  };
}

const std::map<std::string, TGlyph>& Glyphs() {
  static const std::map<std::string, TGlyph> glyphs = {
      {"Folder Closed", Folder},
      {"Font", Font},
      {"File", Page},
      {"Lottie Animation", Lottie},
      {"Theme", Theme},
      {"Add Image", Adding(Image)},
      {"Add Folder", Adding(Folder)},
      {"Remove", Remove},
      {"Add Color", Adding(Color)},
      {"Add Theme", Adding(Theme)},
      {"Save", Save},
      {"Add Mask", Adding(Mask)},
      {"Add Font", Adding(Font)},
      {"Add File", Adding(Page)},
      {"Add Lottie Animation", Adding(Lottie)},
      {"Add Iimage Stub", Adding(Stub)},
      {"Add SVG", Adding(Svg)},
  };
  return glyphs;
}

}  // namespace

void PaintDesignerIcons(TCustomImageList& images) {
  const auto& glyphs = Glyphs();
  for (int i = 0; i < images.Count(); ++i) {
    auto glyph = glyphs.find(images.Name(i));
    if (glyph == glyphs.end()) continue;
    QImage image(images.Width(), images.Height(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(images.Width() / 24.0, images.Height() / 24.0);
    glyph->second(painter);
    painter.end();
    images.Replace(i, FromQImage(image));
  }
}

}  // namespace qx
