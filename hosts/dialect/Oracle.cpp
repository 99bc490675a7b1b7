#include "hosts/dialect/Engines.h"

namespace fetchkit::hosts {
namespace {

class OracleEngine : public Engine {
 public:
  bool SpeaksTheDialect() const override { return true; }

  // Numbers travel as text. Nothing makes a whole session read-only.
  std::vector<Text> SessionStatements(bool) const override {
    return {u"ALTER SESSION SET NLS_NUMERIC_CHARACTERS = '.,'"};
  }

  std::vector<Text> SchemaStatements(TextView schema) const override {
    return {Join(u"ALTER SESSION SET CURRENT_SCHEMA = ", Quoted(schema))};
  }

  Text EchoQuery(TextView literal) const override {
    return Join(u"SELECT ", literal, u" AS echo FROM DUAL");
  }

  const std::vector<FunctionRule>& Functions() const override { return none_; }
  const std::vector<TextView>& Keywords() const override { return noWords_; }
  Text Quoted(TextView name) const override { return InQuotes(UpperAscii(name), u'"'); }
  Text NextValue(TextView) const override { return {}; }

 private:
  std::vector<FunctionRule> none_;
  std::vector<TextView> noWords_;
};

}  // namespace

const Engine& Oracle() {
  static const OracleEngine engine;
  return engine;
}

}  // namespace fetchkit::hosts
