#include "platform/core/assets/config_uris.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace qx {
namespace {

namespace fs = std::filesystem;

// Whether a `/`-separated path has empty, `.` or `..` parts to fold away.
bool NeedsNormalising(std::string_view path) {
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t end = path.find('/', start);
    if (end == std::string_view::npos) end = path.size();
    std::string_view part = path.substr(start, end - start);
    // An empty first part is the root of an absolute path.
    if ((part.empty() && start != 0 && end != path.size()) || part == "." || part == "..") {
      return true;
    }
    start = end + 1;
  }
  return false;
}

std::string Normalised(std::string path) {
  if (!NeedsNormalising(path)) return path;
  std::string result = fs::path(path).lexically_normal().generic_string();
  if (result.size() > 1 && result.back() == '/') result.pop_back();
  return result;
}

std::string Replaced(std::string_view text, char from, char to) {
  std::string result(text);
  std::replace(result.begin(), result.end(), from, to);
  return result;
}

}  // namespace

TqxConfigUris::TqxConfigUris(const std::string& configFileName) {
  fs::path folder = fs::absolute(fs::path(configFileName)).parent_path();
  FFolder = Normalised(folder.generic_string());
  FFolderPrefix = FFolder;
  if (FFolderPrefix.empty() || FFolderPrefix.back() != '/') FFolderPrefix += '/';
}

bool TqxConfigUris::IsAbsolute(std::string_view uri) {
  if (uri.empty()) return false;
  if (uri[0] == '/' || uri[0] == '\\') return true;
  return uri.size() >= 3 && std::isalpha(static_cast<unsigned char>(uri[0])) && uri[1] == ':' &&
         (uri[2] == '\\' || uri[2] == '/');
}

std::string TqxConfigUris::ToStored(std::string_view uri) const {
  if (uri.empty()) return {};
  if (!IsAbsolute(uri)) return Replaced(uri, '/', '\\');
  if (uri[0] != '/') return std::string(uri);  // a Windows path: not ours to rewrite
  std::string full = Normalised(std::string(uri));
  if (full.size() > FFolderPrefix.size() && full.compare(0, FFolderPrefix.size(), FFolderPrefix) == 0) {
    return Replaced(std::string_view(full).substr(FFolderPrefix.size()), '/', '\\');
  }
  return std::string(uri);
}

std::string TqxConfigUris::ToFull(std::string_view stored) const {
  if (stored.empty() || IsAbsolute(stored)) return std::string(stored);
  std::string full = FFolderPrefix;
  full.reserve(full.size() + stored.size());
  for (char c : stored) full += c == '\\' ? '/' : c;
  return Normalised(std::move(full));
}

}  // namespace qx
