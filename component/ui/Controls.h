// The numbers of the dialogs and their controls, for the resource script and the views.
// Names are those of the forms' controls.
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

#endif
