#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <sstream>

#include "vector/svg_values.h"

#include "platform/core/base/exception.h"
#include "vector/svg_style_sheet.h"
#include "vector/vector_document_json.h"

namespace qx {
namespace {

using R = TqxSVGValues;

// Most value forms reach the readers through whole files in the reader's
// tests; these are the rules a file rarely shows.
TEST(SvgValuesTest, TolerantNumbersTakePxAndCmUnscaledAndLeaveTheOutValueOnFailure) {
  const std::pair<const char*, std::optional<float>> cases[] = {
      {"12 cm", 12.0f}, {".5px", 0.5f}, {"5.", 5.0f}, {"3e38", 3e38f},
      // Other and upper-case units are no numbers, nor is anything a scanner
      // would split into two tokens, nor what a float can't hold.
      {"12mm", {}}, {"12PX", {}}, {"10-5", {}}, {"12px ", {}}, {"inf", {}}, {"-1e39px", {}},
  };
  for (const auto& [text, expected] : cases) {
    float value = -777.0f;
    const bool read = R::TryStrToFloat(text, value);
    EXPECT_EQ(read ? std::optional(value) : std::nullopt, expected) << '"' << text << '"';
    if (!read) {
      EXPECT_EQ(value, -777.0f) << '"' << text << '"';
    }
  }
  for (const char* text : {"90DEG", "45 10 10"}) {
    float value = 0;
    EXPECT_FALSE(R::TryStrToDegree(text, value)) << text;
  }
}

TEST(SvgValuesTest, StrictNumbersRaiseWithTheText) {
  EXPECT_EQ(R::StrToFloat(" -1.5e1 "), -15.0f);
  for (const char* text : {"50%", "", "1.5.5", "1e39"}) EXPECT_THROW(R::StrToFloat(text), Exception) << text;
  try {
    R::StrToFloat("10px");
    FAIL();
  } catch (const Exception& e) {
    EXPECT_EQ(e.Message(), "'10px' is not a valid floating point value");
  }
}

TEST(SvgValuesTest, DashArrayCutsLowerCaseUnitsAndDropsWhatDoesNotRead) {
  std::vector<float> numbers{99};
  EXPECT_TRUE(R::TryParseSingleArray("4px,2%,x,1", ',', numbers));
  EXPECT_EQ(numbers, (std::vector<float>{4, 2, 1}));
  // The unit is found ignoring case but cut in lower case only.
  EXPECT_TRUE(R::TryParseSingleArray("10PX,1Px2px,5", ',', numbers));
  EXPECT_EQ(numbers, (std::vector<float>{5}));
  EXPECT_FALSE(R::TryParseSingleArray("4,2", ' ', numbers));
  EXPECT_TRUE(numbers.empty());
}

TEST(SvgValuesTest, ColoursAreHashFormsAlphaFirstAndViewBoxesFourNumbers) {
  const std::pair<const char*, std::optional<TAlphaColor>> cases[] = {
      {"#abc", 0xFFAABBCC}, {"#80FF0000", 0x80FF0000},
      // Other lengths read as plain hex numbers, transparent when short.
      {"#12345", 0x00012345}, {"#123456789", {}}, {"#ggg", {}}, {" #abc", {}},
  };
  for (const auto& [text, expected] : cases) {
    TAlphaColor color = 0x12345678;
    EXPECT_EQ(R::TryStrToColor(text, color), expected.has_value()) << text;
    EXPECT_EQ(color, expected.value_or(0x12345678)) << text;
  }
  // A view box is exactly four blank-separated numbers.
  TRectF rect;
  ASSERT_TRUE(R::TryStrToRectF("  -1  2.5 24px 10 ", rect));
  EXPECT_EQ(rect, (TRectF{-1, 2.5, 23, 12.5}));
  EXPECT_FALSE(R::TryStrToRectF("0 0 24 24 1", rect));
}


void ExpectMaps(const TMatrix& matrix, TPointF from, TPointF to, const std::string& what) {
  const TPointF moved = from * matrix;
  EXPECT_NEAR(moved.X, to.X, 1e-5) << what;
  EXPECT_NEAR(moved.Y, to.Y, 1e-5) << what;
}

TEST(SvgTransformTest, StepsCombineRightmostFirst) {
  const std::pair<const char*, TPointF> cases[] = {  // where (1, 1) goes
      {"translate(10)", {11, 1}},
      {"translatey(-5)", {1, -4}},
      {"rotate(-100grad)", {1, -1}},
      {"SCALE( 2 , 3 )", {2, 3}},
      {"translatex(5)scale(2)", {7, 2}},
      {"translatex(5), scale(2)", {7, 2}},
      {"scale(2) translate(5,0)", {12, 2}},
      {" translate(1 2) rotate(90) translate(3 4) ", {-4, 6}},
      // Unknown steps and bad angles are passed over in silence.
      {"skewX(30) translate(1 2) matrix(2 0 0 2 0 0) rotate(45 10 10) rotate(45x)", {2, 3}},
  };
  for (const auto& [text, image] : cases) ExpectMaps(R::ParseTransform(text).Matrix, {1, 1}, image, text);
  for (const char* text : {"", "skewy(30)", "translate (1 2)"})
    EXPECT_TRUE(R::ParseTransform(text).Matrix.IsIdentity()) << text;
}

TEST(SvgTransformTest, BadNumbersInTranslateAndScaleRaise) {
  for (const char* text : {"translate(10px 5px)", "translate()", "translatex(1 2)", "scale(2 x)",
                           "rotate(90) scale(.5.5)"}) {
    EXPECT_THROW(R::ParseTransform(text), Exception) << text;
  }
}

TEST(SvgTransformTest, MatrixTakesSixNumbersAsThreeRows) {
  for (const char* text : {"1,2,3,4,5,6", " 1, 2 ,3 4,,5,6 ", "1 2 3 4 5 6 7"}) {
    EXPECT_EQ(R::StrToMatrix(text), (TMatrix{1, 2, 0, 3, 4, 0, 5, 6, 1})) << text;
  }
  for (const char* text : {"1 2 3 4 5", "1 2 3 4 5 6px"}) {
    EXPECT_THROW(R::StrToMatrix(text), Exception) << text;
  }

  // A gradient reads the matrix form only.
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(R"xml(<defs>
      <linearGradient id="matrix" gradientTransform=" MATRIX(2,0,0,2,10,20) "/>
      <linearGradient id="rotate" gradientTransform="rotate(45)"/>
      <linearGradient id="unclosed" gradientTransform="matrix(1 0 0 1 0 0"/>
    </defs>)xml"));
  const auto node = [&](const char* id) { return doc.child("defs").find_child_by_attribute("id", id); };
  TqxVectorLinearGradient gradient;
  R::ReadGradientTransform(node("matrix"), gradient);
  EXPECT_EQ(gradient.Transform, (TMatrix{2, 0, 0, 0, 2, 0, 10, 20, 1}));
  TqxVectorLinearGradient rotated;
  R::ReadGradientTransform(node("rotate"), rotated);
  EXPECT_TRUE(rotated.Transform.IsIdentity());
  // The last character is dropped unseen, so an unclosed matrix loses a number.
  EXPECT_THROW(R::ReadGradientTransform(node("unclosed"), rotated), Exception);
}

// The sheet is cut at every "." rather than parsed: these are the shapes that
// real sheets take and what each of them leaves. What a rule's values give is
// checked through the reader's paint.
TEST(SvgStyleSheetTest, RulesAreWhatTheDotsCut) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {".a{opacity:0.5}", {}},  // the decimal point splits the rule
      {".a,.b{fill:red}", {"b"}},
      {"\n  .A { fill : red }\n  .b{}\n", {"a", "b"}},
  };
  for (const auto& [sheet, expected] : cases) {
    TsvgCssClasses classes;
    ParseStyleSheet(sheet, classes);
    std::vector<std::string> names;
    for (const auto& [name, css] : classes) names.push_back(name);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, expected) << sheet;
  }

  // A later rule of a name replaces the earlier one whole.
  TsvgCssClasses classes;
  ParseStyleSheet(".a{fill:red;stroke-width:2}", classes);
  ParseStyleSheet(".A{stroke-linecap:round}", classes);
  EXPECT_FALSE(classes.at("a")->Fill.HasValue());
  EXPECT_FALSE(classes.at("a")->StrokeWidth.HasValue());
  EXPECT_TRUE(classes.at("a")->StrokeLineCap.HasValue());
}

// Singles print as the short decimals people wrote, not as their double
// expansion, so dumps and golden files stay readable and stable.
TEST(VectorDocumentJsonTest, NumbersAreShortSingles) {
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(0.1f)).dump(), "0.1");
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(1.0f / 3.0f)).dump(), "0.33333334");
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(-2.5e-7f)).dump(), "-2.5e-07");
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(1e39)).dump(), "null");
}

}  // namespace
}  // namespace qx
