// Whether texts come through a driver whole.
#pragma once

#include <chrono>

#include "fetchkit/base/Text.h"
#include "hosts/dialect/Engine.h"
#include "hosts/odbc/Statement.h"

namespace fetchkit::odbc {

// Sends a text of several alphabets to and fro. Error (Host) when the database refuses.
bool TextsComeThrough(Statement&& statement, const hosts::Engine& engine);

// The encoding in which they do, for who opens a Link; where there is a choice, connections are
// opened to find out. timeout: see OdbcSettings. Error (Host) as when a Link is opened.
Encoding EncodingFor(TextView connectionString, SqlEngine engine, std::chrono::seconds timeout);

}  // namespace fetchkit::odbc
