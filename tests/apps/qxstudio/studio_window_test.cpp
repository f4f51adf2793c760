#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include "designer/asset_tree.h"
#include "designer/designer_commands.h"
#include "designer/frame_asset_manager.h"
#include "designer/qt/assets_pane.h"
#include "designer/qt/designer_widget.h"
#include "frames/qt/assets_view_widget.h"
#include "package/assets_manager_view.h"
#include "platform/host/ide_settings.h"
#include "platform/ui/qt/qt_tree_view.h"
#include "platform/ui/qt/qt_ui_services.h"
#include "platform/ui/scripted_dialogs.h"
#include "platform/ui/ui_services.h"
#include "qt/studio_window.h"
#include "studio_fixture.h"
#include "studio_ide.h"
#include "../../support/qt_test_app.h"

namespace qx::test {
namespace {

fs::path ShotsFolder() {
  const fs::path shots = fs::path(QX_BUILD_DIR) / "screenshots";
  fs::create_directories(shots);
  return shots;
}

// The desktop application in-process: the IDE with the package loaded and
// its main window, as qxstudio starts them.
class StudioWindowTest : public StudioTest {
protected:
  StudioWindowTest() {
    EnsureApp();
    Ui = std::make_unique<TqxQtUi>();
    Ide = std::make_unique<TqxStudioIde>(TqxIdeSettings::Instance());
    Ide->Start();
    Window = std::make_unique<TqxStudioWindow>(*Ide);
    Window->resize(1200, 760);
  }
  ~StudioWindowTest() override {
    // Nothing may ask a modal question while the test's projects go.
    for (auto& [guid, view] : AssetsManagerViews())
      if (view->Frame() != nullptr) view->Frame()->ClearModified();
    Window.reset();
    Ide.reset();
    Ui.reset();
  }

  QAction* ProjectMenuAction(const QString& text) {
    auto* menu = Window->menuBar()->findChild<QMenu*>("ProjectMenu");
    if (menu == nullptr) return nullptr;
    for (QAction* action : menu->actions())
      if (action->text() == text) return action;
    return nullptr;
  }
  TVirtualNode* Node(TFrameAssetManager& frame, const std::string& name) {
    return frame.Tree().FindNode(name);
  }
  TVirtualNode* Folder(TFrameAssetManager& frame, const std::string& caption) {
    for (TVirtualNode* node : frame.Tree().VTResources.ChildNodes(nullptr))
      if (frame.Tree().GetNodeData(node)->Caption == caption) return node;
    return nullptr;
  }
  // The asset names the right-hand side shows, top to bottom.
  QStringList ShownTitles(TqxDesignerWidget* designer) {
    QStringList titles;
    for (auto* view : designer->Pane()->widget()->findChildren<TqxAssetsViewWidget*>())
      titles << view->AssetNameLabel()->text();
    return titles;
  }
  void Shoot(QWidget* widget, const std::string& name) {
    QCoreApplication::processEvents();
    EXPECT_TRUE(widget->grab().save(QString::fromStdString((ShotsFolder() / name).string())));
  }

  std::unique_ptr<TqxQtUi> Ui;
  std::unique_ptr<TqxStudioIde> Ide;
  std::unique_ptr<TqxStudioWindow> Window;
};

TEST_F(StudioWindowTest, AColourAddedRenamedAndDraggedIntoAFolderIsSavedUnderItsNewName) {
  const fs::path project = CopyDemo("Demo");
  ASSERT_NE(Ide->OpenProject(project.string()), nullptr);
  Window->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Window.get()));
  QApplication::setActiveWindow(Window.get());
  EXPECT_TRUE(Window->ProjectPane()->item(0)->font().bold());

  // The package's item stands in the Project menu once the idle pass has seen
  // the project; it opens the designer in a tab.
  QAction* open = nullptr;
  ASSERT_TRUE(QTest::qWaitFor([&] {
    open = ProjectMenuAction("Quorvex Assets Manager");
    return open && open->isVisible() && open->isEnabled();
  }, 3000));
  open->trigger();
  TqxDesignerWidget* designer = Window->CurrentDesigner();
  ASSERT_NE(designer, nullptr);
  EXPECT_TRUE(Window->Tabs()->tabText(Window->Tabs()->currentIndex()).startsWith("Assets Manager: Demo.dproj"));
  TFrameAssetManager& frame = designer->Frame();
  TqxQtTreeView* tree = designer->TreeView();
  QCoreApplication::processEvents();

  // Add a colour with the toolbar: it lands at the top level, selected, and
  // the tab shows the unsaved mark.
  QToolButton* addColor = designer->ButtonOf(frame.Commands().ActionAddColor);
  ASSERT_NE(addColor, nullptr);
  QTest::mouseClick(addColor, Qt::LeftButton);
  TVirtualNode* color = Node(frame, "Color");
  ASSERT_NE(color, nullptr);
  EXPECT_TRUE(frame.Tree().VTResources.Selected(color));
  EXPECT_TRUE(Window->Tabs()->tabText(Window->Tabs()->currentIndex()).endsWith(" *"));
  Shoot(designer, "studio_designer_added.png");

