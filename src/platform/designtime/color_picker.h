#pragma once

#include <cstdint>
#include <string>

#include "platform/core/base/translator.h"
#include "platform/core/base/types.h"
#include "platform/designtime/form_base_picker.h"

namespace qx {

// A popup that edits one colour as hue, saturation and value with an alpha
// channel, or as hexadecimal text. Every edit raises the change event;
// setting the colour from outside doesn't.
class TqxColorPicker : public TFormBasePicker {
public:
  TqxColorPicker();

  TAlphaColor Color() const { return FColor; }
  // Programmatic; keeps the hue when the colour is grey, raises nothing.
  void SetColor(TAlphaColor value);

  // 0 to 360, 0 to 1, 0 to 1; out-of-range values are clamped.
  double Hue() const { return FHue; }
  double Saturation() const { return FSaturation; }
  double Value() const { return FValue; }
  std::uint8_t Alpha() const;

  // Edits, as the picker's controls make them.
  void SetHue(double AHue);
  void SetSaturationValue(double ASaturation, double AValue);
  void SetAlpha(std::uint8_t AAlpha);
  // "#AARRGGBB" or "#RRGGBB" (opaque), blanks around ignored, digits in any
  // case. Other text changes nothing: HexError() then says what is expected.
  bool SetHexText(const std::string& AText);

  // "#RRGGBB" for an opaque colour, "#AARRGGBB" otherwise.
  std::string HexText() const;
  // Empty after accepted text.
  const std::string& HexError() const { return FHexError; }

  // "Apply to all variants": whoever listens applies the colour to the
  // asset's other variants as well.
  bool ApplyToAll() const { return FApplyToAll; }
  void SetApplyToAll(bool value) { FApplyToAll = value; }

  // Texts in the UI language.
  std::string ApplyToAllCaption() const;

  // The colour of a hue at full saturation and value, for the hue strip.
  static TAlphaColor HueColor(double AHue);
  static TAlphaColor FromHSV(double AHue, double ASaturation, double AValue, std::uint8_t AAlpha);

private:
  void UpdateFromHSV();

  TAlphaColor FColor = 0xFF000000;
  double FHue = 0, FSaturation = 0, FValue = 0;
  bool FApplyToAll = false;
  std::string FHexError;
  TqxTranslator FTranslator;
};

}  // namespace qx
