-- The main account's views and saved lists.

-- 101 is held to the login organization by OrganizationAux, 102 and 103 are not.
INSERT INTO View1 (lngViewId, strViewName, strViewSQL, strCurTable, StrViewWhere, strPrimaryKey)
VALUES (101, '凭证分录',
  'Voucher,VoucherDetail,VoucherType,Account,Department,Employee,Customer,Class1,Class2,Currencys,'
    || 'Operator,Operator Checker,OrganizationAux',
  'Voucher',
  'Voucher.lngVoucherID = VoucherDetail.lngVoucherID'
    || ' And Voucher.lngVoucherTypeID = VoucherType.lngVoucherTypeID'
    || ' And Voucher.lngOperatorID = Operator.lngOperatorID'
    || ' And Voucher.lngCheckerID = Checker.lngOperatorID(+)'
    || ' And Voucher.lngOrganizationID = OrganizationAux.lngOrganizationID'
    || ' And VoucherDetail.lngAccountID = Account.lngAccountID'
    || ' And VoucherDetail.lngDepartmentID = Department.lngDepartmentID(+)'
    || ' And VoucherDetail.lngEmployeeID = Employee.lngEmployeeID(+)'
    || ' And VoucherDetail.lngCustomerID = Customer.lngCustomerID(+)'
    || ' And VoucherDetail.lngClassID1 = Class1.lngClassID(+)'
    || ' And VoucherDetail.lngClassID2 = Class2.lngClassID(+)'
    || ' And VoucherDetail.lngCurrencyID = Currencys.lngCurrencyID(+)',
  'lngVoucherID');
INSERT INTO View1
SELECT 102, '凭证分录(全集团)', replace(strViewSQL, ',OrganizationAux', ',Organization'), strCurTable,
       replace(StrViewWhere, 'OrganizationAux', 'Organization'), strPrimaryKey
FROM View1 WHERE lngViewId = 101;
INSERT INTO View1 VALUES
  (103, '科目一览', 'Account,AccountType', 'Account',
   'Account.lngAccountTypeID = AccountType.lngAccountTypeID', 'lngAccountID'),
  -- No column of this view may be filtered: its filter dialog has nothing to show.
  (104, '币种一览', 'Currencys', 'Currencys', 'Currencys.blnIsInActive = 0', 'lngCurrencyID');

