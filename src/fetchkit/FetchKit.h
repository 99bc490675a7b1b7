// Everything that a host needs: the entry and all that it hands out, what a host implements, and
// the vocabulary. Hosts that draw the dialogs themselves include the forms from dialogs/ besides.
#pragma once

#include "fetchkit/Version.h"
#include "fetchkit/base/Date.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/host/SessionConnection.h"
#include "fetchkit/platform/Platform.h"
#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/Utility.h"
