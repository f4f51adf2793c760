#include "platform/core/vector/vector_file_encoder.h"

#include <zlib.h>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/core/vector/vector_document.h"
#include "platform/core/vector/vector_file_format.h"

namespace qx {

namespace fmt = vector_format;

std::string TqxVectorFileEncoder::Encode(const TqxVectorDocument& document) {
  return TqxVectorFileEncoder(document).Run();
}

std::string TqxVectorFileEncoder::Run() {
  FOut.WriteBytes(fmt::kMagic);
  FOut.WriteU32(fmt::kVersion);
  FOut.WriteU32(0);  // body length, patched below

  FOut.WriteF32(static_cast<float>(FDocument.Size.Width));
  FOut.WriteF32(static_cast<float>(FDocument.Size.Height));
  FOut.WriteF32(static_cast<float>(FDocument.ViewBox.Left));
  FOut.WriteF32(static_cast<float>(FDocument.ViewBox.Top));
  FOut.WriteF32(static_cast<float>(FDocument.ViewBox.Right));
  FOut.WriteF32(static_cast<float>(FDocument.ViewBox.Bottom));

  CollectGradients();
  FOut.WriteU32(static_cast<std::uint32_t>(FGradients.size()));
  for (const TqxVectorGradient* gradient : FGradients) WriteGradient(*gradient);

  FOut.WriteU32(static_cast<std::uint32_t>(FDocument.Commands.size()));
  for (const auto& command : FDocument.Commands) WriteCommand(*command);

  FOut.PatchU32(fmt::kHeaderSize - 4, static_cast<std::uint32_t>(FOut.Size() - fmt::kHeaderSize));
  const auto& bytes = FOut.Bytes();
  const uLong crc = crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(bytes.data()),
                          static_cast<uInt>(bytes.size()));
  FOut.WriteU32(static_cast<std::uint32_t>(crc));
  return FOut.Bytes();
}

// Indexes follow the order of first use, so equal documents encode alike.
void TqxVectorFileEncoder::CollectGradients() {
  for (const auto& command : FDocument.Commands) {
    if (command->Kind != TqxVectorCommandKind::SetGradient || !command->Gradient) continue;
    const TqxVectorGradient* gradient = command->Gradient.get();
    if (FGradientIndex.emplace(gradient, static_cast<std::uint32_t>(FGradients.size())).second)
      FGradients.push_back(gradient);
  }
}

void TqxVectorFileEncoder::WriteGradient(const TqxVectorGradient& gradient) {
  const auto* linear = dynamic_cast<const TqxVectorLinearGradient*>(&gradient);
  const auto* radial = dynamic_cast<const TqxVectorRadialGradient*>(&gradient);
  if (!linear && !radial) throw Exception("a gradient is neither linear nor radial");

  FOut.WriteU8(linear ? fmt::kLinearGradient : fmt::kRadialGradient);
  WriteText(gradient.ID);
  WriteMatrix(gradient.Transform);
  FOut.WriteU32(static_cast<std::uint32_t>(gradient.Points.size()));
  for (const auto& point : gradient.Points) {
    FOut.WriteF32(point.Offset);
    FOut.WriteU32(point.Color);
  }
  if (linear) {
    FOut.WriteF32(static_cast<float>(linear->StartPoint.X));
    FOut.WriteF32(static_cast<float>(linear->StartPoint.Y));
    FOut.WriteF32(static_cast<float>(linear->EndPoint.X));
    FOut.WriteF32(static_cast<float>(linear->EndPoint.Y));
  } else {
    FOut.WriteF32(static_cast<float>(radial->Center.X));
    FOut.WriteF32(static_cast<float>(radial->Center.Y));
    FOut.WriteF32(radial->Radius);
  }
}

