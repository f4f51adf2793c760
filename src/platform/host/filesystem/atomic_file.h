#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace qx {

// Whole-file reads and writes. A write goes to a temporary file beside the
// target and is renamed over it, so that a failure never leaves a truncated file.
class TqxAtomicFile {
public:
  // Raises Exception naming the file when it can't be read.
  static std::string ReadAll(const std::string& fileName);
  // Raises Exception naming the file; the target is then as it was, and the
  // temporary file is gone.
  static void WriteAll(const std::string& fileName, std::string_view bytes);

  // Tests make writes fail: called with the temporary file's name once its
  // bytes are written, before the rename; may throw.
  static void SetBeforeRenameHook(std::function<void(const std::string& tempName)> hook);
};

}  // namespace qx
