#include "platform/core/vector/vector_document.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/core/base/exception.h"
#include "platform/core/vector/snippet.h"

namespace qx {
namespace {

void ExpectPointNear(const TPointF& actual, double x, double y) {
  EXPECT_NEAR(actual.X, x, 1e-5);
  EXPECT_NEAR(actual.Y, y, 1e-5);
}

TEST(VectorTransformTest, StepsApplyRightmostFirst) {
  // translatex(5) scale(2): the scale acts on the point first.
  TqxVectorTransform transform;
  transform.AddTranslation(5, 0);
  transform.AddScaling(2, 2);
  EXPECT_EQ(transform.Order, "TS");
  EXPECT_EQ(transform.Translation, (TPointF{5, 0}));
  EXPECT_EQ(transform.Scale, (TPointF{2, 2}));
  ExpectPointNear(TPointF{1, 1} * transform.Matrix, 7, 2);

  // The reverse order translates first.
  TqxVectorTransform reverse;
  reverse.AddScaling(2, 2);
  reverse.AddTranslation(5, 0);
  ExpectPointNear(TPointF{1, 1} * reverse.Matrix, 12, 2);

  // A later step of one kind overwrites its field but still counts in the matrix.
  TqxVectorTransform twice;
  twice.AddTranslation(1, 2);
  twice.AddTranslation(3, 4);
  EXPECT_EQ(twice.Translation, (TPointF{3, 4}));
  EXPECT_EQ(twice.Order, "TT");
  ExpectPointNear(TPointF{0, 0} * twice.Matrix, 4, 6);
}

TEST(VectorTransformTest, RotationAndIdentity) {
  TqxVectorTransform transform;
  EXPECT_TRUE(transform.Matrix.IsIdentity());
  EXPECT_EQ(transform.Scale, (TPointF{1, 1}));
  EXPECT_TRUE(transform.Order.empty());

  // A quarter turn takes the x axis to the y axis (clockwise on a y-down screen).
  transform.AddRotation(90);
  EXPECT_EQ(transform.Rotation, 90.0f);
  ExpectPointNear(TPointF{1, 0} * transform.Matrix, 0, 1);
  ExpectPointNear(TPointF{0, 1} * transform.Matrix, -1, 0);

  // The identity is neutral on both sides; products are not commutative.
  const TMatrix t = TMatrix::CreateTranslation(3, 4);
  const TMatrix s = TMatrix::CreateScaling(2, 5);
  EXPECT_EQ(t * TMatrix::Identity(), t);
  EXPECT_EQ(TMatrix::Identity() * t, t);
  ExpectPointNear(TPointF{1, 1} * (t * s), 8, 25);
  ExpectPointNear(TPointF{1, 1} * (s * t), 5, 9);
}

TEST(VectorDocumentTest, CommandsHoldCopiesOfRecordsAndClearEmpties) {
  TqxVectorDocument document;
  document.Size = {48, 48};
  TqxVectorBrush brush;
  brush.Fill = std::string("#FFFF0000");
  TqxVectorTransform transform;
  transform.AddTranslation(1, 2);
  document.SetBrush(brush);
  document.SetTransform(transform);

  // Changing the caller's records afterwards changes no command.
  brush.Fill = std::string("#FF0000FF");
  transform.AddScaling(3, 3);
  EXPECT_EQ(document.Commands[0]->Brush.Fill.Value(), "#FFFF0000");
  EXPECT_EQ(document.Commands[1]->Matrix, TMatrix::CreateTranslation(1, 2));

  EXPECT_THROW(document.SetGradient(nullptr, true), EqxAssertError);

  document.Clear();
  EXPECT_TRUE(document.Commands.empty());
  EXPECT_EQ(document.Size, TSizeF{});
}

TEST(VectorDocumentTest, AddCopiesFromMakesIndependentCommands) {
  TqxSnippet snippet("c");
  TqxVectorBrush brush;
  brush.StrokeDashArray = std::vector<float>{1, 2};
  snippet.BeginGroup();
  snippet.SetBrush(brush);
  snippet.DrawPath("M0 0");
  snippet.EndGroup();

  TqxVectorDocument document;
  document.AddCopiesFrom(snippet.Commands);
  ASSERT_EQ(document.Commands.size(), 4u);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(*document.Commands[i], *snippet.Commands[i]);
    EXPECT_NE(document.Commands[i].get(), snippet.Commands[i].get());
  }
  document.Commands[2]->Path = "M9 9";
  document.Commands[1]->Brush.StrokeDashArray.Clear();
  EXPECT_EQ(snippet.Commands[2]->Path, "M0 0");
  EXPECT_TRUE(snippet.Commands[1]->Brush.StrokeDashArray.HasValue());

  // A recording that replays itself copies what it held at the call, once.
  snippet.AddCopiesFrom(snippet.Commands);
  ASSERT_EQ(snippet.Commands.size(), 8u);
  EXPECT_EQ(*snippet.Commands[6], *snippet.Commands[2]);
}

TEST(VectorGradientTest, CloneIsIndependentAndKeepsItsClass) {
  TqxVectorRadialGradient radial;
  radial.ID = "r";
  radial.Center = {11, 11};
  radial.Radius = 5;
  radial.Points = {{0, 0xFFFF0000}, {1, 0x800000FF}};
  radial.Transform = TMatrix::CreateScaling(2, 2);

  std::unique_ptr<TqxVectorGradient> copy = radial.Clone();
  auto* radialCopy = dynamic_cast<TqxVectorRadialGradient*>(copy.get());
  ASSERT_NE(radialCopy, nullptr);
  EXPECT_TRUE(radialCopy->Equals(radial));
  radialCopy->Points[0].Color = 0;
  radialCopy->Radius = 1;
  radialCopy->Transform = TMatrix::Identity();
  EXPECT_EQ(radial.Points[0].Color, 0xFFFF0000u);
  EXPECT_EQ(radial.Radius, 5.0f);
  EXPECT_FALSE(radial.Transform.IsIdentity());

  TqxVectorLinearGradient linear;
  EXPECT_TRUE(linear.Transform.IsIdentity());
  linear.EndPoint = {1, 0};
  auto linearCopy = linear.Clone();
  EXPECT_NE(dynamic_cast<TqxVectorLinearGradient*>(linearCopy.get()), nullptr);
  EXPECT_TRUE(linearCopy->Equals(linear));
  // Equal fields of another class are not equal.
  TqxVectorRadialGradient plain;
  EXPECT_FALSE(TqxVectorLinearGradient().Equals(plain));
}

}  // namespace
}  // namespace qx