-- bytHead is 1 for columns of the voucher's head. A caption becomes the column's name in the query,
-- so one with "/" is never displayed and serves conditions alone.
INSERT INTO ViewField (lngViewID, lngViewFieldID, lngViewFieldNO, strViewFieldDesc, bytHead,
    bytFieldSize, strTableName, strFieldName, strFieldType, strKeyField, bytFieldDec, bytFormat,
    blnIsFixed, blnIsMust, blnIsPrep, bytPrepOrder, blnIsFind) VALUES
  (101, 1, 1, '凭证日期', 1, 10, 'Voucher', 'Voucher.strDate', 'PERIOD', NULL, 0, 1, 1, 0, 0, 0, 1),
  (101, 2, 2, '凭证字', 1, 4, 'VoucherType', 'VoucherType.strVoucherTypeCode', 'STRING', NULL, 0, 0, 1, 0, 0, 0, 1),
  (101, 3, 3, '凭证号', 1, 6, 'Voucher', 'Voucher.lngVoucherNO', 'LONG', NULL, 0, 0, 0, 1, 0, 0, 1),
  (101, 4, 4, '组织', 1, 20, 'OrganizationAux', 'OrganizationAux.strOrganizationName', 'CODE', 'ORGANIZATION', 0, 0, 0, 0, 1, 1, 0),
  (101, 5, 5, '摘要', 0, 40, 'VoucherDetail', 'VoucherDetail.strSummary', 'STRING', NULL, 0, 0, 0, 1, 0, 0, 1),
  (101, 6, 6, '科目编码', 0, 20, 'Account', 'Account.strAccountCode', 'STRING', NULL, 0, 0, 0, 0, 1, 2, 1),
  (101, 7, 7, '科目名称', 0, 30, 'Account', 'Account.strAccountName', 'STRING', NULL, 0, 0, 0, 0, 1, 3, 1),
  (101, 8, 8, '部门', 0, 20, 'Department', 'Department.strDepartmentName', 'CODE', 'DEPARTMENT', 0, 0, 0, 0, 1, 4, 0),
  (101, 9, 9, '往来单位', 0, 30, 'Customer', 'Customer.strCustomerName', 'CODE', 'CUSTOMER', 0, 0, 0, 0, 0, 0, 0),
  (101, 10, 10, '统计', 0, 20, 'Class1', 'Class1.strClassName', 'CODE', 'CLASS1', 0, 0, 0, 0, 0, 0, 0),
  (101, 11, 11, '项目', 0, 20, 'Class2', 'Class2.strClassName', 'CODE', 'CLASS2', 0, 0, 0, 0, 0, 0, 0),
  (101, 12, 12, '职员', 0, 20, 'Employee', 'Employee.strEmployeeName', 'CODE', 'EMPLOYEE', 0, 0, 0, 0, 0, 0, 0),
  (101, 13, 13, '币种', 0, 10, 'Currencys', 'Currencys.strCurrencyName', 'CODE', 'CURRENCYS', 0, 0, 0, 0, 0, 0, 0),
  (101, 14, 14, '汇率', 0, 10, 'VoucherDetail', 'VoucherDetail.dblRate', 'DOUBLE', NULL, 4, 2, 0, 0, 0, 0, 0),
  (101, 15, 15, '数量', 0, 12, 'VoucherDetail', 'VoucherDetail.dblQuantity', 'DOUBLE', NULL, 3, 2, 0, 0, 0, 0, 0),
  (101, 16, 16, '借方金额', 0, 16, 'VoucherDetail', 'VoucherDetail.dblDebit', 'DOUBLE', NULL, 2, 3, 0, 1, 0, 0, 0),
  (101, 17, 17, '贷方金额', 0, 16, 'VoucherDetail', 'VoucherDetail.dblCredit', 'DOUBLE', NULL, 2, 3, 0, 1, 0, 0, 0),
  (101, 18, 18, '金额', 0, 16, 'VoucherDetail', 'VoucherDetail.dblDebit+VoucherDetail.dblCredit', 'DOUBLE', NULL, 2, 3, 0, 0, 0, 0, 0),
  (101, 19, 19, '附件数', 1, 4, 'Voucher', 'Voucher.intAttachments', 'INTEGER', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 20, 20, '凭证状态', 1, 8, 'Voucher', 'decode(Voucher.bytState,0,''未复核'',1,''已复核'',''已记账'')', 'ENUM', NULL, 0, 0, 0, 0, 1, 5, 0),
  (101, 21, 21, '是否复核', 1, 4, 'Voucher', 'decode(Voucher.bytState,0,''否'',''是'')', 'BOOLEAN', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 22, 22, '是否记账', 1, 4, 'Voucher', 'decode(Voucher.blnIsPost,1,''是'',''否'')', 'BOOLEAN', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 23, 23, '复核日期', 1, 10, 'Voucher', 'Voucher.strCheckDate', 'DATE', NULL, 0, 1, 0, 0, 0, 0, 0),
  (101, 24, 24, '记账日期', 1, 10, 'Voucher', 'Voucher.strPostDate', 'PERIOD', NULL, 0, 1, 0, 0, 0, 0, 0),
  (101, 25, 25, '制单人', 1, 10, 'Operator', 'Operator.strOperatorName', 'ENUM', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 26, 26, '复核人编号', 1, 10, 'Checker', 'Checker.strOperatorCode', 'STRING', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 27, 27, '合同号', 0, 20, 'VoucherDetail', 'VoucherDetail.strContractNO', 'STRING', NULL, 0, 0, 0, 0, 0, 0, 1),
  (101, 28, 28, '年度', 1, 4, 'Voucher', 'Voucher.intYear', 'INTEGER', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 29, 29, '期间', 1, 2, 'Voucher', 'Voucher.bytPeriod', 'INTEGER', NULL, 0, 0, 0, 0, 0, 0, 0),
  (101, 30, 30, '往来单位/单位类型', 0, 20, 'Customer', 'Customer.lngCustomerTypeID', 'CODE', 'CUSTOMERTYPE', 0, 0, 0, 0, 0, 0, 0);
