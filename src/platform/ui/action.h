#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace qx {

// A user command with its presentation. Menus, toolbars and buttons that show
// it follow its state through the change subscribers.
class TAction {
public:
  using TNotifyEvent = std::function<void(TAction* sender)>;

  TAction() = default;
  explicit TAction(std::string name) : Name(std::move(name)) {}
  TAction(const TAction&) = delete;
  TAction& operator=(const TAction&) = delete;
  virtual ~TAction() = default;

  std::string Name;

  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& value);
  const std::string& Hint() const { return FHint; }
  void SetHint(const std::string& value);
  const std::string& Category() const { return FCategory; }
  void SetCategory(const std::string& value) { FCategory = value; }
  // Index in the image list of whatever shows the action; -1 for none.
  int ImageIndex() const { return FImageIndex; }
  void SetImageIndex(int value);
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool value);
  bool Visible() const { return FVisible; }
  void SetVisible(bool value);
  bool Checked() const { return FChecked; }
  void SetChecked(bool value);

  TNotifyEvent OnExecute;
  // Runs on idle passes so the action can set its own state.
  TNotifyEvent OnUpdate;

  // Runs OnExecute when the action is enabled and visible; answers whether it ran.
  bool Execute();
  // One idle pass for this action.
  void Update();

  // Subscribers hear every change of a shown property; answers an id for Unsubscribe.
  int Subscribe(std::function<void()> onChange);
  void Unsubscribe(int id);
  // Expires when the action goes, for what outlives it (a toolkit's action
  // bound to this one).
  std::weak_ptr<const void> Lifetime() const { return FLifetime; }

private:
  void Changed();

  std::string FCaption, FHint, FCategory;
  int FImageIndex = -1;
  bool FEnabled = true, FVisible = true, FChecked = false;
  std::map<int, std::function<void()>> FSubscribers;
  int FNextSubscriber = 1;
  std::shared_ptr<const void> FLifetime = std::make_shared<int>(0);
};

}  // namespace qx
