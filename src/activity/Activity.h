// The public class Activity: database services. Its members follow.
#pragma once

namespace fetchkit {

// Without state of its own; one per thread from Interface.Activity, or created by the host.
class Activity {};

}  // namespace fetchkit
