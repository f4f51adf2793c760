#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
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

// Opens the reader's stores to the checks.
class TestReader : public TqxVectorReaderSVG {
public:
  using TqxVectorReaderSVG::TqxVectorReaderSVG;
  using TqxVectorReaderSVG::FGradients;
  using TqxVectorReaderSVG::FSnippets;

  Lines Snippet(const std::string& id) const { return test::Dump(FSnippets.at(id)->Commands); }
};

const std::string kDot = "path M0,0m-1,0a1,1 0,1 1,2 0a1,1 0,1 1,-2 0";
const Lines kDotShape = {"{", "brush fill=#FFFF0000 rule=nonzero", kDot, "}"};

Lines Concat(std::initializer_list<Lines> parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST(SvgReaderGradientsTest, CoordinatesStopsAndTransformsAreRead) {
  TqxVectorDocument document;
  TestReader reader(document);
  reader.LoadFromFile(test::SvgDataFile("defs/gradients.svg"));
  EXPECT_EQ(reader.Result(), TqxResultParsing::Success) << reader.LogText();

  // Units are not read and the transform stays beside the points.
  const auto& full = dynamic_cast<const TqxVectorLinearGradient&>(*reader.FGradients.at("full"));
  EXPECT_EQ(full.StartPoint, (TPointF{1, 2}));
  EXPECT_EQ(full.EndPoint, (TPointF{3.5, -4}));
  EXPECT_EQ(full.Transform, TMatrix::CreateTranslation(5, 6));
  // In document order, unsorted: a style value hidden behind a blank, "50%"
  // and a colour name all fail to their defaults, and the stop's opacity
  // multiplies the colour's own alpha with ties to even.
  EXPECT_EQ(full.Points, (std::vector<TqxVectorGradientPoint>{
                             {0, 0xFFFF0000},
                             {0.5f, 0x8000AAFF},
                             {0, 0x00000000},
                             {0.25f, 0x40FF0000},
                             {0.75f, 0x00000000},
                             {1, 0xFF123456},
                             {0.9f, 0xFFFFFFFF},
                         }));

  // A reference to another gradient brings no stops.
  EXPECT_TRUE(reader.FGradients.at("inherits")->Points.empty());

  // The radial transform moves the centre once and leaves the radius alone.
  const auto& later = dynamic_cast<const TqxVectorRadialGradient&>(*reader.FGradients.at("later"));
  EXPECT_EQ(later.Center, (TPointF{11, 11}));
  EXPECT_EQ(later.Radius, 5);
  // One namespace for all levels; a percentage radius keeps the constructed one.
  const auto& nested = dynamic_cast<const TqxVectorRadialGradient&>(*reader.FGradients.at("nested"));
  EXPECT_EQ(nested.Center, (TPointF{1, 2}));
  EXPECT_EQ(nested.Radius, 0);

  EXPECT_EQ(test::Dump(document.Commands),
            (Lines{"{", "gradient bare fill", "gradient later stroke", "brush rule=nonzero",
                   "path M0.00, 0.00 L10.00, 0.00 10.00, 10.00 0.00, 10.00 Z", "}", "{", "brush rule=nonzero", "}"}));
}

TEST(SvgReaderGradientsTest, FaultsThatEndTheRead) {
  for (const char* body : {
           R"svg(<linearGradient id="g" x1="0%" x2="100%"/>)svg",  // no percentages
           R"svg(<linearGradient id="g" y2="1px"/>)svg",           // no units
           R"svg(<radialGradient id="g" r="5"/>)svg",              // no centre
           R"svg(<linearGradient id="g" gradientTransform="matrix(1 0 0 1 x 0)"/>)svg",
           R"svg(<linearGradient id="g"/><g><radialGradient id="g" cx="0" cy="0"/></g>)svg",
           R"svg(<linearGradient/><linearGradient/>)svg",  // two without an id
           R"svg(<circle id="a"/><g><rect id="a"/></g>)svg",
           R"svg(<defs id="a"/><circle id="a"/>)svg",
           R"svg(<defs><rect fill="url(#g)"/></defs><linearGradient id="g"/>)svg",  // used before it stands
       }) {
    const std::string svg = std::string(R"svg(<svg width="1" height="1">)svg") + body + "</svg>";
    std::string hint = "untouched";
    EXPECT_EQ(TqxVectorReaderSVG::CheckContent(svg, hint), TqxResultParsing::Failed) << body;
    EXPECT_EQ(hint, "") << body;
    TqxVectorDocument document;
    TqxVectorReaderSVG reader(document);
    std::istringstream stream(svg);
    EXPECT_THROW(reader.LoadFromStream(stream), Exception) << body;
  }
  // What is no fault: a gradient and a shape may share an id, and a defs finds
  // the gradients inside itself wherever they stand.
  EXPECT_EQ(TqxVectorReaderSVG::CheckContent(
                R"svg(<svg width="1" height="1"><linearGradient id="a"/><circle id="a" fill="url(#a)"/>)svg"
                R"svg(<defs><rect fill="url(#g)"/><linearGradient id="g"/></defs></svg>)svg"),
            TqxResultParsing::Success);
}

TEST(SvgReaderUseTest, UseReplaysARecordingFoundEarlierOnly) {
  TqxVectorDocument document;
  TestReader reader(document);
  reader.LoadFromFile(test::SvgDataFile("defs/use.svg"));
  EXPECT_EQ(reader.Result(), TqxResultParsing::Success) << reader.LogText();

  const Lines late = {"{", "brush rule=nonzero", "path M0,0m-2,0a2,2 0,1 1,4 0a2,2 0,1 1,-4 0", "}"};
  const Lines pair = Concat({{"{", "brush rule=nonzero"}, {"{"}, kDotShape, {"}"}, {"{"}, kDotShape, {"}"}, {"}"}});
  // The use's transform applies to the copy; x, y, width and its paint do
  // not. A use before its target, a plain href, a reference without "#" and
  // an unknown id draw nothing, in silence. Nothing of the defs is drawn.
  EXPECT_EQ(test::Dump(document.Commands),
            Concat({{"{", "transform 1 0 0 1 1 2", "{"}, kDotShape, {"}", "}"}, late, pair, {"{"}, pair, {"}"}}));
  EXPECT_EQ(reader.Snippet("dot"), kDotShape);
  EXPECT_EQ(reader.Snippet("pair"), pair);
}

TEST(SvgReaderUseTest, RecordingsNestAndDefsIsASwitchNotACounter) {
  TqxVectorDocument document;
  TestReader reader(document);
  reader.LoadFromFile(test::SvgDataFile("defs/snippets.svg"));
  EXPECT_EQ(reader.Result(), TqxResultParsing::Success) << reader.LogText();

  const std::string circle = "path M0,0m-1,0a1,1 0,1 1,2 0a1,1 0,1 1,-2 0";
  // A shape's recording holds its own group but not its transform, which
  // opened outside it; the group's recording holds both.
  EXPECT_EQ(reader.Snippet("inner"), (Lines{"{", "brush rule=nonzero", circle, "}"}));
  EXPECT_EQ(reader.Snippet("outer"),
            (Lines{"{", "brush fill=#FF0000FF rule=nonzero", "{", "transform 2 0 0 2 0 0", "{", "brush rule=nonzero", circle, "}", "}", "}"}));

  const Lines hidden = {"{", "brush rule=nonzero", "path M0.00, 0.00 L1.00, 0.00 1.00, 1.00 0.00, 1.00 Z", "}"};
  const Lines after = {"{", "brush rule=nonzero", "path M0.00, 0.00 L2.00, 0.00 2.00, 2.00 0.00, 2.00 Z", "}"};
  EXPECT_EQ(reader.Snippet("defs"), Concat({{"{", "{"}, hidden, {"}"}, after, {"}"}}));
  // Leaving the inner defs let the rest of the outer one through, ahead of
  // the group since defs is read in the first pass; the groups stay balanced.
  EXPECT_EQ(test::Dump(document.Commands),
            Concat({after, {"{", "brush fill=#FF0000FF rule=nonzero", "{", "transform 2 0 0 2 0 0", "{", "brush rule=nonzero", circle, "}", "}", "}"}}));
}

TEST(SvgReaderUseTest, ADefsInAGroupInsideDefsKeepsTheDrawingBalanced) {
  TqxVectorDocument document;
  TestReader reader(document);
  std::istringstream stream(R"svg(<svg width="4" height="4"><defs><g id="g" fill="red">)svg"
                            R"svg(<defs/><rect id="r" width="1" height="1"/></g></defs></svg>)svg");
  reader.LoadFromStream(stream);
  EXPECT_EQ(reader.Result(), TqxResultParsing::Success) << reader.LogText();
  // The group opened while the outer defs hid it, so it closes there too;
  // what the inner defs let through stands on its own.
  const Lines rect = {"{", "brush rule=nonzero", "path M0.00, 0.00 L1.00, 0.00 1.00, 1.00 0.00, 1.00 Z", "}"};
  EXPECT_EQ(test::Dump(document.Commands), rect);
  EXPECT_EQ(reader.Snippet("g"), Concat({{"{", "brush fill=#FFFF0000 rule=nonzero", "{", "}"}, rect, {"}"}}));
}

TEST(SvgReaderUseTest, AUseInsideItsOwnTargetFailsTheRead) {
  TqxVectorDocument document;
  TestReader reader(document);
  reader.LoadFromFile(test::SvgDataFile("defs/use_self.svg"));

  EXPECT_EQ(reader.Result(), TqxResultParsing::Failed);
  EXPECT_EQ(reader.Logs(), (Lines{R"(- The element refers to itself: node="use", href="#loop")"}));
  // The read ends there: what came before stays, what follows is not read.
  const Lines paths = test::Dump(document.Commands);
  EXPECT_EQ(std::count_if(paths.begin(), paths.end(), [](const auto& l) { return l.starts_with("path"); }), 2);
  EXPECT_EQ(TqxVectorReaderSVG::Check(test::SvgDataFile("defs/use_self.svg")), TqxResultParsing::Failed);
}

TEST(SvgReaderUseTest, AnExponentialUseChainFailsInBoundedTime) {
  const auto start = std::chrono::steady_clock::now();
  TqxVectorDocument document;
  TestReader reader(document);
  reader.LoadFromFile(test::SvgDataFile("defs/use_chain.svg"));
  const auto elapsed = std::chrono::steady_clock::now() - start;

  EXPECT_EQ(reader.Result(), TqxResultParsing::Failed);
  ASSERT_EQ(reader.Logs().size(), 1u);
  EXPECT_TRUE(reader.Logs()[0].starts_with("- The document produces more than")) << reader.Logs()[0];
  std::size_t recorded = 0;
  for (const auto& [id, snippet] : reader.FSnippets) recorded += snippet->Commands.size();
  EXPECT_LE(recorded + document.Commands.size(), TqxVectorReaderSVG::kMaxCommands);
  EXPECT_LT(elapsed, std::chrono::seconds(30));
}

}  // namespace
}  // namespace qx
