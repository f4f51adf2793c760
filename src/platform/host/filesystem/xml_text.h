#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qx {

// One replacement in a text: Length bytes at Offset become Text (an insertion
// when Length is 0).
struct TqxTextEdit {
  std::size_t Offset = 0;
  std::size_t Length = 0;
  std::string Text;
};

// Helpers over the raw text of a well-formed XML document, so that changes can
// be spliced into the original bytes instead of re-serialising the document.
namespace XmlText {

// Applies edits that don't overlap; insertions at one offset keep their order.
std::string ApplyEdits(std::string_view text, std::vector<TqxTextEdit> edits);

// Offset just behind the '>' of the tag that starts at tagStart ('<').
std::size_t TagEnd(std::string_view text, std::size_t tagStart);
bool IsSelfClosing(std::string_view text, std::size_t tagStart);
// Offset just behind the element that starts at elementStart ('<'): its end
// tag, or its own tag when it is empty.
std::size_t ElementEnd(std::string_view text, std::size_t elementStart);
// Offset of the '<' of the element's end tag (the element must not be self-closing).
std::size_t EndTagStart(std::string_view text, std::size_t elementStart, std::size_t elementEnd);

// The blanks in front of offset when only blanks stand between it and the
// start of its line; otherwise nullopt-like: found is false.
std::string LeadingIndent(std::string_view text, std::size_t offset, bool& found);
// Where the removal of something at offset should start so that its line goes
// with it: the blanks before it and the line break before those.
std::size_t LineSpanStart(std::string_view text, std::size_t offset);
// "\r\n" when the text has one, else "\n".
std::string DetectLineBreak(std::string_view text);

// One-based line and column of an offset.
void LineColumn(std::string_view text, std::size_t offset, int& line, int& column);

std::string EscapeAttribute(std::string_view value);
std::string EscapeText(std::string_view value);

}  // namespace XmlText

}  // namespace qx
