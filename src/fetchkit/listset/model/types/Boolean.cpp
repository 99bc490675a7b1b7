#include "fetchkit/listset/model/ConditionWords.h"
#include "fetchkit/listset/model/types/Types.h"

namespace fetchkit {
namespace {

class Boolean final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::YesNo; }

  std::vector<Text> Words() const override {
    return {Text(words::kAny), Text(words::kYes), Text(words::kNo)};
  }

  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    return {{u"blnBoolean", TrimBlanks(field.strExtValue) == words::kYes ? u"1" : u"0"}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext&,
                   ListFieldType& field) const override {
    const Text word(stored.boolean ? words::kYes : words::kNo);
    return {word, word, Predicate(field, word, word)};
  }

  Text Predicate(const ListFieldType& field, TextView, TextView value) const override {
    return value.empty() ? Text() : Join(field.strFieldName, u" = '", value, u"'");
  }
};

}  // namespace

const FieldType& BooleanType() {
  static constexpr Boolean kType;
  return kType;
}

}  // namespace fetchkit
