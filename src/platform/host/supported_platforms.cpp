#include "platform/host/supported_platforms.h"

namespace qx {

const std::vector<std::string> QuorvexSupportedAndroidPlatforms{"Android", "Android64"};
const std::vector<std::string> QuorvexSupportediOSPlatforms{"iOSDevice64", "iOSSimARM64"};
const std::vector<std::string> QuorvexSupportedPlatforms{"Android", "Android64", "iOSDevice64",
                                                         "iOSSimARM64"};

}  // namespace qx
