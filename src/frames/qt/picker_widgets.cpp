#include "frames/qt/picker_widgets.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include "frames/file_asset_pickers.h"
#include "frames/lottie_animation_picker.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/lottie_animation.h"
#include "platform/designtime/qt/color_picker_widget.h"
#include "platform/ui/qt/qt_actions.h"
#include "platform/ui/qt/qt_bitmap.h"
#include "platform/ui/qt/qt_popups.h"
#include "platform/ui/ui_services.h"

namespace qx {

namespace {

QToolButton* Button(TAction& action, QWidget* parent) {
  QToolButton* button = CreateToolButton(action, nullptr, nullptr, parent);
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  button->setMinimumWidth(90);
  return button;
}

QComboBox* Combo(const std::vector<std::string>& items, int index, QWidget* parent) {
  auto* combo = new QComboBox(parent);
  for (const auto& item : items) combo->addItem(QString::fromStdString(item));
  combo->setCurrentIndex(index);
  return combo;
}

}  // namespace

TqxFilePickerWidget::TqxFilePickerWidget(TFilePickerBase& picker, QWidget* parent)
    : QWidget(parent), FPicker(picker) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  if (auto* custom = dynamic_cast<TCustomFilePicker*>(&picker)) {
    auto* form = new QFormLayout;
    QComboBox* location = Combo(custom->FileLocationItems(), custom->FileLocationIndex(), this);
    QComboBox* rule = Combo(custom->ExtractionRuleItems(), custom->ExtractionRuleIndex(), this);
    location->setObjectName("cbFileLocation");
    rule->setObjectName("cbExtractionRule");
    connect(location, &QComboBox::activated, this, [custom](int index) { custom->SelectFileLocation(index); });
    connect(rule, &QComboBox::activated, this, [custom](int index) { custom->SelectExtractionRule(index); });
    form->addRow(QString::fromStdString(custom->FileLocationLabel()), location);
    form->addRow(QString::fromStdString(custom->ExtractionRuleLabel()), rule);
    layout->addLayout(form);
  }
  auto* buttons = new QHBoxLayout;
  FLoad = Button(*picker.LoadAction(), this);
  FSave = Button(*picker.SaveAction(), this);
  FClear = Button(*picker.ClearAction(), this);
  buttons->addWidget(FLoad);
  buttons->addWidget(FSave);
  buttons->addWidget(FClear);
  layout->addLayout(buttons);
  if (!dynamic_cast<TLottieAnimationPicker*>(&picker))
    setFixedSize(picker.ClientWidth(), std::max(picker.ClientHeight(), sizeHint().height()));
}

TqxLottiePickerWidget::TqxLottiePickerWidget(TLottieAnimationPicker& picker, QWidget* parent)
    : TqxFilePickerWidget(picker, parent), FLottie(picker) {
  auto* layout = static_cast<QVBoxLayout*>(this->layout());
  FAnimation = new QWidget(this);
  FAnimation->setObjectName("lottieAnimation");
  FAnimation->setFixedSize(TLottieAnimationPicker::kAnimationSize, TLottieAnimationPicker::kAnimationSize);
  FAnimation->installEventFilter(this);
  auto* title = new QLabel(QString::fromStdString(picker.DurationTitle()), this);
  FDuration = new QLabel(this);
  FDuration->setObjectName("lDuration");
  auto* side = new QVBoxLayout;
  side->addWidget(title);
  side->addWidget(FDuration);
  side->addStretch(1);
  auto* row = new QHBoxLayout;
  row->addWidget(FAnimation);
  row->addLayout(side);
  layout->insertLayout(0, row);
  connect(&FTimer, &QTimer::timeout, this, [this] {
    ++FFrame;
    FAnimation->update();
  });
  picker.OnRefreshView = [this] { Sync(); };
  Sync();
  setFixedSize(picker.ClientWidth(), picker.ClientHeight());
}

TqxLottiePickerWidget::~TqxLottiePickerWidget() { FLottie.OnRefreshView = nullptr; }

void TqxLottiePickerWidget::Sync() {
  FDuration->setText(QString::fromStdString(FLottie.DurationText()));
  FTimer.stop();
  FFrame = 0;
  if (const TqxLottieAnimation* animation = FLottie.Animation(); animation && animation->FrameRate() > 0)
    FTimer.start(std::max(int(1000 / animation->FrameRate()), 10));
  FAnimation->update();
}

bool TqxLottiePickerWidget::eventFilter(QObject* watched, QEvent* event) {
  if (watched != FAnimation || event->type() != QEvent::Paint) return QWidget::eventFilter(watched, event);
  QPainter painter(FAnimation);
  if (const TqxLottieAnimation* animation = FLottie.Animation()) {
    TqxBitmap bitmap(FAnimation->width(), FAnimation->height());
    animation->RenderFrame(std::size_t(FFrame), bitmap);
    painter.drawImage(0, 0, ToQImage(bitmap));
  }
  // rectDecoration: grey, dashed while there is no animation.
  QPen pen(Qt::gray);
  pen.setStyle(FLottie.DecorationDashed() ? Qt::DashLine : Qt::SolidLine);
  painter.setPen(pen);
  painter.drawRect(FAnimation->rect().adjusted(0, 0, -1, -1));
  return true;
}

void RegisterFramePopupWidgets() {
  auto* service = dynamic_cast<TqxQtPopupService*>(TqxUiServices::Instance().Popups());
  if (!service) return;
  RegisterColorPickerWidget(*service);
  service->RegisterWidgetFactory("TFilePickerBase", [](IqxPopupForm& form) -> QWidget* {
    if (auto* lottie = dynamic_cast<TLottieAnimationPicker*>(&form)) return new TqxLottiePickerWidget(*lottie);
    if (auto* picker = dynamic_cast<TFilePickerBase*>(&form)) return new TqxFilePickerWidget(*picker);
    return nullptr;
  });
}

}  // namespace qx
