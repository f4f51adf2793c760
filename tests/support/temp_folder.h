#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <unistd.h>

namespace qx::test {

namespace fs = std::filesystem;

// A fresh folder under the system's temporary folder, removed with everything
// in it (links as links) when the test ends.
class TTempFolder {
public:
  explicit TTempFolder(const std::string& label) {
    static int counter = 0;
    FPath = fs::temp_directory_path() /
            ("qx-" + label + "-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    fs::remove_all(FPath);
    fs::create_directories(FPath);
  }
  ~TTempFolder() {
    std::error_code ignored;
    fs::permissions(FPath, fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(FPath, ignored);
  }
  TTempFolder(const TTempFolder&) = delete;
  TTempFolder& operator=(const TTempFolder&) = delete;

  const fs::path& Path() const { return FPath; }
  fs::path operator/(const std::string& relative) const { return FPath / relative; }

private:
  fs::path FPath;
};

inline void WriteText(const fs::path& file, const std::string& text) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
}

inline std::string ReadText(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Every entry under the folder, relative, with `/`; folders end in `/`, and
// links are not entered.
inline std::set<std::string> ListTree(const fs::path& folder) {
  std::set<std::string> entries;
  if (!fs::exists(folder)) return entries;
  for (auto it = fs::recursive_directory_iterator(folder); it != fs::recursive_directory_iterator(); ++it) {
    std::string relative = it->path().lexically_relative(folder).generic_string();
    if (fs::is_directory(it->symlink_status())) relative += '/';
    entries.insert(relative);
  }
  return entries;
}

}  // namespace qx::test
