// Hit tests of the cursor over a grid, and look-ups of a key in a collection or a tree.
//
// Their arguments are this system's own choice: plain numbers and one small interface instead of
// the controls, so that any grid, tree or collection of a host can be asked about.
#pragma once

#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// What can be asked for an entry by its key.
class KeyedItems {
 public:
  virtual ~KeyedItems() = default;

  // May throw, as collections do for a key that they do not have.
  virtual bool Has(TextView key) const = 0;
};

class GridAndKeys {
 public:
  // Whether the cursor is over the part of a grid that holds cells. hWnd is the grid's window; the
  // part is given in pixels of its client area. False when hWnd is no window or the cursor's place
  // is not known.
  static bool PtInGridAvailRect(std::int32_t hWnd, std::int32_t lngLeft, std::int32_t lngTop,
                                std::int32_t lngWidth, std::int32_t lngHeight);

  // Whether the cursor is over a cell of the grid, and over which. The edges are pixels of the
  // client area in ascending order, the last one just outside: column 0 lies from arrColumnEdges[0]
  // up to, not including, arrColumnEdges[1]. A hidden column or row has two equal edges and is
  // never hit. Rows and columns count from 0; the outputs are untouched when the answer is False.
  static bool PtInGridCell(std::int32_t hWnd, const std::vector<std::int32_t>& arrColumnEdges,
                           const std::vector<std::int32_t>& arrRowEdges, std::int32_t& lngRow,
                           std::int32_t& lngCol);

  // Whether a tree has a node, or a collection an entry, under that key; False when asking for it
  // raises an error.
  static bool ObjectInNodes(const KeyedItems& objNodes, TextView strKey);
  static bool ObjectInCollection(const KeyedItems& objCollection, TextView strKey);
};

}  // namespace fetchkit
