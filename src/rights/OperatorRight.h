// What the login operator may do in the login organization.
#pragma once

#include <memory>
#include <utility>

#include "session/Operator.h"
#include "session/Session.h"

namespace fetchkit {

// One per account, organization and operator. Its public members follow.
class OperatorRight {
 public:
  // Reserved to the library: start-up hands over the record whose ids every query uses.
  void SetOperator(std::shared_ptr<const Operator> loginOperator) {
    operator_ = std::move(loginOperator);
  }

 private:
  std::shared_ptr<const Operator> operator_;
};

namespace MAction {

// The rights object of the current login; never null.
std::shared_ptr<fetchkit::OperatorRight> OperatorRight(Session& session);

}  // namespace MAction
}  // namespace fetchkit
