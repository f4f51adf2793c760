#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "platform/core/base/exception.h"
#include "vector/svg_values.h"

namespace qx {
namespace {

using R = TqxSVGValues;

void ExpectMaps(const TMatrix& matrix, TPointF from, TPointF to, const std::string& what) {
  const TPointF moved = from * matrix;
  EXPECT_NEAR(moved.X, to.X, 1e-5) << what;
  EXPECT_NEAR(moved.Y, to.Y, 1e-5) << what;
}

TEST(SvgTransformTest, EachStepSetsItsFieldLetterAndMatrix) {
  const struct {
    const char* text;
    const char* order;
    TPointF translation;
    float rotation;
    TPointF scale;
    TPointF image;  // where (1, 1) goes
  } cases[] = {
      {"translate(10 5)", "T", {10, 5}, 0, {1, 1}, {11, 6}},
      {"translate(10)", "T", {10, 0}, 0, {1, 1}, {11, 1}},
      {"translatey(-5)", "T", {0, -5}, 0, {1, 1}, {1, -4}},
      {"rotate(90)", "R", {0, 0}, 90, {1, 1}, {-1, 1}},
      {"rotate(-100grad)", "R", {0, 0}, -90, {1, 1}, {1, -1}},
      {"SCALE( 2 , 3 )", "S", {0, 0}, 0, {2, 3}, {2, 3}},
      {"scaleY(3)", "S", {0, 0}, 0, {1, 3}, {1, 3}},
  };
  for (const auto& c : cases) {
    const TqxVectorTransform t = R::ParseTransform(c.text);
    EXPECT_EQ(t.Order, c.order) << c.text;
    EXPECT_EQ(t.Translation, c.translation) << c.text;
    EXPECT_NEAR(t.Rotation, c.rotation, 1e-4) << c.text;
    EXPECT_EQ(t.Scale, c.scale) << c.text;
    ExpectMaps(t.Matrix, {1, 1}, c.image, c.text);
  }
}

TEST(SvgTransformTest, ListsApplyTheirRightmostStepFirst) {
  // With or without commas and blanks between the steps.
  for (const char* text : {"translatex(5) scale(2)", "translatex(5)scale(2)", "translatex(5), scale(2)"}) {
    const TqxVectorTransform t = R::ParseTransform(text);
    EXPECT_EQ(t.Order, "TS") << text;
    EXPECT_EQ(t.Translation, (TPointF{5, 0})) << text;
    EXPECT_EQ(t.Scale, (TPointF{2, 2})) << text;
    ExpectMaps(t.Matrix, {1, 1}, {7, 2}, text);
  }
  const TqxVectorTransform reversed = R::ParseTransform("scale(2) translate(5,0)");
  EXPECT_EQ(reversed.Order, "ST");
  ExpectMaps(reversed.Matrix, {1, 1}, {12, 2}, "scale then translate");

  // A later step of a kind overwrites the field; the matrix keeps both.
  const TqxVectorTransform twice = R::ParseTransform(" translate(1 2) rotate(90) translate(3 4) ");
  EXPECT_EQ(twice.Order, "TRT");
  EXPECT_EQ(twice.Translation, (TPointF{3, 4}));
  ExpectMaps(twice.Matrix, {0, 0}, {-3, 5}, "translate rotate translate");
}

TEST(SvgTransformTest, UnknownStepsAndBadAnglesArePassedOverInSilence) {
  for (const char* text : {"", "   ", "matrix(1 0 0 1 5 5)", "skewX(30)", "skewy(30)", "rotate(45 10 10)",
                           "rotate(45x)", "translate (1 2)", "foo"}) {
    const TqxVectorTransform t = R::ParseTransform(text);
    EXPECT_EQ(t.Order, "") << text;
    EXPECT_TRUE(t.Matrix.IsIdentity()) << text;
    EXPECT_EQ(t.Scale, (TPointF{1, 1})) << text;
  }
  const TqxVectorTransform mixed = R::ParseTransform("skewX(30) translate(1 2) matrix(2 0 0 2 0 0)");
  EXPECT_EQ(mixed.Order, "T");
  ExpectMaps(mixed.Matrix, {0, 0}, {1, 2}, "mixed");
}

TEST(SvgTransformTest, BadNumbersInTranslateAndScaleRaise) {
  for (const char* text : {"translate(10px 5px)", "translate()", "translatex(1 2)", "translatey(50%)", "scale()",
                           "scale(2 x)", "scalex(2px)", "rotate(90) scale(.5.5)"}) {
    EXPECT_THROW(R::ParseTransform(text), Exception) << text;
  }
}

TEST(SvgTransformTest, ReadTransformAnswersFalseOnlyWithoutTheAttribute) {
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(R"xml(<svg>
      <g id="none" Transform="scale(2)"/>
      <g id="empty" transform=""/>
      <g id="steps" transform="translate(1,2)&#10;scale(3)"/>
      <g id="bad" transform="translate(10px 5px)"/>
    </svg>)xml"));
  const auto node = [&](const char* id) { return doc.child("svg").find_child_by_attribute("id", id); };

  TqxVectorTransform t;
  t.Order = "untouched";
  EXPECT_FALSE(R::ReadTransform(node("none"), t));
  EXPECT_EQ(t.Order, "untouched");

  EXPECT_TRUE(R::ReadTransform(node("empty"), t));
  EXPECT_EQ(t.Order, "");
  EXPECT_TRUE(t.Matrix.IsIdentity());

  EXPECT_TRUE(R::ReadTransform(node("steps"), t));
  EXPECT_EQ(t.Order, "TS");
  ExpectMaps(t.Matrix, {1, 1}, {4, 5}, "steps");

  EXPECT_THROW(R::ReadTransform(node("bad"), t), Exception);
}

TEST(SvgTransformTest, MatrixTakesSixNumbersAsThreeRows) {
  for (const char* text : {"1 2 3 4 5 6", "1,2,3,4,5,6", " 1, 2 ,3 4,,5,6 ", "1 2 3 4 5 6 7"}) {
    const TMatrix m = R::StrToMatrix(text);
    EXPECT_EQ(m, (TMatrix{1, 2, 0, 3, 4, 0, 5, 6, 1})) << text;
  }
  for (const char* text : {"1 2 3 4 5", "", "1 2 3 4 5 6px", "1 2 3 x 5 6"}) {
    EXPECT_THROW(R::StrToMatrix(text), Exception) << text;
  }
}

TEST(SvgTransformTest, GradientTransformReadsOnlyTheMatrixForm) {
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(R"xml(<defs>
      <linearGradient id="matrix" gradientTransform=" MATRIX(2,0,0,2,10,20) "/>
      <linearGradient id="rotate" gradientTransform="rotate(45)"/>
      <linearGradient id="absent"/>
      <linearGradient id="short" gradientTransform="matrix(1 0 0 1 0)"/>
      <linearGradient id="unclosed" gradientTransform="matrix(1 0 0 1 0 0"/>
    </defs>)xml"));
  const auto node = [&](const char* id) { return doc.child("defs").find_child_by_attribute("id", id); };

  TqxVectorLinearGradient gradient;
  R::ReadGradientTransform(node("matrix"), gradient);
  EXPECT_EQ(gradient.Transform, (TMatrix{2, 0, 0, 0, 2, 0, 10, 20, 1}));

  for (const char* id : {"rotate", "absent"}) {
    TqxVectorLinearGradient untouched;
    R::ReadGradientTransform(node(id), untouched);
    EXPECT_TRUE(untouched.Transform.IsIdentity()) << id;
  }
  // The last character is dropped unseen, so an unclosed matrix loses a number.
  for (const char* id : {"short", "unclosed"}) {
    TqxVectorRadialGradient radial;
    EXPECT_THROW(R::ReadGradientTransform(node(id), radial), Exception) << id;
  }
}

}  // namespace
}  // namespace qx
