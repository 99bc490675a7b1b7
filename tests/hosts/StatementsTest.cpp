// docs/statements.md is what the library sends: all of it, by all members.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <utility>

#include "fetchkit/base/Utf8.h"
#include "tools/statements/Document.h"

namespace fetchkit::statements {
namespace {

std::string Kept(const std::string& file) {
  std::ifstream in(FETCHKIT_SOURCE "/" + file);
  return {std::istreambuf_iterator<char>(in), {}};
}

const Recording& Recorded() {
  static const Recording recording = RecordStatements();
  return recording;
}

TEST(Statements, TheDocumentIsWhatARunWrites) {
  std::istringstream kept(Kept("docs/statements.md"));
  std::istringstream written(Document(Recorded()));
  for (std::string was, is; kept || written;) {
    std::getline(kept, was);
    std::getline(written, is);
    ASSERT_EQ(was, is) << "the first difference; ./run statements writes the document anew";
    was.clear();
    is.clear();
  }
}

TEST(Statements, EveryMemberOfTheTypeLibraryIsRecorded) {
  const std::string idl = Kept("component/FetchKit.idl");
  const std::regex member(
      R"(interface I(\w+) : IDispatch|\[id\(\d+\), helpstring\([^\n]*\)\]\s*HRESULT (\w+)\()");
  std::string object;
  std::vector<std::string> missing;
  int members = 0;
  for (std::sregex_iterator at(idl.begin(), idl.end(), member), end; at != end; ++at) {
    if ((*at)[1].matched) object = (*at)[1];
    // These have no session to send anything with; the next test would tell.
    if ((*at)[1].matched || object == "Utility" || object == "Diagnostics") continue;
    ++members;
    const std::string name = object + "." + std::string((*at)[2]);
    if (!Recorded().members.contains(name)) missing.push_back(name);
  }
  EXPECT_GT(members, 35);
  EXPECT_THAT(missing, testing::IsEmpty()) << "each needs a row in tools/statements/Recording.cpp";
}

// The component's tests call every member on a host of their own, and keep what was sent.
TEST(Statements, WhatTheComponentSendsIsRecordedForItsMember) {
  std::istringstream calls(Kept("tests/component/calls.txt"));
  std::string member;
  std::string sent;  // goes on to the line that begins with something else
  int statements = 0;
  const auto check = [&] {
    Chosen names{{u"Voucher", u"Account", u"Department"}, {}};
    if (sent.ends_with(" Where 1=0")) names.columns = {u"lngID"};
    for (const Shape& shape : ShapesOf(FromUtf8(std::exchange(sent, {})), names)) {
      ++statements;
      const bool isKnown = std::any_of(
          Recorded().shapes.begin(), Recorded().shapes.end(), [&](const RecordedShape& each) {
            return each.shape.text == shape.text &&
                   std::any_of(each.uses.begin(), each.uses.end(),
                               [&](const Use& use) { return use.member == member; });
          });
      EXPECT_TRUE(isKnown) << member << " sends " << shape.text
                           << "\nadd a call that does to tools/statements/Recording.cpp";
    }
  };
  for (std::string line; std::getline(calls, line) && line != "Properties after a login";) {
    const bool sends = line.starts_with("  sends ");
    const bool isOther = line.starts_with("  leaves ") || line.starts_with("a ") ||
                         line.starts_with("an ") || line.starts_with("#");
    const bool isCall = line.starts_with("call¦") || line.starts_with("put¦");
    if (sends || isOther || isCall) check();
    if (isCall) {
      const Text call = FromUtf8(line);
      const auto cells = Split(call, u"¦");
      member = ToUtf8(Join(cells.at(1).substr(1), u".", cells.at(2)));
    } else if (sends) {
      sent = std::regex_replace(line, std::regex("^  sends (static: |execute: )?"), "");
    } else if (!sent.empty()) {
      sent += "\n" + line;
    }
  }
  check();
  EXPECT_GT(statements, 30);
}

}  // namespace
}  // namespace fetchkit::statements
