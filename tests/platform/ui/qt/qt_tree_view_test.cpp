#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <filesystem>

#include "platform/core/base/text.h"
#include "platform/ui/image_list.h"
#include "platform/ui/qt/qt_tree_model.h"
#include "platform/ui/qt/qt_tree_view.h"
#include "platform/ui/virtual_tree.h"
#include "../../../support/qt_test_app.h"

namespace qx::test {
namespace {

struct TItem : TNodeDataBase {
  TItem(std::string caption, bool folder) : Caption(std::move(caption)), Folder(folder) {}
  std::string Caption;
  bool Folder;
};

// A two-column tree with icons, set up as the assets designer sets up its own,
// shown in a window.
class QtTreeView : public ::testing::Test {
protected:
  QtTreeView() : Images(24, 24) {
    EnsureApp();
    TqxBitmap folderImage(24, 24), assetImage(24, 24);
    folderImage.Clear(0xFFE0B040);
    assetImage.Clear(0xFF3070E0);
    Images.Add(folderImage, "Folder Closed");
    Images.Add(assetImage, "Asset");
    Tree.Header.Columns = {{"Name", 162, TAlignment::taLeftJustify, true},
                           {"Info", 85, TAlignment::taCenter, false}};
    Tree.Header.Height = 30;
    Tree.DefaultNodeHeight = 32;
    Tree.MultiSelect = Tree.RightClickSelect = Tree.Editable = Tree.DragEnabled = Tree.AcceptFiles = true;
    Tree.Images = &Images;
    Tree.OnGetText = [](TVirtualTree* t, TVirtualNode* n, int column, std::string& text) {
      auto* item = t->GetNodeData<TItem>(n);
      text = column == 0 ? item->Caption : (item->Folder ? "" : "24x24");
    };
    Tree.OnGetImageIndex = [](TVirtualTree* t, TVirtualNode* n, TVTImageKind, int column, bool&, int& index) {
      if (column == 0) index = t->GetNodeData<TItem>(n)->Folder ? 0 : 1;
    };
    Tree.OnCompareNodes = [](TVirtualTree* t, TVirtualNode* a, TVirtualNode* b, int, int& result) {
      auto *ia = t->GetNodeData<TItem>(a), *ib = t->GetNodeData<TItem>(b);
      result = ia->Folder != ib->Folder ? (ia->Folder ? -1 : 1) : CompareStr(ia->Caption, ib->Caption);
    };
    Folder = Tree.AddChild(nullptr, std::make_unique<TItem>("Icons", true));
    Tree.AddChild(Folder, std::make_unique<TItem>("Back", false));
    Asset = Tree.AddChild(nullptr, std::make_unique<TItem>("Primary", false));
    View = std::make_unique<TqxQtTreeView>(Tree);
    View->resize(260, 300);
    View->show();
  }

