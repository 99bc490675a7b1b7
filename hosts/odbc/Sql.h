// The interface of ODBC, as each system has it.
#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define SQL_NOUNICODEMAP  // the names without a W are the narrow calls
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
