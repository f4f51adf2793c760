#include "platform/designtime/qt/color_picker_widget.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <functional>

#include "platform/core/graphics/color.h"
#include "platform/designtime/color_picker.h"
#include "platform/ui/qt/qt_popups.h"

namespace qx {

namespace {

QColor ToQColor(TAlphaColor c) { return QColor(RedOf(c), GreenOf(c), BlueOf(c), AlphaOf(c)); }

void PaintChess(QPainter& painter, const QRect& rect) {
  const int cell = 6;
  for (int y = rect.top(); y <= rect.bottom(); y += cell)
    for (int x = rect.left(); x <= rect.right(); x += cell)
      painter.fillRect(QRect(x, y, cell, cell).intersected(rect),
                       ((x - rect.left()) / cell + (y - rect.top()) / cell) % 2 ? QColor(0xD3, 0xD3, 0xD3) : Qt::white);
}

// A control drawn by a function that turns presses and drags into a
// position from 0 to 1 on each axis.
class TqxPickArea : public QWidget {
public:
  using TPaint = std::function<void(QPainter&, const QRect&)>;
  using TPick = std::function<void(double, double)>;

  TqxPickArea(QSize size, TPaint paint, TPick pick, QWidget* parent)
      : QWidget(parent), FPaint(std::move(paint)), FPick(std::move(pick)) {
    setFixedSize(size);
    setCursor(Qt::CrossCursor);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    FPaint(painter, rect());
  }
  void mousePressEvent(QMouseEvent* event) override { Pick(event->position()); }
  void mouseMoveEvent(QMouseEvent* event) override {
    if (event->buttons() & Qt::LeftButton) Pick(event->position());
  }

private:
  void Pick(QPointF at) {
    FPick(std::clamp(at.x() / std::max(width() - 1, 1), 0.0, 1.0),
          std::clamp(at.y() / std::max(height() - 1, 1), 0.0, 1.0));
  }
  TPaint FPaint;
  TPick FPick;
};

void PaintMarker(QPainter& painter, QPointF at) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 2));
  painter.drawEllipse(at, 5, 5);
  painter.setPen(QPen(Qt::black, 1));
  painter.drawEllipse(at, 6, 6);
}

}  // namespace

TqxColorPickerWidget::TqxColorPickerWidget(TqxColorPicker& picker, QWidget* parent)
    : QWidget(parent), FPicker(picker) {
  setObjectName("ColorPicker");
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(6);

  FSquare = new TqxPickArea(
      {160, 160},
      [this](QPainter& p, const QRect& r) {
        p.fillRect(r, ToQColor(TqxColorPicker::HueColor(FPicker.Hue())));
        QLinearGradient white(r.topLeft(), r.topRight());
        white.setColorAt(0, Qt::white);
        white.setColorAt(1, QColor(255, 255, 255, 0));
        p.fillRect(r, white);
        QLinearGradient black(r.topLeft(), r.bottomLeft());
        black.setColorAt(0, QColor(0, 0, 0, 0));
        black.setColorAt(1, Qt::black);
        p.fillRect(r, black);
        PaintMarker(p, {FPicker.Saturation() * (r.width() - 1), (1 - FPicker.Value()) * (r.height() - 1)});
      },
      [this](double x, double y) {
        FPicker.SetSaturationValue(x, 1 - y);
        SyncFromPicker();
      },
      this);
  FHue = new TqxPickArea(
      {18, 160},
      [this](QPainter& p, const QRect& r) {
        QLinearGradient hues(r.topLeft(), r.bottomLeft());
        for (int i = 0; i <= 6; ++i) hues.setColorAt(i / 6.0, ToQColor(TqxColorPicker::HueColor(i * 60.0)));
        p.fillRect(r, hues);
        const int y = int(FPicker.Hue() / 360 * (r.height() - 1));
        p.setPen(QPen(Qt::black, 2));
        p.drawLine(0, y, r.width(), y);
      },
      [this](double, double y) {
        FPicker.SetHue(y * 360);
        SyncFromPicker();
      },
      this);
  FAlpha = new TqxPickArea(
      {160, 16},
      [this](QPainter& p, const QRect& r) {
        PaintChess(p, r);
        QLinearGradient alpha(r.topLeft(), r.topRight());
        alpha.setColorAt(0, ToQColor(WithAlpha(FPicker.Color(), 0)));
        alpha.setColorAt(1, ToQColor(WithAlpha(FPicker.Color(), 255)));
        p.fillRect(r, alpha);
        const int x = FPicker.Alpha() * (r.width() - 1) / 255;
        p.setPen(QPen(Qt::black, 2));
        p.drawLine(x, 0, x, r.height());
      },
      [this](double x, double) {
        FPicker.SetAlpha(std::uint8_t(std::lround(x * 255)));
        SyncFromPicker();
      },
      this);
  FSwatch = new TqxPickArea(
      {18, 16},
      [this](QPainter& p, const QRect& r) {
        PaintChess(p, r);
        p.fillRect(r, ToQColor(FPicker.Color()));
      },
      [](double, double) {}, this);

  FHex = new QLineEdit(this);
  FHex->setObjectName("HexEdit");
  FHex->setMaxLength(12);
  connect(FHex, &QLineEdit::editingFinished, this, &TqxColorPickerWidget::HexEntered);
  FHexError = new QLabel(this);
  FHexError->setObjectName("HexError");
  FHexError->setStyleSheet("color: #C62828;");
  FHexError->setWordWrap(true);
  FHexError->hide();
  FApplyToAll = new QCheckBox(QString::fromStdString(FPicker.ApplyToAllCaption()), this);
  connect(FApplyToAll, &QCheckBox::toggled, this, [this](bool on) { FPicker.SetApplyToAll(on); });

  layout->addWidget(FSquare, 0, 0);
  layout->addWidget(FHue, 0, 1);
  layout->addWidget(FAlpha, 1, 0);
  layout->addWidget(FSwatch, 1, 1);
  layout->addWidget(FHex, 2, 0, 1, 2);
  layout->addWidget(FHexError, 3, 0, 1, 2);
  layout->addWidget(FApplyToAll, 4, 0, 1, 2);
  SyncFromPicker();
}

void TqxColorPickerWidget::SyncFromPicker() {
  FHex->setText(QString::fromStdString(FPicker.HexText()));
  FApplyToAll->setChecked(FPicker.ApplyToAll());
  for (QWidget* area : {FSquare, FHue, FAlpha, FSwatch}) area->update();
}

void TqxColorPickerWidget::HexEntered() {
  const std::string text = FHex->text().toStdString();
  if (text == FPicker.HexText()) return;
  if (FPicker.SetHexText(text)) {
    FHexError->hide();
    SyncFromPicker();
  } else {
    FHexError->setText(QString::fromStdString(FPicker.HexError()));
    FHexError->show();
  }
}

void RegisterColorPickerWidget(TqxQtPopupService& service) {
  service.RegisterWidgetFactory("TqxColorPicker", [](IqxPopupForm& form) -> QWidget* {
    auto* picker = dynamic_cast<TqxColorPicker*>(&form);
    return picker ? new TqxColorPickerWidget(*picker) : nullptr;
  });
}

}  // namespace qx
