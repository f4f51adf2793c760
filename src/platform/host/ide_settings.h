#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <nlohmann/json.hpp>

namespace qx {

// The integer settings the designer keeps, shared by all projects.
enum class TIntegerField { AssetsTreeWidth = 0, AssetsTreeSecondColumnWidth = 1 };

// A small key/value store of the IDE's settings, kept as a JSON object in
// "settings.json" of the user's configuration folder ($XDG_CONFIG_HOME/quorvex,
// else ~/.config/quorvex). Every change is written at once; a missing or
// unreadable file reads as empty, and a failed write only goes to the log.
class TqxIdeSettings {
public:
  explicit TqxIdeSettings(std::string fileName);

  // The process-wide settings at DefaultFileName(), or at the file given to
  // SetInstanceFileName (tests point it at a temporary folder).
  static TqxIdeSettings& Instance();
  static void SetInstanceFileName(const std::string& fileName);
  static std::string DefaultFileName();

  // 0 when the field was never written.
  int GetIntegerValue(TIntegerField field) const;
  void SetIntegerValue(TIntegerField field, int value);

  bool HasValue(const std::string& key) const;
  std::int64_t GetInteger(const std::string& key, std::int64_t fallback = 0) const;
  void SetInteger(const std::string& key, std::int64_t value);
  std::string GetString(const std::string& key, const std::string& fallback = {}) const;
  void SetString(const std::string& key, const std::string& value);
  void Remove(const std::string& key);

  const std::string& FileName() const { return FFileName; }
  // Reads the file again, dropping what this object held.
  void Reload();

private:
  void Write() const;
  static std::string FieldKey(TIntegerField field);

  std::string FFileName;
  nlohmann::json FValues = nlohmann::json::object();
};

}  // namespace qx
