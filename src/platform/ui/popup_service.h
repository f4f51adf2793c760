#pragma once

#include <memory>
#include <string>

namespace qx {

// A window shown as a popup beside a control; the popup service owns it while
// it is open.
class IqxPopupForm {
public:
  virtual ~IqxPopupForm() = default;
  // Asked before the popup closes; false keeps it open (a modal dialog of its
  // own is on the screen, say).
  virtual bool CanClose() = 0;
};

// Shows popups and owns them from then on. The application installs one that
// opens a window at the anchor; tests install TqxHeadlessPopups.
class IqxPopupService {
public:
  virtual ~IqxPopupService() = default;
  // AAnchor identifies the control the popup stands at; the service only
  // compares it, never reads through it.
  virtual void Show(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor) = 0;
  // Closes the popup when it agrees to; answers whether it is gone. A form the
  // service doesn't hold counts as gone.
  virtual bool Close(IqxPopupForm* AForm) = 0;
  // Closes it whatever it answers, as when its anchor goes away.
  virtual void Dismiss(IqxPopupForm* AForm) = 0;
};

// Hands the form to the installed service; raises Exception when none is installed.
void ShowPopup(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor);
// Through the installed service; without one there is nothing open to close.
bool ClosePopup(IqxPopupForm* AForm);
void DismissPopup(IqxPopupForm* AForm);

}  // namespace qx
