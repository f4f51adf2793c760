#include <gtest/gtest.h>

#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/exception.h"
#include "platform/core/vector/vector_document.h"

namespace qx {
namespace {

const std::string kData = std::string(QX_TEST_DATA_DIR) + "/assets/";

TEST(AssetKindsTest, ClonesCarryEveryFieldAndStayIndependent) {
  TqxAssetFile file("Data\\Db", kPlatformAndroid, 0);
  file.SetUri("/p/db.sqlite");
  file.SetFileLocation(TqxFileLocation::Documents);
  file.SetExtractionRule(TqxExtractionRule::OnNewVersion);
  auto fileClone = file.Clone("Data\\Db-1");
  auto& fileCopy = dynamic_cast<TqxAssetFile&>(*fileClone);
  EXPECT_EQ(fileCopy.FileLocation(), TqxFileLocation::Documents);
  EXPECT_EQ(fileCopy.ExtractionRule(), TqxExtractionRule::OnNewVersion);
  EXPECT_EQ(fileCopy.Platform(), kPlatformAndroid);

  TqxAssetStyle style("S");
  style.SetTargetClassName("TqxButton");
  auto styleClone = style.Clone("S-1");
  EXPECT_EQ(dynamic_cast<TqxAssetStyle&>(*styleClone).GetStyleClass(), "TqxButton");

  TqxAssetSVG svg("Icon", 0, 3);
  svg.SetSVGUri(kData + "circle.svg");
  svg.SetVectorUri("Icon\\any-phone-large.vector");
  svg.SetSize({24, 24});
  svg.VectorDocument().Size = {24, 24};
  svg.VectorDocument().DrawPath("M0 0L1 1");
  auto svgClone = svg.Clone("Icon-1");
  auto& svgCopy = dynamic_cast<TqxAssetSVG&>(*svgClone);
  EXPECT_EQ(svgCopy.VectorUri(), svg.VectorUri());
  EXPECT_EQ(svgCopy.Size(), (TSizeF{24, 24}));
  EXPECT_EQ(svgCopy.VectorDocument().Commands.size(), 1u);
  svgCopy.VectorDocument().Clear();
  EXPECT_EQ(svg.VectorDocument().Commands.size(), 1u);
}

TEST(AssetKindsTest, StyleClassComesFromTheAssetElseFromItsFile) {
  TqxAssetStyle style("S");
  style.SetUri(kData + "style_label.json");
  EXPECT_EQ(style.GetStyleClass(), "TqxLabel");
  style.SetTargetClassName("TqxButton");
  EXPECT_EQ(style.GetStyleClass(), "TqxButton");

  style.SetTargetClassName("");
  for (const char* bad : {"circle.svg", "missing.json"}) {
    style.SetUri(kData + bad);
    EXPECT_EQ(style.GetStyleClass(), "") << bad;
  }
}

TEST(AssetKindsTest, SvgContentIsTheFileText) {
  TqxAssetSVG svg("Icon");
  EXPECT_THROW(svg.GetSVGContent(), Exception);
  svg.SetSVGUri(kData + "circle.svg");
  EXPECT_NE(svg.GetSVGContent().find("#2196F3"), std::string::npos);
  svg.SetSVGUri(kData + "nothing.svg");
  EXPECT_THROW(svg.GetSVGContent(), Exception);
}

}  // namespace
}  // namespace qx
