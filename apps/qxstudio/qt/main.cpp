#include <QApplication>

#include "platform/host/ide_settings.h"
#include "platform/ui/qt/qt_ui_services.h"
#include "qt/studio_window.h"
#include "studio_ide.h"

// qxstudio [PROJECT.dproj...]: the IDE with the package loaded, with the
// projects named on the command line open, the last one active.
int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("qxstudio");
  qx::TqxQtUi ui;
  int result = 0;
  {
    qx::TqxStudioIde ide(qx::TqxIdeSettings::Instance());
    ide.Start();
    qx::TqxStudioWindow window(ide);
    for (const QString& argument : QApplication::arguments().mid(1)) ide.OpenProject(argument.toStdString());
    window.show();
    result = QApplication::exec();
    ide.Shutdown();
  }
  return result;
}
