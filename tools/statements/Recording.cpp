#include "tools/statements/Recording.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "demo/SampleHost.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/CodeTables.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::statements {
namespace {

// Opens every column of the filter dialog and confirms it as it is.
class EveryColumn : public FormView {
 public:
  void ShowModal(frmFilter& form, std::int32_t) override {
    for (std::size_t i = 0; i < form.tvwFilter.Nodes().size(); ++i)
      form.tvwFilter.UserClickedNode(static_cast<int>(i));
    form.UserPressedEnter();
    if (form.IsOpen()) form.UserPressedEscape();
  }
  void ShowModal(frmFilterColumn& form, const frmFilter&) override { form.UserPressedEscape(); }
  void ShowModal(frmMultiChoose& form, std::int32_t) override { form.UserPressedEscape(); }
};

// The login's objects, and which of two sets of arguments a member is called with.
struct Login {
  Activity activity;
  OperatorRight& rights;
  OrganizationRight& allotted;
  ListSet& list;
  bool other = false;

  TextView Table() const { return other ? u"Customer" : u"Department"; }
  TextView Day() const { return other ? u"2004-02-05" : u"2004-03-17"; }
  Date Now() const { return ToDate(Day()); }
};

struct Call {
  std::string_view member;
  std::string_view per;  // what the two sets of arguments differ in
  std::function<void(Login&)> call;
  Owner names = Owner::Library;  // who chose the names below
  Chosen chosen = {};
  std::function<void(Login&)> prepare = {};
};

// The date services, each with every keyword.
void EveryKeyword(Login& in, bool ranges) {
  Date begin;
  Date end;
  int at = 0;
  for (const TextView word : kDateKeywords) {
    Date now = in.Now();
    for (const bool financial : {false, true})
      if (!ranges) in.activity.GetBeginAndEndDate(word, now, begin, end, financial);
    // Without a date of its own: the second half tells that it is the keyword that counts.
    if (ranges && (at++ % 2 != 0) == in.other) in.activity.GetDateRange(word, begin, end);
  }
}

void EverySetting(Login& in) {
  const Value left = MissingValue();
  const Text key = in.other ? u"统计" : u"账簿抬头";
  for (const Value& section : {left, Value(u"标题设置")})
    for (const Value& module : {left, Value(std::int32_t{1})})
      for (const Value& organization : {left, Value(std::int32_t{-1})})
        in.activity.GetSysSetting(key, section, left, module, organization);
}

void LoadView(Login& in) {
  in.list.ViewId(in.other ? 102 : 101);
}

// A list that has not been saved yet.
void NewList(Login& in) {
  LoadView(in);
  ListType list = in.list.List();
  list.lngListID = 0;
  in.list.List(std::move(list));
}

// Code tables of every kind that the dialog's picker tells apart.
const std::vector<Text> kCodeTables = {
    u"Department", u"CustomType", u"CustomerType", u"Class1",     u"Customer", u"Employee",
    u"Account",    u"Class2",     u"Currencys",    u"Functional", u"Custom0",  u"FlexibleField05",
    u"FBPeriod",   u"FBScheme",   u"RTScheme",     u"VoucherType"};

// A list with a column for each of them, and for each kind of enumeration.
void EveryPicker(Login& in) {
  LoadView(in);
  ListType list = in.list.List();
  list.ListField.clear();
  const auto add = [&](TextView type, TextView caption) {
    ListFieldType& field = list.ListField.emplace_back();
    field.lngViewFieldID = static_cast<std::int32_t>(list.ListField.size());
    field.strPath = field.strListFieldDesc = Text(caption);
    field.strKeyField = Text(caption);
    field.strFieldType = Text(type);
    field.strTableName = u"T";
    field.strFieldName = u"T.c";
    field.blnIsFilter = true;
  };
  for (const Text& table : kCodeTables)
    add(u"CODE", table);
  for (const TextView caption : {u"操作员", u"操作员编码", u"科目类型", u"凭证状态"})
    add(u"ENUM", caption);
  in.list.List(std::move(list));
}

// As a script sets them: a column of codes or values asks for what its picker offers.
void EveryCondition(Login& in) {
  Text reason;
  const ListType list = in.list.List();
  for (const ListFieldType& field : list.ListField)
    in.list.SetCondition(field.strListFieldDesc, u"01", reason);
}

// Those that change what is saved stand last.
std::vector<Call> Calls() {
  const Chosen codes{kCodeTables, {}};
  const Chosen tables{{u"Voucher", u"VoucherDetail"}, {u"lngVoucherID"}};
  const auto voucher = [](Login& in) { return in.other ? u"VoucherDetail" : u"Voucher"; };
  return {
      {"Activity.GetNewID", "table", [](Login& in) { in.activity.GetNewID(u"Voucher"); },
       Owner::Host, tables},
      {"Activity.GetNewID", "table", [](Login& in) { in.activity.GetNewID(u"mmorder"); },
       Owner::Host},
      {"Activity.GetOrganizationCode", "organization",
       [](Login& in) { in.activity.GetOrganizationCode(in.other ? 8 : 3); }},
      {"Activity.IsDetailOrganization", "organization",
       [](Login& in) { in.activity.IsDetailOrganization(in.other ? 8 : 3); }},
      {"Activity.GetClass1Name", "", [](Login& in) { in.activity.GetClass1Name(); }},
      {"Activity.GetClass2Name", "", [](Login& in) { in.activity.GetClass2Name(); }},
      {"Activity.GetSysSetting", "setting", EverySetting},
      {"Activity.GetCurrencyDec", "condition",
       [](Login& in) { in.activity.GetCurrencyDec(u"lngCurrencyID=7"); }},
      {"Activity.FlexFieldIsUsed", "field",
       [](Login& in) {
         Text title;
         for (const TextView field : {u"智能字段01", u"智能字段02", u"智能字段05"})
           in.activity.FlexFieldIsUsed(field, title);
       }},
      {"Activity.TableNameExists", "table",
       [=](Login& in) { in.activity.TableNameExists(voucher(in)); }, Owner::Host, tables},
      {"Activity.TableFieldExists", "column",
       [=](Login& in) { in.activity.TableFieldExists(voucher(in), u"lngVoucherID"); }, Owner::Host,
       tables},
      {"Activity.GetAccountPeriod", "day",
       [](Login& in) {
         float year = 0;
         float period = 0;
         in.activity.GetAccountPeriod(in.Now(), year, period);
       }},
      {"Activity.GetPeriodCount", "year",
       [](Login& in) { in.activity.GetPeriodCount(in.other ? 2003 : 2004); }},
      {"Activity.GetEndDate", "day",
       [](Login& in) {
         Value begin = in.Day();
         Value end;
         in.activity.GetEndDate(begin, end);
       }},
      {"Activity.GetPeriodOfDate", "day",
       [](Login& in) {
         Date begin;
         Date end;
         in.activity.GetPeriodOfDate(in.Now(), begin, end);
       }},
      {"Activity.GetYearOfDate", "day",
       [](Login& in) {
         Date begin;
         Date end;
         std::int16_t period = 0;
         in.activity.GetYearOfDate(in.Now(), begin, end, period);
       }},
      {"Activity.GetBeginAndEndDate", "keyword and day",
       [](Login& in) { EveryKeyword(in, false); }},
      {"Activity.GetDateRange", "keyword", [](Login& in) { EveryKeyword(in, true); }},
      {"Activity.GetFormat", "", [](Login& in) { in.activity.GetFormat(2); }},
      {"Activity.FormatValue", "", [](Login& in) { in.activity.FormatValue(1); }},
      {"Activity.FormatSQL", "", [](Login& in) { in.activity.FormatSQL(u"a || Upper(b)"); }},

      {"OperatorRight.UserRight", "", [](Login& in) { in.rights.UserRight(u"12"); }},
      {"OperatorRight.HaveAllCodeQueryRight", "table",
       [](Login& in) { in.rights.HaveAllCodeQueryRight(in.Table()); }, Owner::Library, codes},
      {"OperatorRight.HaveAllCodeUseRight", "table",
       [](Login& in) { in.rights.HaveAllCodeUseRight(in.Table()); }, Owner::Library, codes},
      {"OperatorRight.HaveAllAccountQueryRight", "",
       [](Login& in) { in.rights.HaveAllAccountQueryRight(); }, Owner::Library, codes},
      {"OperatorRight.GetUserQueryRight", "table",
       [](Login& in) { in.rights.GetUserQueryRight(in.Table()); }, Owner::Library, codes},
      {"OperatorRight.Clear", "", [](Login& in) { in.rights.Clear(); }},
      {"OrganizationRight.IsCanDoForActivity", "table",
       [](Login& in) { in.allotted.IsCanDoForActivity(in.Table(), 1); }},
      {"OrganizationRight.HaveAllCodeUseRight", "table",
       [](Login& in) { in.allotted.HaveAllCodeUseRight(in.Table()); }},
      {"OrganizationRight.GetAllCodeUseRightSql", "table",
       [](Login& in) { in.allotted.GetAllCodeUseRightSql(in.Table()); }},
      {"OrganizationRight.GetAllotItem", "table",
       [](Login& in) { in.allotted.GetAllotItem(in.Table()); }},
      {"OrganizationRight.GetAllotItem2", "table",
       [](Login& in) { in.allotted.GetAllotItem2(in.Table(), u"1,2"); }},

      {"ListSet.ViewId", "view", LoadView},
      {"ListSet.RefreshListField",
       "view",
       [](Login& in) { in.list.RefreshListField(); },
       Owner::Library,
       {},
       LoadView},
      {"ListSet.FindAllKeyID", "table",
       [](Login& in) { in.list.FindAllKeyID(in.Table(), u"01 02"); }, Owner::CodeTable, codes},
      {"ListSet.FindAllKeyID",
       "table",
       [](Login& in) { in.list.FindAllKeyID(in.other ? u"Class1" : u"Area", u"01 02"); },
       Owner::Library,
       {{u"Class1", u"Area"}, {}}},
      {"ListSet.GetListSelect",
       "",
       [](Login& in) { in.list.GetListSelect(); },
       Owner::Library,
       {},
       LoadView},
      {"ListSet.ModifyTableName", "",
       [](Login& in) { in.list.ModifyTableName(u"V.a", u"V.", u"W."); }},
      {"ListSet.CondStrToNum", "", [](Login& in) { in.list.CondStrToNum(u"大于"); }},
      {"ListSet.ShowMultiChoose", "",
       [](Login& in) {
         ValueArray items;
         items.dimensioned = true;
         items.items = {u"", u"a"};
         Text shown;
         bool ok = false;
         in.list.ShowMultiChoose(nullptr, u"a", u"", shown, true, Value(std::move(items)), ok, 0);
       }},
      {"ListSet.SetCondition", "", EveryCondition, Owner::CodeTable, codes, LoadView},
      {"ListSet.SetCondition", "", EveryCondition, Owner::Library, codes, EveryPicker},
      {"ListSet.ClearConditions", "", [](Login& in) { in.list.ClearConditions(); }},
      {"ListSet.SaveList",
       "view",
       [](Login& in) { in.list.SaveList(); },
       Owner::Library,
       {},
       LoadView},
      {"ListSet.SaveList",
       "view",
       [](Login& in) { in.list.SaveList(); },
       Owner::Library,
       {},
       NewList},
      {"ListSet.ShowFilter", "", [](Login& in) { in.list.ShowFilter(0); }, Owner::CodeTable, codes,
       LoadView},
      {"ListSet.ShowFilter", "", [](Login& in) { in.list.ShowFilter(0); }, Owner::Library, codes,
       EveryPicker},
  };
}

// A kind of account: its sample login, and others with which something about the login changes.
struct Account {
  std::string_view name;  // in the document; empty: any
  std::string_view login, otherOrganization, otherAccount;
  std::int32_t type = 0;  // instead of the sample's own
};

constexpr Account kAccounts[] = {
    {"", "main", "suzhou", "account"},
    {"without OperatorRight.lngOrganizationID", "account", "account-detail", "main"},
    {"of type 8", "main", "suzhou", "account", 8},
    {"of type 16", "main", "suzhou", "account", 16},
};

const std::string kOncePerAccount = "once per account";
const std::string kOncePerThread = "once per thread";

class Recorder {
 public:
  Recording Record() {
    for (const Account& account : kAccounts) {
      host_ = demo::SampleHost();
      account_ = &account;
      LoggingIn();
      for (const Call& call : Calls())
        Measure(call);
      HostsOwnQueries();
      ReleaseThread();
    }
    // A need that the library has itself is none of the account's.
    for (const auto& [owner, before] : {std::pair(1, 0), {2, 0}, {2, 1}})
      for (const Need& need : recording_.needs[before])
        recording_.needs[owner].erase(need);
    return std::move(recording_);
  }

