#pragma once

#include <string>
#include <string_view>

namespace qx {

// How the assets config files store URIs: relative to the folder of the config
// file, with `\` between parts on every platform; in memory they are full paths.
class TqxConfigUris {
public:
  // The folder is that of configFileName, made absolute.
  explicit TqxConfigUris(const std::string& configFileName);

  const std::string& Folder() const { return FFolder; }

  // The text written for uri: relative URIs get `\` separators; absolute ones
  // inside the folder become relative; absolute ones outside stay as they are.
  std::string ToStored(std::string_view uri) const;
  // The in-memory URI for a stored one: relative ones become full paths with
  // `/` separators and no `.` or `..` parts; absolute ones stay as they are.
  std::string ToFull(std::string_view stored) const;

  // `/x`, `\x`, `C:\x`, `C:/x`.
  static bool IsAbsolute(std::string_view uri);

private:
  std::string FFolder;
  std::string FFolderPrefix;  // FFolder + '/'
};

}  // namespace qx
