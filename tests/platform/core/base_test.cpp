#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>

#include "../../support/error_message.h"
#include "../../support/temp_folder.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"
#include "platform/core/base/json_writer.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

namespace fs = std::filesystem;

TEST(FormatTest, GeneralFormatMatchesRtl) {
  EXPECT_EQ(Format("%g", {1.5}), "1.5");
  // Widened single precision prints its binary value, not its shortest form.
  EXPECT_EQ(Format("%g", {0.1f}), "0.100000001490116");
  // Scientific only below 0.00001 or past 15 integer digits.
  EXPECT_EQ(Format("%g", {0.00001}), "0.00001");
  EXPECT_EQ(Format("%g", {0.000001}), "1E-6");
  EXPECT_EQ(Format("%g", {1e15}), "1E15");
  EXPECT_EQ(Format("%g", {123456789012345.0}), "123456789012345");
}

TEST(FormatTest, FixedIntegerStringAndErrors) {
  // Ties in the decimal digits round away from zero; a carry may add a digit.
  EXPECT_EQ(Format("%f|%f|%f|%f", {0.125, -2.375, 9.999, 0.005}), "0.13|-2.38|10.00|0.01");
  EXPECT_EQ(Format("%f|%f|%.0f|%.3f", {-0.001, 1e6, 0.5, 123.0}), "0.00|1000000.00|1|123.000");
  EXPECT_EQ(Format("%s-%d", {"Color", 2}), "Color-2");
  EXPECT_EQ(Format("%.3d|%-4s|%4s|%x", {7, "ab", "cd", 255}), "007|ab  |  cd|FF");
  EXPECT_EQ(Format("%1:s %0:s", {"a", "b"}), "b a");
  EXPECT_EQ(Format("100%%", {}), "100%");
  EXPECT_EQ(Format("%n", {1234567.891}), "1,234,567.89");
  EXPECT_THROW(Format("%d", {"text"}), Exception);
  EXPECT_THROW(Format("%s %s", {"one"}), Exception);
  EXPECT_THROW(Format("%", {}), Exception);
}

TEST(TextTest, CaseRulesAndOrdering) {
  EXPECT_TRUE(SameText("Colors\\Primary", "COLORS\\primary"));
  EXPECT_FALSE(SameText("Color", "Colors"));
  // Letters fold to upper case, so '_' (0x5F) sorts after them.
  EXPECT_LT(CompareText("abc", "ab_"), 0);
  EXPECT_GT(CompareStr("abc", "ABC"), 0);
  EXPECT_LT(CompareText("Icon", "Icons"), 0);
  // Only ASCII letters fold: Cyrillic stays case-sensitive as in the RTL's SameText.
  EXPECT_FALSE(SameText("Цвет", "ЦВЕТ"));
}

TEST(TextTest, NumbersParseUnderEnUsAndRoundHalfToEven) {
  double value = 0;
  EXPECT_TRUE(TryStrToFloat("-.5e-3", value));
  EXPECT_DOUBLE_EQ(value, -0.0005);
  EXPECT_FALSE(TryStrToFloat("1,5", value));
  EXPECT_FALSE(TryStrToFloat("1.5px", value));
  EXPECT_EQ(Round(2.5), 2);
  EXPECT_EQ(Round(3.5), 4);
  EXPECT_EQ(Round(-2.5), -2);
  EXPECT_EQ(Trunc(1.9), 1);
}

TEST(TextTest, Utf8Validation) {
  EXPECT_TRUE(IsValidUtf8("Цвет \xF0\x9F\x98\x80"));
  EXPECT_FALSE(IsValidUtf8("\xC3"));          // truncated sequence
  EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));      // overlong
  EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));  // surrogate
  // Long ASCII runs are skipped in blocks; what follows them still counts.
  EXPECT_TRUE(IsValidUtf8("0123456789abcdef\xC3\xA9 and more"));
  EXPECT_FALSE(IsValidUtf8("0123456789abcdef\xC3"));
  EXPECT_FALSE(IsValidUtf8("01234567\xFF"));
}

