#include "platform/core/base/file_io.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using TFileHandle = std::unique_ptr<std::FILE, FileCloser>;

std::string ErrnoText() { return std::strerror(errno); }

}  // namespace

std::string TqxFileIO::ReadAll(const std::string& fileName) {
  std::error_code ec;
  if (std::filesystem::is_directory(fileName, ec)) {
    throw Exception(Format("Cannot read \"%s\": it is a folder", {fileName}));
  }
  TFileHandle file(std::fopen(fileName.c_str(), "rb"));
  if (!file) {
    throw Exception(Format("Cannot read \"%s\": %s", {fileName, ErrnoText()}));
  }
  std::string bytes;
  char buffer[65536];
  std::size_t count;
  while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) {
    bytes.append(buffer, count);
  }
  if (std::ferror(file.get())) {
    throw Exception(Format("Cannot read \"%s\": %s", {fileName, ErrnoText()}));
  }
  return bytes;
}

std::string TqxFileIO::TemporaryNameFor(const std::string& fileName) {
  return fileName + ".tmp";
}

void TqxFileIO::WriteAtomically(const std::string& fileName, std::string_view bytes) {
  const std::string temporary = TemporaryNameFor(fileName);
  auto fail = [&](const std::string& why) {
    std::error_code ignored;
    std::filesystem::remove(temporary, ignored);
    throw Exception(Format("Cannot write \"%s\": %s", {fileName, why}));
  };
  {
    TFileHandle file(std::fopen(temporary.c_str(), "wb"));
    if (!file) fail(ErrnoText());
    if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
      fail(ErrnoText());
    }
    // fclose flushes: a full disk shows here, not in fwrite.
    if (std::fclose(file.release()) != 0) fail(ErrnoText());
  }
  std::error_code ec;
  std::filesystem::rename(temporary, fileName, ec);
  if (ec) fail(ec.message());
}

}  // namespace qx
