#include "platform/core/vector/vector_file_decoder.h"

#include <zlib.h>

#include "platform/core/base/text.h"
#include "platform/core/vector/vector_document.h"
#include "platform/core/vector/vector_file_format.h"

namespace qx {

namespace fmt = vector_format;

void TqxVectorFileDecoder::Decode(TqxVectorDocument& document, std::string_view bytes,
                                  const std::string& sourceName) {
  TqxVectorFileDecoder(bytes, sourceName).Run(document);
}

TqxVectorFileDecoder::TqxVectorFileDecoder(std::string_view bytes, const std::string& sourceName)
    : FBytes(bytes), FSourceName(sourceName), FIn(bytes, 0, bytes.size(), sourceName) {}

void TqxVectorFileDecoder::Run(TqxVectorDocument& document) {
  const std::size_t bodyEnd = CheckHeaderAndChecksum();
  FIn = TqxBinaryReader(FBytes, fmt::kHeaderSize, bodyEnd, FSourceName);

  TSizeF size;
  size.Width = FIn.ReadF32("the width");
  size.Height = FIn.ReadF32("the height");
  TRectF viewBox;
  viewBox.Left = FIn.ReadF32("the view box");
  viewBox.Top = FIn.ReadF32("the view box");
  viewBox.Right = FIn.ReadF32("the view box");
  viewBox.Bottom = FIn.ReadF32("the view box");

  ReadGradients();

  const std::uint32_t count = FIn.ReadCount(fmt::kMinCommandSize, "the command count");
  TqxVectorCommands commands;
  commands.reserve(count);
  for (std::uint32_t i = 0; i < count; ++i) commands.push_back(ReadCommand());
  if (FIn.Remaining() != 0) FIn.Fail(FIn.Offset(), "unexpected data after the last command");

  document.Size = size;
  document.ViewBox = viewBox;
  document.Commands = std::move(commands);
}

// Returns where the body ends, the checksum's offset.
std::size_t TqxVectorFileDecoder::CheckHeaderAndChecksum() {
  if (FBytes.size() < fmt::kMagic.size() || FBytes.substr(0, fmt::kMagic.size()) != fmt::kMagic)
    FIn.Fail(0, "this is not a vector file (wrong magic)");
  FIn = TqxBinaryReader(FBytes, fmt::kMagic.size(), FBytes.size(), FSourceName);
  const std::uint32_t version = FIn.ReadU32("the format version");
  if (version == 0) FIn.Fail(fmt::kMagic.size(), "format version 0 does not exist");
  if (version > fmt::kVersion)
    FIn.Fail(fmt::kMagic.size(),
             Format("format version %u is newer than the supported version %u",
                    {version, fmt::kVersion}));
  const std::uint32_t bodyLength = FIn.ReadU32("the body length");

  const std::uint64_t expected =
      static_cast<std::uint64_t>(fmt::kHeaderSize) + bodyLength + fmt::kTrailerSize;
  if (FBytes.size() < expected)
    FIn.Fail(FBytes.size(), Format("the file is truncated: %d bytes of %d are present",
                                   {static_cast<std::int64_t>(FBytes.size()),
                                    static_cast<std::int64_t>(expected)}));
  if (FBytes.size() > expected)
    FIn.Fail(expected, "unexpected data after the checksum");

  const std::size_t bodyEnd = fmt::kHeaderSize + bodyLength;
  TqxBinaryReader trailer(FBytes, bodyEnd, FBytes.size(), FSourceName);
  const std::uint32_t stored = trailer.ReadU32("the checksum");
  const uLong actual = crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(FBytes.data()),
                             static_cast<uInt>(bodyEnd));
  if (stored != static_cast<std::uint32_t>(actual))
    FIn.Fail(bodyEnd, "the checksum does not match: the file is corrupt");
  return bodyEnd;
}

void TqxVectorFileDecoder::ReadGradients() {
  const std::uint32_t count = FIn.ReadCount(fmt::kMinGradientSize, "the gradient count");
  FGradients.reserve(count);
  for (std::uint32_t i = 0; i < count; ++i) FGradients.push_back(ReadGradient());
}

std::shared_ptr<const TqxVectorGradient> TqxVectorFileDecoder::ReadGradient() {
  const std::size_t at = FIn.Offset();
  const std::uint8_t type = FIn.ReadU8("the gradient type");
  std::shared_ptr<TqxVectorGradient> gradient;
  if (type == fmt::kLinearGradient)
    gradient = std::make_shared<TqxVectorLinearGradient>();
  else if (type == fmt::kRadialGradient)
    gradient = std::make_shared<TqxVectorRadialGradient>();
  else
    FIn.Fail(at, Format("unknown gradient type %d", {type}));

  gradient->ID = FIn.ReadString("the gradient id");
  gradient->Transform = ReadMatrix();
  const std::uint32_t points = FIn.ReadCount(fmt::kGradientPointSize, "the gradient stop count");
  gradient->Points.reserve(points);
  for (std::uint32_t i = 0; i < points; ++i) {
    TqxVectorGradientPoint point;
    point.Offset = FIn.ReadF32("a stop offset");
    point.Color = FIn.ReadU32("a stop colour");
    gradient->Points.push_back(point);
  }
  if (auto* linear = dynamic_cast<TqxVectorLinearGradient*>(gradient.get())) {
    linear->StartPoint = ReadPoint("the start point");
    linear->EndPoint = ReadPoint("the end point");
  } else {
    auto* radial = static_cast<TqxVectorRadialGradient*>(gradient.get());
    radial->Center = ReadPoint("the centre");
    radial->Radius = FIn.ReadF32("the radius");
  }
  return gradient;
}

