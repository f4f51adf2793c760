#include "platform/designtime/svg_natural_size.h"

#include <librsvg/rsvg.h>

#include <cmath>
#include <memory>

namespace qx {
namespace {

struct THandleDeleter {
  void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
};

bool IsUsable(double width, double height) {
  return std::isfinite(width) && std::isfinite(height) && width > 0 && height > 0;
}

}  // namespace

bool TryGetSvgNaturalSize(std::string_view content, TSizeF& size) {
  if (content.empty()) return false;
  GError* error = nullptr;
  std::unique_ptr<RsvgHandle, THandleDeleter> handle(
      rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(content.data()), content.size(), &error));
  if (error != nullptr) g_error_free(error);
  if (!handle) return false;
  rsvg_handle_set_dpi(handle.get(), 96);

  double width = 0, height = 0;
  if (rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height) && IsUsable(width, height)) {
    size = {width, height};
    return true;
  }
  // Percentages or no width and height: the view box is all the file tells.
  gboolean hasWidth = false, hasHeight = false, hasViewBox = false;
  RsvgLength lengthW{}, lengthH{};
  RsvgRectangle viewBox{};
  rsvg_handle_get_intrinsic_dimensions(handle.get(), &hasWidth, &lengthW, &hasHeight, &lengthH, &hasViewBox,
                                       &viewBox);
  if (hasViewBox && IsUsable(viewBox.width, viewBox.height)) {
    size = {viewBox.width, viewBox.height};
    return true;
  }
  return false;
}

}  // namespace qx
