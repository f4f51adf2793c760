#include "platform/core/vector/vector_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdlib>
#include <random>
#include <sstream>

#include "../../support/error_message.h"
#include "../../support/temp_folder.h"
#include "platform/core/base/exception.h"
#include "platform/core/vector/vector_document.h"

namespace qx {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using test::ReadText;
using test::TTempFolder;

TqxVectorBrush FullBrush() {
  TqxVectorBrush brush;
  brush.Fill = std::string("#FFFF0000");
  brush.FillOpacity = 0.5f;
  brush.FillRule = TqxFillRule::EvenOdd;
  brush.Stroke = std::string("inherit");
  brush.StrokeWidth = 2.25f;
  brush.StrokeOpacity = 0.75f;
  brush.StrokeDashArray = std::vector<float>{4, 2, 1};
  brush.StrokeDashOffset = 1.5f;
  brush.StrokeLineCap = TqxStrokeLineCap::Butt;
  brush.StrokeLineJoin = TqxStrokeLineJoin::Bevel;
  return brush;
}

// Each field alone, so that a presence bit or a field order mistake shows.
std::vector<TqxVectorBrush> SingleFieldBrushes() {
  const TqxVectorBrush full = FullBrush();
  std::vector<TqxVectorBrush> brushes(10);
  brushes[0].Fill = full.Fill;
  brushes[1].FillOpacity = full.FillOpacity;
  brushes[2].FillRule = full.FillRule;
  brushes[3].Stroke = full.Stroke;
  brushes[4].StrokeWidth = full.StrokeWidth;
  brushes[5].StrokeOpacity = full.StrokeOpacity;
  brushes[6].StrokeDashArray = std::vector<float>{};  // present though empty
  brushes[7].StrokeDashOffset = full.StrokeDashOffset;
  brushes[8].StrokeLineCap = TqxStrokeLineCap::Round;
  brushes[9].StrokeLineJoin = TqxStrokeLineJoin::Round;
  return brushes;
}

// A document with every command kind, every brush field present and absent,
// both gradient kinds, and one gradient shared by two commands.
void FillSample(TqxVectorDocument& document) {
  document.Size = {48, 24};
  document.ViewBox = {-1.5, 2, 22.5, 26};

  auto linear = std::make_shared<TqxVectorLinearGradient>();
  linear->ID = "sky";
  linear->StartPoint = {0, 0.5};
  linear->EndPoint = {1, 0.25};
  linear->Points = {{0, 0xFF0000FF}, {0.5f, 0x80FFFFFF}, {0.5f, 0x00000000}};
  // Literal matrices, not trigonometry, keep the golden file the same on every libm.
  linear->Transform = TMatrix{0.875f, 0.5f, 0, -0.5f, 0.875f, 0, 3, -4, 1};
  auto radial = std::make_shared<TqxVectorRadialGradient>();
  radial->ID = "glow";
  radial->Center = {11, 11};
  radial->Radius = 5;
  radial->Points = {{1, 0xFFABCDEF}};
  radial->Transform = TMatrix::CreateScaling(2, 2) * TMatrix::CreateTranslation(1, 1);

  TqxVectorTransform transform;
  transform.Matrix = TMatrix{1.75f, 1, 0, -1.5f, 2.625f, 0, 10, 5, 1};

  document.BeginGroup();
  document.SetBrush(FullBrush());
  document.SetBrush(TqxVectorBrush());
  for (const auto& brush : SingleFieldBrushes()) document.SetBrush(brush);
  document.SetTransform(transform);
  document.SetGradient(linear, true);
  document.SetGradient(radial, false);
  document.BeginGroup();
  document.SetGradient(linear, false);
  document.DrawPath("M0 0 L10 10 Z");
  document.DrawPath("");
  document.DrawPath("M 1,2 — ünïcode");
  document.EndGroup();
  document.EndGroup();
}

void ExpectSameDocument(const TqxVectorDocument& actual, const TqxVectorDocument& expected) {
  EXPECT_EQ(actual.Size, expected.Size);
  EXPECT_EQ(actual.ViewBox, expected.ViewBox);
  ASSERT_EQ(actual.Commands.size(), expected.Commands.size());
  for (size_t i = 0; i < actual.Commands.size(); ++i)
    EXPECT_TRUE(*actual.Commands[i] == *expected.Commands[i]) << "command " << i;
}

TEST(VectorFileTest, GoldenFileRoundTripsThroughFilesAndStreams) {
  const fs::path golden = fs::path(QX_TEST_DATA_DIR) / "vector" / "sample.vector";
  TqxVectorDocument expected;
  FillSample(expected);
  // After a deliberate format change: QX_UPDATE_GOLDEN=1 rewrites the file.
  if (std::getenv("QX_UPDATE_GOLDEN") != nullptr) expected.SaveToFile(golden.string());
  const std::string goldenBytes = ReadText(golden);
  EXPECT_EQ(TqxVectorFile::Encode(expected), goldenBytes);
  TqxVectorDocument loaded;
  loaded.DrawPath("replaced by the load");
  loaded.LoadFromFile(golden.string());
  ExpectSameDocument(loaded, expected);

  // The shared gradient comes back as one object; the other stays apart.
  std::vector<const TqxVectorGradient*> gradients;
  for (const auto& command : loaded.Commands)
    if (command->Kind == TqxVectorCommandKind::SetGradient) gradients.push_back(command->Gradient.get());
  ASSERT_EQ(gradients.size(), 3u);
  EXPECT_EQ(gradients[0], gradients[2]);
  EXPECT_NE(gradients[0], gradients[1]);

  // Saving over a file replaces it and leaves no temporary beside it.
  TTempFolder dir("vector");
  const std::string fileName = (dir / "sample.vector").string();
  TqxVectorDocument().SaveToFile(fileName);
  loaded.SaveToFile(fileName);
  EXPECT_EQ(ReadText(fileName), goldenBytes);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 1);

