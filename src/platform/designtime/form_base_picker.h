#pragma once

#include <functional>
#include <memory>
#include <type_traits>

#include "platform/ui/popup_service.h"

namespace qx {

class TFrameThemed;

// Base of the popup pickers. A picker is made with no owner, gets its change
// event, and is handed to the popup service by ShowAsPopup; from then on the
// service owns it and frees it when it closes. Whoever keeps a pointer to a
// shown picker checks Lifetime() before using it.
class TFormBasePicker : public IqxPopupForm {
public:
  using TNotifyEvent = std::function<void(TFormBasePicker* sender)>;

  TFormBasePicker(int AClientWidth, int AClientHeight) : FClientWidth(AClientWidth), FClientHeight(AClientHeight) {}
  TFormBasePicker(const TFormBasePicker&) = delete;
  TFormBasePicker& operator=(const TFormBasePicker&) = delete;

  int ClientWidth() const { return FClientWidth; }
  int ClientHeight() const { return FClientHeight; }

  // Raised by Change; set before showing.
  TNotifyEvent OnChange;
  // For the widget that shows the picker: raised by Change after OnChange.
  std::function<void()> OnRefreshView;

  // Shows the picker at the control and gives it to the popup service;
  // answers the picker, which lives until the popup closes.
  template <class T>
  static T* ShowAsPopup(std::unique_ptr<T> APicker, const TFrameThemed& AControl) {
    static_assert(std::is_base_of_v<TFormBasePicker, T>);
    T* raw = APicker.get();
    ShowPopup(std::move(APicker), &AControl);
    return raw;
  }

  // Asks the service to close the picker; it stays open when DoCanClose refuses.
  bool Close() { return ClosePopup(this); }
  bool CanClose() final { return DoCanClose(); }

  // Expires when the picker is freed.
  std::weak_ptr<const void> Lifetime() const { return FLifetime; }

protected:
  void Change() {
    if (OnChange) OnChange(this);
    if (OnRefreshView) OnRefreshView();
  }
  virtual bool DoCanClose() { return true; }

private:
  int FClientWidth, FClientHeight;
  std::shared_ptr<const void> FLifetime = std::make_shared<int>(0);
};

}  // namespace qx
