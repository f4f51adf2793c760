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

    {$REGION 'Bitmaps'}
    TqxBitmaps = record
    const
      _3D = '3d';                                                               
      IC_ARROW_LEFT = 'ic-arrow.left';                                          
      ICONS_HOME = 'Icons\home';                                                
      __X = '_x';                                                               
    end;
    {$ENDREGION}

    {$REGION 'Colors'}
    TqxColors = record
    const
      ALPHA = 'alpha';                                                          // #FF102030
      &BEGIN = 'begin';                                                         // #FF000000
      BEGINNING = 'beginning';                                                  // #80FFFFFF
      BETA = 'Beta';                                                            // #00000000
      GAMMA = 'gamma';                                                          // #FFABCDEF
      PALETTE_BRAND_VERY_LONG_COLOUR_NAME_FOR_THE_PRIMARY_ACTION_BUTTON = 'Palette\Brand\Very long colour name for the primary action button';// #FF2196F3
      SURFACE_CONTAINER_HIGHEST_VARIANT1 = 'Surface_container_highest_variant1';// #FFE6E0E9
      ФОН = 'Фон';                                                              // #FFFAFAFA
    end;
    {$ENDREGION}

    {$REGION 'Fonts'}
    TqxFonts = record
    const
      ROBOTO_BOLD = 'Roboto-Bold';                                              
    end;
    {$ENDREGION}

    {$REGION 'Files'}
    TqxFiles = record
    const
      DATA_IN = 'Data\in';                                                      
      &FILE = 'file';                                                           
      &TYPE = 'type';                                                           
    end;
    {$ENDREGION}

    {$REGION 'SVG Images'}
    TqxImages = record
    const
      LOGOS_MAIN_LOGO = 'Logos\Main logo';                                      
    end;
    {$ENDREGION}

    {$REGION 'Animations'}
    TqxLottieAnimations = record
    const
      LOADER = 'Loader';                                                        
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
  end;

var
  R: TqxAssetsConstants;

implementation

end.