 private:
  // How often each shape is sent, by its text.
  using Counts = std::map<std::string, int>;

  void LogIn(std::string_view name) {
    host_.Switch(name);
    if (account_->type != 0 && name != account_->otherAccount)
      host_.connection()->login.accountType = account_->type;
    entry_.Initialize(host_.connection());
  }

  void LogInAfresh() {
    ReleaseThread();
    SetFormView(&view_);
    LogIn(account_->login);
  }

  // What was sent since the reports were cleared: counted and, unless it is another account's,
  // kept.
  Counts Sent(const Call& call, bool keep = true) {
    Counts counts;
    for (const StatementReport& report : host_.reports()) {
      // Many come again and again.
      auto& known =
          known_[{report.sql, call.chosen.tables.empty() ? Text() : call.chosen.tables[0]}];
      if (known.empty()) known = ShapesOf(report.sql, call.chosen);
      for (const Shape& shape : known) {
        for (const Need& need : shape.needs) {
          const Owner owner =
              need.chosen || call.names == Owner::Host ? call.names : Owner::Library;
          const bool isExample = need.chosen && call.names == Owner::Library;
          if (!isExample && account_->type == 0)
            recording_.needs[static_cast<int>(owner)].insert({need.table, need.privilege});
        }
        ++counts[shape.text];
        if (keep) Keep(shape);
      }
    }
    return counts;
  }

