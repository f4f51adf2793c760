#include "vector/vector_reader_svg.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "platform/core/base/log.h"
#include "vector/svg_xml_input.h"

namespace qx {

namespace {

const char* const kLogTag = "VectorReaderSVG";
const char* const kAttributeNotExisted = "The attribute is not existed: node=\"%s\", attributeName=%s";
const char* const kUnknownNode = "Unknown node name: node=\"%s\"";

// Zero within single precision, for the sizes of the root element.
bool IsZero(double value) { return std::fabs(value) < 1e-4; }

bool IsDrawnInSecondPass(TqxVectorReaderSVG::TqxSVGElementType type) {
  using T = TqxVectorReaderSVG::TqxSVGElementType;
  return type != T::RadialGradient && type != T::LinearGradient && type != T::Style && type != T::Defs;
}

}  // namespace

TqxVectorReaderSVG::TqxVectorReaderSVG(TqxVectorDocument& ADocument)
    : FVectorDocument(&ADocument), FInput(std::make_unique<pugi::xml_document>()) {}

TqxVectorReaderSVG::~TqxVectorReaderSVG() = default;

// --- Input and class functions ---

void TqxVectorReaderSVG::LoadFromStream(std::istream& AStream) {
  // In blocks: a character-wise copy costs more than parsing the XML.
  std::string bytes;
  char block[16384];
  while (AStream.read(block, sizeof block) || AStream.gcount() > 0)
    bytes.append(block, static_cast<std::size_t>(AStream.gcount()));
  LoadFromBytes(bytes, false);
}

void TqxVectorReaderSVG::LoadFromBytes(const std::string& ABytes, bool AIsText) {
  Clear();
  FInput = LoadXmlDocument(ABytes, AIsText);
  Process();
}

void TqxVectorReaderSVG::LoadFromFile(const std::string& AFileName) {
  std::ifstream stream(std::filesystem::u8path(AFileName), std::ios::binary);
  if (!stream) throw Exception(Format("Cannot open file \"%s\"", {AFileName}));
  LoadFromStream(stream);
}

TqxResultParsing TqxVectorReaderSVG::LoadFromFile(TqxVectorDocument& ADocument, const std::string& AFileName) {
  try {
    TqxVectorReaderSVG reader(ADocument);
    reader.LoadFromFile(AFileName);
    return reader.FResult;
  } catch (const std::exception& e) {
    TqxLog::Error(kLogTag, "%s", {e.what()});
    return TqxResultParsing::Failed;
  }
}

TqxResultParsing TqxVectorReaderSVG::Check(const std::string& AFileName) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(std::filesystem::u8path(AFileName), ec)) return TqxResultParsing::Failed;
  TqxVectorDocument document;
  return LoadFromFile(document, AFileName);
}

TqxResultParsing TqxVectorReaderSVG::CheckContent(const std::string& AContent) {
  std::string hint;
  return CheckContent(AContent, hint);
}

TqxResultParsing TqxVectorReaderSVG::CheckContent(const std::string& AContent, std::string& AHint) {
  AHint.clear();
  try {
    TqxVectorDocument document;
    TqxVectorReaderSVG reader(document);
    // The content is text in hand, so a declared legacy encoding must not
    // decode it a second time.
    reader.LoadFromBytes(AContent, true);
    AHint = reader.LogText();
    return reader.FResult;
  } catch (const std::exception& e) {
    TqxLog::Error(kLogTag, "%s", {e.what()});
    return TqxResultParsing::Failed;
  }
}

std::string TqxVectorReaderSVG::LogText() const {
  std::string text;
  for (const std::string& line : FLogs) {
    if (!text.empty()) text += "\r\n";
    text += line;
  }
  return text;
}

// --- DOM access ---

std::string TqxVectorReaderSVG::NodeName(const pugi::xml_node& ANode) {
  switch (ANode.type()) {
    case pugi::node_element: return ANode.name();
    case pugi::node_pcdata: return "#text";
    case pugi::node_cdata: return "#cdata-section";
    case pugi::node_comment: return "#comment";
    case pugi::node_pi: return ANode.name();
    default: return "#document";
  }
}

