#pragma once

#include <string>
#include <vector>

namespace qx::bench {

// How close our drawing of an SVG file must be to librsvg's drawing of the
// same file. Both are premultiplied ARGB; a pixel differs when one of its four
// channels is off by more than kChannelTolerance, and a file matches when at
// most kDifferingPixels of its pixels differ, which leaves room for
// anti-aliasing that settles an edge pixel a little differently.
struct TsvgMatchRule {
  static constexpr int kChannelTolerance = 16;  // of 255
  static constexpr int kDifferingPixels = 12;   // of 48 x 48 = 2304, about 0.5%
};

struct TsvgMatchFile {
  std::string Name;
  int DifferingPixels = 0;
  int MaxChannelDifference = 0;
};

struct TsvgMatchReport {
  int Files = 0;     // files given
  int Compared = 0;  // read with Success, so compared
  int Matching = 0;
  std::vector<TsvgMatchFile> Mismatches;  // worst first

  double Share() const { return Compared == 0 ? 0 : double(Matching) / Compared; }
};

// Reads and draws each file at side x side with our reader and writer and with
// librsvg, and compares the two pictures by TsvgMatchRule. Files that don't
// read with Success are not compared. When pairDir is not empty, the worst
// `pairs` mismatches are written there as NAME.qx.png and NAME.rsvg.png.
TsvgMatchReport MatchWithLibrsvg(const std::vector<std::string>& names, const std::vector<std::string>& texts,
                                 int side, const std::string& pairDir = {}, int pairs = 20);

}  // namespace qx::bench
