#include <gtest/gtest.h>

#include <sstream>

#include "platform/core/base/exception.h"
#include "command_dump.h"
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

}  // namespace
}  // namespace qx
