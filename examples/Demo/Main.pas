unit Main;

{ The example's only screen: a heading in the theme's colours, the logo bitmap
  set and a looping animation. Asset names are those of Assets\config.json. }

interface

uses
  System.SysUtils, System.Classes,
  Quorvex.Screens, Quorvex.Controls;

type
  TDemoScreen = class(TqxScreen)
  private
    FTitle: TqxLabel;
    FLogo: TqxImage;
    FSpinner: TqxLottieView;
  protected
    procedure Build; override;
  end;

implementation

procedure TDemoScreen.Build;
begin
  FTitle := TqxLabel.Create(Self);
  FTitle.Text := 'Quorvex Demo';
  FTitle.TextColorName := 'Light\Colors\Text';
  FTitle.FontName := 'Fonts\DejaVuSans';

  FLogo := TqxImage.Create(Self);
  FLogo.ImageName := 'Images\Logo';

  FSpinner := TqxLottieView.Create(Self);
  FSpinner.AnimationName := 'Animations\Spinner';
  FSpinner.Loop := True;
end;

end.
