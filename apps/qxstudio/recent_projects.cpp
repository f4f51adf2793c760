#include "recent_projects.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "platform/host/ide_settings.h"

namespace qx {
namespace {

std::string Absolute(const std::string& fileName) {
  std::error_code ignored;
  const auto path = std::filesystem::absolute(fileName, ignored);
  return ignored ? fileName : path.lexically_normal().string();
}

}  // namespace

TqxRecentProjects::TqxRecentProjects(TqxIdeSettings& settings) : FSettings(settings) { Load(); }

void TqxRecentProjects::Load() {
  FItems.clear();
  // A damaged entry costs the list, never the start of the application.
  const auto json = nlohmann::json::parse(FSettings.GetString(kSettingsKey, "[]"), nullptr, false);
  if (!json.is_array()) return;
  for (const auto& item : json) {
    if (!item.is_string()) continue;
    const std::string name = item.get<std::string>();
    if (!name.empty() && Find(name) == FItems.end() && FItems.size() < Capacity) FItems.push_back(name);
  }
}

void TqxRecentProjects::Save() const { FSettings.SetString(kSettingsKey, nlohmann::json(FItems).dump()); }

std::vector<std::string>::iterator TqxRecentProjects::Find(const std::string& fileName) {
  return std::find(FItems.begin(), FItems.end(), fileName);
}

void TqxRecentProjects::Add(const std::string& fileName) {
  const std::string name = Absolute(fileName);
  if (auto it = Find(name); it != FItems.end()) FItems.erase(it);
  FItems.insert(FItems.begin(), name);
  if (FItems.size() > Capacity) FItems.resize(Capacity);
  Save();
}

void TqxRecentProjects::Remove(const std::string& fileName) {
  auto it = Find(Absolute(fileName));
  if (it == FItems.end()) return;
  FItems.erase(it);
  Save();
}

void TqxRecentProjects::Clear() {
  FItems.clear();
  Save();
}

}  // namespace qx