UPDATE ViewField SET blnIsChoose = 0, blnIsNotList = 1 WHERE lngViewFieldID = 30;
-- A condition on these two would only repeat one on the date.
UPDATE ViewField SET blnIsFilter = 0 WHERE lngViewFieldID IN (28, 29);
UPDATE ViewField SET blnNotZero = 1 WHERE lngViewFieldID IN (16, 17);

-- The same columns over the whole group, where the check date takes a range instead of one day.
INSERT INTO ViewField
SELECT 102, lngViewFieldID + 100, lngViewFieldNO, strViewFieldDesc, bytHead, bytFieldSize, blnIsMust,
       blnIsPrep, strKeyField, bytPrepOrder, replace(strTableName, 'OrganizationAux', 'Organization'),
       replace(strFieldName, 'OrganizationAux', 'Organization'),
       CASE WHEN strViewFieldDesc = '复核日期' THEN 'PERIOD' ELSE strFieldType END, bytFieldDec,
       blnIsFilter, blnIsChoose, blnIsFixed, blnIsFind, blnIsNotList, blnIsFilt, bytFormat,
       blnNotZero, strBiaTableName
FROM ViewField WHERE lngViewID = 101;

INSERT INTO ViewField (lngViewID, lngViewFieldID, lngViewFieldNO, strViewFieldDesc, strTableName,
    strFieldName, strFieldType, strKeyField, blnIsFixed, blnIsMust) VALUES
  (103, 201, 1, '科目编码', 'Account', 'Account.strAccountCode', 'STRING', NULL, 1, 1),
  (103, 202, 2, '科目名称', 'Account', 'Account.strAccountName', 'STRING', NULL, 0, 1),
  (103, 203, 3, '科目全称', 'Account', 'Account.strFullName', 'STRING', NULL, 0, 0),
  (103, 204, 4, '科目类别', 'AccountType', 'AccountType.strAccountTypeName', 'ENUM', NULL, 0, 0),
  (103, 205, 5, '科目级次', 'Account', 'Account.intLevel', 'INTEGER', NULL, 0, 0),
  (103, 206, 6, '科目', 'Account', 'Account.strAccountName', 'CODE', 'ACCOUNT', 0, 0),
  -- An account that is broken down by several shows the first; a saved condition goes by the flags.
  (103, 207, 7, '辅助核算', 'Account',
   'decode(1,Account.blnIsCustomer,''单位'',Account.blnIsDepartment,''部门'',Account.blnIsEmployee,''职员'','
     || 'Account.blnIsClass1,''统计'',Account.blnIsClass2,''项目'',Account.blnIsFunctional,''功能分类科目'','
     || 'Account.blnIsGovernmentECO,''政府经济分类科目'',Account.blnIsDepartmentECO,''部门经济分类科目'','
     || 'Account.blnUseFlexibleCheck,''智能核算'')', 'ENUM', NULL, 0, 0),
  (103, 208, 8, '是否明细', 'Account', 'decode(Account.blnIsDetail,1,''是'',''否'')', 'BOOLEAN', NULL, 0, 0);

INSERT INTO ViewField (lngViewID, lngViewFieldID, lngViewFieldNO, strViewFieldDesc, strTableName,
    strFieldName, strFieldType, blnIsMust, blnIsFilter) VALUES
  (104, 301, 1, '币种编码', 'Currencys', 'Currencys.strCurrencyCode', 'STRING', 1, 0),
  (104, 302, 2, '币种名称', 'Currencys', 'Currencys.strCurrencyName', 'STRING', 1, 0),
  (104, 303, 3, '小数位数', 'Currencys', 'Currencys.bytCurrencydec', 'INTEGER', 1, 0);

