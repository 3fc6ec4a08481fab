#pragma once

// The numbers of the dialogs' resources and controls, also for the resource compiler.

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#define IDD_OPTION 200
#define IDD_HEADERS 201
#define IDD_PREVIEW 202

#define IDI_UP 210
#define IDI_DOWN 211
#define IDI_REFRESH 212

#define IDC_FORMAT_NAME 1000
#define IDC_DEFAULT 1001
#define IDC_START_LINE 1002
#define IDC_START_LINE_SPIN 1003
#define IDC_QUALIFIER 1004
#define IDC_TAB 1005
#define IDC_SEMICOLON 1006
#define IDC_COMMA 1007
#define IDC_SPACE 1008
#define IDC_OTHER 1009
#define IDC_OTHER_TEXT 1010
#define IDC_NAME_ONLY 1011
#define IDC_NAME_WITH_PATH 1012
#define IDC_TREAT_AS_ONE 1013
#define IDC_PLAN 1014
#define IDC_ADD 1015
#define IDC_DELETE 1016
#define IDC_SEQUENCE 1017
#define IDC_UP 1018
#define IDC_DOWN 1019
#define IDC_TOGGLE_HEADERS 1020
#define IDC_TOGGLE_PREVIEW 1021
#define IDC_NAME_HINT 1022

#define IDC_REFRESH 1030
#define IDC_HEADERS 1031
#define IDC_MATCH 1032

#define IDC_PREVIEW 1040
#define IDC_SUMMARY 1041
#define IDC_SUGGESTION 1042
#define IDC_APPLY 1043
