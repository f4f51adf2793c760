#include "platform/core/vector/vector_gradient.h"

#include <typeinfo>

namespace qx {

bool TqxVectorGradient::Equals(const TqxVectorGradient& other) const {
  return typeid(*this) == typeid(other) && ID == other.ID && Points == other.Points &&
         Transform == other.Transform;
}

std::unique_ptr<TqxVectorGradient> TqxVectorLinearGradient::Clone() const {
  return std::make_unique<TqxVectorLinearGradient>(*this);
}

bool TqxVectorLinearGradient::Equals(const TqxVectorGradient& other) const {
  if (!TqxVectorGradient::Equals(other)) return false;
  const auto& linear = static_cast<const TqxVectorLinearGradient&>(other);
  return StartPoint == linear.StartPoint && EndPoint == linear.EndPoint;
}

std::unique_ptr<TqxVectorGradient> TqxVectorRadialGradient::Clone() const {
  return std::make_unique<TqxVectorRadialGradient>(*this);
}

bool TqxVectorRadialGradient::Equals(const TqxVectorGradient& other) const {
  if (!TqxVectorGradient::Equals(other)) return false;
  const auto& radial = static_cast<const TqxVectorRadialGradient&>(other);
  return Center == radial.Center && Radius == radial.Radius;
}

}  // namespace qx
