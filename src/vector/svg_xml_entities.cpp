#include "vector/svg_xml_entities.h"

#include <cstdint>
#include <map>
#include <set>
#include <string_view>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {

namespace {

struct TEntity {
  std::string Value;
  bool External = false;
};

using TEntities = std::map<std::string, TEntity, std::less<>>;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool IsNameChar(char c) {
  const auto u = static_cast<unsigned char>(c);
  return u >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == ':' || c == '-' || c == '.';
}

bool IsNameStart(char c) { return IsNameChar(c) && !(c >= '0' && c <= '9') && c != '-' && c != '.'; }

// Where the first element starts: the prolog is everything before it.
std::size_t RootStart(std::string_view text) {
  for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1))
    if (at + 1 < text.size() && IsNameStart(text[at + 1])) return at;
  return text.size();
}

class TDoctypeReader {
public:
  TDoctypeReader(std::string_view text, std::size_t at) : FText(text), FPos(at) {}

  // Reads the DOCTYPE that starts at the position given; answers where it ends.
  std::size_t Read(TEntities& entities) {
    FPos += 9;  // "<!DOCTYPE"
    while (!AtEnd() && Peek() != '[' && Peek() != '>') SkipQuotedOrOne();
    if (Peek() == '[') {
      ++FPos;
      ReadSubset(entities);
      while (!AtEnd() && Peek() != '>') ++FPos;
    }
    if (AtEnd()) throw Exception("XML is not well-formed: the DOCTYPE does not end");
    return FPos + 1;
  }

private:
  bool AtEnd() const { return FPos >= FText.size(); }
  char Peek() const { return AtEnd() ? '\0' : FText[FPos]; }
  bool At(std::string_view s) const { return FText.substr(FPos, s.size()) == s; }

  void SkipBlanks() {
    while (!AtEnd() && IsBlank(Peek())) ++FPos;
  }
  void SkipPast(std::string_view end) {
    const std::size_t found = FText.find(end, FPos);
    FPos = found == std::string_view::npos ? FText.size() : found + end.size();
  }
  void SkipQuotedOrOne() {
    const char c = Peek();
    ++FPos;
    if (c != '"' && c != '\'') return;
    const std::size_t close = FText.find(c, FPos);
    FPos = close == std::string_view::npos ? FText.size() : close + 1;
  }
  // The rest of a markup declaration, quoted parts included.
  void SkipDeclaration() {
    while (!AtEnd() && Peek() != '>') SkipQuotedOrOne();
    if (!AtEnd()) ++FPos;
  }

  void ReadSubset(TEntities& entities) {
    for (;;) {
      SkipBlanks();
      if (AtEnd() || Peek() == ']') {
        if (!AtEnd()) ++FPos;
        return;
      }
      if (At("<!--")) {
        SkipPast("-->");
      } else if (At("<?")) {
        SkipPast("?>");
      } else if (At("<!ENTITY")) {
        FPos += 8;
        ReadEntity(entities);
      } else if (Peek() == '<') {
        SkipDeclaration();
      } else {
        ++FPos;  // a parameter entity reference or stray text
      }
    }
  }

  void ReadEntity(TEntities& entities) {
    SkipBlanks();
    if (Peek() == '%') return SkipDeclaration();  // parameter entities serve the DTD only
    const std::size_t nameStart = FPos;
    while (!AtEnd() && IsNameChar(Peek())) ++FPos;
    const std::string name(FText.substr(nameStart, FPos - nameStart));
    SkipBlanks();
    TEntity entity;
    if (Peek() == '"' || Peek() == '\'') {
      const char quote = Peek();
      const std::size_t close = FText.find(quote, FPos + 1);
      if (close == std::string_view::npos) throw Exception("XML is not well-formed: an entity value does not end");
      entity.Value = std::string(FText.substr(FPos + 1, close - FPos - 1));
      FPos = close + 1;
    } else {
      entity.External = true;  // SYSTEM or PUBLIC
    }
    SkipDeclaration();
    // The first declaration of a name is the one that counts.
    if (!name.empty()) entities.try_emplace(name, std::move(entity));
  }

