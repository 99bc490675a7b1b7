// What a list is made of, and whether it came in whole.
#pragma once

namespace fetchkit {

// A part is whole when its statement was answered and read to its end. Saving replaces what is
// stored by what was read, so a list of which a part is missing must not be saved.
struct LoadedParts {
  bool view = true;    // the view's texts
  bool list = true;    // the id of the operator's list
  bool fields = true;  // the columns with their settings and conditions
};

}  // namespace fetchkit