std::string TqxVectorReaderSVG::LocalName(const pugi::xml_node& ANode) {
  const std::string name = NodeName(ANode);
  if (ANode.type() != pugi::node_element) return name;
  const std::size_t colon = name.find(':');
  return colon == std::string::npos ? name : name.substr(colon + 1);
}

bool TqxVectorReaderSVG::HasAttribute(const pugi::xml_node& ANode, const char* AName) {
  return static_cast<bool>(ANode.attribute(AName));
}

std::string TqxVectorReaderSVG::Attribute(const pugi::xml_node& ANode, const char* AName) {
  return ANode.attribute(AName).value();
}

std::string TqxVectorReaderSVG::NodeText(const pugi::xml_node& ANode) {
  std::string text;
  for (const pugi::xml_node& child : ANode.children())
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) text += child.value();
  return text;
}

// --- The walk ---

void TqxVectorReaderSVG::Clear() {
  FGradients.clear();
  FCSSClasses.clear();
  FVectorDocument->Clear();
  FWasFailed = false;
  FIsParsingDefs = false;
}

void TqxVectorReaderSVG::Process() {
  Clear();
  FResult = TqxResultParsing::Success;
  FDepth = 0;
  FCommandCount = 0;
  FAborted = false;
  FOpenGroups = 0;
  try {
    const pugi::xml_node root = FInput->document_element();
    if (!ParseSVGNodeAttributes(root)) return;
    ProcessElements(root);
  } catch (const EsvgReadAborted&) {
    // Already logged by AbortRead. The limit may have struck between a
    // group's open and close anywhere, so close what is still open.
    for (; FOpenGroups > 0; --FOpenGroups) FVectorDocument->EndGroup();
  }
}

bool TqxVectorReaderSVG::ParseSVGNodeAttributes(const pugi::xml_node& ANode) {
  float width = 0;
  float height = 0;
  if (HasAttribute(ANode, "width") && !TryStrToFloat(Attribute(ANode, "width"), width)) width = 0;
  if (HasAttribute(ANode, "height") && !TryStrToFloat(Attribute(ANode, "height"), height)) height = 0;
  FViewportRect = TRectF();
  if (HasAttribute(ANode, "viewBox") && !TryStrToRectF(Attribute(ANode, "viewBox"), FViewportRect))
    FViewportRect = TRectF();

  const std::string name = LocalName(ANode);
  if (IsZero(width) && IsZero(FViewportRect.Width())) {
    Stop(kAttributeNotExisted, {name, "width"});
    Stop(kAttributeNotExisted, {name, "viewBox"});
    return false;
  }
  if (IsZero(height) && IsZero(FViewportRect.Height())) {
    Stop(kAttributeNotExisted, {name, "height"});
    Stop(kAttributeNotExisted, {name, "viewBox"});
    return false;
  }

  if (!IsZero(width) && IsZero(FViewportRect.Width()))
    FViewportRect.Right = FViewportRect.Left + width;
  else if (IsZero(width) && !IsZero(FViewportRect.Width()))
    width = static_cast<float>(FViewportRect.Width());
  if (!IsZero(height) && IsZero(FViewportRect.Height()))
    FViewportRect.Bottom = FViewportRect.Top + height;
  else if (IsZero(height) && !IsZero(FViewportRect.Height()))
    height = static_cast<float>(FViewportRect.Height());

  FVectorDocument->Size = TSizeF{width, height};
  FVectorDocument->ViewBox = FViewportRect;
  return true;
}

bool TqxVectorReaderSVG::DefineElementType(std::string_view AName, TqxSVGElementType& AType) {
  using T = TqxSVGElementType;
  static const std::unordered_map<std::string, T> kTypes = {
      {"g", T::Group},
      {"circle", T::Circle},
      {"ellipse", T::Ellipse},
      {"line", T::Line},
      {"path", T::Path},
      {"polygon", T::Polygon},
      {"polyline", T::Polyline},
      {"rect", T::Rect},
      {"radialgradient", T::RadialGradient},
      {"lineargradient", T::LinearGradient},
      {"style", T::Style},
      {"defs", T::Defs},
      {"use", T::Use},
      {"title", T::Ignore},
      {"metadata", T::Ignore},
      {"text", T::Ignore},
      {"desc", T::Ignore},
      {"#comment", T::Ignore},
  };
  const auto it = kTypes.find(LowerCase(AName));
  if (it == kTypes.end()) return false;
  AType = it->second;
  return true;
}

