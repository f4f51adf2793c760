#pragma once

#include <memory>
#include <vector>

#include "platform/ui/popup_service.h"

namespace qx {

// Keeps the open popups so a test can drive them and close them.
class TqxHeadlessPopups : public IqxPopupService {
public:
  void Show(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor) override;
  bool Close(IqxPopupForm* AForm) override;
  void Dismiss(IqxPopupForm* AForm) override;

  int Count() const { return static_cast<int>(FOpen.size()); }
  // The last popup shown and still open, or nullptr.
  IqxPopupForm* Current() const { return FOpen.empty() ? nullptr : FOpen.back().Form.get(); }
  template <class T>
  T* CurrentAs() const { return dynamic_cast<T*>(Current()); }
  const void* AnchorOf(const IqxPopupForm* AForm) const;
  // Closes the last popup as a click outside it would.
  bool CloseCurrent() { return Current() ? Close(Current()) : true; }

private:
  struct TEntry {
    std::unique_ptr<IqxPopupForm> Form;
    const void* Anchor;
  };
  std::vector<TEntry> FOpen;
};

}  // namespace qx
