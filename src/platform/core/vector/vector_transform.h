#pragma once

#include <string>

#include "platform/core/base/matrix.h"
#include "platform/core/base/types.h"

namespace qx {

// A `transform` attribute as read: the last value of each kind of step, and the
// product of all steps. `Order` has one letter per step ("T", "R", "S") in the
// order of the attribute. Each step is multiplied in front of the matrix so far,
// so the rightmost step of the attribute is the first applied to a point.
struct TqxVectorTransform {
  TPointF Translation;
  float Rotation = 0;  // degrees
  TPointF Scale{1, 1};
  TMatrix Matrix;
  std::string Order;

  void AddTranslation(float tx, float ty);
  void AddRotation(float degrees);
  void AddScaling(float sx, float sy);
};

}  // namespace qx
