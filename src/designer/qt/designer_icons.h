#pragma once

namespace qx {

class TCustomImageList;

// The designer's image lists carry names and blank pictures; these draw the
// picture of every name they know into its place, at the list's size.
// Unknown names stay blank.
void PaintDesignerIcons(TCustomImageList& images);

}  // namespace qx