  // Rename it in place: click its row, F2, type, Enter.
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, tree->NodeRect(color).center());
  QTest::keyClick(tree, Qt::Key_F2);
  auto* editor = tree->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->text(), "Color");
  editor->selectAll();
  QTest::keyClicks(editor, "Brand");
  QTest::keyClick(editor, Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Node(frame, "Brand") != nullptr; }, 3000));
  // The view on the right follows the rename.
  EXPECT_EQ(ShownTitles(designer), QStringList{"Brand"});

  // Drag it into the folder Colors.
  TVirtualNode* brand = Node(frame, "Brand");
  TVirtualNode* colors = Folder(frame, "Colors");
  ASSERT_NE(colors, nullptr);
  frame.Tree().VTResources.ClearSelection();
  frame.Tree().VTResources.SetSelected(brand, true);
  std::unique_ptr<QMimeData> drag(tree->CreateDragMimeData());
  const QPoint at = tree->NodeRect(colors).center();
  QDragEnterEvent enter(at, Qt::MoveAction, drag.get(), Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(tree->viewport(), &enter);
  QDragMoveEvent move(at, Qt::MoveAction, drag.get(), Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(tree->viewport(), &move);
  QDropEvent drop(QPointF(at), Qt::MoveAction, drag.get(), Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(tree->viewport(), &drop);
  ASSERT_NE(Node(frame, "Colors\\Brand"), nullptr);
  frame.Tree().ExpandNodesToAsset("Colors\\Brand");
  frame.Tree().SelectNode("Colors\\Brand", true);
  EXPECT_EQ(ShownTitles(designer), QStringList{"Colors\\Brand"});
  Shoot(designer, "studio_designer_moved.png");

  // Ctrl+S saves: the mark goes, and the files name the colour in its folder.
  tree->setFocus();
  QTest::keyClick(tree, Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(frame.GetModified());
  EXPECT_FALSE(Window->Tabs()->tabText(Window->Tabs()->currentIndex()).endsWith(" *"));
  const std::string config = ReadText(project.parent_path() / "Assets/config.json");
  EXPECT_NE(config.find("\"name\": \"Colors\\\\Brand\""), std::string::npos);
  EXPECT_EQ(config.find("\"name\": \"Brand\""), std::string::npos);
  EXPECT_NE(ReadText(project.parent_path() / "Assets.Consts.pas").find("'Colors\\Brand'"), std::string::npos);
  // The save keeps what was selected.
  EXPECT_TRUE(frame.Tree().VTResources.Selected(Node(frame, "Colors\\Brand")));
  Shoot(Window.get(), "studio_window.png");

  for (const TqxLogLine& line : Ide->LogLines()) EXPECT_NE(line.Level, TqxLogLevel::Error) << line.Text;
  EXPECT_FALSE(Window->LogPane()->toPlainText().isEmpty());
}

TEST_F(StudioWindowTest, TheTabClosesThroughTheDesignersQuestionAndTheWidthsOutliveIt) {
  TqxScriptedDialogs dialogs;
  TqxUiServices::Instance().SetDialogs(&dialogs);
  const fs::path project = CopyDemo("Demo");
  Ide->OpenProject(project.string());
  Window->show();
  OpenAssetsManagerDesigner("");
  TqxDesignerWidget* designer = Window->CurrentDesigner();
  ASSERT_NE(designer, nullptr);
  designer->Frame().Commands().ActionAddFolder->Execute();
  designer->Splitter()->setSizes({320 + 2 * designer->TreeView()->frameWidth(), 600});
  emit designer->Splitter()->splitterMoved(320, 1);
  EXPECT_EQ(designer->Frame().Tree().TreeWidth, 320);

  // Cancel keeps the tab; No closes it without a save.
  dialogs.AnswerMessage(mrCancel);
  emit Window->Tabs()->tabCloseRequested(0);
  EXPECT_EQ(Window->Tabs()->count(), 1);
  dialogs.AnswerMessage(mrNo);
  emit Window->Tabs()->tabCloseRequested(0);
  EXPECT_EQ(Window->Tabs()->count(), 0);
  EXPECT_EQ(TqxIdeSettings::Instance().GetIntegerValue(TIntegerField::AssetsTreeWidth), 320);

  // A new tab starts at the kept width.
  OpenAssetsManagerDesigner("");
  ASSERT_NE(Window->CurrentDesigner(), nullptr);
  EXPECT_EQ(Window->CurrentDesigner()->Frame().Tree().TreeWidth, 320);
  TqxUiServices::Instance().SetDialogs(&Ui->Dialogs);
}

}  // namespace
}  // namespace qx::test
