#pragma once

#include <QFrame>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/ui/popup_service.h"

namespace qx {

// The window of one popup: a Qt::Popup frame around the form's widget. It
// closes when the user clicks outside it, unless the form refuses.
class TqxPopupWindow : public QFrame {
  Q_OBJECT
public:
  TqxPopupWindow(std::unique_ptr<IqxPopupForm> form, QWidget* content);
  ~TqxPopupWindow() override;

  IqxPopupForm* Form() const { return FForm.get(); }
  // Closes whatever the form answers.
  void Dismiss();

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  std::unique_ptr<IqxPopupForm> FForm;
  bool FDismissing = false;
};

// Popups as Qt::Popup windows placed under their anchor's widget. The widget
// of a form comes from the first factory that takes it; the widget of an
// anchor is the one tagged with SetAnchorWidget.
class TqxQtPopupService : public IqxPopupService {
public:
  // Answers a new widget for the form, or nullptr when the form isn't of its kind.
  using TWidgetFactory = std::function<QWidget*(IqxPopupForm& form)>;

  ~TqxQtPopupService() override;

  // Factories are kept for the service's life; a key registered before is
  // replaced, so a second registration does nothing new.
  void RegisterWidgetFactory(const std::string& key, TWidgetFactory factory);

  void Show(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor) override;
  bool Close(IqxPopupForm* AForm) override;
  void Dismiss(IqxPopupForm* AForm) override;

  // The open popup of the form, or nullptr.
  TqxPopupWindow* WindowOf(const IqxPopupForm* AForm) const;
  TqxPopupWindow* LastWindow() const;

  // Tags the widget that shows a control, so popups at the control stand under it.
  static void SetAnchorWidget(QWidget* widget, const void* anchor);
  static QWidget* FindAnchorWidget(const void* anchor);

private:
  std::vector<std::pair<std::string, TWidgetFactory>> FFactories;
  std::vector<QPointer<TqxPopupWindow>> FWindows;
};

}  // namespace qx
