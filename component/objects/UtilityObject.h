// FetchKit.Utility.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/Members.h"
#include "component/objects/KeyedItemsOf.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/utility/Utility.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class UtilityObject : public ComObject<IUtility, IID_IUtility, fetchkit::Utility> {
 public:
  using ComObject::ComObject;

  FETCHKIT_METHOD(ContainErrorChar, 4)
  FETCHKIT_METHOD(GetNoXString, 4)
  FETCHKIT_METHOD(GetNoXPos, 4)
  FETCHKIT_METHOD(StrCount, 3)
  FETCHKIT_METHOD(TextCount, 4)
  FETCHKIT_METHOD(CharCount, 3)
  FETCHKIT_METHOD(StrLen, 2)
  FETCHKIT_METHOD(StrLeft, 3)
  FETCHKIT_METHOD(GetFilePath, 2)
  FETCHKIT_METHOD(GetFileName, 2)
  FETCHKIT_METHOD(GetStrAfter, 4)
  FETCHKIT_METHOD(GetStrBefore, 4)
  FETCHKIT_METHOD(GetStrBetween, 6)
  FETCHKIT_METHOD(GetSpace, 3)
  FETCHKIT_METHOD(StrInStr, 5)
  FETCHKIT_METHOD(ArrayIsEmpty, 2)
  FETCHKIT_METHOD(DateIsValid, 2)
  FETCHKIT_METHOD(NotNull, 3)
  FETCHKIT_METHOD(DecomposeInClause, 5)
  FETCHKIT_METHOD(SplitInClause, 4)
  FETCHKIT_METHOD(FormatDateCond, 5)
  FETCHKIT_METHOD(FormatCond, 2)
  FETCHKIT_METHOD(FormatLink, 4)
  // One of two in the core.
  STDMETHODIMP FormatString(BSTR strFormatText, VARIANT arrValues, BSTR* result) noexcept override {
    return Answer(result,
                  [&] { return core().FormatString(ViewOf(strFormatText), ValueOf(arrValues)); });
  }
  FETCHKIT_METHOD(CellNameToAbsolute, 2)
  FETCHKIT_METHOD(CellNameToRowCol, 4)
  FETCHKIT_METHOD(CellIsValid, 3)
  FETCHKIT_METHOD(CellColToString, 2)
  FETCHKIT_METHOD(C2Dbl, 2)
  FETCHKIT_METHOD(FourLostFiveAdd, 3)
  FETCHKIT_METHOD(FormatDec, 2)
  FETCHKIT_METHOD(GetActiveWindowHandle, 1)
  FETCHKIT_METHOD(GetDesktopWindowHandle, 1)
  FETCHKIT_METHOD(GetForegroundWindowHandle, 1)
  FETCHKIT_METHOD(FindWindowHandle, 2)
  FETCHKIT_METHOD(IsTopMostWindow, 2)
  FETCHKIT_METHOD(SetWindowTopPos, 7)
  FETCHKIT_METHOD(SetPopupWindow, 2)
  FETCHKIT_METHOD(SetToolWindow, 2)
  FETCHKIT_METHOD(GetWindowArea, 6)
  FETCHKIT_METHOD(MessageBox, 5)
  FETCHKIT_METHOD(Security, 2)
  FETCHKIT_METHOD(WriteLog, 4)
  FETCHKIT_METHOD(PtInGridAvailRect, 6)
  STDMETHODIMP PtInGridCell(long hWnd, VARIANT arrColumnEdges, VARIANT arrRowEdges, long* lngRow,
                            long* lngCol, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      InOutLong row(lngRow);
      InOutLong col(lngCol);
      return Guarded(u"Utility.PtInGridCell", false, [&] {
        return core().PtInGridCell(hWnd, LongsOf(arrColumnEdges), LongsOf(arrRowEdges), row, col);
      });
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
