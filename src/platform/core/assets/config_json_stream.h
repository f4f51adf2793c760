#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace qx {

// Parses a JSON document whose bulk is one array member of the root object,
// handing each element of that array to a callback as a small document of its
// own, so that the whole array never stands in memory at once. The config
// files hold thousands of assets; reading them element by element keeps the
// reader close to the speed of parsing alone.
class TqxJsonStream {
public:
  using TJson = nlohmann::json;
  // Called at the start of the streamed array with the members read so far;
  // false keeps the array in the returned document instead.
  using TOnStart = std::function<bool(const TJson& head)>;
  using TOnElement = std::function<void(const TJson& element, std::size_t index)>;

  struct TResult {
    bool Ok = false;
    // The document without the streamed array.
    TJson Document;
    bool Streamed = false;
    // On a syntax error: the offset of the offending byte and nlohmann's text.
    std::size_t ErrorOffset = 0;
    std::string ErrorText;
  };

  // Exceptions of the callbacks pass through.
  static TResult Parse(std::string_view text, const std::string& streamedKey, const TOnStart& onStart,
                       const TOnElement& onElement);
};

}  // namespace qx