  std::stringstream stream;
  loaded.SaveToStream(stream);
  EXPECT_EQ(stream.str(), goldenBytes);
  TqxVectorDocument fromStream;
  fromStream.LoadFromStream(stream);
  ExpectSameDocument(fromStream, expected);
}

TEST(VectorFileTest, SaveFailuresNameTheFile) {
  TTempFolder dir("vector");
  TqxVectorDocument document;
  const std::string missingFolder = (dir.Path() / "no" / "such.vector").string();
  EXPECT_THAT(test::ErrorOf([&] { document.SaveToFile(missingFolder); }), HasSubstr(missingFolder));

  // Text the loader would refuse is refused on the way out, and the earlier
  // file stays whole.
  const std::string fileName = (dir.Path() / "kept.vector").string();
  document.DrawPath("M0 0");
  document.SaveToFile(fileName);
  const std::string before = ReadText(fileName);
  TqxVectorDocument bad;
  bad.DrawPath(std::string("M\xFF", 2));
  EXPECT_THROW(bad.SaveToFile(fileName), Exception);
  EXPECT_EQ(ReadText(fileName), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 1);

  EXPECT_THROW(document.LoadFromFile((dir.Path() / "absent.vector").string()), Exception);
}

void PutU32(std::string& bytes, size_t offset, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes[offset + i] = static_cast<char>(value >> (8 * i));
}

// Makes the length and the checksum agree with the bytes again, so that the
// body's own checks are the ones that must catch the damage.
void Reseal(std::string& bytes) {
  const size_t bodyEnd = bytes.size() - 4;
  PutU32(bytes, 12, static_cast<std::uint32_t>(bodyEnd - 16));
  const uLong crc = crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(bytes.data()),
                          static_cast<uInt>(bodyEnd));
  PutU32(bytes, bodyEnd, static_cast<std::uint32_t>(crc));
}

// 0 magic, 8 version, 12 body length, 16 size and view box, 40 gradient count,
// 44 command count, 48 kind, 49 path length, 53 "M0 0", 57 checksum.
std::string PathFile() {
  TqxVectorDocument document;
  document.Size = {1, 1};
  document.DrawPath("M0 0");
  return TqxVectorFile::Encode(document);
}