  RecordedShape& Keep(Shape shape) {
    auto& shapes = recording_.shapes;
    auto at = std::find_if(shapes.begin(), shapes.end(), [&](const RecordedShape& each) {
      return each.shape.text == shape.text;
    });
    if (at == shapes.end())
      return shapes.emplace_back(RecordedShape{std::move(shape), {}, std::string(account_->name)});
    at->shape.needs.merge(shape.needs);
    return *at;
  }

  void Uses(const Call& call, const Counts& counts,
            const std::function<std::string(const std::string&)>& when) {
    for (RecordedShape& each : recording_.shapes) {
      const auto sent = counts.find(each.shape.text);
      if (sent == counts.end()) continue;
      const auto known = std::find_if(each.uses.begin(), each.uses.end(),
                                      [&](const Use& use) { return use.member == call.member; });
      if (known != each.uses.end()) continue;
      Use use{std::string(call.member), when(each.shape.text)};
      // The same probe is kept for all members, even where the other account has no use for it.
      if (use.when.starts_with(kOncePerThread) && !each.uses.empty())
        use.when = each.uses.front().when;
      each.uses.push_back(std::move(use));
    }
  }

  void LoggingIn() {
    const Call call{"Interface.Initialize", "", {}};
    recording_.members.emplace(call.member);
    const std::pair<std::string_view, std::string_view> changes[] = {
        {"customer", "service customer"},
        {"operator", "operator"},
        {account_->otherOrganization, "organization"},
        {account_->otherAccount, "account"}};
    host_.reports().clear();
    LogInAfresh();
    const Counts first = Sent(call);
    host_.reports().clear();
    LogIn(account_->login);
    const Counts again = Sent(call);
    std::map<std::string, std::string> when;
    for (const auto& [login, change] : changes) {
      // Another account has logins of its own.
      if (account_->login == "account" && (login == "customer" || login == "operator")) continue;
      LogInAfresh();
      host_.reports().clear();
      LogIn(login);
      for (const auto& [text, count] : Sent(call, login != account_->otherAccount))
        when.try_emplace(text, "once per " + std::string(change));
    }
    Uses(call, first, [&](const std::string& text) {
      return again.contains(text) ? std::string("each call") : when[text];
    });
  }

