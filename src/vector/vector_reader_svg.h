#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/core/vector/snippet.h"
#include "platform/core/vector/vector_document.h"
#include "vector/svg_painting_params.h"
#include "vector/svg_style_sheet.h"
#include "vector/svg_values.h"

namespace qx {

// The reader's verdict; it only ever gets worse during a read.
enum class TqxResultParsing : std::uint8_t { Success = 0, SuccessWithWarnings = 1, Failed = 2 };

enum class TqxLogType : std::uint8_t { Warning = 0, Error = 1 };

class TqxVectorReaderSVG;
using TqxLogEvent = std::function<void(TqxVectorReaderSVG* Sender, const std::string& AMessage, TqxLogType AType)>;

// Raised to end a read that ran past one of the reader's safety limits. The
// log already holds an error line saying why; Process catches it, so the read
// ends as Failed without an exception reaching the caller.
class EsvgReadAborted : public Exception {
public:
  using Exception::Exception;
};

// Turns one SVG text into the flat command list of a TqxVectorDocument, and
// reports how far the text was understood. It never refuses to try: what it
// does not know is logged and left out, and the verdict says how it went.
//
// A reader serves one load: snippets and log lines survive Clear.
class TqxVectorReaderSVG : public TqxSVGValues {
public:
  enum class TqxSVGElementType : std::uint8_t {
    Circle,
    Ellipse,
    Line,
    Path,
    Polygon,
    Polyline,
    Rect,
    Group,
    RadialGradient,
    LinearGradient,
    Style,
    Defs,
    Use,
    Ignore,
    ClipPath,
  };

  // Limits that keep a hostile file from costing unbounded time or memory.
  static constexpr int kMaxDepth = 1024;
  static constexpr std::size_t kMaxCommands = 1000000;

  // ADocument is borrowed and must outlive the reader.
  explicit TqxVectorReaderSVG(TqxVectorDocument& ADocument);
  virtual ~TqxVectorReaderSVG();
  TqxVectorReaderSVG(const TqxVectorReaderSVG&) = delete;
  TqxVectorReaderSVG& operator=(const TqxVectorReaderSVG&) = delete;

  // Raise on XML that is not well-formed and on the faults that end a read
  // (bad raw numbers, unknown gradients, duplicate ids); the document keeps
  // what was drawn until then.
  void LoadFromStream(std::istream& AStream);
  void LoadFromFile(const std::string& AFileName);

  // These catch every exception, send its message to TqxLog.Error and answer
  // Failed.
  static TqxResultParsing LoadFromFile(TqxVectorDocument& ADocument, const std::string& AFileName);
  static TqxResultParsing Check(const std::string& AFileName);
  static TqxResultParsing CheckContent(const std::string& AContent);
  // AHint: the log lines joined by CR LF; empty when the read raised.
  static TqxResultParsing CheckContent(const std::string& AContent, std::string& AHint);

  TqxResultParsing Result() const { return FResult; }
  bool WasFailed() const { return FWasFailed; }
  // Each line is "- " followed by the message.
  const std::vector<std::string>& Logs() const { return FLogs; }
  std::string LogText() const;

  // Gets each message without the "- " prefix.
  TqxLogEvent FOnLog;

  // The DOM names the reader works with: an element's qualified name, "#text"
  // for text, "#cdata-section" for CDATA, "#comment" for a comment.
  static std::string NodeName(const pugi::xml_node& ANode);
  static std::string LocalName(const pugi::xml_node& ANode);
  // The attribute exists under this exact qualified name.
  static bool HasAttribute(const pugi::xml_node& ANode, const char* AName);
  // Its value; an absent attribute reads as the empty text.
  static std::string Attribute(const pugi::xml_node& ANode, const char* AName);
  // The text of an element whose content is text or CDATA.
  static std::string NodeText(const pugi::xml_node& ANode);

  // The lower-cased name mapped to its element type; false for any other name.
  static bool DefineElementType(std::string_view AName, TqxSVGElementType& AType);

protected:
  // Frame (vector_reader_svg.cpp).
  // LoadFromStream over bytes already in memory; AIsText as LoadXmlDocument.
  void LoadFromBytes(const std::string& ABytes, bool AIsText);
  void Clear();
  void Process();
  bool ParseSVGNodeAttributes(const pugi::xml_node& ANode);
  // Walks the children of AParent in two passes: first what the level must
  // know before it draws (style sheets, gradients, defs), then the drawing.
  void ProcessElements(const pugi::xml_node& AParent);
  void ProcessTopPriorityElements(const pugi::xml_node& AParent);
  void ProcessElement(const pugi::xml_node& ANode, TqxSVGElementType AType);
  void ProcessGroup(const pugi::xml_node& ANode);
  void ProcessClipPath(const pugi::xml_node& ANode);
  void ProcessTransformAttribute(const pugi::xml_node& ANode);

