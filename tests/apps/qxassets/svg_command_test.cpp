#include "svg_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/vector/vector_document.h"
#include "vector/vector_reader_svg.h"
#include "../../support/temp_folder.h"

namespace qx::cli {
namespace {

using nlohmann::json;
using test::ReadText;
using test::TTempFolder;

struct TRunResult {
  int ExitCode;
  std::string Out, Err;
};

// `qxassets svg ARGS...`, in this process.
TRunResult RunSvg(const std::vector<std::string>& args) {
  std::ostringstream out, err;
  const int code = RunSvgCommand(args, out, err);
  return {code, out.str(), err.str()};
}

std::string CliData(const std::string& name) { return std::string(QX_TEST_DATA_DIR) + "/svg/cli/" + name; }

TEST(QxAssetsSvgTest, CheckExitsWithTheWorstVerdict) {
  EXPECT_EQ(RunSvg({"check", CliData("badge.svg"), CliData("red_square.svg")}).ExitCode, 0);
  EXPECT_EQ(RunSvg({"check", CliData("badge.svg"), CliData("warnings.svg")}).ExitCode, 1);
  // Failed wins over warnings whatever the order, and a missing file fails.
  EXPECT_EQ(RunSvg({"check", CliData("no_size.svg"), CliData("warnings.svg")}).ExitCode, 2);
  EXPECT_EQ(RunSvg({"check", CliData("badge.svg"), CliData("missing.svg")}).ExitCode, 2);

  const TRunResult text = RunSvg({"check", CliData("warnings.svg")});
  EXPECT_NE(text.Out.find("warnings.svg: SuccessWithWarnings\n  - Unknown node name: node=\"clipPath\"\n"),
            std::string::npos)
      << text.Out;

  // As JSON, each file in order.
  const TRunResult run = RunSvg(
      {"check", "--json", CliData("warnings.svg"), CliData("bad_transform.svg"), CliData("red_square.svg")});
  EXPECT_EQ(run.ExitCode, 2);
  const json results = json::parse(run.Out);
  ASSERT_EQ(results.size(), 3u);
  EXPECT_EQ(results[0]["file"], CliData("warnings.svg"));
  EXPECT_EQ(results[0]["log"].size(), 2u);

  // A read ended by an exception is Failed with the exception's message and
  // no log line of its own.
  EXPECT_EQ(results[1]["verdict"], "Failed");
  EXPECT_TRUE(results[1]["log"].empty());
  EXPECT_NE(results[1]["error"].get<std::string>().find("10px"), std::string::npos);
  EXPECT_EQ(results[2]["verdict"], "Success");
}

TEST(QxAssetsSvgTest, BadUsageExitsWithTwoAndSaysWhy) {
  const std::vector<std::vector<std::string>> cases = {
      {},
      {"check", "--quiet", CliData("badge.svg")},
      {"compile", CliData("badge.svg")},
      {"render", CliData("badge.svg"), "-o"},
      {"render", CliData("badge.svg"), "-o", "x.png", "--size", "0x48"},
  };
  for (const auto& args : cases) {
    const TRunResult run = RunSvg(args);
    std::string line;
    for (const std::string& arg : args) line += arg + " ";
    EXPECT_EQ(run.ExitCode, 2) << line;
    EXPECT_NE(run.Err.find("usage: qxassets svg"), std::string::npos) << line << "\n" << run.Err;
    EXPECT_TRUE(run.Out.empty()) << line;
  }
}

TEST(QxAssetsSvgTest, DumpMatchesTheGoldenFileAndKeepsWhatAFailedReadDrew) {
  const TRunResult run = RunSvg({"dump", CliData("badge.svg"), "--json"});
  EXPECT_EQ(run.ExitCode, 0) << run.Err;
  EXPECT_EQ(run.Out, ReadText(CliData("badge.dump.json")));

  // A failed read keeps what was drawn.
  const TRunResult failed = RunSvg({"dump", CliData("bad_transform.svg")});
  EXPECT_EQ(failed.ExitCode, 2);
  const json dump = json::parse(failed.Out);
  EXPECT_TRUE(dump["error"].is_string());
  std::vector<std::string> kinds;
  for (const json& command : dump["commands"]) kinds.push_back(command["kind"]);
  EXPECT_EQ(kinds, (std::vector<std::string>{"begin", "brush", "path", "end", "begin"}));

  const json noSize = json::parse(RunSvg({"dump", CliData("no_size.svg")}).Out);
  EXPECT_TRUE(noSize["error"].is_null());
  EXPECT_EQ(noSize["log"].size(), 2u);
}

TEST(QxAssetsSvgTest, CompileWritesAVectorFileOfTheSameDocument) {
  TTempFolder dir("svg-cli");
  EXPECT_EQ(RunSvg({"compile", CliData("badge.svg"), (dir / "badge.vector").string()}).ExitCode, 0);
  TqxVectorDocument compiled;
  compiled.LoadFromFile((dir / "badge.vector").string());
  TqxVectorDocument read;
  ASSERT_EQ(TqxVectorReaderSVG::LoadFromFile(read, CliData("badge.svg")), TqxResultParsing::Success);
  EXPECT_EQ(compiled.Size, read.Size);
  ASSERT_EQ(compiled.Commands.size(), read.Commands.size());
  for (std::size_t i = 0; i < read.Commands.size(); ++i) EXPECT_EQ(*compiled.Commands[i], *read.Commands[i]) << i;

  // A read that raised writes nothing.
  EXPECT_EQ(RunSvg({"compile", CliData("bad_transform.svg"), (dir / "bad.vector").string()}).ExitCode, 2);
  EXPECT_FALSE(std::filesystem::exists((dir / "bad.vector").string()));
}

TEST(QxAssetsSvgTest, RendersManyInputsIntoAFolder) {
  TTempFolder dir("svg-cli");
  ASSERT_EQ(RunSvg({"compile", CliData("red_square.svg"), (dir / "compiled.vector").string()}).ExitCode, 0);
  const std::string out = (dir / "thumbs").string();
  const TRunResult run = RunSvg({"render", CliData("red_square.svg"), CliData("badge.svg"),
                                 (dir / "compiled.vector").string(), CliData("no_size.svg"), "-o", out, "--size",
                                 "48x32"});
  // The one input that can't be drawn is named and does not stop the others.
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_NE(run.Err.find("no_size.svg"), std::string::npos) << run.Err;
  EXPECT_FALSE(std::filesystem::exists(out + "/no_size.png"));

  EXPECT_EQ(TqxBitmap::LoadFromFile(out + "/badge.png")->Height(), 32);
  for (const char* name : {"red_square.png", "compiled.png"}) {
    const auto bitmap = TqxBitmap::LoadFromFile(out + "/" + name);
    EXPECT_EQ(bitmap->Width(), 48) << name;
    EXPECT_EQ(bitmap->GetPixel(24, 16), 0xFFFF0000u) << name;
    EXPECT_EQ(bitmap->GetPixel(2, 2), 0u) << name;
  }

  // One input to one file, at its own size: the group's green square, moved
  // by its transform and scaled from 24 to 48.
  ASSERT_EQ(RunSvg({"render", CliData("badge.svg"), "-o", (dir / "badge.png").string()}).ExitCode, 0);
  const auto badge = TqxBitmap::LoadFromFile((dir / "badge.png").string());
  EXPECT_EQ(badge->Width(), 48);
  EXPECT_EQ(badge->GetPixel(20, 20), 0xFF00FF00u);
}

}  // namespace
}  // namespace qx::cli
