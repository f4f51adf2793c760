#pragma once

#include <string>
#include <vector>

namespace qx {

class TqxIdeSettings;

// The projects the user opened last, newest first, kept in the IDE's
// settings. A project opened again moves to the front; the list holds at
// most Capacity entries and drops the oldest.
class TqxRecentProjects {
public:
  static constexpr std::size_t Capacity = 8;
  static constexpr const char* kSettingsKey = "qxstudio.recentProjects";

  explicit TqxRecentProjects(TqxIdeSettings& settings);

  const std::vector<std::string>& Items() const { return FItems; }
  // The absolute form of the name goes to the front, and the list is saved.
  void Add(const std::string& fileName);
  void Remove(const std::string& fileName);
  void Clear();

private:
  void Load();
  void Save() const;
  std::vector<std::string>::iterator Find(const std::string& fileName);

  TqxIdeSettings& FSettings;
  std::vector<std::string> FItems;
};

}  // namespace qx
