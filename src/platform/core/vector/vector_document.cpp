#include "platform/core/vector/vector_document.h"

#include <utility>

#include "platform/core/vector/vector_file.h"

namespace qx {

void TqxVectorDocument::Clear() {
  Commands.clear();
  Size = {};
  ViewBox = {};
}

void TqxVectorDocument::BeginGroup() {
  Commands.push_back(TqxVectorCommand::CreateBeginGroup());
}

void TqxVectorDocument::EndGroup() {
  Commands.push_back(TqxVectorCommand::CreateEndGroup());
}

void TqxVectorDocument::SetBrush(const TqxVectorBrush& brush) {
  Commands.push_back(TqxVectorCommand::CreateSetBrush(brush));
}

void TqxVectorDocument::SetGradient(std::shared_ptr<const TqxVectorGradient> gradient, bool isFill) {
  Commands.push_back(TqxVectorCommand::CreateSetGradient(std::move(gradient), isFill));
}

void TqxVectorDocument::SetTransform(const TqxVectorTransform& transform) {
  Commands.push_back(TqxVectorCommand::CreateSetTransform(transform.Matrix));
}

void TqxVectorDocument::DrawPath(const std::string& pathData) {
  Commands.push_back(TqxVectorCommand::CreateDrawPath(pathData));
}

void TqxVectorDocument::AddCopiesFrom(const TqxVectorCommands& commands) {
  // Copy first: appending to the list being read would invalidate it when a
  // recording replays itself.
  TqxVectorCommands copies;
  copies.reserve(commands.size());
  for (const auto& command : commands) copies.push_back(command->Clone());
  Commands.reserve(Commands.size() + copies.size());
  for (auto& copy : copies) Commands.push_back(std::move(copy));
}

void TqxVectorDocument::SaveToFile(const std::string& fileName) const {
  TqxVectorFile::Save(*this, fileName);
}

void TqxVectorDocument::SaveToStream(std::ostream& stream) const {
  TqxVectorFile::Write(*this, stream);
}

void TqxVectorDocument::LoadFromFile(const std::string& fileName) {
  TqxVectorFile::Load(*this, fileName);
}

void TqxVectorDocument::LoadFromStream(std::istream& stream, const std::string& sourceName) {
  TqxVectorFile::Read(*this, stream, sourceName);
}

}  // namespace qx
