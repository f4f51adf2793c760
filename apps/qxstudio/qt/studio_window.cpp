#include "qt/studio_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <filesystem>

#include "designer/frame_asset_manager.h"
#include "designer/qt/designer_widget.h"
#include "platform/host/ide_settings.h"
#include "platform/ui/qt/qt_actions.h"
#include "studio_ide.h"

namespace qx {
namespace {

constexpr const char* kGeometryKey = "qxstudio.geometry";
constexpr const char* kStateKey = "qxstudio.windowState";

// A tab's colour as a small swatch beside its caption; TColor keeps red in
// the low byte.
QIcon TabColorIcon(TColor color) {
  QPixmap swatch(12, 12);
  swatch.fill(Qt::transparent);
  QPainter painter(&swatch);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF));
  painter.drawRoundedRect(QRectF(1, 1, 10, 10), 2, 2);
  return QIcon(swatch);
}

QString FromStd(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

TqxStudioWindow::TqxStudioWindow(TqxStudioIde& ide, QWidget* parent) : QMainWindow(parent), FIde(ide) {
  setObjectName("StudioWindow");
  setWindowTitle("Quorvex Studio");
  resize(1280, 800);

  FTabs = new QTabWidget(this);
  FTabs->setObjectName("EditorTabs");
  FTabs->setTabsClosable(true);
  FTabs->setDocumentMode(true);
  setCentralWidget(FTabs);
  connect(FTabs, &QTabWidget::tabCloseRequested, this, [this](int index) {
    QWidget* page = FTabs->widget(index);
    for (auto& [view, shown] : FPages)
      if (shown == page) {
        FIde.CloseView(*view);
        return;
      }
  });

  FProjects = new QListWidget(this);
  FProjects->setObjectName("ProjectPane");
  connect(FProjects, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    const auto entries = FIde.ProjectEntries();
    const int row = FProjects->row(item);
    if (row >= 0 && row < static_cast<int>(entries.size())) FIde.SetActiveProject(entries[row].Project);
  });
  auto* projectsDock = new QDockWidget("Projects", this);
  projectsDock->setObjectName("ProjectsDock");
  projectsDock->setWidget(FProjects);
  projectsDock->setFeatures(QDockWidget::DockWidgetMovable);
  addDockWidget(Qt::LeftDockWidgetArea, projectsDock);

  FLog = new QPlainTextEdit(this);
  FLog->setObjectName("LogPane");
  FLog->setReadOnly(true);
  FLog->setMaximumBlockCount(5000);
  auto* logDock = new QDockWidget("Messages", this);
  logDock->setObjectName("LogDock");
  logDock->setWidget(FLog);
  logDock->setFeatures(QDockWidget::DockWidgetMovable);
  addDockWidget(Qt::BottomDockWidgetArea, logDock);
  resizeDocks({projectsDock}, {220}, Qt::Horizontal);
  resizeDocks({logDock}, {140}, Qt::Vertical);

  for (const TqxLogLine& line : FIde.LogLines()) AppendLog(line);
  FIde.FOnLogLine = [this](const TqxLogLine& line) { AppendLog(line); };
  FIde.FOnProjectsChanged = [this] { RefreshProjects(); };
  // Later, as the change may come from a click on the menu being rebuilt.
  FIde.FOnMenuChanged = [this] { QMetaObject::invokeMethod(this, [this] { RebuildMenuBar(); }, Qt::QueuedConnection); };
  FIde.FOnExit = [this] { close(); };
  FIde.Views().FOnViewShown = [this](INTACustomEditorView& view, TCustomFrame& frame) { ViewShown(view, frame); };
  FIde.Views().FOnViewClosed = [this](INTACustomEditorView& view) { ViewClosed(view); };

  RebuildMenuBar();
  RefreshProjects();
  RestoreGeometry();
}

TqxStudioWindow::~TqxStudioWindow() {
  FIde.FOnLogLine = nullptr;
  FIde.FOnProjectsChanged = nullptr;
  FIde.FOnMenuChanged = nullptr;
  FIde.FOnExit = nullptr;
  FIde.Views().FOnViewShown = nullptr;
  FIde.Views().FOnViewClosed = nullptr;
}