  // Paint (svg_reader_paint.cpp).
  void ParseStyle(const pugi::xml_node& ANode);
  void ReadPaintParams(const pugi::xml_node& ANode, TsvgPaintingParams& AParams);
  void ProcessPaintAttributes(const pugi::xml_node& ANode, const TsvgPaintingParams& AParams);

  // Shapes (svg_reader_shapes.cpp).
  void ProcessCircle(const pugi::xml_node& ANode);
  void ProcessEllipse(const pugi::xml_node& ANode);
  void ProcessLine(const pugi::xml_node& ANode);
  void ProcessRect(const pugi::xml_node& ANode);
  void ProcessPolygon(const pugi::xml_node& ANode);
  void ProcessPolyline(const pugi::xml_node& ANode);
  void ProcessPath(const pugi::xml_node& ANode);
  void ProcessPath(const pugi::xml_node& ANode, const std::string& AData);

  // Gradients, defs and use (svg_reader_defs.cpp).
  void ProcessLinearGradient(const pugi::xml_node& ANode);
  void ProcessRadialGradient(const pugi::xml_node& ANode);
  // Every child of AParent except text counts as a stop.
  void ReadGradientPoints(const pugi::xml_node& AParent, TqxVectorGradient& AGradient);
  // The new snippet, now open for recording, or nullptr when the node has no
  // `id`. Raises when the id is already taken.
  TqxSnippet* ProcessSnippetAttribute(const pugi::xml_node& ANode);
  void ProcessDefs(const pugi::xml_node& ANode);
  void ProcessUse(const pugi::xml_node& ANode);

  // Closes the recording of ASnippet (nullptr is allowed).
  void FinishSnippet(TqxSnippet* ASnippet);

  // The command outputs: each goes to the main document unless inside defs,
  // and to every snippet now being recorded.
  void BeginGroup();
  void EndGroup();
  // Closes a group where it was opened, AHidden being FIsParsingDefs at its
  // open: a defs inside the group clears the flag, and the close must not
  // reach a document that never saw the open.
  void EndGroup(bool AHidden);
  void SetBrush(const TqxVectorBrush& ABrush);
  void SetGradient(std::shared_ptr<const TqxVectorGradient> AGradient, bool AIsFill);
  void SetTransform(const TqxVectorTransform& ATransform);
  void DrawPath(const std::string& APath);
  // Copies of ACommands to the same places; counted against kMaxCommands
  // before anything is copied.
  void AddCopiesFrom(const TqxVectorCommands& ACommands);

  // Logging: Warn logs a warning, Stop an error. Neither raises.
  void Warn(const std::string& AMessage);
  void Warn(std::string_view AFormat, TqxFormatArgs AArgs);
  void Stop(const std::string& AMessage);
  void Stop(std::string_view AFormat, TqxFormatArgs AArgs);
  void DoLog(const std::string& AMessage, TqxLogType AType);
  // Logs AMessage as an error and ends the read through EsvgReadAborted.
  [[noreturn]] void AbortRead(const std::string& AMessage);
  // Counts ACount commands about to be appended, per target document, and
  // aborts the read past kMaxCommands.
  void CountCommands(std::size_t ACount);

  TqxVectorDocument* FVectorDocument;
  std::unique_ptr<pugi::xml_document> FInput;
  TRectF FViewportRect;
  std::unordered_map<std::string, std::unique_ptr<TqxVectorGradient>> FGradients;
  TsvgCssClasses FCSSClasses;
  std::unordered_map<std::string, std::unique_ptr<TqxSnippet>> FSnippets;
  // Borrowed from FSnippets; ordered so that every read gives the same output.
  std::map<std::string, TqxSnippet*> FCreatingSnippets;
  bool FWasFailed = false;
  TqxResultParsing FResult = TqxResultParsing::Success;
  std::vector<std::string> FLogs;
  bool FIsParsingDefs = false;

  // Safety limits: the group nesting level now, the commands appended so far,
  // and whether the read was aborted (so unwinding adds no second error).
  // FOpenGroups counts the main document's unclosed groups, which an aborted
  // read closes.
  int FOpenGroups = 0;
  std::size_t FMaxCommands = kMaxCommands;
  int FDepth = 0;
  std::size_t FCommandCount = 0;
  bool FAborted = false;
};

}  // namespace qx
