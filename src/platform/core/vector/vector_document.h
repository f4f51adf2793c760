#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include "platform/core/base/types.h"
#include "platform/core/vector/vector_brush.h"
#include "platform/core/vector/vector_command.h"
#include "platform/core/vector/vector_gradient.h"
#include "platform/core/vector/vector_transform.h"

namespace qx {

// A vector image as a flat, ordered list of drawing commands. Groups open and
// close scopes: a consumer saves its paint and matrix at BeginGroup and restores
// them at EndGroup, so a brush or transform set inside a group reaches only what
// follows it in that group.
//
// Gradients are shared, not copied: SetGradient takes a shared pointer to a
// const gradient, so the one object a reader made can reach the main document
// and any number of snippets, and it lives as long as some command holds it.
//
// Size and ViewBox are kept in the shared double-precision geometry types; the
// .vector file stores them, like every other number, as Singles.
class TqxVectorDocument {
public:
  TqxVectorDocument() = default;
  virtual ~TqxVectorDocument() = default;
  TqxVectorDocument(const TqxVectorDocument&) = delete;
  TqxVectorDocument& operator=(const TqxVectorDocument&) = delete;

  TSizeF Size;
  TRectF ViewBox;
  TqxVectorCommands Commands;

  // Drops every command and zeroes Size and ViewBox.
  void Clear();

  void BeginGroup();
  void EndGroup();
  void SetBrush(const TqxVectorBrush& brush);
  // isFill: true for the fill paint, false for the stroke paint.
  void SetGradient(std::shared_ptr<const TqxVectorGradient> gradient, bool isFill);
  void SetTransform(const TqxVectorTransform& transform);
  void DrawPath(const std::string& pathData);

  // Appends a copy of each command, in order. `commands` may be this
  // document's own list: only the commands present at the call are copied.
  void AddCopiesFrom(const TqxVectorCommands& commands);

  // Writes the .vector file through a temporary file beside it, renamed over
  // the target once complete. Raises Exception when it cannot.
  void SaveToFile(const std::string& fileName) const;
  void SaveToStream(std::ostream& stream) const;

  // Replaces Size, ViewBox and Commands by the content of a .vector file.
  // A file that is not a complete, valid .vector file raises Exception with the
  // file name and the byte offset of the fault; the document is then unchanged.
  void LoadFromFile(const std::string& fileName);
  void LoadFromStream(std::istream& stream, const std::string& sourceName = "stream");
};

}  // namespace qx
