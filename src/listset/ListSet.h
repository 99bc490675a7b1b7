// The public class ListSet: saved lists over database views. Its members follow.
#pragma once

namespace fetchkit {

// One per thread from Interface.ListSet, or created by the host.
class ListSet {};

}  // namespace fetchkit
