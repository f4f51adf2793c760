#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/core/base/matrix.h"
#include "platform/core/base/types.h"

namespace qx {

// One stop: where it stands on the gradient and its colour, whose alpha already
// carries the stop's opacity.
struct TqxVectorGradientPoint {
  float Offset = 0;
  TAlphaColor Color = 0;
  bool operator==(const TqxVectorGradientPoint&) const = default;
};

// A paint server. Documents hold gradients through shared pointers to const, so
// one object may be referenced by several commands and documents at once; to
// change a gradient that is already in use, Clone it.
class TqxVectorGradient {
public:
  virtual ~TqxVectorGradient() = default;

  // An independent copy of the same concrete class.
  virtual std::unique_ptr<TqxVectorGradient> Clone() const = 0;
  // Same concrete class and equal fields.
  virtual bool Equals(const TqxVectorGradient& other) const;

  std::string ID;
  std::vector<TqxVectorGradientPoint> Points;  // in stop order, neither sorted nor clamped
  TMatrix Transform;                           // identity after construction

protected:
  TqxVectorGradient() = default;
  TqxVectorGradient(const TqxVectorGradient&) = default;
  TqxVectorGradient& operator=(const TqxVectorGradient&) = default;
};

class TqxVectorLinearGradient : public TqxVectorGradient {
public:
  TqxVectorLinearGradient() = default;
  std::unique_ptr<TqxVectorGradient> Clone() const override;
  bool Equals(const TqxVectorGradient& other) const override;

  TPointF StartPoint;
  TPointF EndPoint;
};

class TqxVectorRadialGradient : public TqxVectorGradient {
public:
  TqxVectorRadialGradient() = default;
  std::unique_ptr<TqxVectorGradient> Clone() const override;
  bool Equals(const TqxVectorGradient& other) const override;

  TPointF Center;
  // Zero until set; a reader that finds no usable radius leaves it so.
  float Radius = 0;
};

}  // namespace qx
