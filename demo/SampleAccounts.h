// The sample accounts: which scripts make their databases, and the logins that the demo shows.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

struct sqlite3;
namespace fetchkit::hosts {
class Database;
}

namespace fetchkit::demo {

// Texts are UTF-8 and live as long as the program.
struct SampleDatabase {
  std::string_view schema;  // the database user who owns the tables, and the name to attach under
  std::string_view prefix;  // for RunScripts
};

// The server's own database first, then the accounts.
const std::vector<SampleDatabase>& SampleDatabases();

struct SampleLogin {
  std::string_view name;         // a word for the command line
  std::string_view description;  // what differs from the main login, or what is odd here
  std::int32_t accountType;
  std::string_view serverName;
  std::string_view userId;     // the schema of one of SampleDatabases
  std::string_view loginDate;  // "yyyy-MM-dd"
  std::int32_t organizationId;
  std::int32_t operatorId;
  std::string_view password;      // as the operator typed it
  std::string_view ssCustomerId;  // the value of "#SSCustomerID", a text
};

// The main login first. Each of the others differs from it in the one thing that it is named after,
// except those into another account, where ids mean other rows.
const std::vector<SampleLogin>& SampleLogins();

// Throws std::invalid_argument, which lists the names there are, for one that is none of them.
const SampleLogin& FindSampleLogin(std::string_view name);

// Runs, in alphabetical order, the embedded scripts whose name up to its first '_' or '.' is
// prefix. An account's scripts (prefix "acc" and a number) fill tables that all accounts share:
// "tables" runs before them. The statements go to the main database of db, which has to be fresh.
// Throws std::runtime_error with script name and message when a script fails, or when there is none
// with this prefix; the database is then as it was.
void RunScripts(sqlite3* db, std::string_view prefix);

// What these scripts make, to be read and copied. They take a while, so a process runs them once.
// The same errors.
const hosts::Database& SampleOriginal(std::string_view prefix);

}  // namespace fetchkit::demo
