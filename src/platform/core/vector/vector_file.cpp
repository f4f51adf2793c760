#include "platform/core/vector/vector_file.h"

#include "platform/core/base/exception.h"
#include "platform/core/vector/vector_document.h"

namespace qx {

void TqxVectorFile::Save(const TqxVectorDocument&, const std::string& fileName) {
  throw Exception("Cannot write the vector file \"" + fileName + "\": not available yet");
}

void TqxVectorFile::Write(const TqxVectorDocument&, std::ostream&) {
  throw Exception("Cannot write a vector stream: not available yet");
}

std::string TqxVectorFile::Encode(const TqxVectorDocument&) { return {}; }

void TqxVectorFile::Load(TqxVectorDocument&, const std::string& fileName) {
  throw Exception("Cannot read the vector file \"" + fileName + "\": not available yet");
}

void TqxVectorFile::Read(TqxVectorDocument&, std::istream&, const std::string& sourceName) {
  throw Exception("Cannot read \"" + sourceName + "\": not available yet");
}

void TqxVectorFile::Decode(TqxVectorDocument&, std::string_view, const std::string& sourceName) {
  throw Exception("Cannot read \"" + sourceName + "\": not available yet");
}

}  // namespace qx
