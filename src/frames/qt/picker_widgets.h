#pragma once

#include <QTimer>
#include <QWidget>

class QComboBox;
class QLabel;
class QToolButton;

namespace qx {

class TFilePickerBase;
class TCustomFilePicker;
class TLottieAnimationPicker;

// The Open, Save and Clear buttons of a file picker, with the two lists of
// the custom file picker when it is one.
class TqxFilePickerWidget : public QWidget {
  Q_OBJECT
public:
  TqxFilePickerWidget(TFilePickerBase& picker, QWidget* parent = nullptr);

  QToolButton* LoadButton() const { return FLoad; }
  QToolButton* SaveButton() const { return FSave; }
  QToolButton* ClearButton() const { return FClear; }

protected:
  TFilePickerBase& FPicker;
  QToolButton *FLoad, *FSave, *FClear;
};

// The Lottie picker: the animation playing in its decoration frame, its
// duration, and the three buttons.
class TqxLottiePickerWidget : public TqxFilePickerWidget {
  Q_OBJECT
public:
  TqxLottiePickerWidget(TLottieAnimationPicker& picker, QWidget* parent = nullptr);
  ~TqxLottiePickerWidget() override;

  QLabel* DurationLabel() const { return FDuration; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void Sync();
  TLottieAnimationPicker& FLottie;
  QWidget* FAnimation;
  QLabel* FDuration;
  QTimer FTimer;
  int FFrame = 0;
};

// Lets the installed Qt popup service show the pickers of the asset frames,
// the colour picker among them. Safe to call any number of times; does
// nothing without a Qt popup service.
void RegisterFramePopupWidgets();

}  // namespace qx
