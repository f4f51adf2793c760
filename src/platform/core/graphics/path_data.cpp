#include "platform/core/graphics/path_data.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "platform/core/base/exception.h"

namespace qx {

namespace {

bool IsFinite(TPointF p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

TPointF Reflect(TPointF point, TPointF center) { return {2 * center.X - point.X, 2 * center.Y - point.Y}; }

// Where the derivative of a cubic Bezier coordinate is zero, inside (0, 1).
void CubicExtremes(double p0, double p1, double p2, double p3, double& low, double& high) {
  const double a = -p0 + 3 * p1 - 3 * p2 + p3;
  const double b = 2 * (p0 - 2 * p1 + p2);
  const double c = p1 - p0;
  auto include = [&](double t) {
    if (!(t > 0 && t < 1)) return;
    const double mt = 1 - t;
    const double v = mt * mt * mt * p0 + 3 * mt * mt * t * p1 + 3 * mt * t * t * p2 + t * t * t * p3;
    low = std::min(low, v);
    high = std::max(high, v);
  };
  if (std::abs(a) < 1e-12 * (std::abs(b) + std::abs(c) + 1e-300)) {
    if (b != 0) include(-c / b);
    return;
  }
  const double disc = b * b - 4 * a * c;
  if (disc < 0) return;
  const double root = std::sqrt(disc);
  include((-b + root) / (2 * a));
  include((-b - root) / (2 * a));
}

}  // namespace

std::string TqxPathDataError::Message() const {
  return "Invalid path data at offset " + std::to_string(Offset) + ": " + Reason;
}

void TqxPathData::EnsureStarted() {
  if (FNeedsMove) MoveTo(FCurrent);
}

void TqxPathData::MoveTo(TPointF p) {
  FCommands.push_back({TqxPathVerb::MoveTo, {p, {}, {}}});
  FCurrent = FSubpathStart = p;
  FNeedsMove = false;
}

void TqxPathData::LineTo(TPointF p) {
  EnsureStarted();
  FCommands.push_back({TqxPathVerb::LineTo, {p, {}, {}}});
  FCurrent = p;
}

void TqxPathData::CubicTo(TPointF c1, TPointF c2, TPointF p) {
  EnsureStarted();
  FCommands.push_back({TqxPathVerb::CubicTo, {c1, c2, p}});
  FCurrent = p;
}

void TqxPathData::QuadTo(TPointF c, TPointF p) {
  const TPointF s = FCurrent;
  CubicTo({s.X + 2.0 / 3.0 * (c.X - s.X), s.Y + 2.0 / 3.0 * (c.Y - s.Y)},
          {p.X + 2.0 / 3.0 * (c.X - p.X), p.Y + 2.0 / 3.0 * (c.Y - p.Y)}, p);
}

void TqxPathData::ArcTo(double rx, double ry, double xAxisRotation, bool largeArc, bool sweep, TPointF p) {
  const TPointF s = FCurrent;
  if (s == p) return;
  rx = std::abs(rx);
  ry = std::abs(ry);
  if (rx == 0 || ry == 0) return LineTo(p);

  // Work in the frame where the ellipse is the unit circle, which keeps the
  // arithmetic finite for any finite radii.
  const double phi = std::fmod(xAxisRotation, 360.0) * std::numbers::pi / 180.0;
  const double cosPhi = std::cos(phi), sinPhi = std::sin(phi);
  const double dx = (s.X - p.X) / 2, dy = (s.Y - p.Y) / 2;
  double px = (cosPhi * dx + sinPhi * dy) / rx;
  double py = (-sinPhi * dx + cosPhi * dy) / ry;
  const double lambda = px * px + py * py;
  if (!(lambda > 0) || !std::isfinite(lambda)) return LineTo(p);
  double ux = 0, uy = 0;  // centre
  if (lambda > 1) {
    const double k = std::sqrt(lambda);
    rx *= k;
    ry *= k;
    px /= k;
    py /= k;
  } else {
    const double coef = (largeArc != sweep ? 1.0 : -1.0) * std::sqrt((1 - lambda) / lambda);
    ux = coef * py;
    uy = -coef * px;
  }
  const double startAngle = std::atan2(py - uy, px - ux);
  double delta = std::atan2(-py - uy, -px - ux) - startAngle;
  if (sweep && delta < 0) delta += 2 * std::numbers::pi;
  if (!sweep && delta > 0) delta -= 2 * std::numbers::pi;

  const double cx = cosPhi * rx * ux - sinPhi * ry * uy + (s.X + p.X) / 2;
  const double cy = sinPhi * rx * ux + cosPhi * ry * uy + (s.Y + p.Y) / 2;
  auto toUser = [&](double x, double y) -> TPointF {
    return {cx + rx * cosPhi * x - ry * sinPhi * y, cy + rx * sinPhi * x + ry * cosPhi * y};
  };
  const int segments = std::clamp(int(std::ceil(std::abs(delta) / (std::numbers::pi / 2) - 1e-9)), 1, 4);
  const double step = delta / segments;
  const double k = 4.0 / 3.0 * std::tan(step / 4);
  double a = startAngle;
  for (int i = 0; i < segments; ++i) {
    const double b = a + step;
    const double cosA = std::cos(a), sinA = std::sin(a), cosB = std::cos(b), sinB = std::sin(b);
    const TPointF end = i == segments - 1 ? p : toUser(cosB, sinB);
    CubicTo(toUser(cosA - k * sinA, sinA + k * cosA), toUser(cosB + k * sinB, sinB - k * cosB), end);
    a = b;
  }
}

void TqxPathData::ClosePath() {
  if (FNeedsMove) return;  // nothing open to close
  FCommands.push_back({TqxPathVerb::ClosePath, {}});
  FCurrent = FSubpathStart;
  FNeedsMove = true;
}

void TqxPathData::Clear() { *this = TqxPathData(); }

TRectF TqxPathData::Bounds() const {
  if (FCommands.empty()) return {};
  double left = INFINITY, top = INFINITY, right = -INFINITY, bottom = -INFINITY;
  TPointF current;
  auto add = [&](TPointF p) {
    left = std::min(left, p.X);
    right = std::max(right, p.X);
    top = std::min(top, p.Y);
    bottom = std::max(bottom, p.Y);
  };
  for (const TqxPathCommand& command : FCommands) {
    switch (command.Verb) {
      case TqxPathVerb::MoveTo:
      case TqxPathVerb::LineTo:
        add(command.Points[0]);
        current = command.Points[0];
        break;
      case TqxPathVerb::CubicTo: {
        const TPointF* c = command.Points;
        add(c[2]);
        CubicExtremes(current.X, c[0].X, c[1].X, c[2].X, left, right);
        CubicExtremes(current.Y, c[0].Y, c[1].Y, c[2].Y, top, bottom);
        current = c[2];
        break;
      }
      case TqxPathVerb::ClosePath:
        break;
    }
  }
  return {left, top, right, bottom};
}

// ---------------------------------------------------------------------------

namespace {

// The digits of a decimal number as an integer, for the common case where
// the number converts with one exact division or multiplication: at most
// 2^53, times or divided by a power of ten that a double holds exactly. The
// one rounding of that operation gives the correctly rounded value, the same
// as std::from_chars, at a fraction of its cost. Path data is mostly numbers.
class TDecimalDigits {
public:
  void Add(char digit) {
    if (FValue > (kMaxExact - 9) / 10) {
      FFits = false;
      return;
    }
    FValue = FValue * 10 + std::uint64_t(digit - '0');
  }

