#include "platform/ui/image_list.h"

#include "platform/core/base/assert.h"

namespace qx {

int TCustomImageList::Add(const TqxBitmap& bitmap, const std::string& name) {
  FImages.push_back({bitmap.Clone(), name});
  Changed();
  return Count() - 1;
}

void TCustomImageList::Replace(int index, const TqxBitmap& bitmap) {
  TqxAssert::IsTrue(index >= 0 && index < Count(), "Image index out of range");
  FImages[index].Bitmap = bitmap.Clone();
  Changed();
}

void TCustomImageList::Delete(int index) {
  TqxAssert::IsTrue(index >= 0 && index < Count(), "Image index out of range");
  FImages.erase(FImages.begin() + index);
  Changed();
}

void TCustomImageList::Clear() {
  FImages.clear();
  Changed();
}

const TqxBitmap* TCustomImageList::Get(int index) const {
  if (index < 0 || index >= Count()) return nullptr;
  return FImages[index].Bitmap.get();
}

int TCustomImageList::IndexOfName(const std::string& name) const {
  for (int i = 0; i < Count(); ++i)
    if (FImages[i].Name == name) return i;
  return -1;
}

int TCustomImageList::Subscribe(std::function<void()> onChange) {
  int id = FNextSubscriber++;
  FSubscribers.emplace(id, std::move(onChange));
  return id;
}

void TCustomImageList::Unsubscribe(int id) { FSubscribers.erase(id); }

void TCustomImageList::Changed() {
  for (auto& [id, fn] : FSubscribers) fn();
}

}  // namespace qx
