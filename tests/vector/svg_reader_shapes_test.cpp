#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "platform/core/vector/vector_document.h"
#include "command_dump.h"
#include "vector/vector_reader_svg.h"

namespace qx {
namespace {

using Lines = std::vector<std::string>;

// The paths of a document, in order; the group and brush around each shape
// are checked separately.
Lines Paths(const TqxVectorDocument& document) {
  Lines paths;
  for (const std::string& line : test::Dump(document.Commands))
    if (line.starts_with("path ")) paths.push_back(line.substr(5));
  return paths;
}

TEST(SvgReaderShapesTest, EveryShapeBecomesItsExactPathText) {
  TqxVectorDocument document;
  TqxVectorReaderSVG reader(document);
  reader.LoadFromFile(test::SvgDataFile("shapes/every_shape.svg"));

  EXPECT_EQ(reader.Result(), TqxResultParsing::Success) << reader.LogText();
  EXPECT_EQ(Paths(document), (Lines{
                                 "M10,20m-5,0a5,5 0,1 1,10 0a5,5 0,1 1,-10 0",
                                 // Singles print from their widened binary value.
                                 "M0,0m-0.100000001490116,0a0.100000001490116,0.100000001490116 0,1 1,"
                                 "0.200000002980232 0a0.100000001490116,0.100000001490116 0,1 1,-0.200000002980232 0",
                                 "M5,20a5,3 0 1,0 10,0a5,3 0 1,0 -10,0",
                                 "M0.00, 0.00, L10.00, 10.00",
                                 // Two decimals, ties away from zero; corner radii are not read.
                                 "M0.13, 0.00 L1.13, 0.00 1.13, 2.50 0.13, 2.50 Z",
                                 "M10.00, 0.00 L20.00, 0.00 20.00, 20.00 10.00, 20.00 Z",
                                 "M0 0L10 0 10 10 Z",
                                 "M0 0L10 0 10 10 ",
                                 "M1 2L3 ",
                                 "M10-5 20-5L30-5 Z",
                                 "M1 1h22v22z",
                                 "",
                                 "this is no path data",
                             }));
}

TEST(SvgReaderShapesTest, AnUnreadableShapeIsLeftOutWithOneWarning) {
  TqxVectorDocument document;
  TqxVectorReaderSVG reader(document);
  reader.LoadFromFile(test::SvgDataFile("shapes/refused.svg"));

  EXPECT_EQ(reader.Result(), TqxResultParsing::SuccessWithWarnings);
  // Only the first bad attribute of a shape is told; a points list of two
  // tokens or fewer is dropped without a word.
  EXPECT_EQ(reader.Logs(), (Lines{
                               R"(- Cannot parse attribute value: node="circle", name="cx", attributeValue="a")",
                               R"(- Cannot parse attribute value: node="ellipse", name="rx", attributeValue="1mm")",
                               R"(- Cannot parse attribute value: node="rect", name="width", attributeValue="10%")",
                               R"(- Cannot parse attribute value: node="line", name="x1", attributeValue="12em")",
                               R"(- The attribute is not existed: node="polygon", attributeName=points)",
                               R"(- The attribute is not existed: node="polyline", attributeName=points)",
                               R"(- The attribute is not existed: node="path", attributeName=d)",
                               R"(- Cannot parse attribute value: node="circle", name="r", attributeValue="x")",
                               R"(- Cannot parse attribute value: node="circle", name="r", attributeValue="bad")",
                           }));
  // Enclosing groups and transforms stay as they were opened.
  EXPECT_EQ(test::Dump(document.Commands),
            (Lines{"{", "brush rule=nonzero", "transform 1 0 0 1 1 1", "}", "{", "transform 2 0 0 2 0 0", "}", "{", "brush rule=nonzero",
                   "path M0,0m-0.5,0a0.5,0.5 0,1 1,1 0a0.5,0.5 0,1 1,-1 0", "}"}));
}

}  // namespace
}  // namespace qx