  void Measure(const Call& call) {
    recording_.members.emplace(call.member);
    const auto sends = [&](bool other, bool keep = true) {
      Login login{{},
                  *entry_.LoginOperatorRight(),
                  *entry_.LoginOrganizationRight(),
                  *entry_.ListSet(),
                  other};
      if (call.prepare) call.prepare(login);
      host_.reports().clear();
      call.call(login);
      return Sent(call, keep);
    };
    // A kind of account matters by what it alone sends.
    if (account_ != kAccounts) {
      const std::size_t known = recording_.shapes.size();
      LogIn(account_->login);
      sends(false);
      if (recording_.shapes.size() == known) return;
    }
    LogInAfresh();
    Counts first = sends(false);
    Counts again = sends(false);
    Counts other = sends(true);
    again.merge(sends(true));
    Counts all = first;
    all.merge(Counts(other));
    Counts organization;
    Counts account;
    // Whatever is not sent again at once was kept, for as long as the login or longer.
    if (std::any_of(all.begin(), all.end(),
                    [&](const auto& each) { return !again.contains(each.first); })) {
      LogIn(account_->otherOrganization);
      organization = sends(false);
      organization.merge(sends(true));
      LogIn(account_->otherAccount);
      account = sends(false, false);
    }
    Uses(call, all, [&](const std::string& text) {
      const int count = std::max(first[text], other[text]);
      if (again.contains(text)) return "each call" + Repeated(text, count);
      std::string when = organization.contains(text) ? "once per login"
                         : account.contains(text)    ? kOncePerAccount
                                                     : kOncePerThread;
      if (other.contains(text) && !call.per.empty())
        when +=
            (call.per.find(" and ") == std::string::npos ? " and " : ", ") + std::string(call.per);
      return when + Repeated(text, count);
    });
  }

