#include "kinds/asset_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/core/assets/config_uris.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

namespace fs = std::filesystem;

bool IsPlainPart(std::string_view part) {
  return !part.empty() && part != "." && part != ".." && part.find('/') == std::string_view::npos &&
         part.find('\0') == std::string_view::npos;
}

bool IsLink(const std::string& path) {
  std::error_code ec;
  return fs::is_symlink(fs::symlink_status(path, ec));
}

std::string StripTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

// A file opened for writing that didn't exist before, so that no link is
// followed; removed again unless Commit renames it over its target.
class TTemporaryFile {
public:
  explicit TTemporaryFile(const std::string& target) : FTarget(target) {
    for (int attempt = 0; attempt < 100 && FHandle < 0; ++attempt) {
      FName = Format("%s.%d-%d.tmp", {target, int(::getpid()), attempt});
      FHandle = ::open(FName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
      if (FHandle < 0 && errno != EEXIST) break;
    }
    if (FHandle < 0) Fail(std::strerror(errno));
  }
  ~TTemporaryFile() {
    if (FHandle >= 0) ::close(FHandle);
    if (!FCommitted) ::unlink(FName.c_str());
  }
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  void Append(const char* data, std::size_t size) {
    while (size > 0) {
      const ssize_t written = ::write(FHandle, data, size);
      if (written < 0) {
        if (errno == EINTR) continue;
        Fail(std::strerror(errno));
      }
      data += written;
      size -= std::size_t(written);
    }
  }
  void Commit() {
    const int handle = FHandle;
    FHandle = -1;
    if (::close(handle) != 0) Fail(std::strerror(errno));
    // rename replaces a link at the target rather than writing through it.
    if (::rename(FName.c_str(), FTarget.c_str()) != 0) Fail(std::strerror(errno));
    FCommitted = true;
  }

private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw Exception(Format("Cannot write \"%s\": %s", {FTarget, why}));
  }

  std::string FTarget;
  std::string FName;
  int FHandle = -1;
  bool FCommitted = false;
};

bool SameBytes(std::ifstream& a, std::ifstream& b) {
  std::vector<char> bufferA(65536), bufferB(65536);
  while (true) {
    a.read(bufferA.data(), std::streamsize(bufferA.size()));
    b.read(bufferB.data(), std::streamsize(bufferB.size()));
    if (a.gcount() != b.gcount()) return false;
    if (a.gcount() == 0) return a.eof() && b.eof();
    if (std::memcmp(bufferA.data(), bufferB.data(), std::size_t(a.gcount())) != 0) return false;
  }
}

// Same size and same bytes. Any doubt (a file that can't be read) answers
// false, so the copy goes ahead and reports the real error.
bool SameContent(const std::string& source, const std::string& destination) {
  std::error_code ec;
  if (!fs::is_regular_file(fs::symlink_status(destination, ec))) return false;
  const auto sourceSize = fs::file_size(source, ec);
  if (ec) return false;
  const auto destinationSize = fs::file_size(destination, ec);
  if (ec || sourceSize != destinationSize) return false;
  std::ifstream a(source, std::ios::binary), b(destination, std::ios::binary);
  return a && b && SameBytes(a, b);
}

bool HoldsBytes(const std::string& fileName, std::string_view bytes) {
  std::error_code ec;
  if (!fs::is_regular_file(fs::symlink_status(fileName, ec))) return false;
  const auto size = fs::file_size(fileName, ec);
  if (ec || size != bytes.size()) return false;
  std::ifstream in(fileName, std::ios::binary);
  std::string content(bytes.size(), '\0');
  in.read(content.data(), std::streamsize(content.size()));
  return in && content == bytes;
}

}  // namespace

TqxAssetFolder::TqxAssetFolder(const TqxAsset& asset, const std::string& rootPath)
    : FAssetName(asset.Name()), FRoot(StripTrailingSlashes(rootPath)) {
  const std::vector<std::string> parts = SplitString(asset.Name(), '\\');
  for (const std::string& part : parts) {
    if (!IsPlainPart(part)) {
      Refuse(Format("the part \"%s\" of its name is no plain folder name", {part}));
    }
  }
  std::string full = FRoot;
  for (const std::string& part : parts) {
    if (!FRelative.empty()) FRelative += '\\';
    FRelative += part;
    if (!full.empty() && full.back() != '/') full += '/';
    full += part;
  }
  FFull = full;
}

void TqxAssetFolder::Refuse(const std::string& reason) const {
  throw Exception(Format("[Assets Designer]: Refused to write the files of asset \"%s\" outside the assets folder: %s",
                         {FAssetName, reason}));
}

void TqxAssetFolder::RefuseLink(const std::string& path) const {
  if (IsLink(path)) Refuse(Format("\"%s\" is a symbolic link", {path}));
}

void TqxAssetFolder::Force() const {
  auto cannot = [this] {
    throw Exception(Format("[Assets Designer]: Cannot create directory for saving asset's file: path=\"%s\"", {FFull}));
  };
  std::error_code ec;
  std::string path = FRoot.empty() ? std::string(".") : FRoot;
  RefuseLink(path);
  if (!fs::is_directory(path, ec)) {
    fs::create_directories(path, ec);
    if (ec) cannot();
  }
  for (const std::string& part : SplitString(FRelative, '\\')) {
    path += '/';
    path += part;
    RefuseLink(path);
    const auto status = fs::symlink_status(path, ec);
    if (fs::is_directory(status)) continue;
    if (fs::exists(status) || !fs::create_directory(path, ec) || ec) cannot();
  }
}

std::string TqxAssetFolder::FileName(const std::string& fileName) const {
  if (!IsPlainPart(fileName)) Refuse(Format("\"%s\" is no plain file name", {fileName}));
  return FFull + '/' + fileName;
}

std::string TqxAssetFolder::Uri(const std::string& fileName) const { return FRelative + '\\' + fileName; }

bool TqxAssetFolder::CopyIn(const std::string& source, const std::string& destination) const {
  RefuseLink(destination);
  std::error_code ec;
  if (fs::equivalent(source, destination, ec) || SameContent(source, destination)) return false;
  std::ifstream in(source, std::ios::binary);
  if (!in) {
    throw Exception(Format("Cannot copy \"%s\" to \"%s\": %s", {source, destination, std::strerror(errno)}));
  }
  TTemporaryFile out(destination);
  std::vector<char> buffer(65536);
  while (in.read(buffer.data(), std::streamsize(buffer.size())) || in.gcount() > 0) {
    out.Append(buffer.data(), std::size_t(in.gcount()));
  }
  if (in.bad()) throw Exception(Format("Cannot copy \"%s\" to \"%s\": read error", {source, destination}));
  out.Commit();
  return true;
}

bool TqxAssetFolder::Write(std::string_view bytes, const std::string& destination) const {
  RefuseLink(destination);
  if (HoldsBytes(destination, bytes)) return false;
  TTemporaryFile out(destination);
  out.Append(bytes.data(), bytes.size());
  out.Commit();
  return true;
}

std::string TqxAssetFolder::ResolveUri(const std::string& uri, const std::string& rootPath) {
  if (uri.empty() || TqxConfigUris::IsAbsolute(uri)) return uri;
  return TqxConfigUris(StripTrailingSlashes(rootPath) + "/config.json").ToFull(uri);
}

}  // namespace qx
