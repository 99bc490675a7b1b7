// Collections and arrays that callers hand to Utility.
#pragma once

#include <cstdint>
#include <vector>

#include "component/Windows.h"
#include "fetchkit/utility/GridAndKeys.h"

namespace fetchkit {

// Any object with an Item(key): a tree's nodes, a collection, a dictionary. Asked late-bound, by
// Exists(key) where it has that (a dictionary's Item would add the key), else by Item. Not counted;
// for the time of one call.
class KeyedItemsOf : public KeyedItems {
 public:
  explicit KeyedItemsOf(IDispatch* object) : object_(object) {}

  // ComError for what the object raises, and for no object.
  bool Has(TextView key) const override;

 private:
  IDispatch* object_;
};

// The items of an array of numbers. ConvertError for anything else.
std::vector<std::int32_t> LongsOf(const VARIANT& array);

}  // namespace fetchkit
