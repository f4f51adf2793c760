#include "platform/designtime/color_picker.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "platform/core/base/text.h"
#include "platform/core/graphics/color.h"

namespace qx {

namespace {

constexpr int kPickerWidth = 240, kPickerHeight = 300;

bool ParseHexDigits(const std::string& digits, TAlphaColor& color) {
  if (digits.size() != 6 && digits.size() != 8) return false;
  if (!std::all_of(digits.begin(), digits.end(), [](unsigned char c) { return std::isxdigit(c); }))
    return false;
  TAlphaColor value = TAlphaColor(std::stoul(digits, nullptr, 16));
  color = digits.size() == 6 ? (value | 0xFF000000u) : value;
  return true;
}

std::uint8_t ToByte(double channel) { return std::uint8_t(std::lround(std::clamp(channel, 0.0, 1.0) * 255)); }

}  // namespace

TqxColorPicker::TqxColorPicker() : TFormBasePicker(kPickerWidth, kPickerHeight) {
  FTranslator.Add("Применить ко всем вариантам", "Apply to all variants");
  FTranslator.Add("Ожидается цвет вида #AARRGGBB или #RRGGBB", "Expected a colour as #AARRGGBB or #RRGGBB");
}

std::uint8_t TqxColorPicker::Alpha() const { return AlphaOf(FColor); }

void TqxColorPicker::SetColor(TAlphaColor value) {
  FColor = value;
  FHexError.clear();
  const double r = RedOf(value) / 255.0, g = GreenOf(value) / 255.0, b = BlueOf(value) / 255.0;
  const double maxC = std::max({r, g, b}), minC = std::min({r, g, b}), delta = maxC - minC;
  FValue = maxC;
  FSaturation = maxC > 0 ? delta / maxC : 0;
  if (delta <= 0) return;  // grey: the hue stays where the user left it
  double hue;
  if (maxC == r) hue = std::fmod((g - b) / delta, 6.0);
  else if (maxC == g) hue = (b - r) / delta + 2;
  else hue = (r - g) / delta + 4;
  hue *= 60;
  FHue = hue < 0 ? hue + 360 : hue;
}

TAlphaColor TqxColorPicker::FromHSV(double AHue, double ASaturation, double AValue, std::uint8_t AAlpha) {
  const double h = std::fmod(std::clamp(AHue, 0.0, 360.0), 360.0) / 60;
  const double s = std::clamp(ASaturation, 0.0, 1.0), v = std::clamp(AValue, 0.0, 1.0);
  const double c = v * s, x = c * (1 - std::fabs(std::fmod(h, 2.0) - 1)), m = v - c;
  double r = 0, g = 0, b = 0;
  switch (int(h)) {
    case 0: r = c, g = x; break;
    case 1: r = x, g = c; break;
    case 2: g = c, b = x; break;
    case 3: g = x, b = c; break;
    case 4: r = x, b = c; break;
    default: r = c, b = x; break;
  }
  return MakeColor(ToByte(r + m), ToByte(g + m), ToByte(b + m), AAlpha);
}

TAlphaColor TqxColorPicker::HueColor(double AHue) { return FromHSV(AHue, 1, 1, 255); }

void TqxColorPicker::UpdateFromHSV() {
  FColor = FromHSV(FHue, FSaturation, FValue, AlphaOf(FColor));
  FHexError.clear();
  Change();
}

void TqxColorPicker::SetHue(double AHue) {
  FHue = std::clamp(AHue, 0.0, 360.0);
  UpdateFromHSV();
}

void TqxColorPicker::SetSaturationValue(double ASaturation, double AValue) {
  FSaturation = std::clamp(ASaturation, 0.0, 1.0);
  FValue = std::clamp(AValue, 0.0, 1.0);
  UpdateFromHSV();
}

void TqxColorPicker::SetAlpha(std::uint8_t AAlpha) {
  FColor = WithAlpha(FColor, AAlpha);
  FHexError.clear();
  Change();
}

bool TqxColorPicker::SetHexText(const std::string& AText) {
  const std::string text = Trim(AText);
  TAlphaColor color;
  if (text.size() < 2 || text[0] != '#' || !ParseHexDigits(text.substr(1), color)) {
    FHexError = FTranslator.Translate("Ожидается цвет вида #AARRGGBB или #RRGGBB");
    return false;
  }
  SetColor(color);
  Change();
  return true;
}

std::string TqxColorPicker::HexText() const { return TAlphaColorHelper::ToDisplayString(FColor); }

std::string TqxColorPicker::ApplyToAllCaption() const { return FTranslator.Translate("Применить ко всем вариантам"); }

}  // namespace qx
