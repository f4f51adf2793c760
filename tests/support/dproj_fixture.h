#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace qx::test {

// A fresh temporary folder per test, with project files copied in from the
// test data.
class DprojFixture : public ::testing::Test {
protected:
  void SetUp() override {
    FDir = std::filesystem::temp_directory_path() /
           ("qx_dproj_" + std::to_string(::getpid()) + "_" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(FDir);
    std::filesystem::create_directories(FDir);
  }
  void TearDown() override { std::filesystem::remove_all(FDir); }

  // The copy of tests/data/dproj/<dataName> at FDir/<name>, by default under
  // its own name.
  std::string Copy(const std::string& dataName, const std::string& name = "") {
    const auto target = FDir / (name.empty() ? dataName : name);
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::copy_file(std::filesystem::path(QX_TEST_DATA_DIR) / "dproj" / dataName, target);
    return target.string();
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
  // A file of tests/data, by its path there.
  static std::string ReadData(const std::string& dataPath) {
    return Read((std::filesystem::path(QX_TEST_DATA_DIR) / dataPath).string());
  }

  // The text with insertion placed right behind the one occurrence of anchor.
  static std::string InsertedAfter(const std::string& text, const std::string& anchor,
                                   const std::string& insertion) {
    std::size_t at = text.find(anchor);
    EXPECT_NE(at, std::string::npos) << anchor;
    EXPECT_EQ(text.find(anchor, at + 1), std::string::npos) << "ambiguous anchor " << anchor;
    if (at == std::string::npos) return text;
    std::string result = text;
    return result.insert(at + anchor.size(), insertion);
  }

  // The text with its one occurrence of from replaced by to.
  static std::string ReplacedOnce(const std::string& text, const std::string& from,
                                  const std::string& to) {
    std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    EXPECT_EQ(text.find(from, at + 1), std::string::npos) << "ambiguous " << from;
    if (at == std::string::npos) return text;
    std::string result = text;
    return result.replace(at, from.size(), to);
  }

  // What differs between two texts once their common head and tail are cut off.
  struct TDiff {
    std::string Removed;
    std::string Inserted;
  };
  static TDiff Diff(const std::string& before, const std::string& after) {
    std::size_t head = 0;
    while (head < before.size() && head < after.size() && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < before.size() - head && tail < after.size() - head &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
      ++tail;
    return {before.substr(head, before.size() - head - tail),
            after.substr(head, after.size() - head - tail)};
  }

  std::filesystem::path FDir;
};

}  // namespace qx::test
