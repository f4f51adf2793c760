#include "platform/core/base/file_io.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "platform/core/base/exception.h"

namespace qx {
namespace {

namespace fs = std::filesystem;

class FileIOTest : public ::testing::Test {
protected:
  void SetUp() override {
    FDir = fs::temp_directory_path() / ("qx_file_io_" + std::to_string(::getpid()));
    fs::create_directories(FDir);
  }
  void TearDown() override { fs::remove_all(FDir); }
  fs::path FDir;
};

TEST_F(FileIOTest, WritesReplacesAndReadsBackBytes) {
  const std::string name = (FDir / "a.json").string();
  const std::string bytes("x\0y\r\n\xff", 6);
  TqxFileIO::WriteAtomically(name, bytes);
  EXPECT_EQ(TqxFileIO::ReadAll(name), bytes);
  TqxFileIO::WriteAtomically(name, "second");
  EXPECT_EQ(TqxFileIO::ReadAll(name), "second");
  EXPECT_FALSE(fs::exists(TqxFileIO::TemporaryNameFor(name)));
}

TEST_F(FileIOTest, FailuresNameTheFileAndKeepTheOldContents) {
  const std::string name = (FDir / "keep.json").string();
  TqxFileIO::WriteAtomically(name, "old");
  // A folder where the temporary would go makes the write fail before the rename.
  fs::create_directory(TqxFileIO::TemporaryNameFor(name));
  try {
    TqxFileIO::WriteAtomically(name, "new");
    FAIL() << "no exception";
  } catch (const Exception& e) {
    EXPECT_NE(e.Message().find(name), std::string::npos) << e.Message();
  }
  EXPECT_EQ(TqxFileIO::ReadAll(name), "old");

  EXPECT_THROW(TqxFileIO::ReadAll((FDir / "missing.json").string()), Exception);
  EXPECT_THROW(TqxFileIO::ReadAll(FDir.string()), Exception);
  EXPECT_THROW(TqxFileIO::WriteAtomically((FDir / "no" / "such.json").string(), "x"), Exception);
}

}  // namespace
}  // namespace qx