  bool TryValue(long long exponent10, double& value) const {
    static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (!FFits || exponent10 < -22 || exponent10 > 22) return false;
    value = exponent10 < 0 ? double(FValue) / kPowers[-exponent10] : double(FValue) * kPowers[exponent10];
    return true;
  }

private:
  static constexpr std::uint64_t kMaxExact = std::uint64_t(1) << 53;
  std::uint64_t FValue = 0;
  bool FFits = true;
};

// A refusal, with the number of commands that were complete before it.
struct TqxPathDataFailure {
  TqxPathDataError Error;
  std::size_t Complete = 0;
};

class TqxPathDataReader {
public:
  TqxPathDataReader(std::string_view text, TqxPathData& path) : FText(text), FPath(path) {}

  // Throws TqxPathDataFailure.
  void Read() {
    SkipWhitespace();
    if (AtEnd()) return;
    if (Peek() != 'M' && Peek() != 'm') Fail("the path must begin with a move-to command");
    while (!AtEnd()) {
      ReadCommand();
      SkipWhitespace();
    }
  }

private:
  bool AtEnd() const { return FPos >= FText.size(); }
  char Peek() const { return AtEnd() ? '\0' : FText[FPos]; }
  [[noreturn]] void Fail(std::string reason) const { FailAt(FPos, std::move(reason)); }
  [[noreturn]] void FailAt(std::size_t offset, std::string reason, std::size_t complete = SIZE_MAX) const {
    throw TqxPathDataFailure{{offset, std::move(reason)}, std::min(complete, FPath.Commands().size())};
  }

