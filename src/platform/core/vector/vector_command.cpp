#include "platform/core/vector/vector_command.h"

#include <utility>

#include "platform/core/base/assert.h"

namespace qx {

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::CreateDrawPath(std::string path) {
  auto command = std::make_unique<TqxVectorCommand>(TqxVectorCommandKind::DrawPath);
  command->Path = std::move(path);
  return command;
}

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::CreateBeginGroup() {
  return std::make_unique<TqxVectorCommand>(TqxVectorCommandKind::BeginGroup);
}

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::CreateEndGroup() {
  return std::make_unique<TqxVectorCommand>(TqxVectorCommandKind::EndGroup);
}

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::CreateSetTransform(const TMatrix& matrix) {
  auto command = std::make_unique<TqxVectorCommand>(TqxVectorCommandKind::SetTransform);
  command->Matrix = matrix;
  return command;
}

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::CreateSetGradient(
    std::shared_ptr<const TqxVectorGradient> gradient, bool isFill) {
  TqxAssert::IsNotNil(gradient.get(), "AGradient");
  auto command = std::make_unique<TqxVectorCommand>(TqxVectorCommandKind::SetGradient);
  command->Gradient = std::move(gradient);
  command->IsFill = isFill;
  return command;
}

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::CreateSetBrush(const TqxVectorBrush& brush) {
  auto command = std::make_unique<TqxVectorCommand>(TqxVectorCommandKind::SetBrush);
  command->Brush = brush;
  return command;
}

std::unique_ptr<TqxVectorCommand> TqxVectorCommand::Clone() const {
  return std::make_unique<TqxVectorCommand>(*this);
}

bool TqxVectorCommand::operator==(const TqxVectorCommand& other) const {
  if (Kind != other.Kind || Path != other.Path || !(Matrix == other.Matrix) ||
      IsFill != other.IsFill || !(Brush == other.Brush))
    return false;
  if (!Gradient || !other.Gradient) return Gradient == other.Gradient;
  return Gradient->Equals(*other.Gradient);
}

}  // namespace qx
