#include "vector/svg_xml_input.h"

#include <gtest/gtest.h>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "vector/vector_reader_svg.h"
#include "command_dump.h"
#include "../support/temp_folder.h"

namespace qx {
namespace {

using test::SvgDataFile;

// Every encoding must yield the same UTF-8 text: the fill colour is kept as
// written, and the unknown element's name reaches the log.
TEST(SvgXmlInputTest, DeclaredAndDetectedEncodingsReadAsUtf8) {
  struct Case {
    const char* file;
    const char* fill;
    const char* element;
  };
  const Case cases[] = {
      {"encoding/windows-1251.svg", "красный", "рисунок"}, {"encoding/iso-8859-5.svg", "красный", "рисунок"},
      {"encoding/iso-8859-1.svg", "café", "élan"},         {"encoding/utf-16le-bom.svg", "красный", "рисунок"},
      {"encoding/utf-16be-bom.svg", "красный", "рисунок"}, {"encoding/utf-8-bom.svg", "красный", "рисунок"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    TqxVectorDocument doc;
    TqxVectorReaderSVG reader(doc);
    reader.LoadFromFile(SvgDataFile(c.file));
    EXPECT_EQ(test::Dump(doc.Commands),
              (std::vector<std::string>{"{", std::string("brush fill=") + c.fill + " rule=nonzero", "}"}));
    const std::string warning = std::string("- Unknown node name: node=\"") + c.element + "\"";
    EXPECT_EQ(reader.Logs(), (std::vector<std::string>{warning, warning}));
    EXPECT_EQ(reader.Result(), TqxResultParsing::SuccessWithWarnings);
  }
}

TEST(SvgXmlInputTest, EightBitTextDeclaringAWideEncodingReadsAsUtf8) {
  const auto doc = LoadXmlDocument("<?xml version=\"1.0\" encoding=\"UTF-16\"?><svg fill=\"синий\"/>");
  EXPECT_STREQ(doc->document_element().attribute("fill").value(), "синий");
}

TEST(SvgXmlInputTest, TextThatIsNotWellFormedRaises) {
  const char* const texts[] = {
      "",
      "<svg><g></svg>",
      "<svg/>trailing text",
      "<svg><g a=\"1\" b=\"2\" a=\"3\"/></svg>",
      "<?xml version=\"1.0\" encoding=\"no-such-encoding\"?><svg/>",
      "<svg fill=\"\xFF\xFE\"/>",
  };
  for (const char* text : texts) {
    SCOPED_TRACE(text);
    EXPECT_THROW(LoadXmlDocument(text), Exception);
  }
  EXPECT_THROW(LoadXmlDocument(test::ReadText(SvgDataFile("encoding/bad-utf-8.svg"))), Exception);
  EXPECT_THROW(LoadXmlDocument(test::ReadText(SvgDataFile("frame/two_roots.svg"))), Exception);
}

// What illustration programs write: namespaces and style texts declared as
// entities in the DOCTYPE, used in attributes.
TEST(SvgXmlInputTest, InternalEntitiesAreExpandedExternalOnesRefused) {
  const std::string doctype =
      "<?xml version=\"1.0\"?>\n<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"svg11.dtd\" [\n"
      "  <!ENTITY ns_svg \"http://www.w3.org/2000/svg\">\n"
      "  <!-- a ] and > in a comment --><!ENTITY % pe \"ignored\">\n"
      "  <!ENTITY red '#FF0000'><!ENTITY st0 \"fill:&red;\"><!ENTITY st0 \"second declaration loses\">\n"
      "  <!ENTITY ext SYSTEM \"file:///etc/passwd\"><!ENTITY loop \"&loop;\">\n"
      "]>\n";
  const auto doc = LoadXmlDocument(doctype +
                                   "<svg xmlns=\"&ns_svg;\" style=\"&st0;\" a=\"&amp;&lt;&unknown;\">"
                                   "<!-- &ext; --><![CDATA[&st0;]]>&red;</svg>");
  const pugi::xml_node svg = doc->document_element();
  EXPECT_STREQ(svg.attribute("xmlns").value(), "http://www.w3.org/2000/svg");
  EXPECT_STREQ(svg.attribute("style").value(), "fill:#FF0000");
  EXPECT_STREQ(svg.attribute("a").value(), "&<&unknown;");
  // The comment (which the parser drops) and the CDATA section are left alone.
  EXPECT_STREQ(svg.first_child().value(), "&st0;");
  EXPECT_STREQ(svg.last_child().value(), "#FF0000");

  EXPECT_THROW(LoadXmlDocument(doctype + "<svg a=\"&ext;\"/>"), Exception);
  EXPECT_THROW(LoadXmlDocument(doctype + "<svg a=\"&loop;\"/>"), Exception);
  std::string laughs = "<!DOCTYPE svg [<!ENTITY l0 \"lol\">";
  for (int i = 1; i < 10; ++i)
    laughs += Format("<!ENTITY l%d \"&l%d;&l%d;&l%d;&l%d;&l%d;&l%d;&l%d;&l%d;&l%d;&l%d;\">",
                     {i, i - 1, i - 1, i - 1, i - 1, i - 1, i - 1, i - 1, i - 1, i - 1, i - 1});
  EXPECT_THROW(LoadXmlDocument(laughs + "]><svg a=\"&l9;\"/>"), Exception);

  // Through the reader: a file styled by entities reads without a warning.
  TqxVectorDocument drawn;
  EXPECT_EQ(TqxVectorReaderSVG::LoadFromFile(drawn, SvgDataFile("frame/entities.svg")), TqxResultParsing::Success);
  EXPECT_EQ(test::Dump(drawn.Commands)[1], "brush fill=#f44336 rule=nonzero width=2");
}

// Entities are declared and used the same way in 16- and 32-bit files, with
// or without a byte order mark; an odd byte left over is an error.
TEST(SvgXmlInputTest, WideTextsExpandEntitiesToo) {
  const std::string text = "<!DOCTYPE svg [<!ENTITY red \"#FF0000\">]><svg fill=\"&red;\"/>";
  auto widen = [&](std::string bom, int width, bool bigEndian) {
    for (char c : text) {
      const std::string pad(width - 1, '\0');
      bom += bigEndian ? pad + c : c + pad;
    }
    return bom;
  };
  const std::string wide[] = {widen("", 2, false), widen("\xFE\xFF", 2, true), widen("", 4, true),
                              widen(std::string("\xFF\xFE\0\0", 4), 4, false)};
  for (const std::string& bytes : wide) {
    SCOPED_TRACE(bytes.size());
    EXPECT_STREQ(LoadXmlDocument(bytes)->document_element().attribute("fill").value(), "#FF0000");
  }
  EXPECT_THROW(LoadXmlDocument(wide[0] + ' '), Exception);
}

}  // namespace
}  // namespace qx
