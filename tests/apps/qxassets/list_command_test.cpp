#include "list_command.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

#include "platform/core/base/file_io.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;

class ListCommandTest : public ::testing::Test {
protected:
  void SetUp() override {
    FDir = fs::temp_directory_path() / ("qx_list_" + std::to_string(::getpid()));
    fs::create_directories(FDir);
    FProject = (FDir / "App.dproj").string();
    TqxFileIO::WriteAtomically(FProject, "<Project/>");
  }
  void TearDown() override { fs::remove_all(FDir); }

  int Run(std::vector<std::string> args) {
    FOut.str("");
    FErr.str("");
    return RunList(args, FOut, FErr);
  }

  fs::path FDir;
  std::string FProject;
  std::ostringstream FOut, FErr;
};

TEST_F(ListCommandTest, ExitCodesAndMessagesForEachOutcome) {
  EXPECT_EQ(Run({FProject}), kExitOk);
  EXPECT_NE(FOut.str().find("App.dproj: no assets"), std::string::npos) << FOut.str();

  fs::create_directories(FDir / "Assets");
  TqxFileIO::WriteAtomically((FDir / "Assets" / "config.json").string(), "{\"format\": \"quorvex-assets-config\",");
  EXPECT_EQ(Run({FProject}), kExitFailure);
  EXPECT_NE(FErr.str().find("config.json\": line 1, column"), std::string::npos) << FErr.str();
  EXPECT_EQ(FOut.str(), "");

  TqxFileIO::WriteAtomically((FDir / "Assets" / "config.json").string(),
                             R"({"format": "quorvex-assets-config", "version": 1, "assets": []})");
  EXPECT_EQ(Run({FProject}), kExitOk);
  EXPECT_EQ(FOut.str().substr(0, FOut.str().find(" in ")), "App.dproj: 0 assets, 0 themes, 0 variants");

  EXPECT_EQ(Run({(FDir / "Missing.dproj").string()}), kExitFailure);
  EXPECT_NE(FErr.str().find("no project file"), std::string::npos);
  EXPECT_EQ(Run({FDir.string()}), kExitFailure) << "a folder is no project";

  EXPECT_EQ(Run({}), kExitUsage);
  EXPECT_EQ(Run({FProject, FProject}), kExitUsage);
  EXPECT_EQ(Run({"--all"}), kExitUsage);
  EXPECT_NE(FErr.str().find("usage: qxassets list"), std::string::npos);
}

int RunBinary(const std::string& args) {
  const std::string command = std::string(QXASSETS_BINARY) + " " + args + " >/dev/null 2>&1";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(QxAssetsBinaryTest, DispatchesCommandsAndRefusesBadUsage) {
  EXPECT_EQ(RunBinary(""), kExitUsage);
  EXPECT_EQ(RunBinary("frobnicate"), kExitUsage);
  EXPECT_EQ(RunBinary("help"), kExitOk);
  EXPECT_EQ(RunBinary("list"), kExitUsage);
  EXPECT_EQ(RunBinary("list /nonexistent/X.dproj"), kExitFailure);
  EXPECT_EQ(RunBinary("list " QX_SOURCE_DIR "/examples/Demo/Demo.dproj"), kExitOk);
}

}  // namespace
}  // namespace qx::cli
