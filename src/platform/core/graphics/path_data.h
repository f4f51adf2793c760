#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/base/types.h"

namespace qx {

enum class TqxPathVerb : std::uint8_t { MoveTo, LineTo, CubicTo, ClosePath };

// One absolute segment. MoveTo and LineTo use Points[0]; CubicTo uses the two
// control points then the end point; ClosePath uses none.
struct TqxPathCommand {
  TqxPathVerb Verb = TqxPathVerb::MoveTo;
  TPointF Points[3] = {};
  bool operator==(const TqxPathCommand&) const = default;
};

// Why and where path data text was refused. Offset counts bytes from the
// start of the text.
struct TqxPathDataError {
  std::size_t Offset = 0;
  std::string Reason;
  std::string Message() const;  // "Invalid path data at offset N: reason"
};

// A path reduced to absolute move, line, cubic and close commands, read from
// SVG path data text or built by hand.
//
// Reading follows the SVG path grammar: all of M L H V C S Q T A Z in both
// cases, implicit repeats (extra pairs after a move are lines), smooth-curve
// reflection, arc flags without separators ("a1 1 0 00 1 1") and compact
// numbers ("1.5.5", "10-5", "-.5e-3"). Beyond the grammar a separator may end
// the arguments of a command ("M0, 0, L10, 10"), since path texts written
// with that trailing comma are common. Quadratic curves are raised to cubics,
// arcs become at most four cubics; an arc with a zero radius is a line and one
// that ends where it starts is dropped; radii too small to reach the end point
// are scaled up.
//
// Errors: SVG would draw the path up to its first error; a path that is only
// partly right is refused here instead, so that a broken file shows as broken.
// Parse raises; TryParse answers false and keeps the commands completed
// before the error. A number beyond the range of double, or coordinates that
// overflow, are errors too: no command ever holds a value that isn't finite.
// Reading takes time linear in the length of the text.
//
// After a ClosePath the next segment starts with an explicit MoveTo to the
// start of the closed subpath, so every subpath begins with a MoveTo.
class TqxPathData {
public:
  TqxPathData() = default;

  // Raises Exception with TqxPathDataError::Message() when the text is refused.
  static TqxPathData Parse(std::string_view text);
  // False when refused; then path holds the commands read before the error
  // and error, when given, says where and why.
  static bool TryParse(std::string_view text, TqxPathData& path, TqxPathDataError* error = nullptr);

  // Building. A segment without a preceding MoveTo starts at (0, 0).
  void MoveTo(TPointF p);
  void LineTo(TPointF p);
  void CubicTo(TPointF c1, TPointF c2, TPointF p);
  // Raised to a cubic.
  void QuadTo(TPointF c, TPointF p);
  // An SVG elliptical arc from the current point to p; angle in degrees.
  void ArcTo(double rx, double ry, double xAxisRotation, bool largeArc, bool sweep, TPointF p);
  void ClosePath();
  void Clear();

  const std::vector<TqxPathCommand>& Commands() const { return FCommands; }
  bool IsEmpty() const { return FCommands.empty(); }
  TPointF CurrentPoint() const { return FCurrent; }

  // The tight box of everything the path covers: end points and curve
  // extremes, move-to points included. Empty (all zero) for an empty path.
  TRectF Bounds() const;

  bool operator==(const TqxPathData& other) const { return FCommands == other.FCommands; }

private:
  void EnsureStarted();

  std::vector<TqxPathCommand> FCommands;
  TPointF FCurrent;
  TPointF FSubpathStart;
  bool FNeedsMove = true;  // no open subpath: the next segment needs a MoveTo
};

}  // namespace qx
