#include "platform/core/base/log.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>

namespace qx {

namespace {

struct LogState {
  std::mutex lock;  // the log may be written from a test's helper threads
  std::map<int, TqxLog::TSink> sinks;
  int nextId = 1;
  std::ofstream file;
  bool stderrEnabled = true;
  bool traceToStderr = std::getenv("QX_LOG_TRACE") != nullptr;
};

LogState& State() {
  static LogState state;
  return state;
}

std::string Compose(std::string_view format, const std::vector<TqxFormatArg>& args) {
  try {
    return Format(format, args);
  } catch (...) {
    return std::string(format);
  }
}

}  // namespace

std::string TqxLog::LevelName(TqxLogLevel level) {
  switch (level) {
    case TqxLogLevel::Trace: return "trace";
    case TqxLogLevel::Warning: return "warning";
    case TqxLogLevel::Error: return "error";
  }
  return "?";
}

void TqxLog::Write(TqxLogLevel level, const std::string& tag, std::string_view format,
                   const std::vector<TqxFormatArg>& args) noexcept {
  try {
    const std::string text = Compose(format, args);
    auto& state = State();
    std::map<int, TSink> sinks;
    {
      std::lock_guard guard(state.lock);
      const std::string line = "[" + LevelName(level) + "] " + tag + ": " + text + "\n";
      if (state.stderrEnabled && (level != TqxLogLevel::Trace || state.traceToStderr))
        std::fputs(line.c_str(), stderr);
      if (state.file.is_open()) state.file << line << std::flush;
      sinks = state.sinks;
    }
    for (auto& [id, sink] : sinks) {
      try {
        sink(level, tag, text);
      } catch (...) {
      }
    }
  } catch (...) {
  }
}

void TqxLog::Trace(const std::string& tag, std::string_view format, TqxFormatArgs args) noexcept {
  Write(TqxLogLevel::Trace, tag, format, std::vector<TqxFormatArg>(args));
}
void TqxLog::Warning(const std::string& tag, std::string_view format, TqxFormatArgs args) noexcept {
  Write(TqxLogLevel::Warning, tag, format, std::vector<TqxFormatArg>(args));
}
void TqxLog::Error(const std::string& tag, std::string_view format, TqxFormatArgs args) noexcept {
  Write(TqxLogLevel::Error, tag, format, std::vector<TqxFormatArg>(args));
}

int TqxLog::AddSink(TSink sink) {
  auto& state = State();
  std::lock_guard guard(state.lock);
  state.sinks[state.nextId] = std::move(sink);
  return state.nextId++;
}

void TqxLog::RemoveSink(int id) {
  auto& state = State();
  std::lock_guard guard(state.lock);
  state.sinks.erase(id);
}

void TqxLog::SetLogFile(const std::string& fileName) {
  auto& state = State();
  std::lock_guard guard(state.lock);
  if (state.file.is_open()) state.file.close();
  if (!fileName.empty()) state.file.open(fileName, std::ios::app);
}

void TqxLog::SetStderrEnabled(bool enabled) {
  auto& state = State();
  std::lock_guard guard(state.lock);
  state.stderrEnabled = enabled;
}

}  // namespace qx
