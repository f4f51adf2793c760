#pragma once

#include <stdexcept>
#include <string>

namespace qx {

// A failure the user sees: its message is shown or logged as it stands.
class Exception : public std::runtime_error {
public:
  explicit Exception(const std::string& message) : std::runtime_error(message) {}
  std::string Message() const { return what(); }
};

// A fault of the program rather than of the user, raised by TqxAssert.
class EqxAssertError : public Exception {
public:
  using Exception::Exception;
};

}  // namespace qx
