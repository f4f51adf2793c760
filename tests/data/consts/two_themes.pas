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
      ICONS_HOME = 'Icons\home';                                                
    end;
    {$ENDREGION}

    {$REGION 'Themes'}
    TqxThemeDark = record
    const
      PRIMARY = 'Dark\Primary';                                                 // #FF112233
    end;

    TqxThemeLight = record
    const
      PRIMARY = 'Light\Primary';                                                // #FFEEDDCC
    end;

    TqxThemes = record
      class var Dark: TqxThemeDark;
      class var Light: TqxThemeLight;
    end;
    {$ENDREGION}

    {$REGION 'Current Theme'}
    TqxThemeColors = record
      class function PRIMARY: TqxAssetName; static;
    end;

    TqxCurrentTheme = record
      /// <summary>Identifiers with current theme colors assets.</summary>
      class var Color: TqxThemeColors;
    end;
    {$ENDREGION}
  public
    /// <summary>Identifiers with bitmap assets.</summary>
    class var Bitmap: TqxBitmaps;

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

class function TqxAssetsConstants.TqxThemeColors.PRIMARY: TqxAssetName; 
begin
  Result := Application.ThemeSettings.ThemeName + TqxAsset.ThemeSeparator + 'Primary';
end;

end.