  // What one call sends a statement for several times.
  static std::string Repeated(const std::string& text, int count) {
    if (count < 2) return {};
    for (const auto& [beginning, each] :
         {std::pair("Insert into ListCond", ", for each condition"),
          {"Insert into listMultiIDCond", ", for each condition on codes"},
          {"SELECT * FROM listmultiidcond", ", for each condition on codes"},
          {"Insert Into Listfield", ", for each column"},
          {"Update ListField", ", for each column"},
          {"SELECT lngKeyID,blnUse FROM OrgCodeAllot", ", for each code table"},
          {"SELECT ListField_SEQ", ", for each column"}})
      if (text.starts_with(beginning)) return each;
    return text.find("TABLE") != std::string::npos ? ", for each code table" : "";
  }

  // What hosts ask with the texts of a list: not the library's, but its user needs the tables.
  void HostsOwnQueries() {
    if (account_->type != 0) return;
    LogInAfresh();
    for (const std::int32_t view : {101, 102, 103, 104}) {
      ListSet& list = *entry_.ListSet();
      list.ViewId(view);
      if (list.List().ListField.empty()) continue;
      const Text where = Join(list.ListWhere(), list.ListPureWhere().empty() ? u"" : u" And ",
                              list.ListPureWhere());
      const Text sql = Join(u"Select", list.GetListSelect(), u" From ", list.ListFrom(),
                            where.empty() ? u"" : u" Where ", where);
      RecordsetPtr rows;
      if (host_.connection()->OpenStaticRecordset(sql, rows, 3, 1, 1, 0))
        host_.connection()->CloseRecordset(rows);
      for (const Shape& shape : ShapesOf(sql))
        for (const Need& need : shape.needs)
          recording_.needs[static_cast<int>(Owner::Host)].insert({need.table, need.privilege});
    }
  }

  EveryColumn view_;
  demo::SampleHost host_;
  Interface entry_;
  const Account* account_ = nullptr;
  std::map<std::pair<Text, Text>, std::vector<Shape>> known_;  // by text and chosen name
  Recording recording_;
};

}  // namespace

Recording RecordStatements() {
  return Recorder().Record();
}

}  // namespace fetchkit::statements