  static bool IsWhitespace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
  static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
  static bool StartsNumber(char c) { return IsDigit(c) || c == '.' || c == '-' || c == '+'; }

  void SkipWhitespace() {
    while (!AtEnd() && IsWhitespace(Peek())) ++FPos;
  }
  // comma-wsp: whitespace, at most one comma, whitespace.
  void SkipSeparator() {
    SkipWhitespace();
    if (Peek() == ',') {
      ++FPos;
      SkipWhitespace();
    }
  }

  double ReadNumber() {
    const std::size_t start = FPos;
    std::size_t p = FPos;
    bool negative = false;
    if (p < FText.size() && (FText[p] == '+' || FText[p] == '-')) negative = FText[p++] == '-';
    const std::size_t mantissa = p;
    TDecimalDigits exact;
    while (p < FText.size() && IsDigit(FText[p])) exact.Add(FText[p++]);
    const std::size_t intEnd = p;
    std::size_t fracStart = p;
    if (p < FText.size() && FText[p] == '.') {
      fracStart = ++p;
      while (p < FText.size() && IsDigit(FText[p])) exact.Add(FText[p++]);
    }
    const std::size_t fracDigits = p - fracStart;
    if (intEnd == mantissa && fracDigits == 0) Fail("expected a number");
    long long exponent = 0;
    if (p < FText.size() && (FText[p] == 'e' || FText[p] == 'E')) {
      std::size_t q = p + 1;
      bool negativeExponent = false;
      if (q < FText.size() && (FText[q] == '+' || FText[q] == '-')) negativeExponent = FText[q++] == '-';
      if (q < FText.size() && IsDigit(FText[q])) {
        while (q < FText.size() && IsDigit(FText[q])) {
          exponent = std::min(exponent * 10 + (FText[q] - '0'), 1000000LL);
          ++q;
        }
        if (negativeExponent) exponent = -exponent;
        p = q;
      }
      // Otherwise the 'e' is not part of the number.
    }
    double value = 0;
    if (exact.TryValue(exponent - (long long)fracDigits, value)) {
      FPos = p;
      return negative ? -value : value;
    }
    const auto result = std::from_chars(FText.data() + mantissa, FText.data() + p, value);
    if (result.ec == std::errc::result_out_of_range) {
      // Decimal magnitude decides between overflow and underflow.
      const std::string_view integer = FText.substr(mantissa, intEnd - mantissa);
      const std::string_view fraction = FText.substr(fracStart, fracDigits);
      const std::size_t intZeros = std::min(integer.find_first_not_of('0'), integer.size());
      const std::size_t fracZeros = std::min(fraction.find_first_not_of('0'), fraction.size());
      const long long intDigits = (long long)(integer.size() - intZeros);
      const long long magnitude = (intDigits > 0 ? intDigits : -(long long)fracZeros) + exponent;
      if (magnitude > 0) FailAt(start, "number out of range");
      value = 0;
    } else if (result.ec != std::errc() || result.ptr != FText.data() + p) {
      Fail("expected a number");
    }
    FPos = p;
    return negative ? -value : value;
  }

  bool ReadFlag() {
    const char c = Peek();
    if (c != '0' && c != '1') Fail("expected a flag (0 or 1)");
    ++FPos;
    return c == '1';
  }

  // Reads `count` numbers (flags where `flags` has a bit set), separated by
  // comma-wsp; the caller has placed FPos on the first one.
  void ReadArguments(double* out, int count, unsigned flags = 0) {
    for (int i = 0; i < count; ++i) {
      if (i > 0) SkipSeparator();
      out[i] = (flags >> i) & 1 ? double(ReadFlag()) : ReadNumber();
    }
  }

