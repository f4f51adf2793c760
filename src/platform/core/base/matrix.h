#pragma once

#include "platform/core/base/types.h"

namespace qx {

// A 3 x 3 matrix of Singles for 2D affine transforms, in row-vector convention:
// a point is a row (x, y, 1) multiplied from the left, so a translation sits in
// the third row and A * B applies A first, then B. Default-constructed it is the
// identity.
struct TMatrix {
  float m11 = 1, m12 = 0, m13 = 0;
  float m21 = 0, m22 = 1, m23 = 0;
  float m31 = 0, m32 = 0, m33 = 1;

  static TMatrix Identity() { return {}; }
  static TMatrix CreateTranslation(float dx, float dy);
  static TMatrix CreateScaling(float sx, float sy);
  // Counter-clockwise in a y-up frame, clockwise on a y-down screen.
  static TMatrix CreateRotation(float radians);

  // The transform that applies this matrix first and then `other`.
  TMatrix operator*(const TMatrix& other) const;
  bool operator==(const TMatrix&) const = default;

  bool IsIdentity() const { return *this == TMatrix{}; }
};

// The point (p.X, p.Y, 1) times the matrix; the homogeneous part is dropped, as
// affine matrices keep it at 1.
TPointF operator*(const TPointF& point, const TMatrix& matrix);

}  // namespace qx
