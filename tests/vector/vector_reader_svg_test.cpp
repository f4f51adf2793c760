#include "vector/vector_reader_svg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "command_dump.h"
#include "platform/core/base/log.h"

namespace qx {
namespace {

using Lines = std::vector<std::string>;

using test::SvgDataFile;

struct ReadResult {
  TqxResultParsing Result;
  Lines Logs;
  Lines Commands;
  TSizeF Size;
  TRectF ViewBox;
};

ReadResult Read(const std::string& text) {
  TqxVectorDocument doc;
  TqxVectorReaderSVG reader(doc);
  std::istringstream stream(text);
  reader.LoadFromStream(stream);
  return {reader.Result(), reader.Logs(), test::Dump(doc.Commands), doc.Size, doc.ViewBox};
}

std::string Svg(const std::string& body) { return "<svg width=\"10\" height=\"10\">" + body + "</svg>"; }

TEST(VectorReaderSvgTest, RootSizeAndViewBox) {
  struct Case {
    const char* attributes;
    double width, height;
    TRectF viewBox;
  };
  const Case cases[] = {
      {R"(width="48" height="48" viewBox="0 0 24 24")", 48, 48, {0, 0, 24, 24}},
      {R"(width="100%" height="10pt" viewBox="0 0 24 12")", 24, 12, {0, 0, 24, 12}},
      {R"(width="10px" height="2cm")", 10, 2, {0, 0, 10, 2}},
      {R"(viewBox="5 5 20 10")", 20, 10, {5, 5, 25, 15}},
      {R"(width="30" viewBox="5 5 0 10")", 30, 10, {5, 5, 35, 15}},
  };
  for (const Case& c : cases) {
    const ReadResult r = Read(std::string("<svg ") + c.attributes + "/>");
    EXPECT_EQ(r.Result, TqxResultParsing::Success) << c.attributes;
    EXPECT_EQ(r.Size, (TSizeF{c.width, c.height})) << c.attributes;
    EXPECT_EQ(r.ViewBox, c.viewBox) << c.attributes;
  }
}

TEST(VectorReaderSvgTest, RootWithoutAUsableSizeFailsBeforeDrawing) {
  const auto missing = [](const char* node, const char* attribute) {
    return std::string("- The attribute is not existed: node=\"") + node + "\", attributeName=" + attribute;
  };
  // The comma form of viewBox is no rectangle, so nothing gives a width.
  ReadResult r = Read("<svg viewBox=\"0,0,24,24\"><g fill=\"red\"/></svg>");
  EXPECT_EQ(r.Result, TqxResultParsing::Failed);
  EXPECT_EQ(r.Logs, (Lines{missing("svg", "width"), missing("svg", "viewBox")}));
  EXPECT_TRUE(r.Commands.empty());

  // Only the first axis is told.
  r = Read("<svg width=\"10\" viewBox=\"0 0 10 0\"/>");
  EXPECT_EQ(r.Result, TqxResultParsing::Failed);
  EXPECT_EQ(r.Logs, (Lines{missing("svg", "height"), missing("svg", "viewBox")}));
}

TEST(VectorReaderSvgTest, AnyRootIsReadAsSvgAndItsPaintIsIgnored) {
  TqxVectorDocument doc;
  TqxVectorReaderSVG reader(doc);
  reader.LoadFromFile(SvgDataFile("frame/not_svg_root.svg"));
  reader.LoadFromFile(SvgDataFile("frame/not_svg_root.svg"));  // a second load starts afresh
  EXPECT_EQ(reader.Result(), TqxResultParsing::Success);
  EXPECT_EQ(doc.Size, (TSizeF{20, 10}));
  // fill, style, class and transform of the root reach nothing; the child's
  // class does.
  EXPECT_EQ(test::Dump(doc.Commands), (Lines{"{", "brush fill=#FF008000 rule=nonzero", "}"}));
  EXPECT_THROW(reader.LoadFromFile(SvgDataFile("frame/no_such_file.svg")), Exception);
}

TEST(VectorReaderSvgTest, UnknownElementsWarnOncePerPassOfEachLevelAndSkippedOnesAreSilent) {
  TqxVectorDocument doc;
  TqxVectorReaderSVG reader(doc);
  reader.LoadFromFile(SvgDataFile("frame/unknown_elements.svg"));
  // First pass, then second pass; the clipPath's child is never visited.
  const Lines once = {"- Unknown node name: node=\"clipPath\"", "- Unknown node name: node=\"#text\"",
                      "- Unknown node name: node=\"svg:path\""};
  Lines expected = once;
  expected.insert(expected.end(), once.begin(), once.end());
  EXPECT_EQ(reader.Logs(), expected);
  EXPECT_EQ(reader.Result(), TqxResultParsing::SuccessWithWarnings);
  EXPECT_TRUE(doc.Commands.empty());

  // A group's own two passes run inside its parent's second pass.
  const ReadResult nested = Read(Svg("<a1/><g><b1/></g><a2/><text>a</text><title/><desc/><metadata/>"));
  EXPECT_EQ(nested.Logs, (Lines{"- Unknown node name: node=\"a1\"", "- Unknown node name: node=\"a2\"",
                                "- Unknown node name: node=\"a1\"", "- Unknown node name: node=\"b1\"",
                                "- Unknown node name: node=\"b1\"", "- Unknown node name: node=\"a2\""}));
}

TEST(VectorReaderSvgTest, StyleSheetOfALevelIsKnownBeforeThatLevelDraws) {
  // The sheet stands after its user at the same level: it still applies. One
  // in a later sibling group comes too late for the first group.
  const ReadResult r = Read(Svg("<g class=\"x\"/><g class=\"y\"/><style>.x{fill:red}</style>"
                                "<g><style>.y{fill:blue}</style></g>"));
  EXPECT_EQ(r.Commands, (Lines{"{", "brush fill=#FFFF0000 rule=nonzero", "}", "{", "brush rule=nonzero", "}", "{",
                               "brush rule=nonzero", "}"}));
}

TEST(VectorReaderSvgTest, GroupsAndTransformsOpenScopes) {
  const ReadResult r = Read(Svg("<g fill=\"red\" transform=\"translate(5,6)\"><g/></g>"
                                "<desc transform=\"scale(2)\"/><g transform=\"skewX(10)\"/>"));
  EXPECT_EQ(r.Commands, (Lines{
                            "{", "brush fill=#FFFF0000 rule=nonzero", "transform 1 0 0 1 5 6",  //
                            "{", "brush rule=nonzero", "}",                                     //
                            "}",                                                                //
                            // An ignored element with a transform still gets its scope.
                            "{", "transform 2 0 0 2 0 0", "}",  //
                            // A transform of only unsupported steps is an identity.
                            "{", "brush rule=nonzero", "transform 1 0 0 1 0 0", "}",
                        }));
  EXPECT_EQ(r.Result, TqxResultParsing::Success);
}

TEST(VectorReaderSvgTest, CheckContentGivesTheLogAsHint) {
  std::string hint = "stale";
  EXPECT_EQ(TqxVectorReaderSVG::CheckContent(Svg(""), hint), TqxResultParsing::Success);
  EXPECT_EQ(hint, "");
  // A text in a legacy encoding still reads through the string.
  const std::string cp1251 = "<?xml version=\"1.0\" encoding=\"windows-1251\"?><svg width=\"1\" height=\"1\"><\xF0/></svg>";
  EXPECT_EQ(TqxVectorReaderSVG::CheckContent(cp1251, hint), TqxResultParsing::SuccessWithWarnings);
  EXPECT_EQ(hint, "- Unknown node name: node=\"р\"\r\n- Unknown node name: node=\"р\"");
}

// Faults that end a read raise from an instance; the class functions log the
// message to the framework log and answer Failed with an empty hint.
TEST(VectorReaderSvgTest, ExceptionsEndTheReadAndKeepWhatWasDrawn) {
  std::vector<std::string> errors;
  const int sink = TqxLog::AddSink([&](TqxLogLevel level, const std::string&, const std::string& text) {
    if (level == TqxLogLevel::Error) errors.push_back(text);
  });
  TqxLog::SetStderrEnabled(false);

  // Paint is read before the group opens, so a bad raw number leaves no
  // trace of its element; later faults leave the group, closed.
  const Lines red = {"{", "brush fill=#FFFF0000 rule=nonzero", "}"};
  const std::pair<std::string, Lines> cases[] = {
      {Svg("<g fill=\"red\"/><g transform=\"translate(a,b)\"/><g/>"),
       {"{", "brush fill=#FFFF0000 rule=nonzero", "}", "{", "brush rule=nonzero", "}"}},
      {Svg("<g fill=\"red\"/><g fill-opacity=\"50%\"/><g/>"), red},
      {Svg("<g fill=\"red\"/><g stroke=\"url(#missing)\"/><g/>"),
       {"{", "brush fill=#FFFF0000 rule=nonzero", "}", "{", "}"}},
  };
  for (const auto& [text, drawn] : cases) {
    SCOPED_TRACE(text);
    TqxVectorDocument doc;
    TqxVectorReaderSVG reader(doc);
    std::istringstream stream(text);
    EXPECT_ANY_THROW(reader.LoadFromStream(stream));
    EXPECT_TRUE(reader.Logs().empty());
    EXPECT_EQ(test::Dump(doc.Commands), drawn);

    errors.clear();
    std::string hint = "stale";
    EXPECT_EQ(TqxVectorReaderSVG::CheckContent(text, hint), TqxResultParsing::Failed);
    EXPECT_EQ(hint, "");
    EXPECT_EQ(errors.size(), 1u);
  }

  std::string hint = "stale";
  EXPECT_EQ(TqxVectorReaderSVG::CheckContent("this is no XML", hint), TqxResultParsing::Failed);
  EXPECT_EQ(hint, "");
  EXPECT_EQ(TqxVectorReaderSVG::Check(SvgDataFile("frame/malformed.svg")), TqxResultParsing::Failed);
  EXPECT_EQ(TqxVectorReaderSVG::Check(SvgDataFile("frame")), TqxResultParsing::Failed);

  TqxLog::SetStderrEnabled(true);
  TqxLog::RemoveSink(sink);
}

// A reader with a command limit small enough to reach by hand.
class LimitedReader : public TqxVectorReaderSVG {
public:
  LimitedReader(TqxVectorDocument& doc, std::size_t limit) : TqxVectorReaderSVG(doc) { FMaxCommands = limit; }
  std::size_t Count() const { return FCommandCount; }
};

TEST(VectorReaderSvgTest, CommandLimitEndsTheReadWithBalancedGroups) {
  // Commands of every kind, with a recording and a replay.
  const std::string text = Svg(
      "<g id=\"a\" fill=\"red\" transform=\"scale(2)\"><path d=\"M0 0\"/>"
      "<rect transform=\"translate(1)\" width=\"1\" height=\"1\"/></g>"
      "<use xlink:href=\"#a\"/><circle r=\"1\"/>");
  TqxVectorDocument full;
  LimitedReader unlimited(full, TqxVectorReaderSVG::kMaxCommands);
  std::istringstream fullStream(text);
  unlimited.LoadFromStream(fullStream);
  // Every command counts once for each document it lands in.
  const std::size_t total = unlimited.Count();
  ASSERT_EQ(total, 51u);
  for (std::size_t limit = 0; limit <= total; ++limit) {
    SCOPED_TRACE(limit);
    TqxVectorDocument doc;
    LimitedReader reader(doc, limit);
    std::istringstream stream(text);
    reader.LoadFromStream(stream);
    const Lines dump = test::Dump(doc.Commands);
    int depth = 0;
    for (const std::string& line : dump) {
      depth += line == "{" ? 1 : line == "}" ? -1 : 0;
      ASSERT_GE(depth, 0);
    }
    EXPECT_EQ(depth, 0);
    if (limit < total) {
      EXPECT_EQ(reader.Result(), TqxResultParsing::Failed);
      EXPECT_EQ(reader.Logs(), (Lines{Format("- The document produces more than %d commands", {limit})}));
    } else {
      EXPECT_EQ(reader.Result(), TqxResultParsing::Success);
    }
  }
}

std::string NestedGroups(int depth) {
  std::string text = "<svg width=\"1\" height=\"1\">";
  for (int i = 0; i < depth; ++i) text += "<g>";
  for (int i = 0; i < depth; ++i) text += "</g>";
  return text + "</svg>";
}

TEST(VectorReaderSvgTest, NestingBeyondTheLimitFailsWithBalancedGroups) {
  EXPECT_EQ(Read(NestedGroups(1000)).Result, TqxResultParsing::Success);

  const ReadResult deep = Read(NestedGroups(20000));
  EXPECT_EQ(deep.Result, TqxResultParsing::Failed);
  ASSERT_EQ(deep.Logs.size(), 1u);
  EXPECT_NE(deep.Logs[0].find("nested deeper than 1024 levels"), std::string::npos) << deep.Logs[0];
  // The groups opened before the limit are all closed again.
  EXPECT_EQ(std::count(deep.Commands.begin(), deep.Commands.end(), "{"),
            std::count(deep.Commands.begin(), deep.Commands.end(), "}"));


  // So is the scope of a transformed element that ends the read.
  const ReadResult self = Read(Svg("<g id=\"a\"><use transform=\"scale(2)\" xlink:href=\"#a\"/></g><g/>"));
  EXPECT_EQ(self.Result, TqxResultParsing::Failed);
  EXPECT_EQ(self.Commands, (Lines{"{", "brush rule=nonzero", "{", "transform 2 0 0 2 0 0", "}", "}"}));
}

std::vector<std::string> SeedFiles() {
  std::vector<std::string> texts;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(std::string(QX_TEST_DATA_DIR) + "/svg")) {
    // The exponential use chain reaches the command limit on nearly every
    // mutation, which costs seconds each; its own test covers it.
    if (entry.path().extension() != ".svg" || entry.path().stem() == "use_chain") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return texts;
}

// Pieces that steer a mutated file into the reader's less travelled paths.
const char* const kSnippets[] = {
    "<g>", "</g>", "<defs>", "</defs>", "<use xlink:href=\"#a\"/>", "<g id=\"a\">", "fill=\"url(#g)\" ",
    "<linearGradient id=\"g\"/>", "<style>.a{fill:red}</style>", "transform=\"rotate(1e39)\" ", "\"", "<",
    "&amp;", "<![CDATA[x]]>", "\xC3", "\x00", "&st0;", "<!ENTITY x \"&st1;&st1;\">", "]>",
};

std::string Mutate(std::string text, std::mt19937& random) {
  const int steps = 1 + static_cast<int>(random() % 4);
  for (int i = 0; i < steps; ++i) {
    const std::size_t at = text.empty() ? 0 : random() % text.size();
    switch (random() % 4) {
      case 0: if (!text.empty()) text[at] = static_cast<char>(random() % 256); break;
      case 1: text.erase(at, random() % 16); break;
      case 2: text.insert(at, text.substr(at, random() % 64)); break;
      default: text.insert(at, kSnippets[random() % std::size(kSnippets)]); break;
    }
  }
  return text;
}

// A hostile file may fail, but must give a verdict: no crash, no hang, nothing
// the sanitizers object to, and a document whose groups still balance when the
// read ended by itself.
TEST(SvgReaderRobustnessTest, MutatedFilesAlwaysGiveAVerdict) {
  TqxLog::SetStderrEnabled(false);
  std::mt19937 random(20261123);
  const std::vector<std::string> seeds = SeedFiles();
  ASSERT_FALSE(seeds.empty());
  for (int round = 0; round < 40; ++round) {
    for (const std::string& seed : seeds) {
      const std::string text = Mutate(seed, random);
      std::string hint;
      const TqxResultParsing result = TqxVectorReaderSVG::CheckContent(text, hint);
      ASSERT_LE(static_cast<int>(result), static_cast<int>(TqxResultParsing::Failed)) << text;

      TqxVectorDocument doc;
      TqxVectorReaderSVG reader(doc);
      std::istringstream stream(text);
      try {
        reader.LoadFromStream(stream);
      } catch (const std::exception&) {
        continue;
      }
      int depth = 0;
      for (const auto& command : doc.Commands) {
        if (command->Kind == TqxVectorCommandKind::BeginGroup) ++depth;
        if (command->Kind == TqxVectorCommandKind::EndGroup) --depth;
        ASSERT_GE(depth, 0) << text;
      }
      ASSERT_EQ(depth, 0) << text;
    }
  }
  TqxLog::SetStderrEnabled(true);
}

}  // namespace
}  // namespace qx
