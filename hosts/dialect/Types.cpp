#include "hosts/dialect/Types.h"

#include "hosts/dialect/TypedStatement.h"

namespace fetchkit::hosts {

Tokens WithTypes(const Tokens& statement, const TypesOf& typesOf, TypedFor whom) {
  return typing::TypedStatement(statement, typesOf, whom).Write();
}

}  // namespace fetchkit::hosts
