// A list record that the component has handed out, as an early-bound caller keeps it.
#pragma once

#include <gtest/gtest.h>

#include "component/Windows.h"
#include "idl/FetchKit.h"

namespace fetchkit::test {

struct ListRecord : ::ListType {
  ListRecord() : ::ListType{} {}
  ListRecord(const ListRecord&) = delete;
  ListRecord& operator=(const ListRecord&) = delete;
  ~ListRecord() {
    for (const BSTR text : {strViewName, strListName, strListFrom, strListWhere, strListPureWhere,
                            strCurTable, strPrimaryKey})
      SysFreeString(text);
    if (ListField) SafeArrayDestroy(ListField);
  }
  ::ListFieldType& Field(long index) const {
    void* field = nullptr;
    EXPECT_EQ(SafeArrayPtrOfIndex(ListField, &index, &field), S_OK);
    return *static_cast<::ListFieldType*>(field);
  }
};

}  // namespace fetchkit::test
