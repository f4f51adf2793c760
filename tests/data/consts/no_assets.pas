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
  public
  end;

var
  R: TqxAssetsConstants;

implementation

end.
