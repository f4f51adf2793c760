#pragma once

#include <string>

#include "platform/core/base/exception.h"

namespace qx::test {

// The message of the Exception the call raises, or "no exception".
template <typename TCall>
std::string ErrorOf(TCall&& call) {
  try {
    call();
  } catch (const Exception& e) {
    return e.Message();
  }
  return "no exception";
}

}  // namespace qx::test
