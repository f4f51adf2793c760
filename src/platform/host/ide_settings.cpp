#include "platform/host/ide_settings.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/core/base/log.h"

namespace qx {

namespace fs = std::filesystem;

namespace {

const char* kLogTag = "IdeSettings";

std::unique_ptr<TqxIdeSettings>& InstanceSlot() {
  static std::unique_ptr<TqxIdeSettings> instance;
  return instance;
}

}  // namespace

TqxIdeSettings::TqxIdeSettings(std::string fileName) : FFileName(std::move(fileName)) { Reload(); }

TqxIdeSettings& TqxIdeSettings::Instance() {
  auto& slot = InstanceSlot();
  if (!slot) slot = std::make_unique<TqxIdeSettings>(DefaultFileName());
  return *slot;
}

void TqxIdeSettings::SetInstanceFileName(const std::string& fileName) {
  InstanceSlot() = std::make_unique<TqxIdeSettings>(fileName);
}

std::string TqxIdeSettings::DefaultFileName() {
  fs::path folder;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg != nullptr && *xdg != '\0')
    folder = xdg;
  else if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
    folder = fs::path(home) / ".config";
  else
    folder = fs::temp_directory_path();
  return (folder / "quorvex" / "settings.json").string();
}

std::string TqxIdeSettings::FieldKey(TIntegerField field) {
  switch (field) {
    case TIntegerField::AssetsTreeWidth: return "AssetsDesigner.TreeWidth";
    case TIntegerField::AssetsTreeSecondColumnWidth: return "AssetsDesigner.TreeSecondColumnWidth";
  }
  return "AssetsDesigner.Field" + std::to_string(static_cast<int>(field));
}

int TqxIdeSettings::GetIntegerValue(TIntegerField field) const {
  return static_cast<int>(GetInteger(FieldKey(field), 0));
}

void TqxIdeSettings::SetIntegerValue(TIntegerField field, int value) {
  SetInteger(FieldKey(field), value);
}

bool TqxIdeSettings::HasValue(const std::string& key) const { return FValues.contains(key); }

std::int64_t TqxIdeSettings::GetInteger(const std::string& key, std::int64_t fallback) const {
  auto it = FValues.find(key);
  return it != FValues.end() && it->is_number_integer() ? it->get<std::int64_t>() : fallback;
}

void TqxIdeSettings::SetInteger(const std::string& key, std::int64_t value) {
  FValues[key] = value;
  Write();
}

std::string TqxIdeSettings::GetString(const std::string& key, const std::string& fallback) const {
  auto it = FValues.find(key);
  return it != FValues.end() && it->is_string() ? it->get<std::string>() : fallback;
}

void TqxIdeSettings::SetString(const std::string& key, const std::string& value) {
  FValues[key] = value;
  Write();
}

void TqxIdeSettings::Remove(const std::string& key) {
  if (FValues.erase(key) != 0) Write();
}

void TqxIdeSettings::Reload() {
  FValues = nlohmann::json::object();
  std::ifstream in(FFileName, std::ios::binary);
  if (!in) return;
  auto parsed = nlohmann::json::parse(in, nullptr, /*allow_exceptions=*/false);
  if (parsed.is_object())
    FValues = std::move(parsed);
  else
    TqxLog::Warning(kLogTag, "Settings file is not a JSON object, ignored: fileName=\"%s\"",
                    {FFileName});
}

void TqxIdeSettings::Write() const {
  // Settings are a convenience: losing a write must not disturb the user's work.
  std::error_code error;
  fs::path target(FFileName);
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), error);
  fs::path temp = target;
  temp += ".tmp";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out << FValues.dump(2) << '\n';
    if (!out) {
      TqxLog::Warning(kLogTag, "Cannot write settings: fileName=\"%s\"", {FFileName});
      fs::remove(temp, error);
      return;
    }
  }
  fs::rename(temp, target, error);
  if (error)
    TqxLog::Warning(kLogTag, "Cannot write settings: fileName=\"%s\", error=\"%s\"",
                    {FFileName, error.message()});
}

}  // namespace qx