void WriteSample(TqxJsonWriter& json) {
  json.BeginObject();
  json.Member("text", "quote \" backslash \\ tab \t newline \n bell \x07 del \x7f \xC3\xA9 \xF0\x9F\x98\x80");
  json.Member("count", -42);
  json.Key("numbers");
  json.BeginArray();
  for (double value : {0.0, 1.0, 1.5, -2.25, 1e21, 1.1, 3.0000000000000004, 48.0}) json.Number(value);
  json.EndArray();
  json.Key("empty object");
  json.BeginObject();
  json.EndObject();
  json.Key("empty array");
  json.BeginArray();
  json.EndArray();
  json.Key("nested");
  json.BeginArray();
  json.BeginObject();
  json.Member("a", "");
  json.EndObject();
  json.BeginArray();
  json.EndArray();
  json.String("x");
  json.EndArray();
  json.EndObject();
}

// Text that is not UTF-8 is refused, and none of its bytes stay in the output.
TEST(JsonWriterTest, TextThatIsNotUtf8IsRefusedAndLeftOut) {
  std::string text;
  TqxJsonWriter json(text, false);
  json.BeginArray();
  json.String("ok");
  EXPECT_THROW(json.String("bad \xFF"), Exception);
  EXPECT_TRUE(IsValidUtf8(text));
  EXPECT_EQ(text.find("bad"), std::string::npos);
}

// nlohmann-json reads what we write, and its own dump of that is the same text:
// escapes, numbers, separators and indentation all agree.
TEST(JsonWriterTest, TextIsWhatNlohmannDumpsForTheSameDocument) {
  for (bool pretty : {true, false}) {
    std::string text;
    TqxJsonWriter json(text, pretty);
    WriteSample(json);
    const auto document = nlohmann::ordered_json::parse(text);
    EXPECT_EQ(text, document.dump(pretty ? 2 : -1)) << (pretty ? "pretty" : "compact");
    EXPECT_EQ(document["numbers"][5].get<double>(), 1.1);
    EXPECT_EQ(document["numbers"][6].get<double>(), 3.0000000000000004);
  }
}

TEST(JsonWriterTest, RefusesTextThatIsNotUtf8AndWritesNonFiniteAsZero) {
  std::string refused, numbers;
  EXPECT_THROW(TqxJsonWriter(refused, false).String("Caf\xE9"), Exception);
  TqxJsonWriter json(numbers, false);
  json.BeginArray();
  json.Number(std::numeric_limits<double>::infinity());
  json.Number(std::numeric_limits<double>::quiet_NaN());
  json.EndArray();
  EXPECT_EQ(numbers, "[0.0,0.0]");
}

TEST(FileIOTest, WritesReplaceWholeFilesAndFailuresKeepTheOldContents) {
  const test::TTempFolder dir("file-io");
  const std::string name = (dir / "a.json").string();
  const std::string bytes("x\0y\r\n\xff", 6);
  TqxFileIO::WriteAtomically(name, "first, and longer");
  TqxFileIO::WriteAtomically(name, bytes);
  EXPECT_EQ(TqxFileIO::ReadAll(name), bytes);
  EXPECT_FALSE(fs::exists(TqxFileIO::TemporaryNameFor(name)));

  // A folder where the temporary would go makes the write fail before the rename.
  fs::create_directory(TqxFileIO::TemporaryNameFor(name));
  const std::string message = test::ErrorOf([&] { TqxFileIO::WriteAtomically(name, "new"); });
  EXPECT_NE(message.find(name), std::string::npos) << message;
  EXPECT_EQ(TqxFileIO::ReadAll(name), bytes);

  EXPECT_THROW(TqxFileIO::ReadAll((dir.Path() / "missing.json").string()), Exception);
  EXPECT_THROW(TqxFileIO::ReadAll(dir.Path().string()), Exception);
  EXPECT_THROW(TqxFileIO::WriteAtomically((dir.Path() / "no" / "such.json").string(), "x"), Exception);
}

}  // namespace
}  // namespace qx
