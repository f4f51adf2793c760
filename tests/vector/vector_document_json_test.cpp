#include "vector/vector_document_json.h"

#include <gtest/gtest.h>

#include <memory>

namespace qx {
namespace {

// Singles print as the short decimals people wrote, not as their double
// expansion, so dumps and golden files stay readable and stable.
TEST(VectorDocumentJsonTest, NumbersAreShortSingles) {
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(0.1f)).dump(), "0.1");
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(1.0f / 3.0f)).dump(), "0.33333334");
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(-2.5e-7f)).dump(), "-2.5e-07");
  EXPECT_EQ(nlohmann::ordered_json(TqxVectorDocumentJson::Single(1e39)).dump(), "null");
}

TEST(VectorDocumentJsonTest, BrushNamesOnlyTheFieldsItHas) {
  TqxVectorBrush brush;
  EXPECT_EQ(TqxVectorDocumentJson::Brush(brush).dump(), R"({"kind":"brush"})");

  brush.Stroke = std::string("#FF000080");
  brush.StrokeDashArray = std::vector<float>{4, 0.5f};
  brush.StrokeLineCap = TqxStrokeLineCap::Butt;
  brush.StrokeLineJoin = TqxStrokeLineJoin::Bevel;
  brush.FillRule = TqxFillRule::EvenOdd;
  brush.FillOpacity = 0.25f;
  EXPECT_EQ(TqxVectorDocumentJson::Brush(brush).dump(),
            R"({"kind":"brush","fillOpacity":0.25,"fillRule":"EvenOdd","stroke":"#FF000080",)"
            R"("strokeDashArray":[4.0,0.5],"strokeLineCap":"Butt","strokeLineJoin":"Bevel"})");
}

TEST(VectorDocumentJsonTest, DocumentListsCommandsInOrder) {
  TqxVectorDocument document;
  document.Size = {48, 48};
  document.ViewBox = {2, 4, 26, 28};
  document.BeginGroup();
  TqxVectorTransform transform;
  transform.AddTranslation(5, 6);
  document.SetTransform(transform);
  auto gradient = std::make_shared<TqxVectorRadialGradient>();
  gradient->ID = "glow";
  gradient->Center = {12, 12};
  gradient->Radius = 6;
  gradient->Points = {{0, 0xFFFFFFFFu}, {1, 0x00ABCDEFu}};
  document.SetGradient(gradient, false);
  document.DrawPath("M0 0h1");
  document.EndGroup();

  const auto json = TqxVectorDocumentJson::Document(document);
  EXPECT_EQ(json["size"].dump(), "[48.0,48.0]");
  EXPECT_EQ(json["viewBox"].dump(), "[2.0,4.0,24.0,24.0]");
  ASSERT_EQ(json["commands"].size(), 5u);
  EXPECT_EQ(json["commands"][0].dump(), R"({"kind":"begin"})");
  // Row by row: the translation sits in the third row.
  EXPECT_EQ(json["commands"][1].dump(), R"({"kind":"transform","matrix":[1.0,0.0,0.0,0.0,1.0,0.0,5.0,6.0,1.0]})");
  EXPECT_EQ(json["commands"][2].dump(),
            R"({"kind":"gradient","fill":false,"id":"glow","type":"radial","center":[12.0,12.0],"radius":6.0,)"
            R"("stops":[[0.0,"#FFFFFFFF"],[1.0,"#00ABCDEF"]],"transform":[1.0,0.0,0.0,0.0,1.0,0.0,0.0,0.0,1.0]})");
  EXPECT_EQ(json["commands"][3].dump(), R"({"kind":"path","path":"M0 0h1"})");
  EXPECT_EQ(json["commands"][4].dump(), R"({"kind":"end"})");
}

}  // namespace
}  // namespace qx
