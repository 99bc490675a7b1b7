// A login, services, lists and their saving on a host whose rows hold anything.
#include <stdexcept>

#include "fuzz/Fuzz.h"
#include "support/EveryService.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

Value AnyCell(Input& in, TextView column) {
  static constexpr TextView kWords[] = {u"1",          u"2",      u"6",    u"11",
                                        u"STRING",     u"CODE",   u"ENUM", u"DOUBLE",
                                        u"2004-03-17", u"PERIOD", u"DATE", u"a b"};
  const int kind = in.Below(12);
  if (kind == 0) throw std::runtime_error("row lost");
  const bool isText = EqualFolded(column.substr(0, 3), u"str");
  const Text text = kind < 5 || isText ? in.Pieces(kWords, 2) : Text();
  if (kind < 5) return AnyValue(in, text);
  return isText ? Value(text) : Value(static_cast<std::int32_t>(in.Byte()));
}

}  // namespace

FUZZ_TARGET(Records) {
  const auto host = std::make_shared<FakeConnection>();
  Answer answer;
  answer.cell = [&](TextView column) { return AnyCell(in, column); };
  host->fallback = [&](TextView sql) {
    EXPECT_TRUE(IsWellFormed(sql)) << ToUtf8(sql) << ", though no cell holds an apostrophe";
    const int rows = in.Below(5) - 1;
    answer.kind = rows >= 0   ? Answer::Kind::Rows
                  : in.Bool() ? Answer::Kind::Refused
                              : Answer::Kind::Throws;
    answer.rows.resize(static_cast<std::size_t>(std::max(rows, 0)));
    return &answer;
  };
  host->login.loginDate = in.Bool() ? Value(in.Units(6)) : Value(u"2004-03-17");
  Interface entry;
  entry.Initialize(host);
  for (int call = 0; call < 40 && !in.AtEnd(); ++call) {
    const std::uint8_t service = in.Byte();
    const TextView table = in.Pick<TextView>({u"Account", u"Department", u"x"});
    CallService(entry, service, table, in.Long());
    EXPECT_EQ(host->openRecordsets, 0);
  }
}

}  // namespace fetchkit::test
