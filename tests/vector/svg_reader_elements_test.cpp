#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "command_dump.h"
#include "platform/core/base/exception.h"
#include "platform/core/vector/vector_document.h"
#include "vector/vector_reader_svg.h"

namespace qx {
namespace {

using Lines = std::vector<std::string>;

// The brush a group with these attributes gets, under this style sheet.
std::string Brush(const std::string& attributes, const std::string& sheet = "") {
  const std::string text = "<svg width=\"1\" height=\"1\"><style>" + sheet + "</style><g " + attributes + "/></svg>";
  TqxVectorDocument doc;
  TqxVectorReaderSVG reader(doc);
  std::istringstream stream(text);
  reader.LoadFromStream(stream);
  EXPECT_TRUE(reader.Logs().empty()) << text;
  const Lines dump = test::Dump(doc.Commands);
  return dump.size() == 3 ? dump[1] : "unexpected: " + std::to_string(dump.size()) + " commands";
}

TEST(SvgReaderPaintTest, FillComesFromAttributeThenStyleThenClass) {
  const std::string sheet = ".a{fill:blue}";
  EXPECT_EQ(Brush(R"(fill="red" style="fill:blue")"), "brush fill=#FFFF0000 rule=nonzero");
  EXPECT_EQ(Brush(R"(class="a" style="fill:red")", sheet), "brush fill=#FFFF0000 rule=nonzero");
  EXPECT_EQ(Brush(R"(class="a")", sheet), "brush fill=#FF0000FF rule=nonzero");
  // Keywords resolve, "none" is transparent black, anything else stays text.
  EXPECT_EQ(Brush(R"(fill="none" stroke="none")"), "brush fill=#00000000 rule=nonzero stroke=#00000000");
  EXPECT_EQ(Brush(R"(fill="currentColor" stroke="inherit")"), "brush fill=currentColor rule=nonzero stroke=inherit");
}

TEST(SvgReaderPaintTest, ClassBeatsTheElementForEverythingButFill) {
  const std::string sheet =
      // No decimal point: it would cut the rule in two.
      ".a{stroke-width:2;opacity:1;stroke-dasharray:1,2;stroke-linecap:round;stroke-linejoin:bevel;"
      "fill-rule:evenodd}";
  EXPECT_EQ(Brush(R"(class="a" stroke-width="5" opacity="0" fill-opacity="0" stroke-opacity="0")"
                  R"( stroke-dasharray="7 7" stroke-linecap="butt" stroke-linejoin="miter" fill-rule="nonzero")",
                  sheet),
            "brush fill-opacity=1 rule=evenodd width=2 stroke-opacity=1 dash=1,2 cap=1 join=2");
  // Without the class, the attributes beat the style attribute.
  EXPECT_EQ(Brush(R"(stroke-width="5" stroke-linecap="butt" stroke-dashoffset="3")"
                  R"( style="stroke-width:9;stroke-linecap:round;stroke-dashoffset:4;fill-rule:evenodd")"),
            "brush rule=evenodd width=5 dash-offset=3 cap=2");
}

TEST(SvgReaderPaintTest, OpacitiesCombineAttributesInTheirOrder) {
  EXPECT_EQ(Brush(R"(opacity="0.5" fill-opacity="1")"), "brush fill-opacity=1 rule=nonzero stroke-opacity=0.5");
  EXPECT_EQ(Brush(R"(style="opacity:0.5" stroke-opacity="0.25")"),
            "brush fill-opacity=0.5 rule=nonzero stroke-opacity=0.25");
  // A unit passes the tolerant reader of `opacity` only.
  EXPECT_EQ(Brush(R"(opacity="0.5px" stroke-dashoffset="2")"),
            "brush fill-opacity=0.5 rule=nonzero stroke-opacity=0.5 dash-offset=2");
}

TEST(SvgReaderPaintTest, StyleAttributeIsLowerCasedAndTakenLiterally) {
  // The blank after ":" stays in the value, a blank before it hides the name.
  EXPECT_EQ(Brush(R"(style="fill: #ff0000")"), "brush fill= #ff0000 rule=nonzero");
  EXPECT_EQ(Brush(R"(style="fill :red; stroke-width: 3")"), "brush rule=nonzero width=3");
  EXPECT_EQ(Brush(R"(style="FILL:RED")"), "brush fill=#FFFF0000 rule=nonzero");
  // Only eight names are known there: no stroke colour, no separate opacities.
  EXPECT_EQ(Brush(R"(style="stroke:#000;fill-opacity:0.5;stroke-opacity:0.5")"), "brush rule=nonzero");
  EXPECT_EQ(Brush(R"(style=";;fill:red;fill:blue;")"), "brush fill=#FFFF0000 rule=nonzero");
  // The dash array's separator depends on the source.
  EXPECT_EQ(Brush(R"(stroke-dasharray="4 2")"), "brush rule=nonzero dash=4,2");
  EXPECT_EQ(Brush(R"(stroke-dasharray="4,2")"), "brush rule=nonzero");
  EXPECT_EQ(Brush(R"(style="stroke-dasharray:4,2")"), "brush rule=nonzero dash=4,2");
}

TEST(SvgReaderPaintTest, ClassAttributeIsOneCaseInsensitiveKeyAndSheetValuesAreLowerCased) {
  const std::string sheet = ".st0{FILL:RED;}.bad{stroke-width:wide;stroke-linecap:flat;fill-rule:nonzero}";
  EXPECT_EQ(Brush(R"(class="ST0")", sheet), "brush fill=#FFFF0000 rule=nonzero");
  EXPECT_EQ(Brush(R"(class=" st0")", sheet), "brush rule=nonzero");
  EXPECT_EQ(Brush(R"(class="st0 other")", sheet), "brush rule=nonzero");
  EXPECT_EQ(Brush(R"(class="bad" stroke-width="3")", sheet), "brush rule=nonzero width=3");
}

TEST(SvgReaderPaintTest, BadValuesAreDroppedSilentlyButRawNumbersRaise) {
  EXPECT_EQ(Brush(R"(stroke-width="wide" stroke-linecap="flat" stroke-linejoin="x" opacity="half")"),
            "brush rule=nonzero");
  EXPECT_EQ(Brush(R"(fill-rule="EVENODD")"), "brush rule=evenodd");
  EXPECT_EQ(Brush(R"(fill-rule="bogus" style="fill-rule:evenodd")"), "brush rule=nonzero");

  for (const char* attributes : {R"(fill-opacity="50%")", R"(stroke-dashoffset="2px")", R"(stroke-opacity="")"}) {
    TqxVectorDocument doc;
    TqxVectorReaderSVG reader(doc);
    std::istringstream stream(std::string("<svg width=\"1\" height=\"1\"><g ") + attributes + "/></svg>");
    EXPECT_THROW(reader.LoadFromStream(stream), Exception) << attributes;
  }
}

// Reaches the paint steps directly, with gradients put in place by hand.
class PaintReader : public TqxVectorReaderSVG {
public:
  explicit PaintReader(TqxVectorDocument& doc) : TqxVectorReaderSVG(doc) {}

  void AddGradient(const std::string& id) {
    auto gradient = std::make_unique<TqxVectorLinearGradient>();
    gradient->ID = id;
    FGradients[id] = std::move(gradient);
  }
  void AddSheet(const std::string& sheet) { ParseStyleSheet(sheet, FCSSClasses); }

  void Paint(const std::string& element) {
    pugi::xml_document xml;
    ASSERT_TRUE(xml.load_string(element.c_str()));
    TsvgPaintingParams params;
    ReadPaintParams(xml.document_element(), params);
    ProcessPaintAttributes(xml.document_element(), params);
  }

  const TqxVectorGradient* Stored(const std::string& id) { return FGradients.at(id).get(); }
};

TEST(SvgReaderPaintTest, UrlNamesAGradientThatEachUseGetsACopyOf) {
  TqxVectorDocument doc;
  PaintReader reader(doc);
  reader.AddGradient("a");
  reader.AddGradient("grad");
  reader.AddSheet(".c{fill:green}");

  reader.Paint(R"x(<g fill="url(#a)" stroke="url(a)"/>)x");
  reader.Paint(R"x(<g style="fill:url(#Grad)"/>)x");
  // The class colour stays in the brush beside the gradient.
  reader.Paint(R"x(<g class="c" fill="url(#a)"/>)x");
  EXPECT_EQ(test::Dump(doc.Commands), (Lines{"gradient a fill", "gradient a stroke", "brush rule=nonzero",
                                             "gradient grad fill", "brush rule=nonzero", "gradient a fill",
                                             "brush fill=#FF008000 rule=nonzero"}));
  EXPECT_NE(doc.Commands[0]->Gradient.get(), reader.Stored("a"));
  EXPECT_NE(doc.Commands[0]->Gradient.get(), doc.Commands[1]->Gradient.get());
  EXPECT_TRUE(doc.Commands[0]->Gradient->Equals(*reader.Stored("a")));

  // Names are case-sensitive, and quotes inside the parentheses stay.
  EXPECT_THROW(reader.Paint(R"x(<g fill="url(#A)"/>)x"), Exception);
  EXPECT_THROW(reader.Paint(R"x(<g fill="url('#a')"/>)x"), Exception);
}


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
