#include "fetchkit/utility/GridAndKeys.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "fetchkit/base/Guard.h"
#include "fetchkit/platform/Platform.h"

namespace fetchkit {
namespace {

// Where the cursor is, in the window's client area.
std::optional<WindowPoint> CursorIn(std::int32_t window) {
  WindowSystem& windows = CurrentPlatform().Windows();
  WindowPoint point;
  if (windows.IsWindow(window) == 0 || windows.GetCursorPos(point) == 0 ||
      windows.ScreenToClient(window, point) == 0)
    return std::nullopt;
  return point;
}

// An area that reaches beyond 32 bits ends there.
std::int32_t EdgeAt(std::int32_t from, std::int32_t size) {
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(std::int64_t{from} + size, std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max()));
}

// The band between two edges in which at lies.
std::optional<std::int32_t> BandAt(const std::vector<std::int32_t>& edges, std::int32_t at) {
  const auto behind = std::upper_bound(edges.begin(), edges.end(), at);
  if (behind == edges.begin() || behind == edges.end()) return std::nullopt;
  return static_cast<std::int32_t>(behind - edges.begin()) - 1;
}

}  // namespace

bool GridAndKeys::PtInGridAvailRect(std::int32_t hWnd, std::int32_t lngLeft, std::int32_t lngTop,
                                    std::int32_t lngWidth, std::int32_t lngHeight) {
  return Guarded(u"Utility.PtInGridAvailRect", false, [&] {
    const auto cursor = CursorIn(hWnd);
    return cursor &&
           PtInRect({lngLeft, lngTop, EdgeAt(lngLeft, lngWidth), EdgeAt(lngTop, lngHeight)},
                    *cursor);
  });
}

bool GridAndKeys::PtInGridCell(std::int32_t hWnd, const std::vector<std::int32_t>& arrColumnEdges,
                               const std::vector<std::int32_t>& arrRowEdges, std::int32_t& lngRow,
                               std::int32_t& lngCol) {
  return Guarded(u"Utility.PtInGridCell", false, [&] {
    const auto cursor = CursorIn(hWnd);
    if (!cursor) return false;
    const auto column = BandAt(arrColumnEdges, cursor->x);
    const auto row = BandAt(arrRowEdges, cursor->y);
    if (!column || !row) return false;
    lngRow = *row;
    lngCol = *column;
    return true;
  });
}

bool GridAndKeys::ObjectInNodes(const KeyedItems& objNodes, TextView strKey) {
  return Guarded(u"Utility.ObjectInNodes", false, [&] { return objNodes.Has(strKey); });
}

bool GridAndKeys::ObjectInCollection(const KeyedItems& objCollection, TextView strKey) {
  return Guarded(u"Utility.ObjectInCollection", false, [&] { return objCollection.Has(strKey); });
}

}  // namespace fetchkit
