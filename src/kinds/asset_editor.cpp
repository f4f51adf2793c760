#include "kinds/asset_editor.h"

namespace qx {

std::string ExtractFileExt(const std::string& fileName) {
  const auto dot = fileName.find_last_of(".\\/");
  if (dot == std::string::npos || fileName[dot] != '.') return {};
  return fileName.substr(dot);
}

bool HasExtension(const std::string& fileName, std::initializer_list<const char*> extensions) {
  const std::string extension = LowerCase(ExtractFileExt(fileName));
  for (const char* candidate : extensions) {
    if (extension == candidate) return true;
  }
  return false;
}

}  // namespace qx
