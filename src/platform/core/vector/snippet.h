#pragma once

#include <string>
#include <utility>

#include "platform/core/vector/vector_document.h"

namespace qx {

// The recording of the commands one element produced, kept under its id so that
// a later reference can replay it with AddCopiesFrom.
class TqxSnippet : public TqxVectorDocument {
public:
  explicit TqxSnippet(std::string id) : ID(std::move(id)) {}

  std::string ID;
};

}  // namespace qx
