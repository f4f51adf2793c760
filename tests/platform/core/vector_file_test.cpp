#include "platform/core/vector/vector_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "platform/core/base/exception.h"
#include "platform/core/vector/vector_document.h"

namespace qx {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class TempDir {
public:
  TempDir() {
    std::random_device random;
    FPath = fs::temp_directory_path() / ("qx_vector_" + std::to_string(random()));
    fs::create_directories(FPath);
  }
  ~TempDir() {
    std::error_code ignored;
    fs::remove_all(FPath, ignored);
  }
  const fs::path& Path() const { return FPath; }

private:
  fs::path FPath;
};

std::string ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

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

TEST(VectorFileTest, RoundTripKeepsEveryCommandAndField) {
  TempDir dir;
  const std::string fileName = (dir.Path() / "sample.vector").string();
  TqxVectorDocument saved;
  FillSample(saved);
  saved.SaveToFile(fileName);

  TqxVectorDocument loaded;
  loaded.DrawPath("replaced by the load");
  loaded.LoadFromFile(fileName);
  ExpectSameDocument(loaded, saved);

  // The shared gradient comes back as one object; the other stays apart.
  const auto& commands = loaded.Commands;
  std::vector<const TqxVectorGradient*> gradients;
  for (const auto& command : commands)
    if (command->Kind == TqxVectorCommandKind::SetGradient) gradients.push_back(command->Gradient.get());
  ASSERT_EQ(gradients.size(), 3u);
  EXPECT_EQ(gradients[0], gradients[2]);
  EXPECT_NE(gradients[0], gradients[1]);

  // Saving again replaces the file and leaves no temporary beside it.
  loaded.DrawPath("M5 5");
  loaded.SaveToFile(fileName);
  TqxVectorDocument again;
  again.LoadFromFile(fileName);
  EXPECT_EQ(again.Commands.back()->Path, "M5 5");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 1);

  // Streams carry the same bytes as files.
  std::stringstream stream;
  saved.SaveToStream(stream);
  EXPECT_EQ(stream.str(), TqxVectorFile::Encode(saved));
  TqxVectorDocument fromStream;
  fromStream.LoadFromStream(stream);
  ExpectSameDocument(fromStream, saved);
}

TEST(VectorFileTest, GoldenFileStaysReadableAndStable) {
  const fs::path golden = fs::path(QX_TEST_DATA_DIR) / "vector" / "sample.vector";
  TqxVectorDocument expected;
  FillSample(expected);
  // After a deliberate format change: QX_UPDATE_GOLDEN=1 rewrites the file.
  if (std::getenv("QX_UPDATE_GOLDEN") != nullptr) expected.SaveToFile(golden.string());
  TqxVectorDocument loaded;
  loaded.LoadFromFile(golden.string());
  ExpectSameDocument(loaded, expected);
  EXPECT_EQ(TqxVectorFile::Encode(expected), ReadBytes(golden));
}

TEST(VectorFileTest, SaveFailuresNameTheFile) {
  TempDir dir;
  TqxVectorDocument document;
  const std::string missingFolder = (dir.Path() / "no" / "such.vector").string();
  try {
    document.SaveToFile(missingFolder);
    FAIL() << "saved into a missing folder";
  } catch (const Exception& e) {
    EXPECT_THAT(e.Message(), HasSubstr(missingFolder));
  }

  // Text the loader would refuse is refused on the way out, and the earlier
  // file stays whole.
  const std::string fileName = (dir.Path() / "kept.vector").string();
  document.DrawPath("M0 0");
  document.SaveToFile(fileName);
  const std::string before = ReadBytes(fileName);
  TqxVectorDocument bad;
  bad.DrawPath(std::string("M\xFF", 2));
  EXPECT_THROW(bad.SaveToFile(fileName), Exception);
  EXPECT_EQ(ReadBytes(fileName), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 1);

  EXPECT_THROW(document.LoadFromFile((dir.Path() / "absent.vector").string()), Exception);
}

}  // namespace
}  // namespace qx
