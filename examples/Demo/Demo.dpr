program Demo;

uses
  System.StartUpCopy,
  Quorvex.Application,
  Main in 'Main.pas';

{$R *.res}

begin
  TqxApplication.Initialize;
  TqxApplication.Run(TDemoScreen);
end.
