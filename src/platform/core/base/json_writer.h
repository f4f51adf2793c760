#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qx {

// Writes JSON text straight into a string, without building a document first:
// the config files are large and written often. The layout is nlohmann-json's
// dump: compact, or indented by two spaces with one member or element a line
// and empty containers as {} and [].
class TqxJsonWriter {
public:
  TqxJsonWriter(std::string& out, bool pretty) : FOut(out), FPretty(pretty) {}

  void BeginObject();
  void EndObject();
  void BeginArray();
  void EndArray();
  // The name of the next member of the object being written.
  void Key(std::string_view key);

  // Raises Exception when the text isn't UTF-8, which JSON can't carry.
  void String(std::string_view text);
  void Integer(std::int64_t value);
  // The shortest text that reads back to the same double, with ".0" on whole
  // numbers; infinities and NaN, which JSON lacks, are written as 0.
  void Number(double value);

  // Member shorthands.
  void Member(std::string_view key, std::string_view text) {
    Key(key);
    String(text);
  }
  void Member(std::string_view key, const char* text) { Member(key, std::string_view(text)); }
  void Member(std::string_view key, int value) {
    Key(key);
    Integer(value);
  }
  void Member(std::string_view key, double value) {
    Key(key);
    Number(value);
  }

private:
  void BeforeValue();
  void End(char bracket);
  void NewLine(std::size_t depth);
  void Escaped(std::string_view text);

  std::string& FOut;
  bool FPretty;
  std::vector<int> FCounts;  // members or elements written, per open container
  bool FAfterKey = false;
};

}  // namespace qx
