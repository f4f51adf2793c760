#pragma once

#include <string>
#include <vector>

#include "platform/core/base/types.h"

namespace qx {

// Rules for asset names. A name is its parts joined by `\`: folders first, the
// short name last. A valid name has at least one part, and each part
//  - is not empty and has no spaces or control characters at either end;
//  - is neither "." nor "..", so no name can point out of its folder;
//  - holds no control character, no `/` (the other path separator) and none of
//    : * ? " < > |, which no file name may hold on Windows (the colon also marks
//    a theme in a property's value);
//  - is valid UTF-8.
// So a name neither starts nor ends with `\`. A folder path is a valid name
// followed by `\`, or the empty text for the top level.
class TqxAssetNameHelper {
public:
  static constexpr char kSeparator = '\\';

  // The name with each part trimmed of surrounding spaces, or "" when the
  // result isn't a valid name.
  static TqxAssetName Normalize(const std::string& name);
  static bool IsValid(const std::string& name);
  // The same for a folder path: "" stays "", anything else gets its closing `\`
  // ("A\B" and "A\B\" both give "A\B\"); "" when it isn't valid.
  static std::string NormalizePath(const std::string& path);

  // The folder part with its closing `\`: "A\B\C" gives "A\B\"; "" at the top.
  static std::string Path(const TqxAssetName& name);
  // The last part: "A\B\C" gives "C".
  static std::string ShortName(const TqxAssetName& name);
  // Joins a folder path (with or without its `\`) and a name.
  static TqxAssetName Combine(const std::string& path, const std::string& name);
  // The parts of a name or path; empty parts, as a closing `\` leaves, are dropped.
  static std::vector<std::string> Parts(const std::string& name);
};

}  // namespace qx
