#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "platform/core/base/exception.h"
#include "platform/ui/qt/qt_popups.h"
#include "platform/ui/qt/qt_ui_services.h"
#include "../../../support/qt_test_app.h"

namespace qx::test {
namespace {

// A form that may refuse to close and tells when it is freed.
class TFakeForm : public IqxPopupForm {
public:
  explicit TFakeForm(bool& freed) : FFreed(freed) {}
  ~TFakeForm() override { FFreed = true; }
  bool CanClose() override { return MayClose; }
  bool MayClose = true;

private:
  bool& FFreed;
};

TEST(QtPopups, PopupStandsUnderItsAnchorAndClosesOnlyWhenItsFormAgrees) {
  EnsureApp();
  TqxQtUi ui;
  ui.Popups.RegisterWidgetFactory("fake", [](IqxPopupForm& form) -> QWidget* {
    return dynamic_cast<TFakeForm*>(&form) ? new QLabel("picker") : nullptr;
  });
  int anchorKey = 0;
  QWidget host;
  host.setGeometry(100, 100, 300, 200);
  auto* anchor = new QWidget(&host);
  anchor->setGeometry(20, 30, 80, 90);
  TqxQtPopupService::SetAnchorWidget(anchor, &anchorKey);
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));

  bool freed = false;
  auto form = std::make_unique<TFakeForm>(freed);
  TFakeForm* raw = form.get();
  raw->MayClose = false;
  ShowPopup(std::move(form), &anchorKey);
  TqxPopupWindow* window = ui.Popups.WindowOf(raw);
  ASSERT_NE(window, nullptr);
  // Under the anchor's bottom left, give or take the window system's frame.
  EXPECT_LE((window->pos() - anchor->mapToGlobal(QPoint(0, anchor->height()))).manhattanLength(), 4);

  // A click outside closes a Qt popup through close(): refused while the form says no.
  EXPECT_FALSE(ClosePopup(raw));
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible());
  raw->MayClose = true;
  EXPECT_TRUE(ClosePopup(raw));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(freed);

  // Dismissed popups go whatever the form says.
  freed = false;
  form = std::make_unique<TFakeForm>(freed);
  raw = form.get();
  raw->MayClose = false;
  ShowPopup(std::move(form), &anchorKey);
  DismissPopup(raw);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(freed);

  // A form no factory knows isn't shown.
  class TOther : public IqxPopupForm {
    bool CanClose() override { return true; }
  };
  EXPECT_THROW(ShowPopup(std::make_unique<TOther>(), nullptr), Exception);
}

}  // namespace
}  // namespace qx::test
