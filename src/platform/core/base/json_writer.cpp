#include "platform/core/base/json_writer.h"

#include <charconv>
#include <cmath>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {

void TqxJsonWriter::NewLine(std::size_t depth) {
  FOut += '\n';
  FOut.append(depth * 2, ' ');
}

void TqxJsonWriter::BeforeValue() {
  if (FAfterKey) {
    FAfterKey = false;
    return;
  }
  if (FCounts.empty()) return;
  if (FCounts.back()++ > 0) FOut += ',';
  if (FPretty) NewLine(FCounts.size());
}

void TqxJsonWriter::BeginObject() {
  BeforeValue();
  FOut += '{';
  FCounts.push_back(0);
}

void TqxJsonWriter::End(char bracket) {
  const bool empty = FCounts.back() == 0;
  FCounts.pop_back();
  if (FPretty && !empty) NewLine(FCounts.size());
  FOut += bracket;
}

void TqxJsonWriter::EndObject() { End('}'); }

void TqxJsonWriter::BeginArray() {
  BeforeValue();
  FOut += '[';
  FCounts.push_back(0);
}

void TqxJsonWriter::EndArray() { End(']'); }

void TqxJsonWriter::Key(std::string_view key) {
  BeforeValue();
  Escaped(key);
  FOut += FPretty ? ": " : ":";
  FAfterKey = true;
}

void TqxJsonWriter::String(std::string_view text) {
  BeforeValue();
  Escaped(text);
}

void TqxJsonWriter::Integer(std::int64_t value) {
  BeforeValue();
  char buffer[24];
  FOut.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

void TqxJsonWriter::Number(double value) {
  BeforeValue();
  if (!std::isfinite(value)) value = 0;
  char buffer[32];
  const char* end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  std::string_view text(buffer, end - buffer);
  FOut += text;
  if (text.find_first_of(".e") == std::string_view::npos) FOut += ".0";
}

void TqxJsonWriter::Escaped(std::string_view text) {
  static const char kHex[] = "0123456789abcdef";
  bool ascii = true;
  const std::size_t start = FOut.size();
  FOut += '"';
  for (char c : text) {
    const auto u = static_cast<unsigned char>(c);
    if (u >= 0x80) {
      ascii = false;
      FOut += c;
    } else if (c == '"' || c == '\\') {
      FOut += '\\';
      FOut += c;
    } else if (u >= 0x20) {
      FOut += c;
    } else {
      switch (c) {
        case '\b': FOut += "\\b"; break;
        case '\f': FOut += "\\f"; break;
        case '\n': FOut += "\\n"; break;
        case '\r': FOut += "\\r"; break;
        case '\t': FOut += "\\t"; break;
        default:
          FOut += "\\u00";
          FOut += kHex[u >> 4];
          FOut += kHex[u & 0xF];
      }
    }
  }
  FOut += '"';
  if (!ascii && !IsValidUtf8(text)) {
    FOut.resize(start);  // what was written so far stays valid JSON text
    throw Exception("Cannot write text that is not UTF-8 as JSON");
  }
}

}  // namespace qx
