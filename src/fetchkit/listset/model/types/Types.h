// The types of fields, one object each, which lives as long as the program.
#pragma once

#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit {

const FieldType& CodeType();
const FieldType& EnumType();
const FieldType& BooleanType();
const FieldType& StringType();
const FieldType& NumberType();
const FieldType& PeriodType();
const FieldType& DateType();

}  // namespace fetchkit
