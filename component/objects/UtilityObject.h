// FetchKit.Utility.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/ComObject.h"
#include "component/objects/KeyedItemsOf.h"
#include "fetchkit/utility/Utility.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class UtilityObject : public ComObject<IUtility, IID_IUtility, fetchkit::Utility> {
 public:
  using Dual = IUtility;
  using ComObject::ComObject;

  STDMETHODIMP ContainErrorChar(BSTR strText, BSTR strCheckChar, BSTR strFilterChar,
                                VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().ContainErrorChar(ViewOf(strText), ViewOf(strCheckChar), ViewOf(strFilterChar));
    });
  }
  STDMETHODIMP GetNoXString(BSTR strText, short intNumber, BSTR strDelimiter,
                            BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().GetNoXString(ViewOf(strText), intNumber, ViewOf(strDelimiter));
    });
  }
  STDMETHODIMP GetNoXPos(BSTR strText, short intNumber, BSTR strDelimiter,
                         long* result) noexcept override {
    return Answer(
        result, [&] { return core().GetNoXPos(ViewOf(strText), intNumber, ViewOf(strDelimiter)); });
  }
  STDMETHODIMP StrCount(BSTR strText, BSTR strDelimiter, long* result) noexcept override {
    return Answer(result, [&] { return core().StrCount(ViewOf(strText), ViewOf(strDelimiter)); });
  }
  STDMETHODIMP TextCount(BSTR strText, BSTR strFind, CompareMethodConstants enmCompareMethod,
                         long* result) noexcept override {
    return Answer(result, [&] {
      return core().TextCount(ViewOf(strText), ViewOf(strFind),
                              static_cast<CompareMethod>(enmCompareMethod));
    });
  }
  STDMETHODIMP CharCount(BSTR strText, BSTR strChar, long* result) noexcept override {
    return Answer(result, [&] { return core().CharCount(ViewOf(strText), ViewOf(strChar)); });
  }
  STDMETHODIMP StrLen(BSTR strText, long* result) noexcept override {
    return Answer(result, [&] { return core().StrLen(ViewOf(strText)); });
  }
  STDMETHODIMP StrLeft(BSTR strText, long n, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().StrLeft(ViewOf(strText), n); });
  }
  STDMETHODIMP GetFilePath(BSTR strFile, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetFilePath(ViewOf(strFile)); });
  }
  STDMETHODIMP GetFileName(BSTR strFile, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetFileName(ViewOf(strFile)); });
  }
  STDMETHODIMP GetStrAfter(BSTR strInfo, BSTR strSearch, VARIANT_BOOL* bMustFind,
                           BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().GetStrAfter(ViewOf(strInfo), ViewOf(strSearch), InOutBoolean(bMustFind));
    });
  }
  STDMETHODIMP GetStrBefore(BSTR strInfo, BSTR strSearch, VARIANT_BOOL* bMustFind,
                            BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().GetStrBefore(ViewOf(strInfo), ViewOf(strSearch), InOutBoolean(bMustFind));
    });
  }
  STDMETHODIMP GetStrBetween(BSTR strSource, BSTR strFrom, BSTR strTo, VARIANT_BOOL bInclude,
                             VARIANT_BOOL* bMustFind, BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().GetStrBetween(ViewOf(strSource), ViewOf(strFrom), ViewOf(strTo),
                                  bInclude != VARIANT_FALSE, InOutBoolean(bMustFind));
    });
  }
  STDMETHODIMP GetSpace(BSTR strText, short intNumber, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetSpace(ViewOf(strText), intNumber); });
  }
  STDMETHODIMP StrInStr(BSTR strSource, BSTR strText, BSTR strDelimiter,
                        CompareMethodConstants enmCompareMethod,
                        VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().StrInStr(ViewOf(strSource), ViewOf(strText), ViewOf(strDelimiter),
                             static_cast<CompareMethod>(enmCompareMethod));
    });
  }
  STDMETHODIMP ArrayIsEmpty(VARIANT varArray, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().ArrayIsEmpty(ValueOf(varArray)); });
  }
  STDMETHODIMP DateIsValid(VARIANT varDate, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().DateIsValid(ValueOf(varDate)); });
  }
  STDMETHODIMP NotNull(VARIANT varValue, VARIANT varDefaultValue,
                       VARIANT* result) noexcept override {
    return Answer(result,
                  [&] { return core().NotNull(ValueOf(varValue), ValueOf(varDefaultValue)); });
  }
  STDMETHODIMP DecomposeInClause(BSTR strCondName, BSTR strIdList, VARIANT_BOOL blnIsCharInClause,
                                 VARIANT varEmptyItem, BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().DecomposeInClause(ViewOf(strCondName), ViewOf(strIdList),
                                      blnIsCharInClause != VARIANT_FALSE, ValueOf(varEmptyItem));
    });
  }
  STDMETHODIMP SplitInClause(BSTR strList, BSTR strSeparator, BSTR strField,
                             BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().SplitInClause(ViewOf(strList), ViewOf(strSeparator), ViewOf(strField));
    });
  }
  STDMETHODIMP FormatDateCond(BSTR strDateField, BSTR strBeginDate, BSTR strEndDate,
                              VARIANT_BOOL IsShowAnd, BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().FormatDateCond(ViewOf(strDateField), ViewOf(strBeginDate), ViewOf(strEndDate),
                                   IsShowAnd != VARIANT_FALSE);
    });
  }
  STDMETHODIMP FormatCond(BSTR strCond, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().FormatCond(ViewOf(strCond)); });
  }
  STDMETHODIMP FormatLink(BSTR strClause, BSTR strText, BSTR strLinkSign,
                          BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().FormatLink(ViewOf(strClause), ViewOf(strText), ViewOf(strLinkSign));
    });
  }
  STDMETHODIMP FormatString(BSTR strFormatText, VARIANT arrValues, BSTR* result) noexcept override {
    return Answer(result,
                  [&] { return core().FormatString(ViewOf(strFormatText), ValueOf(arrValues)); });
  }
  STDMETHODIMP CellNameToAbsolute(BSTR strCellName, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CellNameToAbsolute(ViewOf(strCellName)); });
  }
  STDMETHODIMP CellNameToRowCol(BSTR strCellName, long* lngRow, long* lngCol,
                                VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().CellNameToRowCol(ViewOf(strCellName), InOutLong(lngRow), InOutLong(lngCol));
    });
  }
  STDMETHODIMP CellIsValid(BSTR strCell, BSTR* strMsg, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().CellIsValid(ViewOf(strCell), InOutText(strMsg)); });
  }
  STDMETHODIMP CellColToString(short intCol, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CellColToString(intCol); });
  }
  STDMETHODIMP C2Dbl(VARIANT varText, double* result) noexcept override {
    return Answer(result, [&] { return core().C2Dbl(ValueOf(varText)); });
  }
  STDMETHODIMP FourLostFiveAdd(double dblValue, unsigned char bytNaturalCurDec,
                               double* result) noexcept override {
    return Answer(result, [&] { return core().FourLostFiveAdd(dblValue, bytNaturalCurDec); });
  }
  STDMETHODIMP FormatDec(short intDec, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().FormatDec(intDec); });
  }
  STDMETHODIMP GetActiveWindowHandle(long* result) noexcept override {
    return Answer(result, [&] { return core().GetActiveWindowHandle(); });
  }
  STDMETHODIMP GetDesktopWindowHandle(long* result) noexcept override {
    return Answer(result, [&] { return core().GetDesktopWindowHandle(); });
  }
  STDMETHODIMP GetForegroundWindowHandle(long* result) noexcept override {
    return Answer(result, [&] { return core().GetForegroundWindowHandle(); });
  }
  STDMETHODIMP FindWindowHandle(BSTR strCaption, long* result) noexcept override {
    return Answer(result, [&] { return core().FindWindowHandle(ViewOf(strCaption)); });
  }
  STDMETHODIMP IsTopMostWindow(long* hWnd, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsTopMostWindow(InOutLong(hWnd)); });
  }
  STDMETHODIMP SetWindowTopPos(long hWnd, VARIANT_BOOL blnOnTop,
                               ::WindowPositionConstants enmPosition, long lngLeft, long lngTop,
                               long lngWidth, long lngHeight) noexcept override {
    return Run([&] {
      core().SetWindowTopPos(hWnd, blnOnTop != VARIANT_FALSE,
                             static_cast<fetchkit::WindowPositionConstants>(enmPosition), lngLeft,
                             lngTop, lngWidth, lngHeight);
    });
  }
  STDMETHODIMP SetPopupWindow(long hWnd, VARIANT_BOOL blnEnabled) noexcept override {
    return Run([&] { core().SetPopupWindow(hWnd, blnEnabled != VARIANT_FALSE); });
  }
  STDMETHODIMP SetToolWindow(long hWnd, VARIANT_BOOL blnEnabled) noexcept override {
    return Run([&] { core().SetToolWindow(hWnd, blnEnabled != VARIANT_FALSE); });
  }
  STDMETHODIMP GetWindowArea(long hWnd, long* lngLeft, long* lngTop, long* lngWidth,
                             long* lngHeight, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().GetWindowArea(hWnd, InOutLong(lngLeft), InOutLong(lngTop), InOutLong(lngWidth),
                                  InOutLong(lngHeight));
    });
  }
  STDMETHODIMP MessageBox(BSTR strMessage, long enmButtons, BSTR strTitle, long hWnd,
                          long* result) noexcept override {
    return Answer(result, [&] {
      return core().MessageBox(ViewOf(strMessage), enmButtons, ViewOf(strTitle), hWnd);
    });
  }
  STDMETHODIMP Security(BSTR strText, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().Security(ViewOf(strText)); });
  }
  STDMETHODIMP WriteLog(BSTR strA, BSTR strB, long lngC, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().WriteLog(ViewOf(strA), ViewOf(strB), lngC); });
  }
  STDMETHODIMP PtInGridAvailRect(long hWnd, long lngLeft, long lngTop, long lngWidth,
                                 long lngHeight, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().PtInGridAvailRect(hWnd, lngLeft, lngTop, lngWidth, lngHeight);
    });
  }
  STDMETHODIMP PtInGridCell(long hWnd, VARIANT arrColumnEdges, VARIANT arrRowEdges, long* lngRow,
                            long* lngCol, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().PtInGridCell(hWnd, LongsOf(arrColumnEdges), LongsOf(arrRowEdges),
                                 InOutLong(lngRow), InOutLong(lngCol));
    });
  }
  STDMETHODIMP ObjectInNodes(IDispatch* objNodes, BSTR strKey,
                             VARIANT_BOOL* result) noexcept override {
    return Answer(result,
                  [&] { return core().ObjectInNodes(KeyedItemsOf(objNodes), ViewOf(strKey)); });
  }
  STDMETHODIMP ObjectInCollection(IDispatch* objCollection, BSTR strKey,
                                  VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().ObjectInCollection(KeyedItemsOf(objCollection), ViewOf(strKey));
    });
  }
};

}  // namespace fetchkit