void TqxVectorReaderSVG::ProcessElements(const pugi::xml_node& AParent) {
  if (FDepth >= kMaxDepth)
    AbortRead(Format("The document is nested deeper than %d levels: node=\"%s\"", {kMaxDepth, NodeName(AParent)}));
  ++FDepth;
  try {
    ProcessTopPriorityElements(AParent);
    for (const pugi::xml_node& node : AParent.children()) {
      TqxSVGElementType type;
      if (!DefineElementType(NodeName(node), type)) {
        Warn(kUnknownNode, {NodeName(node)});
        continue;
      }
      if (!IsDrawnInSecondPass(type)) continue;
      if (type != TqxSVGElementType::Group && HasAttribute(node, "transform")) {
        BeginGroup();
        ProcessTransformAttribute(node);
        ProcessElement(node, type);
        EndGroup();
      } else {
        ProcessElement(node, type);
      }
    }
  } catch (...) {
    --FDepth;
    throw;
  }
  --FDepth;
}

void TqxVectorReaderSVG::ProcessTopPriorityElements(const pugi::xml_node& AParent) {
  for (const pugi::xml_node& node : AParent.children()) {
    TqxSVGElementType type;
    if (!DefineElementType(NodeName(node), type)) {
      Warn(kUnknownNode, {NodeName(node)});
      continue;
    }
    switch (type) {
      case TqxSVGElementType::RadialGradient: ProcessRadialGradient(node); break;
      case TqxSVGElementType::LinearGradient: ProcessLinearGradient(node); break;
      case TqxSVGElementType::Style: ParseStyle(node); break;
      case TqxSVGElementType::Defs: ProcessDefs(node); break;
      default: break;
    }
  }
}

void TqxVectorReaderSVG::ProcessElement(const pugi::xml_node& ANode, TqxSVGElementType AType) {
  switch (AType) {
    case TqxSVGElementType::Circle: ProcessCircle(ANode); break;
    case TqxSVGElementType::Ellipse: ProcessEllipse(ANode); break;
    case TqxSVGElementType::Line: ProcessLine(ANode); break;
    case TqxSVGElementType::Path: ProcessPath(ANode); break;
    case TqxSVGElementType::Polygon: ProcessPolygon(ANode); break;
    case TqxSVGElementType::Polyline: ProcessPolyline(ANode); break;
    case TqxSVGElementType::Rect: ProcessRect(ANode); break;
    case TqxSVGElementType::Group: ProcessGroup(ANode); break;
    case TqxSVGElementType::Use: ProcessUse(ANode); break;
    case TqxSVGElementType::ClipPath: ProcessClipPath(ANode); break;
    default: break;
  }
}

void TqxVectorReaderSVG::ProcessGroup(const pugi::xml_node& ANode) {
  TsvgPaintingParams params;
  ReadPaintParams(ANode, params);
  TqxSnippet* snippet = ProcessSnippetAttribute(ANode);
  try {
    const bool hidden = FIsParsingDefs;
    BeginGroup();
    try {
      ProcessPaintAttributes(ANode, params);
      ProcessTransformAttribute(ANode);
      ProcessElements(ANode);
    } catch (...) {
      EndGroup(hidden);
      throw;
    }
    EndGroup(hidden);
  } catch (...) {
    FinishSnippet(snippet);
    throw;
  }
  FinishSnippet(snippet);
}

void TqxVectorReaderSVG::ProcessClipPath(const pugi::xml_node& /*ANode*/) {}

void TqxVectorReaderSVG::ProcessTransformAttribute(const pugi::xml_node& ANode) {
  TqxVectorTransform transform;
  if (ReadTransform(ANode, transform)) SetTransform(transform);
}

void TqxVectorReaderSVG::FinishSnippet(TqxSnippet* ASnippet) {
  if (ASnippet) FCreatingSnippets.erase(ASnippet->ID);
}

// --- Command outputs ---

