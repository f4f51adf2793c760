#include "platform/core/base/json_writer.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>

#include "platform/core/base/exception.h"

namespace qx {
namespace {

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
  std::string text;
  TqxJsonWriter json(text, false);
  json.BeginArray();
  EXPECT_THROW(json.String("Caf\xE9"), Exception);
  std::string numbers;
  TqxJsonWriter json2(numbers, false);
  json2.BeginArray();
  json2.Number(std::numeric_limits<double>::infinity());
  json2.Number(std::numeric_limits<double>::quiet_NaN());
  json2.EndArray();
  EXPECT_EQ(numbers, "[0.0,0.0]");
}

}  // namespace
}  // namespace qx
