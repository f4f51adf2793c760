#include "frames/qt/frame_widgets.h"

#include <QMouseEvent>
#include <QPainter>

#include "frames/base_asset_editor_frame.h"
#include "frames/file_asset_frames.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/lottie_animation.h"
#include "platform/ui/qt/qt_bitmap.h"
#include "platform/ui/qt/qt_popups.h"

namespace qx {

namespace {

QRect ToQRect(const TRect& r) { return QRect(r.Left, r.Top, r.Right - r.Left, r.Bottom - r.Top); }

void PaintDashedBox(QPainter& painter, const QRect& box) {
  QPen pen(QColor(0x80, 0x80, 0x80));
  pen.setStyle(Qt::DashLine);
  painter.setPen(pen);
  painter.drawRect(box.adjusted(0, 0, -1, -1));
}

}  // namespace

TqxSinglePreviewWidget::TqxSinglePreviewWidget(TBaseEditorSinglePreview& frame, QWidget* parent)
    : QWidget(parent), FFrame(frame) {
  setFixedSize(frame.Width(), frame.Height());
  TqxQtPopupService::SetAnchorWidget(this, &frame);
  frame.OnRepaint = [this] { FrameRepainted(); };
  FrameRepainted();
}

TqxSinglePreviewWidget::~TqxSinglePreviewWidget() { FFrame.OnRepaint = nullptr; }

void TqxSinglePreviewWidget::FrameRepainted() {
  setToolTip(QString::fromStdString(FFrame.Hint()));
  update();
}

void TqxSinglePreviewWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect box = ToQRect(TBaseEditorSinglePreview::PreviewBounds());
  TqxBitmap bitmap(box.width(), box.height());
  FFrame.PaintPreview(bitmap);
  painter.drawImage(box.topLeft(), ToQImage(bitmap));
  QFont font = painter.font();
  font.setPixelSize(9);
  painter.setFont(font);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(ToQRect(TBaseEditorSinglePreview::TitleBounds()), Qt::AlignCenter,
                   QString::fromStdString(FFrame.Title()));
}

void TqxSinglePreviewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton &&
      ToQRect(TBaseEditorSinglePreview::PreviewBounds()).contains(event->position().toPoint()))
    FFrame.OpenEditor();
}

TqxLottieFrameWidget::TqxLottieFrameWidget(TEditorLottieAnimation& frame, QWidget* parent)
    : QWidget(parent), FEditor(frame) {
  setFixedSize(frame.Width(), frame.Height());
  TqxQtPopupService::SetAnchorWidget(this, &frame);
  connect(&FTimer, &QTimer::timeout, this, [this] {
    ++FFrame;
    update();
  });
  frame.OnRepaint = [this] { Restart(); };
  Restart();
}

TqxLottieFrameWidget::~TqxLottieFrameWidget() { FEditor.OnRepaint = nullptr; }

void TqxLottieFrameWidget::Restart() {
  FTimer.stop();
  FFrame = 0;
  if (const TqxLottieAnimation* animation = FEditor.Animation(); animation && animation->FrameRate() > 0)
    FTimer.start(std::max(int(1000 / animation->FrameRate()), 10));
  update();
}

void TqxLottieFrameWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect layer = ToQRect(TEditorLottieAnimation::LayerBounds());
  PaintDashedBox(painter, layer);
  if (const TqxLottieAnimation* animation = FEditor.Animation()) {
    TqxBitmap bitmap(layer.width(), layer.height());
    animation->RenderFrame(std::size_t(FFrame), bitmap);
    painter.drawImage(layer.topLeft(), ToQImage(bitmap));
  }
}

void TqxLottieFrameWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton &&
      ToQRect(TEditorLottieAnimation::LayerBounds()).contains(event->position().toPoint()))
    FEditor.OpenPicker();
}

QWidget* CreateFrameWidget(TBaseAssetEditorFrame& frame, QWidget* parent) {
  if (auto* lottie = dynamic_cast<TEditorLottieAnimation*>(&frame)) return new TqxLottieFrameWidget(*lottie, parent);
  if (auto* single = dynamic_cast<TBaseEditorSinglePreview*>(&frame)) return new TqxSinglePreviewWidget(*single, parent);
  // A frame of a kind without a widget yet keeps its place empty.
  auto* empty = new QWidget(parent);
  empty->setFixedSize(frame.Width(), frame.Height());
  return empty;
}

}  // namespace qx
