#include "platform/core/base/assert.h"

#include "platform/core/base/log.h"

namespace qx {

void TqxAssert::Fail(const std::string& text) {
  TqxLog::Error("Assert", "%s", {text});
  throw EqxAssertError(text);
}

}  // namespace qx