std::unique_ptr<TqxVectorCommand> TqxVectorFileDecoder::ReadCommand() {
  const std::size_t at = FIn.Offset();
  const std::uint8_t kind = FIn.ReadU8("a command kind");
  switch (static_cast<TqxVectorCommandKind>(kind)) {
    case TqxVectorCommandKind::DrawPath:
      return TqxVectorCommand::CreateDrawPath(FIn.ReadString("the path data"));
    case TqxVectorCommandKind::BeginGroup:
      return TqxVectorCommand::CreateBeginGroup();
    case TqxVectorCommandKind::EndGroup:
      return TqxVectorCommand::CreateEndGroup();
    case TqxVectorCommandKind::SetTransform:
      return TqxVectorCommand::CreateSetTransform(ReadMatrix());
    case TqxVectorCommandKind::SetGradient: {
      const std::size_t indexAt = FIn.Offset();
      const std::uint32_t index = FIn.ReadU32("a gradient index");
      if (index >= FGradients.size())
        FIn.Fail(indexAt, Format("gradient index %u is out of range (%d gradients)",
                                 {index, static_cast<std::int64_t>(FGradients.size())}));
      const bool isFill = FIn.ReadBool("the fill flag");
      return TqxVectorCommand::CreateSetGradient(FGradients[index], isFill);
    }
    case TqxVectorCommandKind::SetBrush:
      return TqxVectorCommand::CreateSetBrush(ReadBrush());
  }
  FIn.Fail(at, Format("unknown command kind %d", {kind}));
}

TqxVectorBrush TqxVectorFileDecoder::ReadBrush() {
  const std::size_t at = FIn.Offset();
  const std::uint16_t mask = FIn.ReadU16("the brush field mask");
  if ((mask & ~fmt::kKnownBrushFields) != 0)
    FIn.Fail(at, Format("the brush field mask %x has unknown bits", {mask}));

  TqxVectorBrush brush;
  if (mask & fmt::kFill) brush.Fill = FIn.ReadString("the fill");
  if (mask & fmt::kFillOpacity) brush.FillOpacity = FIn.ReadF32("the fill opacity");
  if (mask & fmt::kFillRule) brush.FillRule = ReadEnum<TqxFillRule>(1, "the fill rule");
  if (mask & fmt::kStroke) brush.Stroke = FIn.ReadString("the stroke");
  if (mask & fmt::kStrokeWidth) brush.StrokeWidth = FIn.ReadF32("the stroke width");
  if (mask & fmt::kStrokeOpacity) brush.StrokeOpacity = FIn.ReadF32("the stroke opacity");
  if (mask & fmt::kStrokeDashArray) {
    const std::uint32_t count = FIn.ReadCount(4, "the dash count");
    std::vector<float> dashes;
    dashes.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) dashes.push_back(FIn.ReadF32("a dash"));
    brush.StrokeDashArray = std::move(dashes);
  }
  if (mask & fmt::kStrokeDashOffset) brush.StrokeDashOffset = FIn.ReadF32("the dash offset");
  if (mask & fmt::kStrokeLineCap)
    brush.StrokeLineCap = ReadEnum<TqxStrokeLineCap>(2, "the line cap");
  if (mask & fmt::kStrokeLineJoin)
    brush.StrokeLineJoin = ReadEnum<TqxStrokeLineJoin>(2, "the line join");
  return brush;
}

template <class E>
E TqxVectorFileDecoder::ReadEnum(int maxOrdinal, std::string_view what) {
  const std::size_t at = FIn.Offset();
  const std::uint8_t ordinal = FIn.ReadU8(what);
  if (ordinal > maxOrdinal) FIn.Fail(at, Format("%s %d is out of range", {what, ordinal}));
  return static_cast<E>(ordinal);
}

TMatrix TqxVectorFileDecoder::ReadMatrix() {
  TMatrix m;
  for (float* value : {&m.m11, &m.m12, &m.m13, &m.m21, &m.m22, &m.m23, &m.m31, &m.m32, &m.m33})
    *value = FIn.ReadF32("a matrix");
  return m;
}

TPointF TqxVectorFileDecoder::ReadPoint(std::string_view what) {
  TPointF point;
  point.X = FIn.ReadF32(what);
  point.Y = FIn.ReadF32(what);
  return point;
}

}  // namespace qx
