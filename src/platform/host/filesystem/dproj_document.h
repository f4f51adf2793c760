#pragma once

#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "platform/host/filesystem/xml_text.h"

namespace qx {

// The text of a .dproj file and its parse. Changes are made by splicing new
// text into the original bytes (SetText), so everything that isn't changed
// stays byte for byte: byte order mark, declaration or none, line ends,
// indentation, attribute order, comments.
class TqxDprojDocument {
public:
  // Raises Exception naming the file and the place for text that is not
  // UTF-8, not well-formed XML, or not a project (root element Project).
  TqxDprojDocument(std::string fileName, std::string text);
  static std::unique_ptr<TqxDprojDocument> LoadFromFile(const std::string& fileName);

  const std::string& FileName() const { return FFileName; }
  const std::string& Text() const { return FText; }
  // Parses the new text; on an exception the document keeps its old text.
  void SetText(std::string text);

  pugi::xml_node Root() const { return FDocument.document_element(); }
  // The first element of the path of child names below node, or an empty node.
  static pugi::xml_node Path(pugi::xml_node node, std::initializer_list<const char*> names);

  std::size_t StartOf(pugi::xml_node element) const;
  std::size_t EndOf(pugi::xml_node element) const;
  // The blanks in front of the element's line; for an element that shares its
  // line, the indentation its depth would give.
  std::string IndentOf(pugi::xml_node element) const;
  const std::string& LineBreak() const { return FLineBreak; }
  const std::string& IndentUnit() const { return FIndentUnit; }

  // An edit that puts childText (first line not indented, later lines already
  // indented) as the last child of parent, on a line of its own at childIndent.
  TqxTextEdit AppendChild(pugi::xml_node parent, const std::string& childText,
                          const std::string& childIndent) const;
  // The same, as the first child.
  TqxTextEdit PrependChild(pugi::xml_node parent, const std::string& childText,
                           const std::string& childIndent) const;
  // An edit that puts text on a line of its own right behind element.
  TqxTextEdit InsertAfter(pugi::xml_node element, const std::string& text,
                          const std::string& indent) const;
  // An edit that removes the element together with its line.
  TqxTextEdit RemoveWithLine(pugi::xml_node element) const;

private:
  void Parse();
  TqxTextEdit OpenSelfClosing(pugi::xml_node parent, const std::string& inner) const;

  std::string FFileName;
  std::string FText;
  pugi::xml_document FDocument;
  std::string FLineBreak;
  std::string FIndentUnit;
};

}  // namespace qx