void TqxStudioWindow::RebuildMenuBar() {
  menuBar()->clear();
  TMenuItem& main = FIde.MainMenu;
  for (int i = 0; i < main.Count(); ++i) {
    TMenuItem* top = main.Items(i);
    QMenu* menu = menuBar()->addMenu(FromStd(top->Caption()));
    menu->setObjectName(FromStd(top->Name));
    FillQMenu(menu, *top);
  }
}

void TqxStudioWindow::RefreshProjects() {
  FProjects->clear();
  for (const TqxProjectEntry& entry : FIde.ProjectEntries()) {
    auto* item = new QListWidgetItem(FromStd((entry.Active ? "\u25B6 " : "   ") + entry.Caption), FProjects);
    item->setToolTip(FromStd(entry.Project->GetFileName()));
    QFont font = item->font();
    font.setBold(entry.Active);
    item->setFont(font);
  }
  const auto active = FIde.Host().GetActiveProject();
  setWindowTitle(active ? "Quorvex Studio - " +
                              FromStd(std::filesystem::path(active->GetFileName()).filename().string())
                        : "Quorvex Studio");
}

void TqxStudioWindow::ViewShown(INTACustomEditorView& view, TCustomFrame& frame) {
  if (auto it = FPages.find(&view); it != FPages.end()) {
    FTabs->setCurrentWidget(it->second);
    return;
  }
  QWidget* page = nullptr;
  if (auto* document = dynamic_cast<TFrameAssetManager*>(&frame)) {
    auto* designer = new TqxDesignerWidget(*document, FTabs);
    connect(designer, &TqxDesignerWidget::modifiedChanged, this, [this, designer] { RefreshTabText(designer); });
    page = designer;
  } else {
    page = new QWidget(FTabs);
  }
  page->setProperty("qxViewCaption", FromStd(view.GetCaption()));
  FPages[&view] = page;
  const int index = FTabs->addTab(page, TabColorIcon(view.GetTabColor()), QString());
  FTabs->setTabToolTip(index, FromStd(view.GetTabHintText()));
  RefreshTabText(page);
  FTabs->setCurrentIndex(index);
}

void TqxStudioWindow::ViewClosed(INTACustomEditorView& view) {
  auto it = FPages.find(&view);
  if (it == FPages.end()) return;
  // The page goes now, before the host frees the frame it shows.
  QWidget* page = it->second;
  FPages.erase(it);
  FTabs->removeTab(FTabs->indexOf(page));
  delete page;
}

void TqxStudioWindow::RefreshTabText(QWidget* page) {
  const int index = FTabs->indexOf(page);
  if (index < 0) return;
  QString text = page->property("qxViewCaption").toString();
  if (auto* designer = qobject_cast<TqxDesignerWidget*>(page); designer && designer->Frame().GetModified())
    text += " *";
  FTabs->setTabText(index, text);
}

TqxDesignerWidget* TqxStudioWindow::CurrentDesigner() const {
  return qobject_cast<TqxDesignerWidget*>(FTabs->currentWidget());
}

void TqxStudioWindow::AppendLog(const TqxLogLine& line) {
  FLog->appendPlainText(FromStd(TqxLog::LevelName(line.Level) + " [" + line.Tag + "] " + line.Text));
}

void TqxStudioWindow::RestoreGeometry() {
  TqxIdeSettings& settings = FIde.Settings();
  const std::string geometry = settings.GetString(kGeometryKey);
  if (!geometry.empty()) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(geometry)));
  const std::string state = settings.GetString(kStateKey);
  if (!state.empty()) restoreState(QByteArray::fromBase64(QByteArray::fromStdString(state)));
}

void TqxStudioWindow::closeEvent(QCloseEvent* event) {
  // Each designer asks about its unsaved changes; one Cancel keeps the window.
  if (!FIde.CloseAllViews()) {
    event->ignore();
    return;
  }
  TqxIdeSettings& settings = FIde.Settings();
  settings.SetString(kGeometryKey, saveGeometry().toBase64().toStdString());
  settings.SetString(kStateKey, saveState().toBase64().toStdString());
  event->accept();
}

}  // namespace qx
