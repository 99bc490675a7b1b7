// An account in the embedded database: the library's statements on a file or on tables in memory.
#pragma once

#include <memory>

#include "hosts/shared/TracedConnection.h"
#include "hosts/sqlite/Database.h"

namespace fetchkit {

class SqliteConnection : public TracedConnection {
 public:
  // The database has the account attached first, its sequences in a table
  // demo_sequence(name, last), and the server's own database as System.
  SqliteConnection(std::shared_ptr<hosts::Database> database, Login login);

  // The accounts themselves, for what a host does without the library.
  hosts::Database& database() { return *database_; }

 protected:
  std::shared_ptr<hosts::MemoryRecordset> Query(TextView sql, Text& adapted) override;
  std::int64_t Change(TextView sql, Text& adapted) override;

 private:
  std::shared_ptr<hosts::Database> database_;
};

}  // namespace fetchkit
