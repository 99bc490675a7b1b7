#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "demo/windows/Library.h"
#include "hosts/windows/ConnectionObject.h"

namespace fetchkit::demo {
namespace {

// 0 leaves the choice to the library: a console without a window of its own, in a terminal.
long OwnerWindow() {
  const HWND window = GetConsoleWindow();
  return window && IsWindowVisible(window) ? HandleToLong(window) : 0;
}

// The caller's copy of a list record. It is cleared member by member, because not every system's
// own clearing copes with the array of records in it.
class OwnedRecord {
 public:
  explicit OwnedRecord(IListSet* set) { Check(set->get_List(&record_)); }
  ~OwnedRecord() {
    SafeArrayDestroy(record_.ListField);
    for (const BSTR text :
         {record_.strViewName, record_.strListName, record_.strListFrom, record_.strListWhere,
          record_.strListPureWhere, record_.strCurTable, record_.strPrimaryKey})
      SysFreeString(text);
  }
  OwnedRecord(const OwnedRecord&) = delete;
  OwnedRecord& operator=(const OwnedRecord&) = delete;

  // What is shown of it.
  ListType Shown() const {
    ListType list;
    list.strViewName = ViewOf(record_.strViewName);
    ::ListFieldType* fields = nullptr;
    if (!record_.ListField ||
        FAILED(SafeArrayAccessData(record_.ListField, reinterpret_cast<void**>(&fields))))
      return list;
    for (ULONG i = 0; i < record_.ListField->rgsabound[0].cElements; ++i) {
      ListFieldType& field = list.ListField.emplace_back();
      field.strListFieldDesc = ViewOf(fields[i].strListFieldDesc);
      field.blnIsChoosed = fields[i].blnIsChoosed != VARIANT_FALSE;
    }
    SafeArrayUnaccessData(record_.ListField);
    return list;
  }

 private:
  ::ListType record_{};
};

class DialogsInWindows : public ListDialogs {
 public:
  explicit DialogsInWindows(const SessionConnectionPtr& connection) : library_(connection) {
    Check(library_.entry()->get_ListSet(set_.Out()));
  }

  void ViewId(std::int32_t id) override { Check(set_->put_ViewId(id)); }

  ListType List() const override { return OwnedRecord(set_.get()).Shown(); }

  ListTexts Texts() const override {
    const auto text = [this](auto member) {
      Bstr read;
      Check((set_.get()->*member)(read.Out()));
      return Text(read.view());
    };
    return {text(&IListSet::get_ListFrom), text(&IListSet::get_ListWhere),
            text(&IListSet::get_ListPureWhere), text(&IListSet::GetListSelect)};
  }

  bool ShowFilter() override {
    VARIANT_BOOL confirmed = VARIANT_FALSE;
    Check(set_->ShowFilter(OwnerWindow(), &confirmed));
    return confirmed != VARIANT_FALSE;
  }

  Text ShowMultiChoose(const RecordsetPtr& rows, TextView caption, TextView condition, Text& shown,
                       bool& ok) override {
    const auto object = ComPtr<ado::Recordset>::Attach(ShellOf<hosts::RecordsetObject>(rows));
    Bstr chosen;
    Bstr told;
    VARIANT_BOOL confirmed = VARIANT_FALSE;
    const Variant none;
    Check(set_->ShowMultiChoose(object.get(), Bstr(caption).get(), Bstr(condition).get(),
                                told.Out(), VARIANT_FALSE, none.get(), &confirmed, OwnerWindow(),
                                chosen.Out()));
    shown = told.view();
    ok = confirmed != VARIANT_FALSE;
    return Text(chosen.view());
  }

 private:
  Library library_;
  ComPtr<IListSet> set_;
};

}  // namespace

std::unique_ptr<ListDialogs> OpenInWindows(const SessionConnectionPtr& connection) {
  return std::make_unique<DialogsInWindows>(connection);
}

}  // namespace fetchkit::demo
