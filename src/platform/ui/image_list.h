#pragma once

#include <map>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/graphics/bitmap.h"

namespace qx {

// Images of one size that trees, menus and toolbars refer to by index. Each
// image may carry a name, so that a stock image can be found again.
class TCustomImageList {
public:
  TCustomImageList(int width = 16, int height = 16) : FWidth(width), FHeight(height) {}
  TCustomImageList(const TCustomImageList&) = delete;
  TCustomImageList& operator=(const TCustomImageList&) = delete;

  int Width() const { return FWidth; }
  int Height() const { return FHeight; }
  int Count() const { return static_cast<int>(FImages.size()); }

  // Takes a copy of the bitmap; answers its index.
  int Add(const TqxBitmap& bitmap, const std::string& name = "");
  void Replace(int index, const TqxBitmap& bitmap);
  void Delete(int index);
  void Clear();
  // nullptr for an index out of range, so a stale index shows no image.
  const TqxBitmap* Get(int index) const;
  const std::string& Name(int index) const { return FImages.at(index).Name; }
  int IndexOfName(const std::string& name) const;

  int Subscribe(std::function<void()> onChange);
  void Unsubscribe(int id);

private:
  struct TEntry {
    std::unique_ptr<TqxBitmap> Bitmap;
    std::string Name;
  };
  void Changed();

  int FWidth, FHeight;
  std::vector<TEntry> FImages;
  std::map<int, std::function<void()>> FSubscribers;
  int FNextSubscriber = 1;
};

}  // namespace qx
