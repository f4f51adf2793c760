#include "platform/ui/qt/qt_popups.h"

#include <QApplication>
#include <algorithm>
#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/core/base/exception.h"

namespace qx {

namespace {

constexpr const char* kAnchorProperty = "qxPopupAnchor";

}  // namespace

TqxPopupWindow::TqxPopupWindow(std::unique_ptr<IqxPopupForm> form, QWidget* content)
    : QFrame(nullptr, Qt::Popup), FForm(std::move(form)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameShape(QFrame::StyledPanel);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(content);
}

// The content widget goes first: it may still look at the form.
TqxPopupWindow::~TqxPopupWindow() {
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void TqxPopupWindow::Dismiss() {
  FDismissing = true;
  close();
}

void TqxPopupWindow::closeEvent(QCloseEvent* event) {
  if (!FDismissing && FForm && !FForm->CanClose()) {
    event->ignore();
    return;
  }
  QFrame::closeEvent(event);
}

TqxQtPopupService::~TqxQtPopupService() {
  for (auto& window : FWindows)
    if (window) delete window.data();
}

void TqxQtPopupService::RegisterWidgetFactory(const std::string& key, TWidgetFactory factory) {
  for (auto& entry : FFactories) {
    if (entry.first == key) {
      entry.second = std::move(factory);
      return;
    }
  }
  FFactories.emplace_back(key, std::move(factory));
}

void TqxQtPopupService::Show(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor) {
  if (!AForm) return;
  QWidget* content = nullptr;
  for (auto& entry : FFactories)
    if ((content = entry.second(*AForm))) break;
  if (!content) throw Exception("No popup window for this form");
  auto* window = new TqxPopupWindow(std::move(AForm), content);
  window->adjustSize();
  if (QWidget* anchor = FindAnchorWidget(AAnchor)) {
    QPoint at = anchor->mapToGlobal(QPoint(0, anchor->height()));
    // Kept on the anchor's screen, above the anchor when there is no room below.
    if (QScreen* screen = anchor->screen()) {
      const QRect area = screen->availableGeometry();
      if (at.y() + window->height() > area.bottom()) at.setY(anchor->mapToGlobal(QPoint(0, 0)).y() - window->height());
      at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() - window->width())));
    }
    window->move(at);
  }
  FWindows.erase(std::remove_if(FWindows.begin(), FWindows.end(), [](auto& w) { return w.isNull(); }),
                 FWindows.end());
  FWindows.emplace_back(window);
  window->show();
}

TqxPopupWindow* TqxQtPopupService::WindowOf(const IqxPopupForm* AForm) const {
  for (auto& window : FWindows)
    if (window && window->Form() == AForm) return window.data();
  return nullptr;
}

TqxPopupWindow* TqxQtPopupService::LastWindow() const {
  for (auto it = FWindows.rbegin(); it != FWindows.rend(); ++it)
    if (*it && (*it)->isVisible()) return it->data();
  return nullptr;
}

bool TqxQtPopupService::Close(IqxPopupForm* AForm) {
  TqxPopupWindow* window = WindowOf(AForm);
  return window ? window->close() : true;
}

void TqxQtPopupService::Dismiss(IqxPopupForm* AForm) {
  if (TqxPopupWindow* window = WindowOf(AForm)) window->Dismiss();
}

void TqxQtPopupService::SetAnchorWidget(QWidget* widget, const void* anchor) {
  widget->setProperty(kAnchorProperty, QVariant::fromValue(reinterpret_cast<quintptr>(anchor)));
}

QWidget* TqxQtPopupService::FindAnchorWidget(const void* anchor) {
  if (!anchor) return nullptr;
  const auto key = reinterpret_cast<quintptr>(anchor);
  for (QWidget* widget : QApplication::allWidgets())
    if (widget->property(kAnchorProperty).value<quintptr>() == key) return widget;
  return nullptr;
}

}  // namespace qx
