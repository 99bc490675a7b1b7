// A sample connection as the component expects its host's.
#pragma once

#include <memory>

#include "component/Windows.h"
#include "demo/host/SampleConnection.h"
#include "idl/FetchKitHost.h"

namespace fetchkit::demo {

// With a reference for the caller: the living object of that connection or a new one.
ISessionConnection* ConnectionObjectOf(std::shared_ptr<SampleConnection> connection);

}  // namespace fetchkit::demo
