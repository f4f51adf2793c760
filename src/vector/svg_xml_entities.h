#pragma once

#include <cstddef>
#include <string>

namespace qx {

// Expands the general entities that a document declares in the internal
// subset of its DOCTYPE, such as the `<!ENTITY ns_svg "http://...">` that
// illustration programs write and then use as `&ns_svg;` in attributes.
// pugixml keeps the DOCTYPE aside but leaves such references as text.
//
// Answers false, leaving AOut alone, when the UTF-8 text AText has no DOCTYPE
// before its root element. Otherwise AOut is the text with every reference to
// a declared internal entity replaced by its value (values may refer to other
// entities), outside comments, CDATA sections and processing instructions.
// The predefined entities, character references and undeclared names stay as
// they are, for the parser.
//
// Raises Exception for a reference to an external entity (SYSTEM or PUBLIC),
// which is never fetched, for an entity that refers to itself, and when the
// expansion grows beyond kMaxExpandedSize bytes.
bool ExpandXmlEntities(const std::string& AText, std::string& AOut);

constexpr std::size_t kMaxExpandedSize = 16 * 1024 * 1024;

}  // namespace qx
