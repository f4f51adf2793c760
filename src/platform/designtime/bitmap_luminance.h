#pragma once

namespace qx {

class TqxBitmap;

// How bright a picture looks, from 0 (black) to 1 (white): the luminance of
// its pixels averaged with their alpha as weight, so that the transparent
// parts of an icon don't count. A picture with no visible pixel gives 0.
double Luminance(const TqxBitmap& bitmap);

}  // namespace qx