-- Saved lists ------------------------------------------------------------------------------------
-- Operator 2 in 01-02 has two lists. Views 103 and 104, other operators and other organizations have
-- none: there the view's own columns and order hold.

INSERT INTO List (lngListID, lngViewID, strOtherKey, strListName, lngOperatorID, lngOrganizationID)
VALUES (1, 101, ' ', '凭证分录', 2, 3), (2, 102, ' ', '凭证分录(全集团)', 2, 3);

-- Own order, captions and widths. The columns that the list once showed and dropped keep their row,
-- unchosen (the rate); voucher number and date were never touched and have none.
INSERT INTO ListField (lngListFieldID, lngListID, lngViewFieldID, lngListFieldNO, strListFieldDesc,
    lngDisplayWidth, bytSort, blnIsChoosed) VALUES
  (1, 1, 2, 2, '凭证字', 600, 0, 1),
  (2, 1, 4, 4, '公司', 1800, 0, 1),
  (3, 1, 5, 10, '摘要', 2400, 0, 1),
  (4, 1, 6, 5, '科目编码', 1200, 1, 1),
  (5, 1, 7, 6, '科目名称', 1800, 0, 1),
  (6, 1, 8, 7, '部门', 1500, 0, 1),
  (7, 1, 14, 20, '汇率', 900, 0, 0),
  (8, 1, 16, 8, '借方金额', 1500, 2, 1),
  (9, 1, 17, 9, '贷方金额', 1500, 0, 1),
  (10, 1, 20, 11, '凭证状态', 900, 0, 1),
  (11, 1, 23, 12, '复核日期', 1100, 0, 1);
INSERT INTO ListField (lngListFieldID, lngListID, lngViewFieldID, lngListFieldNO, strListFieldDesc,
    lngDisplayWidth, bytSort, blnIsChoosed)
SELECT lngListFieldID + 11, 2, lngViewFieldID + 100, lngListFieldNO, strListFieldDesc,
       lngDisplayWidth, bytSort, blnIsChoosed
FROM ListField WHERE lngListID = 1;

-- List 1: one condition of each of the nine column types. On 2004-03-17 it finds the bank receipts of
-- the Shanghai companies that were checked on the 15th.
-- Codes: text 6 begins with, numbers 2 greater, 3 less, 4 not less; date 6 "this month", whose dates
-- are those of the day it was saved and are reckoned anew at every reading; '0' no date word. The
-- dialog confirms all of them as they are read: no "equals" on an account's code, which takes the
-- codes below only when it is read.
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, strStringOp, strString1,
    strString2) VALUES
  (1, 6, '科目编码', ' ', '6', '1002', NULL),
  (1, 20, '凭证状态', ' ', NULL, '已复核,已记账', '''已复核'',''已记账''');
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, strDoubleOP, dbldouble1)
VALUES (1, 3, '凭证号', ' ', '4', 2), (1, 19, '附件数', ' ', '3', 8), (1, 16, '借方金额', ' ', '2', 10000);
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, strDateOp, dtmDate1,
    dtmDate2) VALUES
  (1, 1, '凭证日期', ' ', '6', '2003-11-01', '2003-11-30'),
  (1, 23, '复核日期', ' ', '0', '2004-03-15', NULL);
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, blnBoolean)
VALUES (1, 21, '是否复核', ' ', 1);
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, blnIsMuliCond)
VALUES (1, 8, '部门', ' ', 1);
INSERT INTO ListMultiIDCond (lngListID, strPath, strCodeID, strKeyName, bLNISCODETYPE)
VALUES (1, '部门', '5,6', '国内销售科 国际业务科', 0);

