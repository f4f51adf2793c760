#include "platform/core/vector/vector_transform.h"

#include <numbers>

namespace qx {

void TqxVectorTransform::AddTranslation(float tx, float ty) {
  Translation = {tx, ty};
  Order += 'T';
  Matrix = TMatrix::CreateTranslation(tx, ty) * Matrix;
}

void TqxVectorTransform::AddRotation(float degrees) {
  Rotation = degrees;
  Order += 'R';
  const double radians = static_cast<double>(degrees) * std::numbers::pi / 180.0;
  Matrix = TMatrix::CreateRotation(static_cast<float>(radians)) * Matrix;
}

void TqxVectorTransform::AddScaling(float sx, float sy) {
  Scale = {sx, sy};
  Order += 'S';
  Matrix = TMatrix::CreateScaling(sx, sy) * Matrix;
}

}  // namespace qx
