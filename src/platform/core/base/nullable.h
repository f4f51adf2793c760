#pragma once

#include <optional>
#include <utility>

#include "platform/core/base/exception.h"

namespace qx {

// A value with a flag of presence; reading an empty one is an error.
template <class T>
class TqxNullable {
public:
  TqxNullable() = default;
  TqxNullable(const T& value) : FValue(value) {}  // NOLINT: implicit by design
  TqxNullable(T&& value) : FValue(std::move(value)) {}  // NOLINT

  bool HasValue() const { return FValue.has_value(); }
  const T& Value() const {
    if (!FValue) throw Exception("No such value");
    return *FValue;
  }
  T ValueOr(const T& fallback) const { return FValue.value_or(fallback); }
  void Clear() { FValue.reset(); }
  TqxNullable& operator=(const T& value) {
    FValue = value;
    return *this;
  }
  bool operator==(const TqxNullable& other) const = default;

private:
  std::optional<T> FValue;
};

}  // namespace qx
