#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace qx {

class TqxColorPicker;
class TqxQtPopupService;

// The colour picker on screen: a saturation-value square for the current
// hue, a hue strip beside it, an alpha strip under it, the hexadecimal text
// and the "apply to all variants" box. Each control edits the picker, which
// raises its change event.
class TqxColorPickerWidget : public QWidget {
  Q_OBJECT
public:
  TqxColorPickerWidget(TqxColorPicker& picker, QWidget* parent = nullptr);

  QLineEdit* HexEdit() const { return FHex; }
  QCheckBox* ApplyToAllBox() const { return FApplyToAll; }
  QWidget* SaturationValueArea() const { return FSquare; }
  QWidget* HueStrip() const { return FHue; }
  QWidget* AlphaStrip() const { return FAlpha; }

  // Shows the picker's state again.
  void SyncFromPicker();

private:
  void HexEntered();

  TqxColorPicker& FPicker;
  QWidget *FSquare, *FHue, *FAlpha, *FSwatch;
  QLineEdit* FHex;
  QLabel* FHexError;
  QCheckBox* FApplyToAll;
};

// Lets the popup service show TqxColorPicker forms.
void RegisterColorPickerWidget(TqxQtPopupService& service);

}  // namespace qx
