#include "tools/statements/Document.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/dialect/Engine.h"
#include "hosts/dialect/Tokenizer.h"

namespace fetchkit::statements {
namespace {

constexpr std::string_view kPrivileges[] = {"SELECT", "INSERT", "UPDATE", "DELETE", "sequence"};
constexpr std::size_t kWidth = 100;

std::string Lower(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

// ---- shapes that differ in what may be left out

// A condition's parts: everything up to WHERE, the terms between its ANDs, each with its own AND in
// front, and the order behind them.
struct Parts {
  std::string head;
  std::vector<std::string> terms;
  std::string tail;

  explicit Parts(const std::string& text) {
    // The dialect has no "?": a literal stands in for it.
    const hosts::Tokens tokens = hosts::Tokenize(ReplaceText(FromUtf8(text), u"?", u"'?'"));
    const auto piece = [&](std::size_t begin, std::size_t end) {
      return ToUtf8(ReplaceText(hosts::ToSql(hosts::Slice(tokens, begin, end)), u"'?'", u"?"));
    };
    std::size_t at = hosts::FindWord(tokens, {u"WHERE"});
    const std::size_t end = std::max(at, hosts::FindWord(tokens, {u"ORDER"}));
    head = piece(0, at);
    while (at < end) {
      const std::size_t next = std::min(end, hosts::FindWord(tokens, {u"AND"}, at + 1));
      terms.push_back(piece(at, next));
      at = next;
    }
    tail = piece(end, tokens.size());
  }
};

// Whether all terms of the shorter one are among the longer one's, in their order.
bool IsPartOf(const std::vector<std::string>& few, const std::vector<std::string>& many) {
  std::size_t at = 0;
  for (const std::string& term : many)
    if (at < few.size() && few[at] == term) ++at;
  return at == few.size() && few.size() < many.size() && few.front() == many.front();
}

bool ShareMember(const RecordedShape& a, const RecordedShape& b) {
  return std::any_of(a.uses.begin(), a.uses.end(), [&](const Use& use) {
    return std::any_of(b.uses.begin(), b.uses.end(),
                       [&](const Use& other) { return other.member == use.member; });
  });
}

// Takes over what another shape has, which has become a part of this one.
void Take(RecordedShape& target, RecordedShape& source) {
  target.shape.needs.merge(source.shape.needs);
  for (auto& [table, columns] : source.shape.index)
    target.shape.index.try_emplace(table, std::move(columns));
  for (Use& use : source.uses)
    if (std::none_of(target.uses.begin(), target.uses.end(),
                     [&](const Use& known) { return known.member == use.member; }))
      target.uses.push_back(std::move(use));
  source.uses.clear();
}

// Statements without some of another's terms become one with it; these terms stand in brackets.
void JoinTerms(std::vector<RecordedShape>& shapes) {
  std::vector<Parts> parts;
  for (const RecordedShape& each : shapes)
    parts.emplace_back(each.shape.text);
  // The longest first, so that all that are parts of it find it.
  std::vector<std::size_t> order(shapes.size());
  for (std::size_t i = 0; i < order.size(); ++i)
    order[i] = i;
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return parts[a].terms.size() > parts[b].terms.size();
  });
  for (const std::size_t longest : order) {
    std::set<std::string> optional;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
      if (shapes[i].uses.empty() || parts[i].terms.empty() ||
          parts[i].head != parts[longest].head || parts[i].tail != parts[longest].tail ||
          shapes[i].accounts != shapes[longest].accounts ||
          !ShareMember(shapes[i], shapes[longest]) ||
          !IsPartOf(parts[i].terms, parts[longest].terms))
        continue;
      for (const std::string& term : parts[longest].terms)
        if (std::find(parts[i].terms.begin(), parts[i].terms.end(), term) == parts[i].terms.end())
          optional.insert(term);
      Take(shapes[longest], shapes[i]);
    }
    if (optional.empty()) continue;
    std::string& text = shapes[longest].shape.text = parts[longest].head;
    for (const std::string& term : parts[longest].terms)
      text += optional.contains(term) ? fmt::format(" [{}]", term) : " " + term;
    if (!parts[longest].tail.empty()) text += " " + parts[longest].tail;
  }
}

