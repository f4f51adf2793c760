#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/core/base/log.h"
#include "platform/host/ide_settings.h"

namespace qx::test {

namespace fs = std::filesystem;

inline std::string ReadText(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A temporary folder with the settings file and copies of the example project.
class StudioTest : public ::testing::Test {
protected:
  StudioTest() {
    static int counter = 0;
    FRoot = fs::temp_directory_path() /
            ("qx-studio-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    fs::remove_all(FRoot);
    fs::create_directories(FRoot);
    TqxIdeSettings::SetInstanceFileName((FRoot / "settings.json").string());
    TqxLog::SetStderrEnabled(false);
  }
  ~StudioTest() override {
    TqxLog::SetStderrEnabled(true);
    std::error_code ignored;
    fs::remove_all(FRoot, ignored);
  }

  // A copy of the example project under its own folder; answers the project file.
  fs::path CopyDemo(const std::string& folder) {
    const fs::path target = FRoot / folder;
    fs::copy(fs::path(QX_SOURCE_DIR) / "examples/Demo", target, fs::copy_options::recursive);
    return target / "Demo.dproj";
  }

  fs::path FRoot;
};

}  // namespace qx::test