void TqxVectorReaderSVG::CountCommands(std::size_t ACount) {
  if (FAborted) return;
  const std::size_t targets = (FIsParsingDefs ? 0 : 1) + FCreatingSnippets.size();
  FCommandCount += ACount * targets;
  if (FCommandCount > FMaxCommands)
    AbortRead(Format("The document produces more than %d commands", {static_cast<std::int64_t>(FMaxCommands)}));
}

void TqxVectorReaderSVG::BeginGroup() {
  CountCommands(1);
  if (!FIsParsingDefs) {
    FVectorDocument->BeginGroup();
    ++FOpenGroups;
  }
  for (auto& [id, snippet] : FCreatingSnippets) snippet->BeginGroup();
}

void TqxVectorReaderSVG::EndGroup() {
  CountCommands(1);
  if (!FIsParsingDefs) {
    FVectorDocument->EndGroup();
    --FOpenGroups;
  }
  for (auto& [id, snippet] : FCreatingSnippets) snippet->EndGroup();
}

void TqxVectorReaderSVG::EndGroup(bool AHidden) {
  const bool now = FIsParsingDefs;
  FIsParsingDefs = AHidden;
  EndGroup();
  FIsParsingDefs = now;
}

void TqxVectorReaderSVG::SetBrush(const TqxVectorBrush& ABrush) {
  CountCommands(1);
  if (!FIsParsingDefs) FVectorDocument->SetBrush(ABrush);
  for (auto& [id, snippet] : FCreatingSnippets) snippet->SetBrush(ABrush);
}

void TqxVectorReaderSVG::SetGradient(std::shared_ptr<const TqxVectorGradient> AGradient, bool AIsFill) {
  CountCommands(1);
  if (!FIsParsingDefs) FVectorDocument->SetGradient(AGradient, AIsFill);
  for (auto& [id, snippet] : FCreatingSnippets) snippet->SetGradient(AGradient, AIsFill);
}

void TqxVectorReaderSVG::SetTransform(const TqxVectorTransform& ATransform) {
  CountCommands(1);
  if (!FIsParsingDefs) FVectorDocument->SetTransform(ATransform);
  for (auto& [id, snippet] : FCreatingSnippets) snippet->SetTransform(ATransform);
}

void TqxVectorReaderSVG::DrawPath(const std::string& APath) {
  CountCommands(1);
  if (!FIsParsingDefs) FVectorDocument->DrawPath(APath);
  for (auto& [id, snippet] : FCreatingSnippets) snippet->DrawPath(APath);
}

void TqxVectorReaderSVG::AddCopiesFrom(const TqxVectorCommands& ACommands) {
  CountCommands(ACommands.size());
  if (!FIsParsingDefs) FVectorDocument->AddCopiesFrom(ACommands);
  for (auto& [id, snippet] : FCreatingSnippets) snippet->AddCopiesFrom(ACommands);
}

// --- Log ---

void TqxVectorReaderSVG::Warn(const std::string& AMessage) { DoLog(AMessage, TqxLogType::Warning); }

void TqxVectorReaderSVG::Warn(std::string_view AFormat, TqxFormatArgs AArgs) {
  DoLog(Format(AFormat, AArgs), TqxLogType::Warning);
}

void TqxVectorReaderSVG::Stop(const std::string& AMessage) { DoLog(AMessage, TqxLogType::Error); }

void TqxVectorReaderSVG::Stop(std::string_view AFormat, TqxFormatArgs AArgs) {
  DoLog(Format(AFormat, AArgs), TqxLogType::Error);
}

void TqxVectorReaderSVG::DoLog(const std::string& AMessage, TqxLogType AType) {
  if (AType == TqxLogType::Warning && !FWasFailed) FResult = TqxResultParsing::SuccessWithWarnings;
  if (!FWasFailed) {
    FWasFailed = AType == TqxLogType::Error;
    if (FWasFailed) FResult = TqxResultParsing::Failed;
  }
  FLogs.push_back("- " + AMessage);
  if (FOnLog) FOnLog(this, AMessage, AType);
}

void TqxVectorReaderSVG::AbortRead(const std::string& AMessage) {
  FAborted = true;
  Stop(AMessage);
  throw EsvgReadAborted(AMessage);
}

}  // namespace qx
