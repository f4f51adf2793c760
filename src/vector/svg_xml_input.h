#pragma once

#include <memory>
#include <string>

#include <pugixml.hpp>

namespace qx {

// Parses the bytes of an XML file, taking the encoding from the document
// itself: a byte order mark or UTF-16/32 byte pattern, else the encoding named
// in the XML declaration (converted to UTF-8 through iconv), else UTF-8.
// Entities declared inside the DOCTYPE are expanded first (svg_xml_entities.h),
// except in a document read in a 16- or 32-bit encoding.
// Raises Exception when the text is not well-formed, which includes a document
// with no root element or more than one, text beside the root, invalid UTF-8
// and an encoding that cannot be converted.
//
// AIsText says that ABytes is text the program already holds as UTF-8 rather
// than the bytes of a file: valid UTF-8 is then read as such, whatever
// encoding its declaration names, and only bytes that are no UTF-8 follow the
// declaration.
std::unique_ptr<pugi::xml_document> LoadXmlDocument(const std::string& ABytes, bool AIsText = false);

// The encoding named by the XML declaration at the start of ABytes, or the
// empty text when there is no declaration or it names none.
std::string DeclaredXmlEncoding(const std::string& ABytes);

}  // namespace qx