  QModelIndex IndexOf(TVirtualNode* node, int column = 0) { return View->Model()->IndexOf(node, column); }
  // Delivers a drop of the data at the middle of the node's row, with a
  // screenshot of the hovering when asked; says whether the move was accepted.
  bool Drop(QMimeData& data, TVirtualNode* node, const std::string& hoverShot = "") {
    QPoint at = View->NodeRect(node).center();
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(View->viewport(), &enter);
    QDragMoveEvent move(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(View->viewport(), &move);
    if (!hoverShot.empty()) EXPECT_TRUE(View->grab().save(QString::fromStdString(hoverShot)));
    QDropEvent drop(QPointF(at), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(View->viewport(), &drop);
    return move.isAccepted();
  }

  TCustomImageList Images;
  TVirtualTree Tree;
  TVirtualNode *Folder, *Asset;
  std::unique_ptr<TqxQtTreeView> View;
};

TEST_F(QtTreeView, ShowsNodesWithIconsAndMirrorsTheTreesState) {
  auto* model = View->Model();
  ASSERT_EQ(model->rowCount(), 2);
  EXPECT_EQ(model->data(IndexOf(Asset, 1), Qt::DisplayRole).toString(), "24x24");
  EXPECT_EQ(model->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Info");
  EXPECT_FALSE(model->data(IndexOf(Folder), Qt::DecorationRole).value<QIcon>().isNull());
  EXPECT_TRUE(model->flags(IndexOf(Asset)) & Qt::ItemIsEditable);
  EXPECT_FALSE(model->flags(IndexOf(Asset, 1)) & Qt::ItemIsEditable);

  Tree.SetExpanded(Folder, true);
  EXPECT_TRUE(View->isExpanded(IndexOf(Folder)));
  Tree.SetSelected(Asset, true);
  EXPECT_TRUE(View->selectionModel()->isSelected(IndexOf(Asset)));

  // A click goes through the tree's rules: it replaces the selection.
  QTest::mouseClick(View->viewport(), Qt::LeftButton, Qt::NoModifier, View->NodeRect(Folder).center());
  EXPECT_EQ(Tree.SelectedNodes(), std::vector<TVirtualNode*>{Folder});
  EXPECT_FALSE(View->selectionModel()->isSelected(IndexOf(Asset)));
  QTest::mouseClick(View->viewport(), Qt::LeftButton, Qt::ControlModifier, View->NodeRect(Asset).center());
  EXPECT_EQ(Tree.SelectedCount(), 2);

  QTest::keyClick(View.get(), Qt::Key_Up);
  EXPECT_EQ(Tree.FocusedNode(), Tree.GetFirstChild(Folder));
}

TEST_F(QtTreeView, InPlaceEditCommitsThroughTheTree) {
  std::vector<std::string> texts;
  Tree.OnNewText = [&](TVirtualTree* t, TVirtualNode* n, int, const std::string& text) {
    texts.push_back(text);
    t->GetNodeData<TItem>(n)->Caption = text;
    t->Sort(nullptr, 0, TSortDirection::sdAscending);  // rebuilds the rows under the closed editor
  };
  ASSERT_TRUE(Tree.EditNode(Asset, 0));
  auto* editor = View->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->text(), "Primary");
  editor->setText("Accent");
  QTest::keyClick(editor, Qt::Key_Return);
  // The editor commits, closes, and only then hands the text on.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Tree.IsEditing(); }, 2000));
  EXPECT_EQ(texts, std::vector<std::string>{"Accent"});
  EXPECT_EQ(View->Model()->data(IndexOf(Asset), Qt::DisplayRole).toString(), "Accent");

  // Escape ends the edit without a text.
  ASSERT_TRUE(Tree.EditNode(Asset, 0));
  QTest::keyClick(View->findChild<QLineEdit*>(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Tree.IsEditing(); }, 2000));
  EXPECT_EQ(texts.size(), 1u);
}

TEST_F(QtTreeView, DropsReachTheTreeFromInsideAndFromTheDesktop) {
  std::vector<std::string> files;
  Tree.OnDragOver = [](TVirtualTree*, TVirtualTree*, TShiftState, TDragState, TPoint, TDropMode, TDragEffect&,
                       bool& accept) { accept = true; };
  Tree.OnDragDrop = [&](TVirtualTree* t, TVirtualTree* source, const TVTDragData& data, TShiftState, TPoint,
                        TDragEffect& effect, TDropMode mode) {
    if (source == t) {
      EXPECT_EQ(mode, TDropMode::dmOnNode);
      for (auto* node : t->GetSortedSelection(true))
        t->MoveTo(node, t->DropTargetNode(), TVTNodeAttachMode::amAddChildLast);
      t->Sort(nullptr, 0, TSortDirection::sdAscending);
      effect = TDragEffect::deMove;
    } else if (data.HasFormat(CF_HDROP)) {
      files = data.FileNames;
    }
  };

  Tree.SetSelected(Asset, true);
  std::unique_ptr<QMimeData> nodes(View->CreateDragMimeData());
  Drop(*nodes, Folder);
  EXPECT_EQ(Tree.GetNodeParent(Asset), Folder);
  EXPECT_EQ(View->Model()->rowCount(IndexOf(Folder)), 2);

  auto file = std::filesystem::temp_directory_path() / "qx_ui_qt_drop.png";
  QMimeData desktop;
  desktop.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
  Tree.SetExpanded(Folder, true);
  auto shots = std::filesystem::path(QX_BUILD_DIR) / "screenshots";
  std::filesystem::create_directories(shots);
  // Hovering shows where the files would land.
  EXPECT_TRUE(Drop(desktop, Folder, (shots / "ui_tree_view_drag.png").string()));
  EXPECT_EQ(files, std::vector<std::string>{file.string()});
}

}  // namespace
}  // namespace qx::test
