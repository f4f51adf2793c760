#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/base/types.h"
#include "platform/core/vector/binary_buffer.h"
#include "platform/core/vector/vector_command.h"

namespace qx {

class TqxVectorDocument;

// Reads the bytes of a .vector file, all of them or none: the header and the
// checksum are checked before the body is parsed, every count is weighed
// against the bytes that remain, and the document is filled only at the end.
class TqxVectorFileDecoder {
public:
  static void Decode(TqxVectorDocument& document, std::string_view bytes,
                     const std::string& sourceName);

private:
  TqxVectorFileDecoder(std::string_view bytes, const std::string& sourceName);

  void Run(TqxVectorDocument& document);
  std::size_t CheckHeaderAndChecksum();
  void ReadGradients();
  std::shared_ptr<const TqxVectorGradient> ReadGradient();
  std::unique_ptr<TqxVectorCommand> ReadCommand();
  TqxVectorBrush ReadBrush();
  TMatrix ReadMatrix();
  TPointF ReadPoint(std::string_view what);
  template <class E>
  E ReadEnum(int maxOrdinal, std::string_view what);

  std::string_view FBytes;
  std::string FSourceName;
  TqxBinaryReader FIn;
  std::vector<std::shared_ptr<const TqxVectorGradient>> FGradients;
};

}  // namespace qx
