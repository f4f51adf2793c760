#pragma once

#include <string>
#include <vector>

namespace qx {

// Deployment platform names of the framework's targets, as project files name them.
extern const std::vector<std::string> QuorvexSupportedAndroidPlatforms;
extern const std::vector<std::string> QuorvexSupportediOSPlatforms;
// Android first, then iOS.
extern const std::vector<std::string> QuorvexSupportedPlatforms;

}  // namespace qx
