#include "platform/host/filesystem/xml_text.h"

#include <algorithm>

#include "platform/core/base/assert.h"

namespace qx::XmlText {

std::string ApplyEdits(std::string_view text, std::vector<TqxTextEdit> edits) {
  std::stable_sort(edits.begin(), edits.end(),
                   [](const TqxTextEdit& a, const TqxTextEdit& b) { return a.Offset < b.Offset; });
  std::string result;
  result.reserve(text.size());
  std::size_t cursor = 0;
  for (const auto& edit : edits) {
    TqxAssert::IsTrue(edit.Offset >= cursor && edit.Offset + edit.Length <= text.size(),
                      "Overlapping or out-of-range text edits");
    result.append(text.substr(cursor, edit.Offset - cursor));
    result.append(edit.Text);
    cursor = edit.Offset + edit.Length;
  }
  result.append(text.substr(cursor));
  return result;
}

std::size_t TagEnd(std::string_view text, std::size_t tagStart) {
  char quote = 0;
  for (std::size_t i = tagStart + 1; i < text.size(); ++i) {
    char c = text[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '>') {
      return i + 1;
    }
  }
  TqxAssert::Fail("Unterminated XML tag");
}

bool IsSelfClosing(std::string_view text, std::size_t tagStart) {
  std::size_t end = TagEnd(text, tagStart);
  return end >= 2 && text[end - 2] == '/';
}

namespace {

std::size_t SkipPast(std::string_view text, std::size_t from, std::string_view terminator) {
  std::size_t at = text.find(terminator, from);
  TqxAssert::IsTrue(at != std::string_view::npos, "Unterminated XML construct");
  return at + terminator.size();
}

}  // namespace

std::size_t ElementEnd(std::string_view text, std::size_t elementStart) {
  std::size_t i = TagEnd(text, elementStart);
  if (text[i - 2] == '/') return i;
  int depth = 1;
  while (depth > 0) {
    i = text.find('<', i);
    TqxAssert::IsTrue(i != std::string_view::npos, "Unterminated XML element");
    std::string_view rest = text.substr(i);
    if (rest.starts_with("<!--")) {
      i = SkipPast(text, i + 4, "-->");
    } else if (rest.starts_with("<![CDATA[")) {
      i = SkipPast(text, i + 9, "]]>");
    } else if (rest.starts_with("<?")) {
      i = SkipPast(text, i + 2, "?>");
    } else if (rest.starts_with("</")) {
      i = TagEnd(text, i);
      --depth;
    } else {
      std::size_t end = TagEnd(text, i);
      if (text[end - 2] != '/') ++depth;
      i = end;
    }
  }
  return i;
}

std::size_t EndTagStart(std::string_view text, std::size_t elementStart, std::size_t elementEnd) {
  std::size_t at = text.rfind("</", elementEnd);
  TqxAssert::IsTrue(at != std::string_view::npos && at > elementStart, "Element has no end tag");
  return at;
}

std::string LeadingIndent(std::string_view text, std::size_t offset, bool& found) {
  std::size_t begin = offset;
  while (begin > 0 && (text[begin - 1] == ' ' || text[begin - 1] == '\t')) --begin;
  found = begin == 0 || text[begin - 1] == '\n';
  return found ? std::string(text.substr(begin, offset - begin)) : std::string();
}

std::size_t LineSpanStart(std::string_view text, std::size_t offset) {
  std::size_t begin = offset;
  while (begin > 0 && (text[begin - 1] == ' ' || text[begin - 1] == '\t')) --begin;
  if (begin > 0 && text[begin - 1] == '\n') {
    --begin;
    if (begin > 0 && text[begin - 1] == '\r') --begin;
  }
  return begin;
}

std::string DetectLineBreak(std::string_view text) {
  return text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
}

void LineColumn(std::string_view text, std::size_t offset, int& line, int& column) {
  line = 1;
  column = 1;
  offset = std::min(offset, text.size());
  for (std::size_t i = 0; i < offset; ++i) {
    if (text[i] == '\n') {
      ++line;
      column = 1;
    } else if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
      ++column;  // count characters, not UTF-8 continuation bytes
    }
  }
}

namespace {

std::string Escape(std::string_view value, bool attribute) {
  std::string result;
  result.reserve(value.size());
  for (char c : value) {
    switch (c) {
      case '&': result += "&amp;"; break;
      case '<': result += "&lt;"; break;
      case '>': result += "&gt;"; break;
      case '"':
        if (attribute) {
          result += "&quot;";
          break;
        }
        [[fallthrough]];
      default: result += c;
    }
  }
  return result;
}

}  // namespace

std::string EscapeAttribute(std::string_view value) { return Escape(value, true); }
std::string EscapeText(std::string_view value) { return Escape(value, false); }

}  // namespace qx::XmlText
