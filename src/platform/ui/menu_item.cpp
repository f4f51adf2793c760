#include "platform/ui/menu_item.h"

#include "platform/ui/action.h"

namespace qx {

std::string TMenuItem::Caption() const { return FAction ? FAction->Caption() : FCaption; }

int TMenuItem::ImageIndex() const {
  // An item's own image wins over its action's, as the IDE's menus do it.
  if (FImageIndex >= 0 || !FAction) return FImageIndex;
  return FAction->ImageIndex();
}

bool TMenuItem::Enabled() const { return FAction ? FAction->Enabled() : FEnabled; }

bool TMenuItem::Visible() const { return FAction ? FAction->Visible() : FVisible; }

void TMenuItem::Click() {
  if (FAction) {
    FAction->Execute();
  } else if (FEnabled && OnClick) {
    OnClick(this);
  }
}

int TMenuItem::IndexOf(const TMenuItem* item) const {
  for (size_t i = 0; i < FItems.size(); ++i)
    if (FItems[i].get() == item) return static_cast<int>(i);
  return -1;
}

TMenuItem* TMenuItem::Add(std::unique_ptr<TMenuItem> item) { return Insert(Count(), std::move(item)); }

TMenuItem* TMenuItem::Insert(int index, std::unique_ptr<TMenuItem> item) {
  if (index < 0 || index > Count()) index = Count();
  item->FParent = this;
  auto* raw = item.get();
  FItems.insert(FItems.begin() + index, std::move(item));
  return raw;
}

TMenuItem* TMenuItem::AddAction(TAction* action) {
  auto item = std::make_unique<TMenuItem>();
  item->SetAction(action);
  if (action) item->Name = action->Name + "Item";
  return Add(std::move(item));
}

TMenuItem* TMenuItem::AddLine() { return Add(std::make_unique<TMenuItem>("-")); }

std::unique_ptr<TMenuItem> TMenuItem::Remove(TMenuItem* item) {
  int index = IndexOf(item);
  if (index < 0) return nullptr;
  auto owned = std::move(FItems[index]);
  FItems.erase(FItems.begin() + index);
  owned->FParent = nullptr;
  return owned;
}

TMenuItem* TMenuItem::Find(const std::string& name) {
  if (Name == name) return this;
  for (auto& child : FItems)
    if (auto* found = child->Find(name)) return found;
  return nullptr;
}

TCustomImageList* TMenuItem::GetImages() const {
  for (const TMenuItem* item = this; item; item = item->FParent)
    if (item->Images) return item->Images;
  return nullptr;
}

}  // namespace qx
