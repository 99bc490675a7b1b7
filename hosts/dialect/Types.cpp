#include "hosts/dialect/Types.h"

#include "hosts/dialect/TypedStatement.h"

namespace fetchkit::hosts {

Tokens WithTypes(const Tokens& statement, const TypesOf& typesOf) {
  return typing::TypedStatement(statement, typesOf).Write();
}

}  // namespace fetchkit::hosts
