#include "fetchkit/listset/ListQuery.h"

#include <unordered_map>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/utility/CodeTables.h"

namespace fetchkit::MListSet {
namespace {

constexpr TextView kSeparator = u", ";
constexpr TextView kAs = u" As ";

Text BelowCodes(TextView stem, const std::vector<TextView>& codes) {
  Text condition;
  for (const TextView code : codes) {
    condition.append(condition.empty() ? Join(u"(", u" str", stem, u"Code LIKE '", code, u"-%'")
                                       : Join(u" OR (str", stem, u"Code LIKE '", code, u"-%')"));
  }
  if (!condition.empty()) condition.push_back(u')');
  return condition;
}

}  // namespace

Text GetListSelect(const ListType& list) {
  return Guarded(u"ListSet.GetListSelect", Text(), [&](Text& select) {
    std::size_t length = 0;
    for (const ListFieldType& field : list.ListField)
      if (field.blnIsChoosed)
        length += kSeparator.size() + field.strFieldName.size() + kAs.size() +
                  field.strListFieldDesc.size();
    select.reserve(length);
    for (const ListFieldType& field : list.ListField) {
      if (!field.blnIsChoosed) continue;
      // Without the comma in front of the first column, but with the blank behind that comma.
      select.append(kSeparator.substr(select.empty() ? 1 : 0))
          .append(field.strFieldName)
          .append(kAs)
          .append(field.strListFieldDesc);
    }
  });
}

Text FindAllKeyID(Session& session, TextView strCodeTableName, TextView strMulCode) {
  return Guarded(u"ListSet.FindAllKeyID", Text(), [&](Text& ids) {
    const auto codes = Split(TrimBlanks(strMulCode), u" ");
    OpenedRecordset rows(MAction::ConnectionOf(session),
                         Join(CodeIdSelect(strCodeTableName),
                              BelowCodes(CodeStem(UpperAscii(strCodeTableName)), codes)),
                         Cursor::Static);
    if (!rows.HasRow()) return;
    // How often each code was given: a row is tested by its own prefixes, not against every code.
    std::unordered_map<TextView, int> given;
    for (const TextView code : codes)
      ++given[code];
    const std::size_t codeColumn = rows->Column(u"a1");
    const std::size_t idColumn = rows->Column(u"b1");
    for (; !rows->Eof(); rows->MoveNext()) {
      const Text code = ToTextOrEmpty(rows->At(codeColumn));
      const TextView trimmed = TrimBlanks(code);
      for (std::size_t at = trimmed.find(u'-'); at != TextView::npos;
           at = trimmed.find(u'-', at + 1)) {
        const auto found = given.find(trimmed.substr(0, at));
        if (found == given.end()) continue;
        const Piece id(ToLong(rows->At(idColumn)));
        for (int times = 0; times < found->second; ++times)
          AppendWith(ids, u',', id.view());
      }
    }
    rows.Close();
  });
}

Text ModifyTableName(TextView strSelected, TextView strString, TextView Replace) {
  return Guarded(u"ListSet.ModifyTableName", Text(), [&](Text& text) {
    text = strSelected;
    text = ReplaceFolded(strSelected, strString, Replace);
    if (strString.empty()) return;
    const auto qualified = [](TextView name) {
      return Join(name.substr(0, name.empty() ? 0 : name.size() - 1), u".");
    };
    text = ReplaceFolded(text, qualified(strString), qualified(Replace));
  });
}

}  // namespace fetchkit::MListSet
