#pragma once

#include <functional>
#include <string>

#include "platform/core/base/text.h"

namespace qx {

enum class TqxLogLevel { Trace, Warning, Error };

// The framework's log. Lines go to stderr (warnings and errors, and traces when
// QX_LOG_TRACE is set), to an optional file, and to any callbacks added. Logging
// never throws: a bad format is written as it stands.
class TqxLog {
public:
  using TSink = std::function<void(TqxLogLevel level, const std::string& tag, const std::string& text)>;

  static void Trace(const std::string& tag, std::string_view format, TqxFormatArgs args = {}) noexcept;
  static void Warning(const std::string& tag, std::string_view format, TqxFormatArgs args = {}) noexcept;
  static void Error(const std::string& tag, std::string_view format, TqxFormatArgs args = {}) noexcept;
  static void Write(TqxLogLevel level, const std::string& tag, std::string_view format,
                    const std::vector<TqxFormatArg>& args) noexcept;

  // Returns an id for RemoveSink.
  static int AddSink(TSink sink);
  static void RemoveSink(int id);
  // Appends every line to this file; an empty name stops it.
  static void SetLogFile(const std::string& fileName);
  static void SetStderrEnabled(bool enabled);

  static std::string LevelName(TqxLogLevel level);
};

}  // namespace qx
