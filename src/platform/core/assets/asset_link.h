#pragma once

#include <string>

#include "platform/core/base/types.h"

namespace qx {

// The link beside a control's asset-name property: the name the user chose,
// and a default the control falls back to while none is chosen. The default
// may be given as a theme and a name inside it, or as one full name.
class TqxAssetLink {
public:
  virtual ~TqxAssetLink() = default;

  const TqxAssetName& GetName() const { return FName; }
  void SetName(TqxAssetName name) { FName = std::move(name); }

  // A full asset name, such as "Theme\Text\Secondary Text"; clears the theme.
  void SetDefaultName(TqxAssetName name);
  // A theme and a name inside it: ("Theme", "Text\Dividers"). Two empty
  // texts clear the default.
  void SetDefault(TqxThemeName theme, TqxAssetName name);

  const TqxThemeName& GetDefaultTheme() const { return FDefaultTheme; }
  // The default as a full asset name: "Theme\Text\Dividers".
  TqxAssetName GetDefaultName() const;
  // The default as a property shows it, the theme marked by ":" in place of
  // its `\`: "Theme:Text\Dividers".
  std::string GetDefaultThemeAssetName() const;
  bool HasDefault() const { return !FDefaultName.empty(); }

private:
  std::string Joined(char separator) const;

  TqxAssetName FName;
  TqxThemeName FDefaultTheme;
  TqxAssetName FDefaultName;
};

// A link to a colour asset.
class TqxAssetColorLink : public TqxAssetLink {};
// A link to a Lottie animation.
class TqxAssetLottieAnimationLink : public TqxAssetLink {};
// A link to a style.
class TqxAssetStyleLink : public TqxAssetLink {};

}  // namespace qx
