// The public class Utility: each member is the module's function of the same name.
#pragma once

#include "fetchkit/utility/CellNames.h"
#include "fetchkit/utility/GridAndKeys.h"
#include "fetchkit/utility/SqlClauses.h"
#include "fetchkit/utility/StringHelpers.h"
#include "fetchkit/utility/WindowServices.h"

namespace fetchkit {

// Without state; created by the host wherever it likes. What the members promise stands with the
// functions in the headers above.
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

  Text DecomposeInClause(TextView strCondName, TextView strIdList, bool blnIsCharInClause,
                         const Value& varEmptyItem = MissingValue()) const {
    return MUtility::DecomposeInClause(strCondName, strIdList, blnIsCharInClause, varEmptyItem);
  }
  Text SplitInClause(TextView strList, TextView strSeparator, TextView strField) const {
    return MUtility::SplitInClause(strList, strSeparator, strField);
  }
  Text FormatDateCond(TextView strDateField, TextView strBeginDate, TextView strEndDate,
                      bool IsShowAnd) const {
    return MUtility::FormatDateCond(strDateField, strBeginDate, strEndDate, IsShowAnd);
  }
  Text FormatCond(TextView strCond) const { return MUtility::FormatCond(strCond); }
  Text FormatLink(TextView strClause, TextView strText, TextView strLinkSign) const {
    return MUtility::FormatLink(strClause, strText, strLinkSign);
  }
  Text FormatString(TextView strFormatText, const Value& arrValues) const {
    return MUtility::FormatString(strFormatText, arrValues);
  }

  Text CellNameToAbsolute(TextView strCellName) const {
    return MUtility::CellNameToAbsolute(strCellName);
  }
  bool CellNameToRowCol(TextView strCellName, std::int32_t& lngRow, std::int32_t& lngCol) const {
    return MUtility::CellNameToRowCol(strCellName, lngRow, lngCol);
  }
  bool CellIsValid(TextView strCell, Text& strMsg) const {
    return MUtility::CellIsValid(strCell, strMsg);
  }
  Text CellColToString(std::int16_t intCol) const { return MUtility::CellColToString(intCol); }
  double C2Dbl(const Value& varText) const { return MUtility::C2Dbl(varText); }
  double FourLostFiveAdd(double dblValue, std::uint8_t bytNaturalCurDec) const {
    return MUtility::FourLostFiveAdd(dblValue, bytNaturalCurDec);
  }
  Text FormatDec(std::int16_t intDec) const { return MUtility::FormatDec(intDec); }

  std::int32_t GetActiveWindowHandle() const { return MUtility::GetActiveWindowHandle(); }
  std::int32_t GetDesktopWindowHandle() const { return MUtility::GetDesktopWindowHandle(); }
  std::int32_t GetForegroundWindowHandle() const { return MUtility::GetForegroundWindowHandle(); }
  std::int32_t FindWindowHandle(TextView strCaption) const {
    return MUtility::FindWindowHandle(strCaption);
  }
  bool IsTopMostWindow(std::int32_t& hWnd) const { return MUtility::IsTopMostWindow(hWnd); }
  void SetWindowTopPos(std::int32_t hWnd, bool blnOnTop, WindowPositionConstants enmPosition,
                       std::int32_t lngLeft, std::int32_t lngTop, std::int32_t lngWidth,
                       std::int32_t lngHeight) const {
    MUtility::SetWindowTopPos(hWnd, blnOnTop, enmPosition, lngLeft, lngTop, lngWidth, lngHeight);
  }
  void SetPopupWindow(std::int32_t hWnd, bool blnEnabled) const {
    MUtility::SetPopupWindow(hWnd, blnEnabled);
  }
  void SetToolWindow(std::int32_t hWnd, bool blnEnabled) const {
    MUtility::SetToolWindow(hWnd, blnEnabled);
  }
  bool GetWindowArea(std::int32_t hWnd, std::int32_t& lngLeft, std::int32_t& lngTop,
                     std::int32_t& lngWidth, std::int32_t& lngHeight) const {
    return MUtility::GetWindowArea(hWnd, lngLeft, lngTop, lngWidth, lngHeight);
  }
  std::int32_t MessageBox(TextView strMessage, std::int32_t enmButtons, TextView strTitle,
                          std::int32_t hWnd) const {
    return MUtility::MessageBox(strMessage, enmButtons, strTitle, hWnd);
  }
  Text Security(TextView strText) const { return MUtility::Security(strText); }
  bool WriteLog(TextView strA, TextView strB, std::int32_t lngC) const {
    return MUtility::WriteLog(strA, strB, lngC);
  }

  bool PtInGridAvailRect(std::int32_t hWnd, std::int32_t lngLeft, std::int32_t lngTop,
                         std::int32_t lngWidth, std::int32_t lngHeight) const {
    return MUtility::PtInGridAvailRect(hWnd, lngLeft, lngTop, lngWidth, lngHeight);
  }
  bool PtInGridCell(std::int32_t hWnd, const std::vector<std::int32_t>& arrColumnEdges,
                    const std::vector<std::int32_t>& arrRowEdges, std::int32_t& lngRow,
                    std::int32_t& lngCol) const {
    return MUtility::PtInGridCell(hWnd, arrColumnEdges, arrRowEdges, lngRow, lngCol);
  }
  bool ObjectInNodes(const MUtility::KeyedItems& objNodes, TextView strKey) const {
    return MUtility::ObjectInNodes(objNodes, strKey);
  }
  bool ObjectInCollection(const MUtility::KeyedItems& objCollection, TextView strKey) const {
    return MUtility::ObjectInCollection(objCollection, strKey);
  }
};

}  // namespace fetchkit
