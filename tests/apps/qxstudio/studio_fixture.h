#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/core/base/log.h"
#include "platform/host/ide_settings.h"
#include "../../support/temp_folder.h"

namespace qx::test {

// A temporary folder with the settings file and copies of the example project.
class StudioTest : public ::testing::Test {
protected:
  StudioTest() {
    TqxIdeSettings::SetInstanceFileName((FRoot / "settings.json").string());
    TqxLog::SetStderrEnabled(false);
  }
  ~StudioTest() override { TqxLog::SetStderrEnabled(true); }

  // A copy of the example project under its own folder; answers the project file.
  fs::path CopyDemo(const std::string& folder) {
    const fs::path target = FRoot / folder;
    fs::copy(fs::path(QX_SOURCE_DIR) / "examples/Demo", target, fs::copy_options::recursive);
    return target / "Demo.dproj";
  }

  TTempFolder FTemp{"studio"};
  fs::path FRoot = FTemp.Path();
};

}  // namespace qx::test
