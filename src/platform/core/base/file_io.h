#pragma once

#include <string>
#include <string_view>

namespace qx {

// Whole-file reads and writes for the config and generated files. Both raise
// Exception with a message that names the file.
class TqxFileIO {
public:
  // The bytes of the file as they stand.
  static std::string ReadAll(const std::string& fileName);

  // Writes the bytes to a temporary file beside fileName and renames it over
  // fileName, so a failure never leaves a truncated file: either the old
  // contents stay or the new ones are complete. The temporary is removed when
  // the write fails.
  static void WriteAtomically(const std::string& fileName, std::string_view bytes);

  // The name of the temporary WriteAtomically uses for fileName.
  static std::string TemporaryNameFor(const std::string& fileName);
};

}  // namespace qx
