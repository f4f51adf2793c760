#include "platform/core/assets/asset_name_helper.h"

#include <string_view>

#include "platform/core/base/text.h"

namespace qx {

namespace {

bool IsForbiddenChar(unsigned char c) {
  if (c < 0x20 || c == 0x7F) return true;
  return std::string_view("/:*?\"<>|").find(static_cast<char>(c)) != std::string_view::npos;
}

bool IsValidPart(const std::string& part) {
  if (part.empty() || part == "." || part == "..") return false;
  for (char c : part) {
    if (IsForbiddenChar(static_cast<unsigned char>(c))) return false;
  }
  return true;
}

}  // namespace

TqxAssetName TqxAssetNameHelper::Normalize(const std::string& name) {
  if (!IsValidUtf8(name)) return "";
  std::string result;
  size_t begin = 0;
  while (true) {
    const size_t end = name.find(kSeparator, begin);
    std::string part = Trim(std::string_view(name).substr(begin, end == std::string::npos ? end : end - begin));
    if (!IsValidPart(part)) return "";
    if (!result.empty()) result += kSeparator;
    result += part;
    if (end == std::string::npos) return result;
    begin = end + 1;
  }
}

bool TqxAssetNameHelper::IsValid(const std::string& name) {
  return !name.empty() && Normalize(name) == name;
}

std::string TqxAssetNameHelper::NormalizePath(const std::string& path) {
  if (path.empty()) return "";
  std::string_view body(path);
  if (body.back() == kSeparator) body.remove_suffix(1);
  std::string normal = Normalize(std::string(body));
  return normal.empty() ? "" : normal + kSeparator;
}

std::string TqxAssetNameHelper::Path(const TqxAssetName& name) {
  const size_t last = name.rfind(kSeparator);
  return last == std::string::npos ? "" : name.substr(0, last + 1);
}

std::string TqxAssetNameHelper::ShortName(const TqxAssetName& name) {
  const size_t last = name.rfind(kSeparator);
  return last == std::string::npos ? name : name.substr(last + 1);
}

TqxAssetName TqxAssetNameHelper::Combine(const std::string& path, const std::string& name) {
  if (path.empty()) return name;
  if (path.back() == kSeparator) return path + name;
  return path + kSeparator + name;
}

std::vector<std::string> TqxAssetNameHelper::Parts(const std::string& name) {
  std::vector<std::string> parts = SplitString(name, kSeparator);
  std::erase_if(parts, [](const std::string& part) { return part.empty(); });
  return parts;
}

}  // namespace qx
