#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace qx {

class TqxVectorDocument;

// The .vector file: a versioned, little-endian binary form of a vector
// document, closed by a checksum. docs/vector-format.md describes it byte by
// byte. Every failure raises Exception with the file name; read failures also
// give the byte offset of the fault.
class TqxVectorFile {
public:
  // Through a temporary file beside the target, renamed over it when complete,
  // so a failed save leaves any earlier file whole.
  static void Save(const TqxVectorDocument& document, const std::string& fileName);
  static void Write(const TqxVectorDocument& document, std::ostream& stream);
  static std::string Encode(const TqxVectorDocument& document);

  // The document is changed only when the whole content was read.
  static void Load(TqxVectorDocument& document, const std::string& fileName);
  static void Read(TqxVectorDocument& document, std::istream& stream, const std::string& sourceName);
  static void Decode(TqxVectorDocument& document, std::string_view bytes, const std::string& sourceName);
};

}  // namespace qx
