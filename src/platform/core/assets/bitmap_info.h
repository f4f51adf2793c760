#pragma once

#include <memory>
#include <string>

#include "platform/core/base/types.h"

namespace qx {

class TqxBitmap;

// One scale of a bitmap set. The picture is either the file at Uri, loaded on
// first use, or a bitmap held in memory and written to a file on save.
class TqxBitmapInfo {
public:
  enum class TqxSource {
    File = 1,    // the bitmap is the file at Uri
    Memory = 2,  // the bitmap is held here and written on save
  };

  explicit TqxBitmapInfo(float scale);
  TqxBitmapInfo(std::string uri, float scale);
  ~TqxBitmapInfo();
  TqxBitmapInfo(const TqxBitmapInfo&) = delete;
  TqxBitmapInfo& operator=(const TqxBitmapInfo&) = delete;

  float Scale() const { return FScale; }
  const std::string& Uri() const { return FUri; }
  TqxSource Source() const { return FSource; }

  // Stretchable-image insets, in pixels of this scale's picture.
  const TRect& CapInsets() const { return FCapInsets; }
  void SetCapInsets(const TRect& insets) { FCapInsets = insets; }
  // 0 means the picture isn't tinted.
  TAlphaColor TintColor() const { return FTintColor; }
  void SetTintColor(TAlphaColor color) { FTintColor = color; }
  bool HasTintColor() const { return FTintColor != 0; }

  // In memory: a bitmap is held. From a file: Uri is set; whether the file
  // can be read is found out by GetBitmap.
  bool HasBitmap() const;
  // The picture, loaded from Uri on first call for the file source; nullptr
  // when there is none or the file can't be read (which is logged once).
  TqxBitmap* GetBitmap();
  // The bitmap held now, without loading anything.
  TqxBitmap* GetRawBitmap() const { return FBitmap.get(); }

  // Takes the bitmap; the source becomes Memory. Uri stays until a save sets it.
  void SetBitmap(std::unique_ptr<TqxBitmap> bitmap);
  // The source becomes File and the held bitmap is dropped.
  void SetUri(std::string uri);

  std::unique_ptr<TqxBitmapInfo> Clone() const;

private:
  float FScale;
  std::string FUri;
  TqxSource FSource = TqxSource::File;
  TRect FCapInsets;
  TAlphaColor FTintColor = 0;
  std::unique_ptr<TqxBitmap> FBitmap;
  bool FLoadFailed = false;
};

}  // namespace qx
