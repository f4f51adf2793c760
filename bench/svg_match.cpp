#include "svg_match.h"

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/vector/vector_document.h"
#include "vector/vector_bitmap_writer.h"
#include "vector/vector_reader_svg.h"

namespace qx::bench {

namespace {

// librsvg's picture in a bitmap of ours, so that both sides compare and save alike.
std::unique_ptr<TqxBitmap> RenderRsvg(const std::string& text, int side) {
  auto bitmap = std::make_unique<TqxBitmap>(side, side);
  GError* error = nullptr;
  RsvgHandle* handle =
      rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(text.data()), text.size(), &error);
  if (error) g_error_free(error);
  if (handle == nullptr) return bitmap;
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(bitmap->Pixels()), CAIRO_FORMAT_ARGB32,
                                          side, side, bitmap->Stride());
  cairo_t* cr = cairo_create(surface);
  const RsvgRectangle viewport{0, 0, double(side), double(side)};
  rsvg_handle_render_document(handle, cr, &viewport, nullptr);
  cairo_destroy(cr);
  cairo_surface_flush(surface);
  cairo_surface_destroy(surface);
  g_object_unref(handle);
  return bitmap;
}

// Null when the file does not read with Success.
std::unique_ptr<TqxBitmap> RenderQx(const std::string& text, int side) {
  TqxVectorDocument document;
  try {
    TqxVectorReaderSVG reader(document);
    std::istringstream stream(text);
    reader.LoadFromStream(stream);
    if (reader.Result() != TqxResultParsing::Success) return nullptr;
    return RenderVectorDocument(document, side, side);
  } catch (const std::exception&) {
    return nullptr;
  }
}

TsvgMatchFile Compare(const TqxBitmap& ours, const TqxBitmap& theirs) {
  TsvgMatchFile result;
  const std::size_t count = std::size_t(ours.Width()) * ours.Height();
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t a = ours.Pixels()[i], b = theirs.Pixels()[i];
    int worst = 0;
    for (int shift = 0; shift < 32; shift += 8)
      worst = std::max(worst, std::abs(int((a >> shift) & 0xFF) - int((b >> shift) & 0xFF)));
    result.MaxChannelDifference = std::max(result.MaxChannelDifference, worst);
    if (worst > TsvgMatchRule::kChannelTolerance) ++result.DifferingPixels;
  }
  return result;
}

// "action/svg/production/ic_done_24px.svg" becomes "action_ic_done_24px".
std::string PairName(const std::string& name) {
  const std::filesystem::path path(name);
  std::string category = path.begin() != path.end() ? path.begin()->string() : std::string();
  return category + "_" + path.stem().string();
}

}  // namespace

TsvgMatchReport MatchWithLibrsvg(const std::vector<std::string>& names, const std::vector<std::string>& texts,
                                 int side, const std::string& pairDir, int pairs) {
  TsvgMatchReport report;
  report.Files = int(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto ours = RenderQx(texts[i], side);
    if (!ours) continue;
    ++report.Compared;
    TsvgMatchFile file = Compare(*ours, *RenderRsvg(texts[i], side));
    if (file.DifferingPixels <= TsvgMatchRule::kDifferingPixels) {
      ++report.Matching;
      continue;
    }
    file.Name = names[i];
    report.Mismatches.push_back(file);
  }
  std::stable_sort(report.Mismatches.begin(), report.Mismatches.end(),
                   [](const TsvgMatchFile& a, const TsvgMatchFile& b) { return a.DifferingPixels > b.DifferingPixels; });
  if (pairDir.empty()) return report;
  std::filesystem::create_directories(pairDir);
  for (int k = 0; k < pairs && k < int(report.Mismatches.size()); ++k) {
    const std::string& name = report.Mismatches[k].Name;
    const auto at = std::find(names.begin(), names.end(), name) - names.begin();
    const std::string base = (std::filesystem::path(pairDir) / PairName(name)).string();
    RenderQx(texts[at], side)->SaveToFile(base + ".qx.png");
    RenderRsvg(texts[at], side)->SaveToFile(base + ".rsvg.png");
  }
  return report;
}

}  // namespace qx::bench
