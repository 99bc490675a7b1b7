// The engines, each made in a file of its own.
#pragma once

#include "hosts/dialect/Engine.h"

namespace fetchkit::hosts {

const Engine& Oracle();
const Engine& PostgreSql();
const Engine& MariaDb();
const Engine& Sqlite();

}  // namespace fetchkit::hosts
