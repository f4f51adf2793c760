#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/core/vector/binary_buffer.h"

namespace qx {

class TqxVectorDocument;
class TqxVectorGradient;
class TqxVectorCommand;
struct TqxVectorBrush;
struct TMatrix;

// Turns a document into the bytes of a .vector file. A gradient object that
// several commands share is written once and referenced by its index.
class TqxVectorFileEncoder {
public:
  static std::string Encode(const TqxVectorDocument& document);

private:
  explicit TqxVectorFileEncoder(const TqxVectorDocument& document) : FDocument(document) {}

  std::string Run();
  void CollectGradients();
  void WriteGradient(const TqxVectorGradient& gradient);
  void WriteCommand(const TqxVectorCommand& command);
  void WriteBrush(const TqxVectorBrush& brush);
  void WriteMatrix(const TMatrix& matrix);
  void WriteText(const std::string& text);
  template <class E>
  void WriteEnum(E value, int maxOrdinal, const char* what);

  const TqxVectorDocument& FDocument;
  TqxBinaryWriter FOut;
  std::unordered_map<const TqxVectorGradient*, std::uint32_t> FGradientIndex;
  std::vector<const TqxVectorGradient*> FGradients;
};

}  // namespace qx