// INSERTs into the same table become one; columns that are not in all of them stand in brackets.
void JoinInserts(std::vector<RecordedShape>& shapes) {
  std::map<std::string, std::size_t> firsts;
  std::map<std::size_t, std::vector<std::vector<std::string>>> columns;
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    const std::string& text = shapes[i].shape.text;
    if (!Lower(text).starts_with("insert ")) continue;
    const std::size_t open = text.find('(');
    const std::size_t first = firsts.try_emplace(Lower(text.substr(0, open)), i).first->second;
    auto& lists = columns[first];
    lists.emplace_back();
    std::size_t begin = open + 1;
    for (const std::size_t close = text.find(')'); begin < close;) {
      const std::size_t end = std::min(text.find(',', begin), close);
      lists.back().push_back(text.substr(begin, end - begin));
      begin = end + 1;
    }
    if (first != i) Take(shapes[first], shapes[i]);
  }
  for (const auto& [first, lists] : columns) {
    std::vector<std::string> all;
    std::map<std::string, std::size_t> count;
    for (const auto& list : lists)
      for (const std::string& column : list)
        if (++count[column] == 1) all.push_back(column);
    if (lists.size() == 1) continue;
    std::string& text = shapes[first].shape.text;
    text.resize(text.find('(') + 1);
    for (const std::string& column : all) {
      const bool isOptional = count[column] < lists.size();
      text += fmt::format("{}{}{}{}", isOptional ? "[" : "", &column == &all[0] ? "" : ",", column,
                          isOptional ? "]" : "");
    }
    text += ") Values (?,...)";
  }
}

// ---- the statements

struct Group {
  std::string_view title;
  std::string_view text;
  std::vector<std::string_view> members;  // or beginnings of them
};

const Group kGroups[] = {
    {"Logging in",
     "An unchanged login sends nothing. With another operator the operator and the service "
     "customer\n"
     "are read again, with another organization these and the organization, with another account "
     "all.",
     {"Interface."}},
    {"Services",
     "TABLE and COLUMN are the caller's, and so is the condition of `GetCurrencyDec`.",
     {"Activity."}},
    {"Rights",
     "What the operator may do and which codes the organization may use.",
     {"OperatorRight.", "OrganizationRight."}},
    {"Loading a list",
     "TABLE is a code table, STEM the word in its columns' names.",
     {"ListSet.ViewId", "ListSet.RefreshListField", "ListSet.FindAllKeyID"}},
    {"Saving a list",
     "What concerns `ListCond` and `ListMultiIDCond` is one block, done wholly or not at all. OK "
     "in the\n"
     "filter dialog sends this block alone. `List` is written when a list is saved for the first "
     "time.",
     {"ListSet.SaveList"}},
    {"The filter dialog",
     "Read when a column is opened, once while the dialog is open. TABLE is the code table that\n"
     "`ViewField.strKeyField` names, STEM the word in its columns' names. The statements without "
     "a\n"
     "condition are sent where the table has no `blnIsInActive`.",
     {"ListSet.ShowFilter", "ListSet.SetCondition"}},
};

// A statement in lines: long ones break in front of their clauses, else behind commas and blanks.
std::string Wrapped(const std::string& text) {
  if (text.size() <= kWidth) return text + "\n";
  static const std::set<std::string> kClauses = {"FROM", "WHERE", "ORDER", "VALUES", "TO", "SET"};
  std::string wrapped;
  std::string line;
  const auto newLine = [&] {
    wrapped += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    line = "  ";
  };
  int depth = 0;
  for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end) {
    end = std::min(text.find_first_of(" ,", begin), text.size() - 1) + 1;
    const std::string piece = text.substr(begin, end - begin);
    const bool isClause =
        depth == 0 &&
        kClauses.contains(ToUtf8(UpperAscii(FromUtf8(piece.substr(0, piece.find(' '))))));
    if (line.size() > 2 && (isClause || piece.starts_with("[A") ||
                            line.size() + piece.find_last_not_of(' ') + 1 > kWidth))
      newLine();
    line += piece;
    for (const char c : piece)
      depth += c == '(' ? 1 : c == ')' ? -1 : 0;
  }
  newLine();
  return wrapped;
}

