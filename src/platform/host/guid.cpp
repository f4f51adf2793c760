#include "platform/host/guid.h"

#include <random>

#include "platform/core/base/exception.h"

namespace qx {

namespace {

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Hex digits per group of the textual form.
constexpr int kGroups[] = {8, 4, 4, 4, 12};

}  // namespace

bool TGUID::IsEmpty() const {
  for (auto b : Bytes)
    if (b != 0) return false;
  return true;
}

std::string TGUID::ToString() const {
  static const char* digits = "0123456789ABCDEF";
  std::string text = "{";
  std::size_t index = 0;
  for (int g = 0; g < 5; ++g) {
    if (g > 0) text += '-';
    for (int i = 0; i < kGroups[g] / 2; ++i, ++index) {
      text += digits[Bytes[index] >> 4];
      text += digits[Bytes[index] & 0xF];
    }
  }
  return text + "}";
}

bool TGUID::TryParse(std::string_view text, TGUID& guid) {
  if (text.size() == 38 && text.front() == '{' && text.back() == '}') text = text.substr(1, 36);
  if (text.size() != 36) return false;
  TGUID result;
  std::size_t pos = 0, index = 0;
  for (int g = 0; g < 5; ++g) {
    if (g > 0 && text[pos++] != '-') return false;
    for (int i = 0; i < kGroups[g] / 2; ++i, ++index, pos += 2) {
      int hi = HexValue(text[pos]), lo = HexValue(text[pos + 1]);
      if (hi < 0 || lo < 0) return false;
      result.Bytes[index] = static_cast<std::uint8_t>(hi * 16 + lo);
    }
  }
  guid = result;
  return true;
}

TGUID TGUID::Parse(std::string_view text) {
  TGUID guid;
  if (!TryParse(text, guid)) throw Exception("\"" + std::string(text) + "\" is not a valid GUID");
  return guid;
}

TGUID TGUID::FromName(std::string_view name) {
  // Two FNV-1a passes with different seeds fill the 16 bytes.
  TGUID guid;
  std::uint64_t h1 = 14695981039346656037ull, h2 = 1099511628211ull * 31;
  for (unsigned char c : name) {
    h1 = (h1 ^ c) * 1099511628211ull;
    h2 = (h2 ^ c) * 1099511628211ull + 7;
  }
  for (int i = 0; i < 8; ++i) {
    guid.Bytes[i] = static_cast<std::uint8_t>(h1 >> (8 * i));
    guid.Bytes[8 + i] = static_cast<std::uint8_t>(h2 >> (8 * i));
  }
  return guid;
}

TGUID TGUID::NewGuid() {
  static std::mt19937_64 engine{std::random_device{}()};
  TGUID guid;
  std::uint64_t a = engine(), b = engine();
  for (int i = 0; i < 8; ++i) {
    guid.Bytes[i] = static_cast<std::uint8_t>(a >> (8 * i));
    guid.Bytes[8 + i] = static_cast<std::uint8_t>(b >> (8 * i));
  }
  guid.Bytes[6] = static_cast<std::uint8_t>((guid.Bytes[6] & 0x0F) | 0x40);  // version 4
  guid.Bytes[8] = static_cast<std::uint8_t>((guid.Bytes[8] & 0x3F) | 0x80);  // variant
  return guid;
}

std::size_t TGUIDHash::operator()(const TGUID& guid) const noexcept {
  std::size_t h = 14695981039346656037ull;
  for (auto b : guid.Bytes) h = (h ^ b) * 1099511628211ull;
  return h;
}

}  // namespace qx
