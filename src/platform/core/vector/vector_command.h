#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/base/matrix.h"
#include "platform/core/vector/vector_brush.h"
#include "platform/core/vector/vector_gradient.h"

namespace qx {

// The ordinals are stored in .vector files and must not change.
enum class TqxVectorCommandKind : std::uint8_t {
  DrawPath = 0,
  BeginGroup = 1,
  EndGroup = 2,
  SetTransform = 3,
  SetGradient = 4,
  SetBrush = 5,
};

inline constexpr int kVectorCommandKindCount = 6;

// One drawing command: a kind and the payload of that kind. Fields that do not
// belong to the kind stay at their defaults.
class TqxVectorCommand {
public:
  explicit TqxVectorCommand(TqxVectorCommandKind kind) : Kind(kind) {}

  static std::unique_ptr<TqxVectorCommand> CreateDrawPath(std::string path);
  static std::unique_ptr<TqxVectorCommand> CreateBeginGroup();
  static std::unique_ptr<TqxVectorCommand> CreateEndGroup();
  static std::unique_ptr<TqxVectorCommand> CreateSetTransform(const TMatrix& matrix);
  static std::unique_ptr<TqxVectorCommand> CreateSetGradient(
      std::shared_ptr<const TqxVectorGradient> gradient, bool isFill);
  static std::unique_ptr<TqxVectorCommand> CreateSetBrush(const TqxVectorBrush& brush);

  // A new command with the same payload. A gradient is immutable once in a
  // command, so the copy shares it.
  std::unique_ptr<TqxVectorCommand> Clone() const;

  // Same kind and equal payload; gradients compare by value.
  bool operator==(const TqxVectorCommand& other) const;

  TqxVectorCommandKind Kind;
  std::string Path;                                    // DrawPath
  TMatrix Matrix;                                      // SetTransform
  std::shared_ptr<const TqxVectorGradient> Gradient;   // SetGradient
  bool IsFill = false;                                 // SetGradient: fill or stroke paint
  TqxVectorBrush Brush;                                // SetBrush
};

using TqxVectorCommands = std::vector<std::unique_ptr<TqxVectorCommand>>;

}  // namespace qx
