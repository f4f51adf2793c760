{*********************************************************************
 *
 * This unit was generated automatically!
 *
 * DO NOT make changes to this file, as they will be lost after updating the assets in 
 * Project -> Quorvex Assets Manager.
 *
 * Use these constants instead of entering asset names in the code. This will help you catch
 * situation of assets changes (removing, renaming) in assets designer in compile time.
 *
 *********************************************************************}

unit Assets.Consts;

interface

{$SCOPEDENUMS ON}

uses
  Quorvex.Assets;

type
  /// <summary>Identifiers with application assets.</summary>
  TqxAssetsConstants = record
  private type

    {$REGION 'Bitmaps'}
    TqxBitmaps = record
    const
      IMAGES_LOGO = 'Images\Logo';                                              
      IMAGES_PANEL = 'Images\Panel';                                            
    end;
    {$ENDREGION}

    {$REGION 'Colors'}
    TqxColors = record
    const
      COLORS_ACCENT = 'Colors\Accent';                                          // #FF2196F3
      COLORS_BACKGROUND = 'Colors\Background';                                  // #FFFAFAFA
    end;
    {$ENDREGION}

    {$REGION 'Fonts'}
    TqxFonts = record
    const
      FONTS_DEJAVUSANS = 'Fonts\DejaVuSans';                                    
    end;
    {$ENDREGION}

    {$REGION 'Files'}
    TqxFiles = record
    const
      FONTS_DEJAVUSANSLICENSE = 'Fonts\DejaVuSansLicense';                      
    end;
    {$ENDREGION}

    {$REGION 'SVG Images'}
    TqxImages = record
    const
      VECTORS_STAR = 'Vectors\Star';                                            
    end;
    {$ENDREGION}

    {$REGION 'Animations'}
    TqxLottieAnimations = record
    const
      ANIMATIONS_SPINNER = 'Animations\Spinner';                                
    end;
    {$ENDREGION}

    {$REGION 'Themes'}
    TqxThemeDark = record
    const
      COLORS_SURFACE = 'Dark\Colors\Surface';                                   // #FF121212
      COLORS_TEXT = 'Dark\Colors\Text';                                         // #FFFFFFFF
    end;

    TqxThemeLight = record
    const
      COLORS_SURFACE = 'Light\Colors\Surface';                                  // #FFFFFFFF
      COLORS_TEXT = 'Light\Colors\Text';                                        // #DE000000
    end;

    TqxThemes = record
      class var Dark: TqxThemeDark;
      class var Light: TqxThemeLight;
    end;
    {$ENDREGION}

    {$REGION 'Current Theme'}
    TqxThemeColors = record
      class function COLORS_SURFACE: TqxAssetName; static;
      class function COLORS_TEXT: TqxAssetName; static;
    end;

    TqxCurrentTheme = record
      /// <summary>Identifiers with current theme colors assets.</summary>
      class var Color: TqxThemeColors;
    end;
    {$ENDREGION}
  public
    /// <summary>Identifiers with bitmap assets.</summary>
    class var Bitmap: TqxBitmaps;

    /// <summary>Identifiers with colors assets.</summary>
    class var Color: TqxColors;

    /// <summary>Identifiers with vector assets.</summary>
    class var Image: TqxImages;

    /// <summary>Identifiers with custom user's files assets.</summary>
    class var &File: TqxFiles;

    /// <summary>Identifiers with custom font files assets.</summary>
    class var Font: TqxFonts;

    /// <summary>Identifiers with Lottie animations assets.</summary>
    class var LottieAnimation: TqxLottieAnimations;

    /// <summary>Identifiers with current theme assets.</summary>
    class var CurrentTheme: TqxCurrentTheme;

    /// <summary>Identifiers with themes names.</summary>
    class var Theme: TqxThemes;
  end;

var
  R: TqxAssetsConstants;

implementation

uses
  Quorvex.Application;

class function TqxAssetsConstants.TqxThemeColors.COLORS_SURFACE: TqxAssetName; 
begin
  Result := Application.ThemeSettings.ThemeName + TqxAsset.ThemeSeparator + 'Colors\Surface';
end;

class function TqxAssetsConstants.TqxThemeColors.COLORS_TEXT: TqxAssetName; 
begin
  Result := Application.ThemeSettings.ThemeName + TqxAsset.ThemeSeparator + 'Colors\Text';
end;

end.
