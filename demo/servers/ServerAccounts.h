// The sample accounts written to a database server.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "demo/SampleHost.h"

namespace fetchkit::demo {

class ServerAccounts {
 public:
  // Looks which of the sample accounts' tables, views and sequences the database has already.
  // Throws Error (Host) for what the driver or the database refuses, and std::invalid_argument for
  // Oracle, whose schemas only its administrator makes.
  explicit ServerAccounts(const OdbcTarget& target);
  ~ServerAccounts();
  ServerAccounts(const ServerAccounts&) = delete;
  ServerAccounts& operator=(const ServerAccounts&) = delete;

  // "acc01.voucher", ...: those there that an earlier Load has made, which Load replaces, and those
  // that somebody else has, which it does not touch.
  const std::vector<std::string>& made() const;
  const std::vector<std::string>& foreign() const;

  struct Written {
    std::size_t tables = 0;
    std::size_t rows = 0;
  };

  // Drops what an earlier one has made and writes the accounts, each into a schema of its name.
  // Throws std::runtime_error, before it changes anything, when there is something foreign.
  Written Load();

 private:
  class Loader;
  std::unique_ptr<Loader> loader_;
};

}  // namespace fetchkit::demo
