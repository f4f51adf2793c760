// Temporary empty element handlers, so the reader links while its shape,
// gradient, defs and use handlers are written. Each definition leaves this file
// as its real one lands.
#include "vector/vector_reader_svg.h"

namespace qx {

void TqxVectorReaderSVG::ProcessCircle(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessEllipse(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessLine(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessRect(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessPolygon(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessPolyline(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessPath(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessPath(const pugi::xml_node&, const std::string&) {}

void TqxVectorReaderSVG::ProcessLinearGradient(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessRadialGradient(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ReadGradientPoints(const pugi::xml_node&, TqxVectorGradient&) {}
TqxSnippet* TqxVectorReaderSVG::ProcessSnippetAttribute(const pugi::xml_node&) { return nullptr; }
void TqxVectorReaderSVG::ProcessDefs(const pugi::xml_node&) {}
void TqxVectorReaderSVG::ProcessUse(const pugi::xml_node&) {}

}  // namespace qx
