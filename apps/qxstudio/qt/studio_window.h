#pragma once

#include <QMainWindow>
#include <map>

class QListWidget;
class QPlainTextEdit;
class QTabWidget;

namespace qx {

class INTACustomEditorView;
class TCustomFrame;
class TqxDesignerWidget;
class TqxStudioIde;
struct TqxLogLine;

// qxstudio's main window: the menu bar, the project pane, the editor tabs and
// the log pane over a TqxStudioIde. It keeps no state of its own beyond the
// widgets; its geometry goes to the IDE's settings when it closes.
class TqxStudioWindow : public QMainWindow {
  Q_OBJECT
public:
  explicit TqxStudioWindow(TqxStudioIde& ide, QWidget* parent = nullptr);
  ~TqxStudioWindow() override;

  QTabWidget* Tabs() const { return FTabs; }
  QListWidget* ProjectPane() const { return FProjects; }
  QPlainTextEdit* LogPane() const { return FLog; }
  // The designer shown in the current tab, or nullptr.
  TqxDesignerWidget* CurrentDesigner() const;

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void RebuildMenuBar();
  void RefreshProjects();
  void ViewShown(INTACustomEditorView& view, TCustomFrame& frame);
  void ViewClosed(INTACustomEditorView& view);
  void RefreshTabText(QWidget* page);
  void AppendLog(const TqxLogLine& line);
  void RestoreGeometry();

  TqxStudioIde& FIde;
  QTabWidget* FTabs;
  QListWidget* FProjects;
  QPlainTextEdit* FLog;
  // Each tab's page by its view.
  std::map<INTACustomEditorView*, QWidget*> FPages;
};

}  // namespace qx