-- List 2: every other form that a condition is stored in. Text 6 begins with, 7 contains, 8 similar,
-- 9 differs, 10 between, 11 empty; for numbers 6 is between and 7 zero or empty.
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, strStringOp, strString1,
    strString2) VALUES
  (2, 102, '凭证字', ' ', '8', '收', NULL),
  (2, 105, '摘要', ' ', '7', '货款', NULL),
  (2, 106, '科目编码', ' ', '9', '2121', NULL),
  (2, 107, '科目名称', ' ', '6', '应收', NULL),
  (2, 126, '复核人编号', ' ', '10', '1000', '1999'),
  (2, 127, '合同号', ' ', '11', NULL, NULL),
  -- One value; and several in the older form, which holds the number mark in front of them.
  (2, 120, '凭证状态', ' ', NULL, '已记账', '''已记账'''),
  (2, 125, '制单人', ' ', NULL, '张文静,李国强', '1,''张文静'',''李国强''');
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, strDoubleOP, dbldouble1,
    dbldouble2) VALUES
  (2, 103, '凭证号', ' ', '9', 3, NULL),
  (2, 114, '汇率', ' ', '1', 1, NULL),
  (2, 115, '数量', ' ', '7', 0, NULL),
  (2, 117, '贷方金额', ' ', '6', 500, 60000.5),
  (2, 119, '附件数', ' ', '5', 8, NULL);
-- A range of one's own has no code; 23 is a word without a range of its own, from older data; 18 is
-- "all" and restricts nothing.
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, strDateOp, dtmDate1,
    dtmDate2) VALUES
  (2, 101, '凭证日期', ' ', NULL, '2003-07-01', '2004-03-31'),
  (2, 123, '复核日期', ' ', '23', '2003-01-01', '2004-02-29'),
  (2, 124, '记账日期', ' ', '18', '2003-01-01', '2003-12-31');
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, blnBoolean)
VALUES (2, 121, '是否复核', ' ', 1);
-- Codes: one chosen; several in older rows, one for each; a choice without ids, one blank; and the
-- column below another one.
INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, strOthTableName, blnHavefathernode,
    blnIsMuliCond) VALUES
  (2, 113, '币种', ' ', NULL, 0),
  (2, 109, '往来单位', ' ', NULL, 1),
  (2, 112, '职员', ' ', NULL, 0),
  (2, 130, '往来单位/单位类型', ' ', 1, 1);
INSERT INTO ListMultiIDCond (lngListID, strPath, strCodeID, strKeyName, bLNISCODETYPE) VALUES
  (2, '币种', '1', 'RMB 人民币', 0),
  (2, '往来单位', '1', '城南自来水', 0),
  (2, '往来单位', '3', '恒通五金', 0),
  (2, '往来单位', '4', '钱塘机电', 0),
  (2, '职员', ' ', '所有', 0),
  (2, '往来单位/单位类型', '2,3', '经销商 直供用户', 0);

-- Sequences continue behind the rows above; the shared one of the manufacturing tables stands where
-- their books would leave it.
INSERT INTO demo_sequence (name, last)
SELECT 'LIST_SEQ', max(lngListID) FROM List
UNION ALL SELECT 'LISTFIELD_SEQ', max(lngListFieldID) FROM ListField
UNION ALL SELECT 'VOUCHER_SEQ', max(lngVoucherID) FROM Voucher
UNION ALL SELECT 'VOUCHERDETAIL_SEQ', max(lngVoucherDetailID) FROM VoucherDetail
UNION ALL SELECT 'CUSTOMER_SEQ', max(lngCustomerID) FROM Customer
UNION ALL SELECT 'DEPARTMENT_SEQ', max(lngDepartmentID) FROM Department
UNION ALL SELECT 'ACCOUNT_SEQ', max(lngAccountID) FROM Account
UNION ALL SELECT 'EMPLOYEE_SEQ', max(lngEmployeeID) FROM Employee
UNION ALL SELECT 'MMACTIVITY_SEQ', 5000;
