#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qx {

class TAction;
class TCustomImageList;

// An entry of a main, popup or drop-down menu. A menu is a root item whose
// children are its entries; an item with the caption "-" is a separator line.
// An item bound to an action shows the action's caption, image and state and
// runs it when clicked.
class TMenuItem {
public:
  TMenuItem() = default;
  explicit TMenuItem(std::string caption) : FCaption(std::move(caption)) {}
  TMenuItem(const TMenuItem&) = delete;
  TMenuItem& operator=(const TMenuItem&) = delete;
  ~TMenuItem() = default;

  std::string Name;

  // Not owned.
  TAction* Action() const { return FAction; }
  void SetAction(TAction* action) { FAction = action; }

  std::string Caption() const;
  void SetCaption(const std::string& value) { FCaption = value; }
  int ImageIndex() const;
  void SetImageIndex(int value) { FImageIndex = value; }
  bool Enabled() const;
  void SetEnabled(bool value) { FEnabled = value; }
  bool Visible() const;
  void SetVisible(bool value) { FVisible = value; }
  bool IsLine() const { return Caption() == "-"; }

  // For an item without an action.
  std::function<void(TMenuItem* sender)> OnClick;
  // Runs the action, or OnClick without one.
  void Click();

  TMenuItem* Parent() const { return FParent; }
  int Count() const { return static_cast<int>(FItems.size()); }
  TMenuItem* Items(int index) const { return FItems.at(index).get(); }
  int IndexOf(const TMenuItem* item) const;
  TMenuItem* Add(std::unique_ptr<TMenuItem> item);
  TMenuItem* Insert(int index, std::unique_ptr<TMenuItem> item);
  TMenuItem* AddAction(TAction* action);
  TMenuItem* AddLine();
  // Hands the child back to the caller; nullptr when it isn't a child.
  std::unique_ptr<TMenuItem> Remove(TMenuItem* item);
  // The item of that name here or anywhere below, depth first; nullptr if none.
  TMenuItem* Find(const std::string& name);

  // Not owned; a root menu's images, used by all its items.
  TCustomImageList* Images = nullptr;
  TCustomImageList* GetImages() const;

private:
  TAction* FAction = nullptr;
  std::string FCaption;
  int FImageIndex = -1;
  bool FEnabled = true, FVisible = true;
  TMenuItem* FParent = nullptr;
  std::vector<std::unique_ptr<TMenuItem>> FItems;
};

}  // namespace qx
