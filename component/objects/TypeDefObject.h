// FetchKit.TypeDef: without members.
#pragma once

#include "component/com/ComObject.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class TypeDefObject : public ComObject<ITypeDef, IID_ITypeDef, fetchkit::TypeDef> {
 public:
  using ComObject::ComObject;
};

}  // namespace fetchkit
