#include "platform/core/base/translator.h"

#include <cstdlib>
#include <optional>

#include "platform/core/base/text.h"

namespace qx {

namespace {

TqxLanguage FromEnvironment() {
  if (const char* forced = std::getenv("QX_LANGUAGE")) return StartsText("ru", forced) ? TqxLanguage::Russian : TqxLanguage::English;
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return StartsText("ru", value) ? TqxLanguage::Russian : TqxLanguage::English;
  }
  return TqxLanguage::English;
}

std::optional<TqxLanguage>& Chosen() {
  static std::optional<TqxLanguage> language;
  return language;
}

}  // namespace

void TqxTranslator::Add(const std::string& russian, const std::string& english) { FEnglish[russian] = english; }

std::string TqxTranslator::Translate(const std::string& key) const {
  if (Language() == TqxLanguage::English) {
    auto it = FEnglish.find(key);
    if (it != FEnglish.end()) return it->second;
  }
  return key;
}

TqxLanguage TqxTranslator::Language() {
  if (!Chosen()) Chosen() = FromEnvironment();
  return *Chosen();
}

void TqxTranslator::SetLanguage(TqxLanguage language) { Chosen() = language; }

}  // namespace qx
