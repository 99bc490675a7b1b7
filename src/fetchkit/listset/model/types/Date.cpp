#include "fetchkit/listset/model/types/SqlParts.h"
#include "fetchkit/listset/model/types/Types.h"

namespace fetchkit {
namespace {

class DateOnly final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::Dates; }

  std::vector<Text> Words() const override { return {}; }

  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    return {{u"strDateOp", u"'0'"}, {u"dtmDate1", Quoted(field.strExtValue)}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext&,
                   ListFieldType& field) const override {
    if (stored.date1.empty()) return {};
    return {stored.date1, stored.date1, Predicate(field, stored.date1, stored.date1)};
  }

  Text Predicate(const ListFieldType& field, TextView, TextView value) const override {
    return value.empty() ? Text() : Join(field.strFieldName, u" = '", value, u"'");
  }
};

}  // namespace

const FieldType& DateType() {
  static constexpr DateOnly kType;
  return kType;
}

}  // namespace fetchkit
