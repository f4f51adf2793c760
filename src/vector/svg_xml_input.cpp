#include "vector/svg_xml_input.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "vector/svg_xml_entities.h"

namespace qx {

namespace {

bool StartsWithBytes(const std::string& s, std::initializer_list<unsigned char> bytes) {
  if (s.size() < bytes.size()) return false;
  std::size_t i = 0;
  for (unsigned char b : bytes)
    if (static_cast<unsigned char>(s[i++]) != b) return false;
  return true;
}

// The encoding of a 16- or 32-bit text, told by its byte order mark or by the
// bytes of its first "<"; empty for an 8-bit text. With a mark, iconv takes
// the byte order from it and drops it.
std::string WideEncoding(const std::string& s) {
  if (StartsWithBytes(s, {0x00, 0x00, 0xFE, 0xFF}) || StartsWithBytes(s, {0xFF, 0xFE, 0x00, 0x00})) return "UTF-32";
  if (StartsWithBytes(s, {0xFE, 0xFF}) || StartsWithBytes(s, {0xFF, 0xFE})) return "UTF-16";
  if (StartsWithBytes(s, {0x00, 0x00, 0x00, '<'})) return "UTF-32BE";
  if (StartsWithBytes(s, {'<', 0x00, 0x00, 0x00})) return "UTF-32LE";
  if (StartsWithBytes(s, {0x00, '<'})) return "UTF-16BE";
  if (StartsWithBytes(s, {'<', 0x00})) return "UTF-16LE";
  return {};
}

// A declaration read from 8-bit bytes that names a wide encoding is wrong about
// itself (a wide file would have shown it in its first bytes), so it is read as
// UTF-8 like one with no declaration.
bool IsUtf8Name(const std::string& name) {
  return name.empty() || SameText(name, "utf-8") || SameText(name, "utf8") || StartsText("utf-16", name) ||
         StartsText("utf-32", name) || StartsText("ucs-", name);
}

std::string ConvertToUtf8(const std::string& bytes, const std::string& encoding) {
  iconv_t cd = iconv_open("UTF-8", encoding.c_str());
  if (cd == reinterpret_cast<iconv_t>(-1))
    throw Exception(Format("XML is not well-formed: unsupported encoding \"%s\"", {encoding}));
  std::string out(bytes.size() * 4 + 16, '\0');
  char* in = const_cast<char*>(bytes.data());
  std::size_t inLeft = bytes.size();
  char* outPtr = out.data();
  std::size_t outLeft = out.size();
  const std::size_t rc = iconv(cd, &in, &inLeft, &outPtr, &outLeft);
  const int error = errno;
  iconv_close(cd);
  if (rc == static_cast<std::size_t>(-1))
    throw Exception(Format("XML is not well-formed: the text is not valid %s (%s)", {encoding, std::strerror(error)}));
  out.resize(out.size() - outLeft);
  return out;
}

// One root element and nothing but white space beside it. The document is
// parsed as a fragment so that stray top-level text is kept to be seen here;
// pugixml would drop it, and it accepts a second root as well.
void CheckTopLevel(const pugi::xml_document& doc) {
  int elements = 0;
  for (const pugi::xml_node& child : doc.children()) {
    if (child.type() == pugi::node_element) ++elements;
    else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
      throw Exception("XML is not well-formed: text outside the root element");
  }
  if (elements == 0) throw Exception("XML is not well-formed: no root element");
  if (elements > 1) throw Exception("XML is not well-formed: more than one root element");
}

// pugixml keeps repeated attributes; XML forbids them. Walks without
// recursion, since the nesting depth is the file's choice.
void CheckUniqueAttributes(const pugi::xml_document& doc) {
  std::vector<std::string_view> names;
  pugi::xml_node node = doc.first_child();
  while (node) {
    if (node.first_attribute() && node.first_attribute().next_attribute()) {
      names.clear();
      for (const pugi::xml_attribute& a : node.attributes()) names.emplace_back(a.name());
      std::sort(names.begin(), names.end());
      if (std::adjacent_find(names.begin(), names.end()) != names.end())
        throw Exception(Format("XML is not well-formed: attribute \"%s\" repeated in element \"%s\"",
                               {*std::adjacent_find(names.begin(), names.end()), node.name()}));
    }
    if (node.first_child()) {
      node = node.first_child();
      continue;
    }
    while (node && !node.next_sibling()) node = node.parent();
    if (node) node = node.next_sibling();
  }
}

}  // namespace

std::string DeclaredXmlEncoding(const std::string& ABytes) {
  std::size_t start = StartsWithBytes(ABytes, {0xEF, 0xBB, 0xBF}) ? 3 : 0;
  if (ABytes.compare(start, 5, "<?xml") != 0) return {};
  const std::size_t end = ABytes.find("?>", start);
  if (end == std::string::npos) return {};
  const std::string decl = ABytes.substr(start, end - start);
  const std::size_t key = decl.find("encoding");
  if (key == std::string::npos) return {};
  std::size_t pos = decl.find_first_not_of(" \t\r\n", key + 8);
  if (pos == std::string::npos || decl[pos] != '=') return {};
  pos = decl.find_first_not_of(" \t\r\n", pos + 1);
  if (pos == std::string::npos || (decl[pos] != '"' && decl[pos] != '\'')) return {};
  const std::size_t close = decl.find(decl[pos], pos + 1);
  if (close == std::string::npos) return {};
  return decl.substr(pos + 1, close - pos - 1);
}

std::unique_ptr<pugi::xml_document> LoadXmlDocument(const std::string& ABytes, bool AIsText) {
  auto doc = std::make_unique<pugi::xml_document>();
  const unsigned options = pugi::parse_default | pugi::parse_fragment;
  // Everything is turned into UTF-8 first, so that entities are expanded in
  // one place whatever the encoding.
  std::string converted;
  const std::string* text = &ABytes;
  if (const std::string wide = WideEncoding(ABytes); !wide.empty()) {
    converted = ConvertToUtf8(ABytes, wide);
    text = &converted;
  } else if (const std::string encoding = DeclaredXmlEncoding(ABytes);
             !IsUtf8Name(encoding) && !(AIsText && IsValidUtf8(ABytes))) {
    converted = ConvertToUtf8(ABytes, encoding);
    text = &converted;
  }
  if (!IsValidUtf8(*text)) throw Exception("XML is not well-formed: the text is not valid UTF-8");
  std::string expanded;
  if (ExpandXmlEntities(*text, expanded)) text = &expanded;
  const pugi::xml_parse_result result = doc->load_buffer(text->data(), text->size(), options, pugi::encoding_utf8);
  if (!result)
    throw Exception(Format("XML is not well-formed: %s at offset %d",
                           {result.description(), static_cast<std::int64_t>(result.offset)}));
  CheckTopLevel(*doc);
  CheckUniqueAttributes(*doc);
  return doc;
}

}  // namespace qx
