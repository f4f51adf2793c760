#pragma once

#include <map>
#include <string>

namespace qx {

enum class TqxLanguage { Russian, English };

// Each form keeps its texts in Russian and holds the English column here.
// Translate answers the text in the UI language: the Russian key itself, or
// its English row when the language is English and a row exists.
class TqxTranslator {
public:
  void Add(const std::string& russian, const std::string& english);
  std::string Translate(const std::string& key) const;

  // English unless the user's locale (LC_ALL, LC_MESSAGES, LANG) is Russian;
  // QX_LANGUAGE=ru or en overrides it.
  static TqxLanguage Language();
  static void SetLanguage(TqxLanguage language);

private:
  std::map<std::string, std::string> FEnglish;
};

}  // namespace qx
