#include "platform/core/vector/vector_document.h"

#include <gtest/gtest.h>

#include "platform/core/base/exception.h"
#include "platform/core/vector/snippet.h"

namespace qx {
namespace {

void ExpectPointNear(const TPointF& actual, double x, double y) {
  EXPECT_NEAR(actual.X, x, 1e-5);
  EXPECT_NEAR(actual.Y, y, 1e-5);
}

// The order of steps is pinned through the SVG reader; here, the record.
TEST(VectorTransformTest, ALaterStepOfOneKindOverwritesItsFieldButCountsInTheMatrix) {
  TqxVectorTransform twice;
  twice.AddTranslation(1, 2);
  twice.AddScaling(2, 2);
  twice.AddTranslation(3, 4);
  EXPECT_EQ(twice.Order, "TST");
  EXPECT_EQ(twice.Translation, (TPointF{3, 4}));
  ExpectPointNear(TPointF{0, 0} * twice.Matrix, 7, 10);
}

TEST(VectorDocumentTest, CommandsHoldCopiesOfRecords) {
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
  document.Commands[1]->Brush.StrokeDashArray.Clear();
  EXPECT_TRUE(snippet.Commands[1]->Brush.StrokeDashArray.HasValue());

  // A recording that replays itself copies what it held at the call, once.
  snippet.AddCopiesFrom(snippet.Commands);
  ASSERT_EQ(snippet.Commands.size(), 8u);
  EXPECT_EQ(*snippet.Commands[6], *snippet.Commands[2]);
}

}  // namespace
}  // namespace qx
