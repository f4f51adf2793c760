#include "platform/core/vector/vector_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "platform/core/base/exception.h"
#include "platform/core/vector/vector_document.h"

namespace qx {
namespace {

using ::testing::HasSubstr;

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
    try {
      TqxVectorFile::Decode(document, bytes, "case.vector");
      ADD_FAILURE() << "accepted";
    } catch (const Exception& e) {
      EXPECT_THAT(e.Message(), HasSubstr("\"case.vector\""));
      EXPECT_THAT(e.Message(), HasSubstr(c.fragment));
      EXPECT_THAT(e.Message(), HasSubstr("at byte " + std::to_string(c.offset) + ":"));
    }
    // A refused file changes nothing.
    EXPECT_EQ(document.Size, (TSizeF{7, 7}));
    ASSERT_EQ(document.Commands.size(), 1u);
    EXPECT_EQ(document.Commands[0]->Path, "kept");
  }
}

std::string GoldenBytes() {
  std::ifstream in(std::filesystem::path(QX_TEST_DATA_DIR) / "vector" / "sample.vector",
                   std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(VectorFileCorruptionTest, ResealedRandomDamageNeverEscapesAsAnythingElse) {
  const std::string original = GoldenBytes();
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
