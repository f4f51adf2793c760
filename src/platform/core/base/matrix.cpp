#include "platform/core/base/matrix.h"

#include <cmath>

namespace qx {

TMatrix TMatrix::CreateTranslation(float dx, float dy) {
  TMatrix result;
  result.m31 = dx;
  result.m32 = dy;
  return result;
}

TMatrix TMatrix::CreateScaling(float sx, float sy) {
  TMatrix result;
  result.m11 = sx;
  result.m22 = sy;
  return result;
}

TMatrix TMatrix::CreateRotation(float radians) {
  const float c = std::cos(radians);
  const float s = std::sin(radians);
  TMatrix result;
  result.m11 = c;
  result.m12 = s;
  result.m21 = -s;
  result.m22 = c;
  return result;
}

TMatrix TMatrix::operator*(const TMatrix& b) const {
  const TMatrix& a = *this;
  TMatrix r;
  r.m11 = a.m11 * b.m11 + a.m12 * b.m21 + a.m13 * b.m31;
  r.m12 = a.m11 * b.m12 + a.m12 * b.m22 + a.m13 * b.m32;
  r.m13 = a.m11 * b.m13 + a.m12 * b.m23 + a.m13 * b.m33;
  r.m21 = a.m21 * b.m11 + a.m22 * b.m21 + a.m23 * b.m31;
  r.m22 = a.m21 * b.m12 + a.m22 * b.m22 + a.m23 * b.m32;
  r.m23 = a.m21 * b.m13 + a.m22 * b.m23 + a.m23 * b.m33;
  r.m31 = a.m31 * b.m11 + a.m32 * b.m21 + a.m33 * b.m31;
  r.m32 = a.m31 * b.m12 + a.m32 * b.m22 + a.m33 * b.m32;
  r.m33 = a.m31 * b.m13 + a.m32 * b.m23 + a.m33 * b.m33;
  return r;
}

TPointF operator*(const TPointF& p, const TMatrix& m) {
  return {p.X * m.m11 + p.Y * m.m21 + m.m31, p.X * m.m12 + p.Y * m.m22 + m.m32};
}

}  // namespace qx