std::string UsesText(const RecordedShape& each) {
  std::vector<std::pair<std::string, std::string>> lines;  // when, members
  for (const Use& use : each.uses) {
    const auto known = std::find_if(lines.begin(), lines.end(),
                                    [&](const auto& line) { return line.first == use.when; });
    const std::string member = fmt::format("`{}`", use.member);
    if (known == lines.end()) {
      lines.emplace_back(use.when, member);
    } else {
      known->second += ", " + member;
    }
  }
  std::string text;
  for (const auto& [when, members] : lines)
    text += fmt::format("{}{}: {}", text.empty() ? "" : "; ", members, when);
  if (!each.accounts.empty()) text += fmt::format(". Only accounts {}", each.accounts);
  return text;
}

// Tables that are read or written, the caller's as TABLE.
std::string TablesText(const Shape& shape) {
  std::map<std::string, std::set<Privilege>> tables;
  for (const Need& need : shape.needs) {
    const std::string name = !need.chosen                            ? need.table
                             : need.privilege == Privilege::Sequence ? "TABLE_SEQ"
                                                                     : "TABLE";
    tables[name].insert(need.privilege);
  }
  std::string text;
  std::string_view before;
  for (const auto& [table, privileges] : tables) {
    const Privilege most = *privileges.rbegin();
    const std::string_view verb = most == Privilege::Select     ? "reads "
                                  : most == Privilege::Sequence ? "draws from "
                                                                : "writes ";
    text += fmt::format("{}{}{}", text.empty() ? "" : ", ", verb == before ? "" : verb, table);
    before = verb;
  }
  return text;
}

std::string IndexText(const Shape& shape) {
  std::string text;
  for (const auto& [table, columns] : shape.index)
    text += fmt::format("{}{} ({})", text.empty() ? "" : "; ", table, fmt::join(columns, ", "));
  return text.empty() ? "–" : text;
}

std::string StatementsText(const Recording& recording) {
  std::vector<RecordedShape> shapes = recording.shapes;
  JoinTerms(shapes);
  JoinInserts(shapes);
  std::erase_if(shapes, [](const RecordedShape& each) { return each.uses.empty(); });
  std::string text;
  int number = 0;
  for (const Group& group : kGroups) {
    text += fmt::format(
        "\n## {}\n\n{}\n\n| | sent by, how often | tables | index |\n|--:|---|---|---|\n",
        group.title, group.text);
    std::string block;
    for (const RecordedShape& each : shapes) {
      const std::string& first = each.uses.front().member;
      if (std::none_of(group.members.begin(), group.members.end(),
                       [&](std::string_view member) { return first.starts_with(member); }))
        continue;
      ++number;
      text += fmt::format("| {} | {} | {} | {} |\n", number, UsesText(each), TablesText(each.shape),
                          IndexText(each.shape));
      block +=
          fmt::format("{}-- {}\n{}", block.empty() ? "" : "\n", number, Wrapped(each.shape.text));
    }
    text += fmt::format("\n```sql\n{}```\n", block);
  }
  if (number != static_cast<int>(shapes.size()))
    throw std::logic_error("a member that sends something belongs to no group of the document");
  return text;
}

std::string Silent(const Recording& recording) {
  std::set<std::string> silent = recording.members;
  for (const RecordedShape& each : recording.shapes)
    for (const Use& use : each.uses)
      silent.erase(use.member);
  return Wrapped(fmt::format("`{}`.", fmt::join(silent, "`, `")));
}

// ---- the grants

struct Grant {
  Owner owner;
  std::string table;  // as Need has it
  Privilege privilege;
};

// The smallest set with which everything works that was recorded.
std::vector<Grant> GrantsOf(const Recording& recording) {
  std::vector<Grant> grants;
  for (const Owner owner : {Owner::Library, Owner::CodeTable, Owner::Host})
    for (const Need& need : recording.needs[static_cast<std::size_t>(owner)])
      grants.push_back({owner, need.table, need.privilege});
  std::stable_sort(grants.begin(), grants.end(), [](const Grant& a, const Grant& b) {
    return std::pair(a.owner, Lower(a.table)) < std::pair(b.owner, Lower(b.table));
  });
  return grants;
}

