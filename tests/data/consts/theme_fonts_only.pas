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

type
  /// <summary>Identifiers with application assets.</summary>
  TqxAssetsConstants = record
  private type

    {$REGION 'Fonts'}
    TqxFonts = record
    const
      DARK_ROBOTO = 'Dark\Roboto';                                              
      LIGHT_ROBOTO = 'Light\Roboto';                                            
      MONO = 'Mono';                                                            
    end;
    {$ENDREGION}

    {$REGION 'Themes'}
    TqxThemeDark = record
    const
      ROBOTO = 'Dark\Roboto';                                                   
    end;

    TqxThemeLight = record
    const
      ROBOTO = 'Light\Roboto';                                                  
    end;

    TqxThemeLightIndigo = record
    const
    end;

    TqxThemes = record
      class var Dark: TqxThemeDark;
      class var Light: TqxThemeLight;
      class var LightIndigo: TqxThemeLightIndigo;
    end;
    {$ENDREGION}
  public
    /// <summary>Identifiers with custom font files assets.</summary>
    class var Font: TqxFonts;

    /// <summary>Identifiers with themes names.</summary>
    class var Theme: TqxThemes;
  end;

var
  R: TqxAssetsConstants;

implementation

end.
