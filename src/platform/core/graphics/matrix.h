#pragma once

#include <cmath>

#include "platform/core/base/types.h"

namespace qx {

// A 2D affine transform as a 3 x 3 matrix in row-vector convention: a point
// (x, y, 1) is multiplied from the left, so the translation sits in the third
// row and A * B applies A first, then B. The third column is taken to be
// (0, 0, 1); what it holds otherwise is ignored.
struct TqxMatrix {
  double M[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

  static TqxMatrix Identity() { return {}; }
  static TqxMatrix Translation(double dx, double dy) { return {{{1, 0, 0}, {0, 1, 0}, {dx, dy, 1}}}; }
  static TqxMatrix Scaling(double sx, double sy) { return {{{sx, 0, 0}, {0, sy, 0}, {0, 0, 1}}}; }
  static TqxMatrix Rotation(double radians) {
    const double c = std::cos(radians), s = std::sin(radians);
    return {{{c, s, 0}, {-s, c, 0}, {0, 0, 1}}};
  }
  // The six affine coefficients a b c d e f, rows (a, b, 0), (c, d, 0), (e, f, 1).
  static TqxMatrix Affine(double a, double b, double c, double d, double e, double f) {
    return {{{a, b, 0}, {c, d, 0}, {e, f, 1}}};
  }

  TqxMatrix operator*(const TqxMatrix& other) const {
    TqxMatrix result;
    for (int r = 0; r < 3; ++r)
      for (int c = 0; c < 3; ++c)
        result.M[r][c] = M[r][0] * other.M[0][c] + M[r][1] * other.M[1][c] + M[r][2] * other.M[2][c];
    return result;
  }

  TPointF Map(TPointF p) const {
    return {p.X * M[0][0] + p.Y * M[1][0] + M[2][0], p.X * M[0][1] + p.Y * M[1][1] + M[2][1]};
  }

  bool IsFinite() const {
    for (const auto& row : M)
      for (double v : row)
        if (!std::isfinite(v)) return false;
    return true;
  }

  bool operator==(const TqxMatrix&) const = default;
};

}  // namespace qx