// 44 gradient type, 45 id length, 49 matrix, 85 stop count, 89 points,
// 105 command count, 109 gradient command (110 index, 114 fill flag),
// 115 brush command (116 mask, 118 fill rule), 119 checksum.
std::string GradientAndBrushFile() {
  TqxVectorDocument document;
  document.SetGradient(std::make_shared<TqxVectorLinearGradient>(), true);
  TqxVectorBrush brush;
  brush.FillRule = TqxFillRule::EvenOdd;
  document.SetBrush(brush);
  return TqxVectorFile::Encode(document);
}

struct Corruption {
  const char* name;
  std::string (*base)();
  void (*damage)(std::string&);
  const char* fragment;
  size_t offset;
};

// One fault of each family: header, framing, counts, payload values.
const Corruption kCorruptions[] = {
    {"wrong magic", PathFile, [](std::string& b) { b[0] = 'X'; }, "wrong magic", 0},
    {"newer version", PathFile, [](std::string& b) { PutU32(b, 8, 2); }, "is newer", 8},
    {"truncated body", PathFile, [](std::string& b) { b.resize(50); }, "truncated", 50},
    {"flipped bit", PathFile, [](std::string& b) { b[54] ^= 0x10; }, "checksum", 57},
    {"absurd command count", PathFile,
     [](std::string& b) { PutU32(b, 44, 0xFFFFFFFF), Reseal(b); }, "command count", 44},
    {"invalid UTF-8", PathFile, [](std::string& b) { b[54] = '\xFF', Reseal(b); }, "UTF-8", 49},
    {"absurd stop count", GradientAndBrushFile,
     [](std::string& b) { PutU32(b, 85, 0x10000000), Reseal(b); }, "stop count", 85},
    {"gradient index out of range", GradientAndBrushFile,
     [](std::string& b) { PutU32(b, 110, 1), Reseal(b); }, "gradient index 1", 110},
};

TEST(VectorFileCorruptionTest, EachFaultIsRefusedWithItsPlace) {
  for (const auto& c : kCorruptions) {
    SCOPED_TRACE(c.name);
    std::string bytes = c.base();
    c.damage(bytes);
    TqxVectorDocument document;
    document.Size = {7, 7};
    document.DrawPath("kept");
    const std::string message = test::ErrorOf([&] { TqxVectorFile::Decode(document, bytes, "case.vector"); });
    EXPECT_THAT(message, HasSubstr("\"case.vector\""));
    EXPECT_THAT(message, HasSubstr(c.fragment));
    EXPECT_THAT(message, HasSubstr("at byte " + std::to_string(c.offset) + ":"));
    // A refused file changes nothing.
    EXPECT_EQ(document.Size, (TSizeF{7, 7}));
    ASSERT_EQ(document.Commands.size(), 1u);
    EXPECT_EQ(document.Commands[0]->Path, "kept");
  }
}

TEST(VectorFileCorruptionTest, ResealedRandomDamageNeverEscapesAsAnythingElse) {
  const std::string original = ReadText(fs::path(QX_TEST_DATA_DIR) / "vector" / "sample.vector");
  std::mt19937 random(20240611);
  for (int round = 0; round < 100; ++round) {
    std::string bytes = original;
    // Damage the body only, so the header is not what refuses it.
    const size_t at = 16 + random() % (bytes.size() - 24);
    if (round % 2) PutU32(bytes, at, round % 4 == 1 ? 0xFFFFFFFF : 0x7FFFFFFF);
    else bytes.erase(at, 1 + random() % 8);
    Reseal(bytes);
    TqxVectorDocument document;
    try {
      TqxVectorFile::Decode(document, bytes, "fuzz.vector");
    } catch (const Exception&) {
      // refused, as most damage is; anything else escapes and fails the test
    }
  }
}

}  // namespace
}  // namespace qx