  void ReadCommand() {
    const char letter = Peek();
    const char upper = char(letter & ~0x20);
    static constexpr std::string_view kCommands = "MLHVCSQTAZ";
    if (kCommands.find(upper) == std::string_view::npos) Fail("expected a command");
    ++FPos;
    const bool relative = letter != upper;
    if (upper == 'Z') {
      FPath.ClosePath();
      FLastCubicControl = FLastQuadControl = false;
      SkipSeparatorBeforeCommand();
      return;
    }
    SkipWhitespace();
    char command = upper;
    for (;;) {
      FSetOffset = FPos;
      ReadSet(command, relative);
      if (command == 'M') command = 'L';  // extra pairs after a move are lines
      SkipSeparator();
      if (AtEnd() || !StartsNumber(Peek())) break;
    }
  }

  void SkipSeparatorBeforeCommand() {
    SkipSeparator();
    if (!AtEnd() && StartsNumber(Peek())) Fail("expected a command");
  }

  TPointF Point(double x, double y, bool relative) const {
    const TPointF base = relative ? FPath.CurrentPoint() : TPointF{};
    return {base.X + x, base.Y + y};
  }

  void ReadSet(char command, bool relative) {
    double a[7];
    const std::size_t before = FPath.Commands().size();
    const TPointF current = FPath.CurrentPoint();
    bool cubic = false, quad = false;
    TPointF control;
    switch (command) {
      case 'M':
        ReadArguments(a, 2);
        FPath.MoveTo(Point(a[0], a[1], relative));
        break;
      case 'L':
        ReadArguments(a, 2);
        FPath.LineTo(Point(a[0], a[1], relative));
        break;
      case 'H':
        ReadArguments(a, 1);
        FPath.LineTo({relative ? current.X + a[0] : a[0], current.Y});
        break;
      case 'V':
        ReadArguments(a, 1);
        FPath.LineTo({current.X, relative ? current.Y + a[0] : a[0]});
        break;
      case 'C': {
        ReadArguments(a, 6);
        control = Point(a[2], a[3], relative);
        FPath.CubicTo(Point(a[0], a[1], relative), control, Point(a[4], a[5], relative));
        cubic = true;
        break;
      }
      case 'S': {
        ReadArguments(a, 4);
        const TPointF first = FLastCubicControl ? Reflect(FControl, current) : current;
        control = Point(a[0], a[1], relative);
        FPath.CubicTo(first, control, Point(a[2], a[3], relative));
        cubic = true;
        break;
      }
      case 'Q':
        ReadArguments(a, 4);
        control = Point(a[0], a[1], relative);
        FPath.QuadTo(control, Point(a[2], a[3], relative));
        quad = true;
        break;
      case 'T':
        ReadArguments(a, 2);
        control = FLastQuadControl ? Reflect(FControl, current) : current;
        FPath.QuadTo(control, Point(a[0], a[1], relative));
        quad = true;
        break;
      case 'A':
        ReadArguments(a, 7, 0b11000);
        FPath.ArcTo(a[0], a[1], a[2], a[3] != 0, a[4] != 0, Point(a[5], a[6], relative));
        break;
    }
    FLastCubicControl = cubic;
    FLastQuadControl = quad;
    FControl = control;
    CheckFinite(before);
  }

  // The commands of a set that overflowed are not part of the result.
  void CheckFinite(std::size_t from) const {
    const auto& commands = FPath.Commands();
    for (std::size_t i = from; i < commands.size(); ++i)
      for (const TPointF& p : commands[i].Points)
        if (!IsFinite(p)) FailAt(FSetOffset, "coordinates out of range", from);
  }

  std::string_view FText;
  TqxPathData& FPath;
  std::size_t FPos = 0;
  std::size_t FSetOffset = 0;
  bool FLastCubicControl = false;
  bool FLastQuadControl = false;
  TPointF FControl;  // second control point of the last cubic, or control of the last quadratic
};

}  // namespace

bool TqxPathData::TryParse(std::string_view text, TqxPathData& path, TqxPathDataError* error) {
  path.Clear();
  // About one segment per eight characters of path data is typical.
  path.FCommands.reserve(text.size() / 8);
  try {
    TqxPathDataReader(text, path).Read();
    return true;
  } catch (TqxPathDataFailure& failure) {
    path.FCommands.resize(failure.Complete);
    if (error != nullptr) *error = std::move(failure.Error);
    return false;
  }
}

TqxPathData TqxPathData::Parse(std::string_view text) {
  TqxPathData path;
  TqxPathDataError error;
  if (!TryParse(text, path, &error)) throw Exception(error.Message());
  return path;
}

}  // namespace qx
