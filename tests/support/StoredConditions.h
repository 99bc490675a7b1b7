// What a database gives back of a saved condition.
#pragma once

#include <map>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit::test {

// A written value as it is read: quotes gone, doubled ones single, Null and '' as the empty text.
inline Text ReadLiteral(TextView sqlValue) {
  if (sqlValue == u"Null") return {};
  if (!sqlValue.starts_with(u'\'')) return Text(sqlValue);
  return ReplaceText(sqlValue.substr(1, sqlValue.size() - 2), u"''", u"'");
}

// The field's condition, saved and read back.
inline StoredCondition ReadBack(const ListFieldType& field) {
  std::map<Text, Text> columns;
  for (const StoredColumn& column : StoredColumnsOf(field))
    columns[Text(column.name)] = ReadLiteral(column.value);
  return {columns[u"strStringOp"],
          columns[u"strString1"],
          columns[u"strString2"],
          columns[u"strDateOp"],
          columns[u"dtmDate1"],
          columns[u"dtmDate2"],
          columns[u"strDoubleOP"],
          columns[u"dbldouble1"],
          columns[u"dbldouble2"],
          columns[u"blnBoolean"] == u"1",
          columns[u"blnIsMuliCond"] == u"1",
          field.strCodeID.empty() ? u" " : field.strCodeID,
          field.strFilter};
}

}  // namespace fetchkit::test
