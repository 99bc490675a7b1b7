// What a statement looks like to whoever runs the database: its shape without the values of one
// call, the tables that it needs, and the columns by which it finds its rows.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit::statements {

// Names in a statement that its caller chose, and that another call would have otherwise.
struct Chosen {
  std::vector<Text> tables;
  std::vector<Text> columns;
};

enum class Privilege { Select, Insert, Update, Delete, Sequence };

struct Need {
  std::string table;  // as the sample accounts spell it; "System.GaBaseInfo", "LIST_SEQ"
  Privilege privilege = Privilege::Select;
  bool chosen = false;  // the caller named it

  auto operator<=>(const Need&) const = default;
};

struct Shape {
  // In one line, as it is sent but for the values, which are "?", and for what the caller chose:
  // TABLE, COLUMN, STEM (of a code table's columns) and ACCOUNT, the schema.
  std::string text;
  std::set<Need> needs;
  // Per table the columns that the conditions compare with something: equalities first.
  std::map<std::string, std::vector<std::string>> index;

  bool IsWrite() const;
};

// Of every statement of the text: a block has several. Error (Host) for text that is none.
std::vector<Shape> ShapesOf(TextView sql, const Chosen& chosen = {});

}  // namespace fetchkit::statements
