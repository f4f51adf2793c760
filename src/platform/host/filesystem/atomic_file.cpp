#include "platform/host/filesystem/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "platform/core/base/exception.h"

namespace qx {

namespace fs = std::filesystem;

namespace {

std::function<void(const std::string&)>& BeforeRenameHook() {
  static std::function<void(const std::string&)> hook;
  return hook;
}

std::string TempNameFor(const fs::path& target) {
  static std::mt19937 engine{std::random_device{}()};
  fs::path temp = target;
  temp += ".tmp" + std::to_string(engine() % 1000000);
  return temp.string();
}

void WriteBytes(const std::string& tempName, std::string_view bytes) {
  std::FILE* file = std::fopen(tempName.c_str(), "wb");
  if (file == nullptr) throw Exception(std::strerror(errno));
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  ok = std::fflush(file) == 0 && ok;
  int error = ok ? 0 : errno;
  ok = std::fclose(file) == 0 && ok;
  if (!ok) throw Exception(std::strerror(error != 0 ? error : errno));
}

}  // namespace

std::string TqxAtomicFile::ReadAll(const std::string& fileName) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) throw Exception("Cannot open \"" + fileName + "\": " + std::strerror(errno));
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) throw Exception("Cannot read \"" + fileName + "\"");
  return bytes.str();
}

void TqxAtomicFile::WriteAll(const std::string& fileName, std::string_view bytes) {
  const std::string tempName = TempNameFor(fs::path(fileName));
  try {
    WriteBytes(tempName, bytes);
    std::error_code ignored;
    if (fs::exists(fileName, ignored))
      fs::permissions(tempName, fs::status(fileName).permissions(), ignored);
    if (BeforeRenameHook()) BeforeRenameHook()(tempName);
    std::error_code error;
    fs::rename(tempName, fileName, error);
    if (error) throw Exception(error.message());
  } catch (const std::exception& e) {
    std::error_code ignored;
    fs::remove(tempName, ignored);
    throw Exception("Cannot write \"" + fileName + "\": " + e.what());
  }
}

void TqxAtomicFile::SetBeforeRenameHook(std::function<void(const std::string&)> hook) {
  BeforeRenameHook() = std::move(hook);
}

}  // namespace qx
