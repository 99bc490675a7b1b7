// The dialogs and their controls: the numbers, for the resource script too, and for the windows
// which of a form's controls each shows.
#ifndef FETCHKIT_UI_CONTROLS_H
#define FETCHKIT_UI_CONTROLS_H

#define FRM_FILTER 101
#define FRM_FILTER_COLUMN 102
#define FRM_MULTI_CHOOSE 103

// frmFilter; cmdOk(0) and cmdOk(1) are IDOK and IDCANCEL
#define ID_FRAME3 1001
#define ID_TVW_FILTER 1002
#define ID_FRAME2 1003
#define ID_MSG_FILTER 1004
#define ID_FRAME1 1005
#define ID_LBL_TITLE 1006
#define ID_LXT_OTHER 1007
#define ID_LBL_FROM 1008
#define ID_TXT_FROM 1009
#define ID_DAT_FROM 1010
#define ID_LBL_TO 1011
#define ID_TXT_TO 1012
#define ID_DAT_TO 1013
#define ID_DAT_DATE 1014
#define ID_CMD_CLEAR 1015
#define ID_CMD_CHOOSE 1016
#define ID_LBL_OTHER 1017
#define ID_LBL_VALUE 1018
#define ID_LBL_COUNT 1019
#define ID_LBL_SEARCH 1020
#define ID_TXT_SEARCH 1021

// frmFilterColumn and frmMultiChoose
#define ID_LBL_ALL 1101
#define ID_ALL 1102
#define ID_LBL_SELECTED 1103
#define ID_SELECTED 1104
#define ID_CMD_RIGHT_ONE 1105
#define ID_CMD_RIGHT_ALL 1106
#define ID_CMD_LEFT_ONE 1107
#define ID_CMD_LEFT_ALL 1108
#define ID_CMD_SERIAL_UP 1109
#define ID_CMD_SERIAL_DOWN 1110
#define ID_LBL_ALL_COUNT 1111
#define ID_LBL_SELECTED_COUNT 1112

#ifndef RC_INVOKED
#include "component/ui/Dialog.h"

namespace fetchkit::ui {

inline constexpr TemplateControl kFilterControls[] = {
    {u"lblSearch", -1, ID_LBL_SEARCH, 0, 0, 0, 0},
    {u"txtSearch", -1, ID_TXT_SEARCH, 0, 0, 35, 0},
    {u"Frame3", -1, ID_FRAME3, 0, 0, 35, 100},
    {u"tvwFilter", -1, ID_TVW_FILTER, 0, 0, 35, 100},
    {u"Frame1", -1, ID_FRAME1, 35, 0, 65, 0},
    {u"lblTitle", -1, ID_LBL_TITLE, 35, 0, 65, 0},
    {u"lblOther", -1, ID_LBL_OTHER, 35, 0, 0, 0},
    {u"lxtOther", -1, ID_LXT_OTHER, 35, 0, 65, 0},
    {u"datDate", -1, ID_DAT_DATE, 35, 0, 65, 0},
    {u"cmdChoose", -1, ID_CMD_CHOOSE, 35, 0, 0, 0},
    {u"lblValue", -1, ID_LBL_VALUE, 35, 0, 0, 0},
    {u"lblFrom", -1, ID_LBL_FROM, 35, 0, 0, 0},
    {u"txtFrom", -1, ID_TXT_FROM, 35, 0, 32, 0, ID_TXT_TO},
    {u"datFrom", -1, ID_DAT_FROM, 35, 0, 32, 0},
    {u"lblTo", -1, ID_LBL_TO, 67, 0, 0, 0},
    {u"txtTo", -1, ID_TXT_TO, 67, 0, 33, 0},
    {u"datTo", -1, ID_DAT_TO, 67, 0, 33, 0},
    {u"Frame2", -1, ID_FRAME2, 35, 0, 65, 100},
    {u"msgFilter", -1, ID_MSG_FILTER, 35, 0, 65, 100},
    {u"lblCount", -1, ID_LBL_COUNT, 0, 100, 35, 0},
    {u"cmdOk", 2, ID_CMD_CLEAR, 35, 100, 0, 0},
    {u"cmdOk", 0, IDOK, 100, 100, 0, 0},
    {u"cmdOk", 1, IDCANCEL, 100, 100, 0, 0},
};

// frmFilterColumn and frmMultiChoose.
inline constexpr TemplateControl kTwoListsControls[] = {
    {u"lblSearch", -1, ID_LBL_SEARCH, 0, 0, 0, 0},
    {u"txtSearch", -1, ID_TXT_SEARCH, 0, 0, 50, 0},
    {u"lblAll", -1, ID_LBL_ALL, 0, 0, 50, 0},
    {u"msgAll", -1, ID_ALL, 0, 0, 50, 100},
    {u"lstAll", -1, ID_ALL, 0, 0, 50, 100},
    {u"lblCount", -1, ID_LBL_ALL_COUNT, 0, 100, 50, 0},
    {u"lblSelected", -1, ID_LBL_SELECTED, 50, 0, 50, 0},
    {u"msgSelected", -1, ID_SELECTED, 50, 0, 50, 100},
    {u"lstSelected", -1, ID_SELECTED, 50, 0, 50, 100},
    {u"lblSelectedCount", -1, ID_LBL_SELECTED_COUNT, 50, 100, 50, 0},
    {u"cmdRightOne", -1, ID_CMD_RIGHT_ONE, 50, 50, 0, 0},
    {u"cmdRightAll", -1, ID_CMD_RIGHT_ALL, 50, 50, 0, 0},
    {u"cmdLeftOne", -1, ID_CMD_LEFT_ONE, 50, 50, 0, 0},
    {u"cmdLeftAll", -1, ID_CMD_LEFT_ALL, 50, 50, 0, 0},
    {u"cmdSerial", 0, ID_CMD_SERIAL_UP, 100, 50, 0, 0},
    {u"cmdSerial", 1, ID_CMD_SERIAL_DOWN, 100, 50, 0, 0},
    {u"cmdOK", -1, IDOK, 100, 100, 0, 0},
    {u"cmdOk", -1, IDOK, 100, 100, 0, 0},
    {u"cmdCancel", -1, IDCANCEL, 100, 100, 0, 0},
};

}  // namespace fetchkit::ui
#endif

#endif
