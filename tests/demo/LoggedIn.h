// A test that is logged in to the sample accounts.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "demo/commands/DemoSession.h"
#include "fetchkit/listset/ListSet.h"

namespace fetchkit::demo {

class LoggedIn : public testing::Test {
 protected:
  LoggedIn() {
    session_.Switch("main");
    session_.LogIn();
  }
  ~LoggedIn() override {
    EXPECT_EQ(session_.connection()->openRecordsets(), 0);
    std::fclose(paper_);
  }

  ListSet& set() { return *session_.entry().ListSet(); }

  ListType Load(std::int32_t view) {
    set().ViewId(view);
    return set().List();
  }

  // What an operator has set. Which columns are shown is left aside: saving shows every column that
  // the list keeps, whatever was shown before.
  static ListType Settings(ListType list) {
    for (ListFieldType& field : list.ListField)
      field.blnIsChoosed = false;
    return list;
  }

  // The rows of the host's own query; -1 when it is refused.
  std::int64_t Rows() {
    RecordsetPtr rows;
    const Text sql = Join(u"Select", set().GetListSelect(), u" From ", set().ListFrom(), u" Where ",
                          set().ListWhere(), set().ListPureWhere().empty() ? u"" : u" And ",
                          set().ListPureWhere());
    if (!session_.connection()->OpenStaticRecordset(sql, rows, 3, 1, 1, 0)) return -1;
    const std::int64_t count = rows->RecordCount();
    session_.connection()->CloseRecordset(rows);
    return count;
  }

  // What has been printed.
  std::string Paper() {
    std::string text(static_cast<std::size_t>(std::ftell(paper_)), '\0');
    std::rewind(paper_);
    text.resize(std::fread(text.data(), 1, text.size(), paper_));
    return text;
  }

  std::FILE* paper_ = std::tmpfile();
  Console console_{paper_, ColourMode::Never};
  DemoSession session_{console_, false};
};

}  // namespace fetchkit::demo
