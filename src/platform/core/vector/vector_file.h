#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace qx {

class TqxVectorDocument;

// The .vector file: a versioned, little-endian binary form of a vector
// document. docs/vector-format.md describes it byte by byte.
class TqxVectorFile {
public:
  static constexpr std::uint32_t kVersion = 1;

  // Through a temporary file beside the target, renamed over it when complete.
  static void Save(const TqxVectorDocument& document, const std::string& fileName);
  static void Write(const TqxVectorDocument& document, std::ostream& stream);
  static std::string Encode(const TqxVectorDocument& document);

  // Each raises Exception naming the source and the byte offset of the fault;
  // the document is changed only when the whole content was read.
  static void Load(TqxVectorDocument& document, const std::string& fileName);
  static void Read(TqxVectorDocument& document, std::istream& stream, const std::string& sourceName);
  static void Decode(TqxVectorDocument& document, std::string_view bytes, const std::string& sourceName);
};

}  // namespace qx
