// The public class Utility: each member is the module's function of the same name.
#pragma once

#include "utility/StringHelpers.h"

namespace fetchkit {

// Without state; created by the host wherever it likes. What the members promise stands with the
// functions in utility/StringHelpers.h.
class Utility {
 public:
  bool ContainErrorChar(TextView strText, TextView strCheckChar, TextView strFilterChar) const {
    return MUtility::ContainErrorChar(strText, strCheckChar, strFilterChar);
  }
  Text GetNoXString(TextView strText, std::int16_t intNumber, TextView strDelimiter) const {
    return MUtility::GetNoXString(strText, intNumber, strDelimiter);
  }
  std::int32_t GetNoXPos(TextView strText, std::int16_t intNumber, TextView strDelimiter) const {
    return MUtility::GetNoXPos(strText, intNumber, strDelimiter);
  }
  std::int32_t StrCount(TextView strText, TextView strDelimiter) const {
    return MUtility::StrCount(strText, strDelimiter);
  }
  std::int32_t TextCount(TextView strText, TextView strFind, CompareMethod enmCompareMethod) const {
    return MUtility::TextCount(strText, strFind, enmCompareMethod);
  }
  std::int32_t CharCount(TextView strText, TextView strChar) const {
    return MUtility::CharCount(strText, strChar);
  }
  std::int32_t StrLen(TextView strText) const { return MUtility::StrLen(strText); }
  Text StrLeft(TextView strText, std::int32_t n) const { return MUtility::StrLeft(strText, n); }
  Text GetFilePath(TextView strFile) const { return MUtility::GetFilePath(strFile); }
  Text GetFileName(TextView strFile) const { return MUtility::GetFileName(strFile); }
  Text GetStrAfter(TextView strInfo, TextView strSearch, bool bMustFind) const {
    return MUtility::GetStrAfter(strInfo, strSearch, bMustFind);
  }
  Text GetStrBefore(TextView strInfo, TextView strSearch, bool bMustFind) const {
    return MUtility::GetStrBefore(strInfo, strSearch, bMustFind);
  }
  Text GetStrBetween(TextView strSource, TextView strFrom, TextView strTo, bool bInclude,
                     bool bMustFind) const {
    return MUtility::GetStrBetween(strSource, strFrom, strTo, bInclude, bMustFind);
  }
  Text GetSpace(TextView strText, std::int16_t intNumber) const {
    return MUtility::GetSpace(strText, intNumber);
  }
  bool StrInStr(TextView strSource, TextView strText, TextView strDelimiter,
                CompareMethod enmCompareMethod) const {
    return MUtility::StrInStr(strSource, strText, strDelimiter, enmCompareMethod);
  }
  bool ArrayIsEmpty(const Value& varArray) const { return MUtility::ArrayIsEmpty(varArray); }
  bool DateIsValid(const Value& varDate) const { return MUtility::DateIsValid(varDate); }
  Value NotNull(const Value& varValue, const Value& varDefaultValue) const {
    return MUtility::NotNull(varValue, varDefaultValue);
  }
};

}  // namespace fetchkit
