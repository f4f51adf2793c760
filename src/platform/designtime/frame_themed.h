#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/base/types.h"

namespace qx {

// Base of the designer's frames and panels: a rectangle in its parent's
// coordinates that may own child frames. Nothing here draws: a widget shows
// the frame, listens to OnRepaint and OnBoundsChanged, and sets Hosted so the
// frame knows it is on screen.
class TFrameThemed {
public:
  TFrameThemed() = default;
  virtual ~TFrameThemed();
  TFrameThemed(const TFrameThemed&) = delete;
  TFrameThemed& operator=(const TFrameThemed&) = delete;

  int Left() const { return FLeft; }
  int Top() const { return FTop; }
  int Width() const { return FWidth; }
  int Height() const { return FHeight; }
  // Resize runs after any change of width or height.
  void SetBounds(int ALeft, int ATop, int AWidth, int AHeight);
  void SetLeft(int value) { SetBounds(value, FTop, FWidth, FHeight); }
  void SetTop(int value) { SetBounds(FLeft, value, FWidth, FHeight); }
  void SetWidth(int value) { SetBounds(FLeft, FTop, value, FHeight); }
  void SetHeight(int value) { SetBounds(FLeft, FTop, FWidth, value); }

  // Space kept outside the frame by a parent that aligns it, and inside it
  // around its aligned children.
  TRect Margins;
  TRect Padding;

  bool Visible() const { return FVisible; }
  void SetVisible(bool value);
  const std::string& Hint() const { return FHint; }
  void SetHint(const std::string& value);

  TFrameThemed* Parent() const { return FParent; }
  // True inside a parent frame or when a widget shows the frame.
  bool HasParent() const { return FParent != nullptr || FHosted; }
  void SetHosted(bool value) { FHosted = value; }

  // Takes the child; answers it.
  template <class T>
  T* InsertChild(std::unique_ptr<T> child) {
    T* raw = child.get();
    InsertOwned(std::unique_ptr<TFrameThemed>(std::move(child)));
    return raw;
  }
  // Frees the child.
  void RemoveChild(TFrameThemed* child);
  void ClearChildren();
  const std::vector<std::unique_ptr<TFrameThemed>>& Children() const { return FChildren; }

  // Asks whatever shows the frame to draw it again.
  void Repaint();

  std::function<void()> OnRepaint;
  std::function<void()> OnBoundsChanged;
  std::function<void()> OnVisibleChanged;

protected:
  // After the size changed.
  virtual void Resize() {}

private:
  void InsertOwned(std::unique_ptr<TFrameThemed> child);

  int FLeft = 0, FTop = 0, FWidth = 0, FHeight = 0;
  bool FVisible = true;
  bool FHosted = false;
  std::string FHint;
  TFrameThemed* FParent = nullptr;
  std::vector<std::unique_ptr<TFrameThemed>> FChildren;
};

}  // namespace qx
