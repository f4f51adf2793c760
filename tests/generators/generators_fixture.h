#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace qx::test {

// A fresh temporary folder per test, with project files copied from the test data.
class GeneratorsFixture : public ::testing::Test {
protected:
  void SetUp() override {
    FDir = std::filesystem::temp_directory_path() /
           ("qx_generators_" + std::to_string(::getpid()) + "_" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(FDir);
    std::filesystem::create_directories(FDir);
  }
  void TearDown() override { std::filesystem::remove_all(FDir); }

  // The copy of tests/data/<dataPath> at FDir/<name>.
  std::string CopyData(const std::string& dataPath, const std::string& name) {
    const auto target = FDir / name;
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::copy_file(std::filesystem::path(QX_TEST_DATA_DIR) / dataPath, target);
    return target.string();
  }
  std::string CopyProject(const std::string& dataName = "shop_crlf_bom.dproj") {
    return CopyData("dproj/" + dataName, "Shop.dproj");
  }
  // Writes a small file, making its folders.
  std::string Touch(const std::string& relativeName, const std::string& bytes = "x") {
    const auto target = FDir / relativeName;
    std::filesystem::create_directories(target.parent_path());
    std::ofstream(target, std::ios::binary) << bytes;
    return target.string();
  }

  static std::string Read(const std::string& fileName) {
    std::ifstream in(fileName, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }
  static std::string ReadData(const std::string& dataPath) {
    return Read((std::filesystem::path(QX_TEST_DATA_DIR) / dataPath).string());
  }

  std::filesystem::path FDir;
};

}  // namespace qx::test
