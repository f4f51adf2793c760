#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qx {

// A 128-bit identifier, written as "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" with
// upper-case hex digits, the form project files use.
struct TGUID {
  std::array<std::uint8_t, 16> Bytes{};

  bool IsEmpty() const;
  std::string ToString() const;

  // Accepts the form above with or without braces, any case of hex digits.
  static bool TryParse(std::string_view text, TGUID& guid);
  // Raises Exception for text that is not a GUID.
  static TGUID Parse(std::string_view text);
  // A stable GUID derived from a text, for projects that carry none.
  static TGUID FromName(std::string_view name);
  static TGUID NewGuid();

  auto operator<=>(const TGUID&) const = default;
  bool operator==(const TGUID&) const = default;
};

struct TGUIDHash {
  std::size_t operator()(const TGUID& guid) const noexcept;
};

}  // namespace qx
