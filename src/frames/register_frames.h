#pragma once

namespace qx {

// Lets each asset kind's CreateEditor make its frame: colours, fonts, custom
// files and Lottie animations get their editors; bitmap sets, SVG images and
// styles a tile with their name and preview. Called from the package's
// registration and the apps, after RegisterAssetEditors(); a second call
// does nothing.
void RegisterAssetEditorFrames();

}  // namespace qx