// The table in the schema of the sample account, as the engine wants it quoted.
std::string Name(SqlEngine engine, const std::string& table) {
  constexpr std::string_view kSystem = "System.";
  if (engine == SqlEngine::Oracle) return table.starts_with(kSystem) ? table : "ACC01." + table;
  const bool isSystems = table.starts_with(kSystem);
  std::string name = isSystems ? table.substr(kSystem.size()) : table;
  const auto& keywords = hosts::EngineOf(engine).Keywords();
  const bool isKeyword =
      std::find(keywords.begin(), keywords.end(), UpperAscii(FromUtf8(name))) != keywords.end();
  const char quote = engine == SqlEngine::MariaDb ? '`' : '"';
  if (engine == SqlEngine::PostgreSql) name = Lower(name);
  return (isSystems ? "system." : "acc01.") + (isKeyword ? quote + name + quote : name);
}

// What an engine calls the privilege.
std::string_view Word(SqlEngine engine, Privilege privilege) {
  if (privilege != Privilege::Sequence) return kPrivileges[static_cast<std::size_t>(privilege)];
  return engine == SqlEngine::PostgreSql ? "USAGE"
         : engine == SqlEngine::MariaDb  ? "SELECT, INSERT"
                                         : "SELECT";
}

// Statements that give them to the user of the document.
std::vector<std::string> GrantStatements(SqlEngine engine, const std::vector<Grant>& grants) {
  const std::string_view who = engine == SqlEngine::MariaDb  ? "'fetchkit'@'%'"
                               : engine == SqlEngine::Oracle ? "FETCHKIT"
                                                             : "fetchkit";
  // PostgreSQL takes several tables in a statement.
  const bool takesSeveral = engine == SqlEngine::PostgreSql;
  std::vector<std::pair<std::string, std::set<Privilege>>> tables;
  for (const Grant& grant : grants) {
    const std::string name =
        (takesSeveral && grant.privilege == Privilege::Sequence ? "SEQUENCE " : "") +
        Name(engine, grant.table);
    auto known = std::find_if(tables.begin(), tables.end(),
                              [&](const auto& table) { return table.first == name; });
    if (known == tables.end()) known = tables.insert(tables.end(), {name, {}});
    known->second.insert(grant.privilege);
  }
  std::vector<std::pair<std::string, std::vector<std::string>>> statements;  // privileges, tables
  for (const auto& [name, privileges] : tables) {
    std::string words;
    for (const Privilege privilege : privileges)
      words += fmt::format("{}{}", words.empty() ? "" : ", ", Word(engine, privilege));
    auto known = std::find_if(statements.begin(), statements.end(), [&](const auto& each) {
      return takesSeveral && each.first == words;
    });
    if (known == statements.end()) known = statements.insert(statements.end(), {words, {}});
    const bool repeats = !known->second.empty() && name.starts_with("SEQUENCE ");
    known->second.push_back(repeats ? name.substr(9) : name);
  }
  std::vector<std::string> texts;
  for (const auto& [words, names] : statements)
    texts.push_back(fmt::format("GRANT {} ON {} TO {}", words, fmt::join(names, ", "), who));
  return texts;
}

std::string GrantBlock(SqlEngine engine, const std::vector<Grant>& grants,
                       std::string_view before) {
  std::string block = fmt::format("```sql\n{}", before);
  constexpr std::string_view kTitles[] = {"the library", "the code tables of the sample views",
                                          "the host's own queries and ids"};
  for (const Owner owner : {Owner::Library, Owner::CodeTable, Owner::Host}) {
    std::vector<Grant> owned;
    std::copy_if(grants.begin(), grants.end(), std::back_inserter(owned),
                 [&](const Grant& grant) { return grant.owner == owner; });
    block += fmt::format("-- {}\n", kTitles[static_cast<std::size_t>(owner)]);
    for (const std::string& statement : GrantStatements(engine, owned))
      block += Wrapped(statement + ";");
  }
  return block + "```\n";
}

