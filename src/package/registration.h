#pragma once

namespace qx {

// What the package adds to the IDE. The host calls it once when it loads the
// package, after its services are in place. Nothing is caught: when the
// wizard can't be made, the registrations behind it don't happen.
void Register();

// The package's unloading, for the host and tests: lets go of the open views'
// table, the shared images and the deployment subscription. The wizard goes
// with the IDE's services.
void UnregisterPackage();

}  // namespace qx
