#include "fetchkit/listset/Saving.h"

#include <vector>

#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/host/Execution.h"
#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit::MListSet {
namespace {

// Fields that have a row of their own in the list.
bool IsSaved(const ListFieldType& field) {
  return field.blnIsChoose || field.blnIsFixed || field.blnIsMust || field.blnIsPrep;
}

bool Run(Session& session, TextView sql) {
  return Execute(MAction::ConnectionOf(session), sql);
}

void InsertFields(Session& session, ListType& list) {
  Step(u"ListSet.SaveList: new fields", [&] {
    for (ListFieldType& field : list.ListField) {
      if (!IsSaved(field)) continue;
      field.lngListFieldID = MActivity::GetNewID(session, u"ListField");
      if (!Run(session, Join(u"Insert Into Listfield (lngListID,strListFieldDesc,bytsort,"
                             u"lngViewFieldID,lngListFieldID) Values (",
                             list.lngListID, u",'", field.strListFieldDesc, u"',0,",
                             field.lngViewFieldID, u",", field.lngListFieldID, u")")))
        return;
    }
  });
}

void UpdateFields(Session& session, const ListType& list) {
  Step(u"ListSet.SaveList: field settings", [&] {
    // A field that left the saved set keeps its row, not chosen.
    if (!Run(session,
             Join(u"UPDATE ListField Set blnIsChoosed=0 WHERE lngListID =", list.lngListID)))
      return;
    for (const ListFieldType& field : list.ListField) {
      if (!IsSaved(field)) continue;
      Run(session, Join(u"Update ListField", u" Set lngListFieldNO=", field.lngListFieldNO,
                        u",strListFieldDesc='", field.strListFieldDesc, u"',lngDisplayWidth=",
                        field.lngDisplayWidth, u",bytSort=", field.bytSort,
                        u",blnIsChoosed=1 Where lngListFieldID=", field.lngListFieldID));
    }
  });
}

void InsertList(Session& session, ListType& list) {
  Step(u"ListSet.SaveList: new list", [&] {
    const std::int32_t id = MActivity::GetNewID(session, u"List");
    // The other key is always one blank: an empty text would be Null to the database.
    if (!Run(session,
             Join(u"Insert Into List (lngViewID,strOtherKey,strListName,lngOperatorID,"
                  u"lngListID,lngOrganizationID) Values (",
                  list.lngViewID, u",' ','", list.strListName, u"',", session.LoginOperatorId, u",",
                  id, u",", session.LoginOrganizationId, u")")))
      return;
    list.lngListID = id;
    InsertFields(session, list);
    UpdateFields(session, list);
  });
}

Text ConditionInsert(const ListType& list, const ListFieldType& field) {
  Text columns = u"lngListId,lngViewFieldID,strPath,strOthTableName";
  Text values =
      Join(list.lngListID, u",", field.lngViewFieldID, u",'", field.strPath, u"'", u",' '");
  if (field.strPath.find(u'/') != Text::npos) {
    columns.append(u",blnHavefathernode");
    values.append(u",1");
  }
  for (const StoredColumn& column : StoredColumnsOf(field)) {
    columns.append(u",").append(column.name);
    values.append(u",").append(column.value);
  }
  return Join(u"Insert into ListCond (", columns, u") Values (", values, u")");
}

Text CodesInsert(const ListType& list, const ListFieldType& field) {
  return Join(
      u"Insert into listMultiIDCond (lngListID,strPath,strCodeID,strKeyName,"
      u"bLNISCODETYPE) Values (",
      list.lngListID, u",'", field.strPath, u"','",
      field.strCodeID.empty() ? TextView(u" ") : TextView(field.strCodeID), u"','", field.strFilter,
      u"',0)");
}

}  // namespace

void SaveList(Session& session, ListType& list) {
  if (list.lngListID != 0) {
    UpdateFields(session, list);
  } else {
    InsertList(session, list);
  }
  SaveConditions(session, list);
}

void SaveConditions(Session& session, const ListType& list) {
  Step(u"ListSet: conditions", [&] {
    // One block, so that the database takes all of it or nothing.
    Text block = u"Begin \n";
    const auto append = [&](TextView statement) { block.append(statement).append(u";\n"); };
    append(Join(u" Delete  FROM ListCond WHERE ListCond.lngListID = ", list.lngListID));
    append(Join(u" Delete  FROM ListMultiIDCond WHERE lngListID = ", list.lngListID));
    for (const ListFieldType& field : list.ListField) {
      if (field.strFilter.empty()) continue;
      append(ConditionInsert(list, field));
      if (HasCodes(field)) append(CodesInsert(list, field));
    }
    block.append(u"End;");
    Run(session, block);
  });
}

}  // namespace fetchkit::MListSet
