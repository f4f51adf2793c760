#pragma once

#include <string>

#include "platform/core/base/exception.h"

namespace qx {

// Checks of the program's own invariants; each failure raises EqxAssertError.
class TqxAssert {
public:
  static void IsNotNil(const void* value, const std::string& name) {
    if (value == nullptr) Fail(name + " is nil");
  }
  static void IsTrue(bool value, const std::string& text) {
    if (!value) Fail(text);
  }
  static void IsFalse(bool value, const std::string& text) {
    if (value) Fail(text);
  }
  // The object must be of class T (or derived from it).
  template <class T, class U>
  static T* IsClass(U* value, const std::string& text) {
    auto* cast = dynamic_cast<T*>(value);
    if (cast == nullptr) Fail(text);
    return cast;
  }
  [[noreturn]] static void Fail(const std::string& text);
};

}  // namespace qx