void TqxVectorFileEncoder::WriteCommand(const TqxVectorCommand& command) {
  FOut.WriteU8(static_cast<std::uint8_t>(command.Kind));
  switch (command.Kind) {
    case TqxVectorCommandKind::DrawPath:
      WriteText(command.Path);
      return;
    case TqxVectorCommandKind::BeginGroup:
    case TqxVectorCommandKind::EndGroup:
      return;
    case TqxVectorCommandKind::SetTransform:
      WriteMatrix(command.Matrix);
      return;
    case TqxVectorCommandKind::SetGradient:
      if (!command.Gradient) throw Exception("a gradient command has no gradient");
      FOut.WriteU32(FGradientIndex.at(command.Gradient.get()));
      FOut.WriteU8(command.IsFill ? 1 : 0);
      return;
    case TqxVectorCommandKind::SetBrush:
      WriteBrush(command.Brush);
      return;
  }
  throw Exception(Format("unknown command kind %d", {static_cast<int>(command.Kind)}));
}

void TqxVectorFileEncoder::WriteBrush(const TqxVectorBrush& brush) {
  std::uint16_t mask = 0;
  if (brush.Fill.HasValue()) mask |= fmt::kFill;
  if (brush.FillOpacity.HasValue()) mask |= fmt::kFillOpacity;
  if (brush.FillRule.HasValue()) mask |= fmt::kFillRule;
  if (brush.Stroke.HasValue()) mask |= fmt::kStroke;
  if (brush.StrokeWidth.HasValue()) mask |= fmt::kStrokeWidth;
  if (brush.StrokeOpacity.HasValue()) mask |= fmt::kStrokeOpacity;
  if (brush.StrokeDashArray.HasValue()) mask |= fmt::kStrokeDashArray;
  if (brush.StrokeDashOffset.HasValue()) mask |= fmt::kStrokeDashOffset;
  if (brush.StrokeLineCap.HasValue()) mask |= fmt::kStrokeLineCap;
  if (brush.StrokeLineJoin.HasValue()) mask |= fmt::kStrokeLineJoin;
  FOut.WriteU16(mask);

  if (brush.Fill.HasValue()) WriteText(brush.Fill.Value());
  if (brush.FillOpacity.HasValue()) FOut.WriteF32(brush.FillOpacity.Value());
  if (brush.FillRule.HasValue()) WriteEnum(brush.FillRule.Value(), 1, "fill rule");
  if (brush.Stroke.HasValue()) WriteText(brush.Stroke.Value());
  if (brush.StrokeWidth.HasValue()) FOut.WriteF32(brush.StrokeWidth.Value());
  if (brush.StrokeOpacity.HasValue()) FOut.WriteF32(brush.StrokeOpacity.Value());
  if (brush.StrokeDashArray.HasValue()) {
    const auto& dashes = brush.StrokeDashArray.Value();
    FOut.WriteU32(static_cast<std::uint32_t>(dashes.size()));
    for (float dash : dashes) FOut.WriteF32(dash);
  }
  if (brush.StrokeDashOffset.HasValue()) FOut.WriteF32(brush.StrokeDashOffset.Value());
  if (brush.StrokeLineCap.HasValue()) WriteEnum(brush.StrokeLineCap.Value(), 2, "line cap");
  if (brush.StrokeLineJoin.HasValue()) WriteEnum(brush.StrokeLineJoin.Value(), 2, "line join");
}

void TqxVectorFileEncoder::WriteMatrix(const TMatrix& m) {
  for (float value : {m.m11, m.m12, m.m13, m.m21, m.m22, m.m23, m.m31, m.m32, m.m33})
    FOut.WriteF32(value);
}

template <class E>
void TqxVectorFileEncoder::WriteEnum(E value, int maxOrdinal, const char* what) {
  const int ordinal = static_cast<int>(value);
  if (ordinal > maxOrdinal) throw Exception(Format("the %s %d is out of range", {what, ordinal}));
  FOut.WriteU8(static_cast<std::uint8_t>(ordinal));
}

// The loader refuses text that is not UTF-8, so the writer must not produce it.
void TqxVectorFileEncoder::WriteText(const std::string& text) {
  if (!IsValidUtf8(text))
    throw Exception(Format("a text of %d bytes is not valid UTF-8", {static_cast<std::int64_t>(text.size())}));
  FOut.WriteString(text);
}

}  // namespace qx