// One row for all tables with the same privileges.
std::string GrantTable(const std::vector<Grant>& grants) {
  constexpr std::string_view kTitles[] = {"the library", "code tables", "the host"};
  std::string text =
      "| for | tables and sequences | SELECT | INSERT | UPDATE | DELETE | sequence |\n"
      "|---|---|---|---|---|---|---|\n";
  for (const Owner owner : {Owner::Library, Owner::CodeTable, Owner::Host}) {
    std::map<std::string, std::set<Privilege>> tables;
    for (const Grant& grant : grants)
      if (grant.owner == owner) tables[grant.table].insert(grant.privilege);
    std::map<std::set<Privilege>, std::vector<std::string>> rows;
    for (const Grant& grant : grants)
      if (const auto table = tables.extract(grant.table); grant.owner == owner && table)
        rows[table.mapped()].push_back(grant.table);
    for (const auto& [privileges, names] : rows) {
      text += fmt::format("| {} | {} |", kTitles[static_cast<std::size_t>(owner)],
                          fmt::join(names, ", "));
      for (std::size_t i = 0; i < std::size(kPrivileges); ++i)
        text += privileges.contains(static_cast<Privilege>(i)) ? " x |" : " |";
      text += "\n";
    }
  }
  return text;
}

constexpr std::string_view kIntroduction =
    R"(# Statements: for whoever runs the database

`./run statements` writes this page: it calls every member on the sample accounts and records what is
sent. Do not edit it; `./run test` compares.

- **Who connects**: the host, with the database user of its own connection. The library opens none
  and knows no password of a database user. With ODBC that is the connection string's user
  ([hosts.md](hosts.md)).
- **What is read**: the tables below, in the account's schema, and `System.GaBaseInfo`. And what the
  host asks with a list's texts: the tables that your views name in `View1.strViewSQL`.
- **What is written**: `List`, `ListField`, `ListCond` and `ListMultiIDCond`, when somebody saves a
  list or presses OK in the filter dialog; numbers are drawn from sequences. Nothing else: no table
  is made, changed or locked.
- **What to grant**: [the smallest set](#the-smallest-set-of-grants), at the end.
- **Transactions**: each change is one of its own. Nothing is held open while a dialog is.

Values stand as `?`, what may be left out in `[ ]`. ACCOUNT is the account's schema. Statements are
in the library's dialect, Oracle's; for another engine the host rewrites them, with the same tables
and conditions.

"How often" is measured on one thread's session: "once per login" is kept while organization and
operator stay, and found again when they come back.

**The indexes are recommendations**, read off the conditions: compared columns first, ranges last,
flags left out. They were not measured on your data. Where a key of yours begins with these columns,
or the table has a few hundred rows, none is needed.
)";

constexpr std::string_view kGrants =
    R"(
## The smallest set of grants

The names are those of the sample account ACC01, the user is `fetchkit`. Rows "code tables" and "the
host" are examples from the sample accounts: grant SELECT on what your views name in
`ViewField.strKeyField` and `View1.strViewSQL` and on tables that the host asks `TableNameExists`
for, and the sequence of each table for which the host asks `GetNewID`.

)";

constexpr std::string_view kAfterTable =
    R"(
- Who only looks needs neither INSERT, UPDATE, DELETE nor a sequence; saving then fails, and the
  diagnostics have the server's own words.
- A missing grant is told to the diagnostics with the table's name, in the server's words.
- **Do not leave out `OrgCodeAllot`**: an account without this table lets every organization use every
  code, and a table that may not be read passes for one that is not there.
- Accounts of type 8 have `McCustomer` instead of `SSCustomer`, those of type 16 `ACCOUNTTYPEVIEW`
  instead of `AccountType`.
)";

}  // namespace

std::string Document(const Recording& recording) {
  const std::vector<Grant> grants = GrantsOf(recording);
  std::string text(kIntroduction);
  text += StatementsText(recording);
  text += fmt::format(
      "\nNothing is sent by the members of `Utility`, by properties other than `ListSet.ViewId`, "
      "and by\n{}",
      Silent(recording));
  text += kGrants;
  text += GrantTable(grants);
  text += kAfterTable;
  text +=
      "\n### PostgreSQL\n\nTested: with these the demo's commands answer as for the tables' "
      "owner, and without any one\nof them one fails.\n\n";
  text += GrantBlock(SqlEngine::PostgreSql, grants,
                     "GRANT USAGE ON SCHEMA acc01, system TO fetchkit;\n");
  text += "\n### MariaDB\n\nTested in the same way.\n\n";
  text += GrantBlock(SqlEngine::MariaDb, grants, "");
  text += "\n### Oracle\n\n**Untested**: no Oracle was to be had.\n\n";
  text += GrantBlock(SqlEngine::Oracle, grants, "GRANT CREATE SESSION TO FETCHKIT;\n");
  return text;
}

}  // namespace fetchkit::statements