  std::string_view FText;
  std::size_t FPos;
};

class TEntityExpander {
public:
  explicit TEntityExpander(const TEntities& entities) : FEntities(entities) {}

  void Expand(std::string_view text, std::string& out) {
    std::size_t pos = 0;
    while (pos < text.size()) {
      const std::size_t next = text.find_first_of("&<", pos);
      const std::size_t end = next == std::string_view::npos ? text.size() : next;
      Append(out, text.substr(pos, end - pos));
      pos = end;
      if (pos >= text.size()) break;
      if (text[pos] == '<') {
        pos = CopyVerbatimPart(text, pos, out);
      } else {
        pos = ExpandReference(text, pos, out);
      }
    }
  }

private:
  void Append(std::string& out, std::string_view part) {
    if (out.size() + part.size() > kMaxExpandedSize)
      throw Exception(Format("XML entities expand beyond %d bytes", {static_cast<std::int64_t>(kMaxExpandedSize)}));
    out.append(part);
  }

  // Comments, CDATA and processing instructions are copied as they are;
  // any other "<" is copied alone.
  std::size_t CopyVerbatimPart(std::string_view text, std::size_t pos, std::string& out) {
    static constexpr std::pair<std::string_view, std::string_view> kParts[] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [open, close] : kParts) {
      if (text.substr(pos, open.size()) != open) continue;
      const std::size_t found = text.find(close, pos + open.size());
      const std::size_t end = found == std::string_view::npos ? text.size() : found + close.size();
      Append(out, text.substr(pos, end - pos));
      return end;
    }
    Append(out, "<");
    return pos + 1;
  }

  std::size_t ExpandReference(std::string_view text, std::size_t pos, std::string& out) {
    std::size_t end = pos + 1;
    while (end < text.size() && IsNameChar(text[end])) ++end;
    const auto it = end < text.size() && text[end] == ';' ? FEntities.find(text.substr(pos + 1, end - pos - 1))
                                                          : FEntities.end();
    if (it == FEntities.end()) {
      Append(out, "&");
      return pos + 1;
    }
    const std::string& name = it->first;
    if (it->second.External) throw Exception(Format("XML refers to the external entity \"%s\", which is not read", {name}));
    Append(out, Resolved(name, it->second));
    return end + 1;
  }

  // Each value is expanded once: a chain of entities that each repeat the
  // one before grows by one append per reference, and reaches the size
  // limit in a few steps.
  const std::string& Resolved(const std::string& name, const TEntity& entity) {
    const auto done = FResolved.find(name);
    if (done != FResolved.end()) return done->second;
    if (!FOpen.insert(name).second) throw Exception(Format("XML entity \"%s\" refers to itself", {name}));
    std::string value;
    Expand(entity.Value, value);
    FOpen.erase(name);
    return FResolved.emplace(name, std::move(value)).first->second;
  }

  const TEntities& FEntities;
  std::set<std::string, std::less<>> FOpen;  // entities being expanded, against loops
  std::map<std::string, std::string, std::less<>> FResolved;
};

}  // namespace

bool ExpandXmlEntities(const std::string& AText, std::string& AOut) {
  const std::string_view text(AText);
  const std::size_t root = RootStart(text);
  const std::size_t doctype = text.substr(0, root).find("<!DOCTYPE");
  if (doctype == std::string_view::npos) return false;
  TEntities entities;
  const std::size_t bodyStart = TDoctypeReader(text, doctype).Read(entities);
  std::string out(text.substr(0, bodyStart));
  TEntityExpander(entities).Expand(text.substr(bodyStart), out);
  AOut = std::move(out);
  return true;
}

}  // namespace qx
