#include "platform/host/filesystem/dproj_document.h"

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/host/filesystem/atomic_file.h"

namespace qx {

namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

[[noreturn]] void Fail(const std::string& fileName, const std::string& text, std::size_t offset,
                       const std::string& what) {
  int line = 0, column = 0;
  std::string_view counted(text);
  if (counted.starts_with(kUtf8Bom) && offset >= kUtf8Bom.size()) {
    counted.remove_prefix(kUtf8Bom.size());  // the mark is no column of its own
    offset -= kUtf8Bom.size();
  }
  XmlText::LineColumn(counted, offset, line, column);
  throw Exception(Format("Cannot read the project \"%s\": %s (line %d, column %d)",
                         {fileName, what, line, column}));
}

void ParseInto(const std::string& fileName, const std::string& text, pugi::xml_document& document) {
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
    Fail(fileName, text, 0, "the file is UTF-16; project files are read as UTF-8");
  std::string_view body(text);
  if (body.starts_with(kUtf8Bom)) body.remove_prefix(kUtf8Bom.size());
  if (!IsValidUtf8(body)) Fail(fileName, text, 0, "the file is not UTF-8 text");
  pugi::xml_parse_result result =
      document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!result) Fail(fileName, text, static_cast<std::size_t>(result.offset), result.description());
  pugi::xml_node root = document.document_element();
  if (std::string_view(root.name()) != "Project")
    Fail(fileName, text, static_cast<std::size_t>(root.offset_debug()),
         "this is not a project file: the root element is <" + std::string(root.name()) +
             ">, not <Project>");
}

}  // namespace

TqxDprojDocument::TqxDprojDocument(std::string fileName, std::string text)
    : FFileName(std::move(fileName)), FText(std::move(text)) {
  Parse();
}

std::unique_ptr<TqxDprojDocument> TqxDprojDocument::LoadFromFile(const std::string& fileName) {
  return std::make_unique<TqxDprojDocument>(fileName, TqxAtomicFile::ReadAll(fileName));
}

void TqxDprojDocument::SetText(std::string text) {
  pugi::xml_document document;
  ParseInto(FFileName, text, document);
  FText = std::move(text);
  Parse();
}

void TqxDprojDocument::Parse() {
  ParseInto(FFileName, FText, FDocument);
  FLineBreak = XmlText::DetectLineBreak(FText);
  FIndentUnit = "    ";
  if (pugi::xml_node first = Root().find_child([](pugi::xml_node n) {
        return n.type() == pugi::node_element;
      })) {
    bool found = false;
    std::string indent = XmlText::LeadingIndent(FText, StartOf(first), found);
    if (found && !indent.empty()) FIndentUnit = indent;
  }
}

pugi::xml_node TqxDprojDocument::Path(pugi::xml_node node, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (!node) break;
    node = node.child(name);
  }
  return node;
}

std::size_t TqxDprojDocument::StartOf(pugi::xml_node element) const {
  // pugixml reports the offset of the name, one behind the '<'.
  return static_cast<std::size_t>(element.offset_debug()) - 1;
}

std::size_t TqxDprojDocument::EndOf(pugi::xml_node element) const {
  return XmlText::ElementEnd(FText, StartOf(element));
}

std::string TqxDprojDocument::IndentOf(pugi::xml_node element) const {
  bool found = false;
  std::string indent = XmlText::LeadingIndent(FText, StartOf(element), found);
  if (found) return indent;
  indent.clear();
  for (pugi::xml_node n = element.parent(); n && n.type() == pugi::node_element; n = n.parent())
    indent += FIndentUnit;
  return indent;
}

TqxTextEdit TqxDprojDocument::OpenSelfClosing(pugi::xml_node parent, const std::string& inner) const {
  std::size_t end = EndOf(parent);
  return {end - 2, 2,
          ">" + inner + FLineBreak + IndentOf(parent) + "</" + parent.name() + ">"};
}

TqxTextEdit TqxDprojDocument::AppendChild(pugi::xml_node parent, const std::string& childText,
                                          const std::string& childIndent) const {
  const std::string line = FLineBreak + childIndent + childText;
  std::size_t start = StartOf(parent);
  if (XmlText::IsSelfClosing(FText, start)) return OpenSelfClosing(parent, line);
  std::size_t tagEnd = XmlText::TagEnd(FText, start);
  std::size_t closeStart = XmlText::EndTagStart(FText, start, EndOf(parent));
  std::size_t at = closeStart;
  while (at > tagEnd && std::string_view(" \t\r\n").find(FText[at - 1]) != std::string_view::npos)
    --at;
  if (at == tagEnd)  // nothing inside but blanks: lay the content out afresh
    return {tagEnd, closeStart - tagEnd, line + FLineBreak + IndentOf(parent)};
  return {at, 0, line};
}

TqxTextEdit TqxDprojDocument::PrependChild(pugi::xml_node parent, const std::string& childText,
                                           const std::string& childIndent) const {
  if (!parent.find_child([](pugi::xml_node n) { return n.type() == pugi::node_element; }))
    return AppendChild(parent, childText, childIndent);
  return {XmlText::TagEnd(FText, StartOf(parent)), 0, FLineBreak + childIndent + childText};
}

TqxTextEdit TqxDprojDocument::InsertAfter(pugi::xml_node element, const std::string& text,
                                          const std::string& indent) const {
  return {EndOf(element), 0, FLineBreak + indent + text};
}

TqxTextEdit TqxDprojDocument::RemoveWithLine(pugi::xml_node element) const {
  std::size_t begin = XmlText::LineSpanStart(FText, StartOf(element));
  return {begin, EndOf(element) - begin, ""};
}

}  // namespace qx
