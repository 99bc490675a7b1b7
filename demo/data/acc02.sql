-- The second account: small, older, and different where it shows. It takes its turn after the main
-- one to show what a change of account reloads; ids that both use (operator 2, view 101) mean other
-- rows here.

-- The natural currency has no row in Currencys, so its code and name are empty and its decimals two.
-- No unit code either, which reads as one blank.
INSERT INTO Business (bytAccountProperty, bytGroupDBType, bytDiscountRateDec, bytPriceDec,
    bytQuantityDec, bytType, lngCurrencyID, lngTradeID, strAccountSystem, strApplicationLabel,
    strGAUnitCode, strMessageServer, strNotes, strOldAccountSystem, strStartDate, strTaxType,
    strUserName, strVer, strDynPwdSvrIP, strDynPwdSvrPort)
VALUES (1, 0, 1, 2, 0, 1, 9, 2, '小企业会计制度', '培训财务', NULL, 'MSGSRV', '培训中心独立核算',
    '事业单位会计制度', '2004-01-01', '小规模纳税人', '华岳培训中心', '7.10', '192.0.2.20', '5051');

INSERT INTO Currencys (lngCurrencyID, strCurrencyCode, strCurrencyName, bytCurrencydec) VALUES
  (1, 'RMB', '人民币', 2), (2, 'HKD', '港币', NULL);

INSERT INTO Organization (lngOrganizationID, strOrganizationCode, strOrganizationName, strFullName,
    intLevel, strDate, strStartDate, blnIsBase, blnIsCache, blnIsCenter, blnIsControl, blnIsDetail,
    blnIsInActive, blnIsInitialized, blnIsVoucher) VALUES
  (1, '01', '培训中心', '华岳职工培训中心', 1, '2003-10-08', '2004-01-01', 1, 0, 1, 1, 0, 0, 1, 0),
  (2, '01-01', '技能培训部', '华岳职工培训中心技能培训部', 2, '2003-10-08', '2004-01-01', 0, 0, 0, 0, 1, 0, 1, 1),
  (3, '01-02', '招待所', '华岳职工培训中心招待所', 2, '2003-12-01', '2004-01-01', 0, 0, 0, 0, 1, 0, 1, 1);
INSERT INTO OrganizationAux SELECT lngOrganizationID, strOrganizationCode, strOrganizationName
FROM Organization;

-- Calendar months of 2004 alone: there is no year before to compare with.
INSERT INTO AccountPeriod
WITH RECURSIVE m(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM m WHERE n < 11)
SELECT lngOrganizationID, 2004, n + 1, date('2004-01-01', '+' || n || ' months'),
       date('2004-01-01', '+' || (n + 1) || ' months', '-1 day')
FROM Organization, m;
INSERT INTO AccountQuarter
SELECT lngOrganizationID, intYear, (bytPeriod - 1) / 3 + 1 AS q, min(strStartDate), max(strEndDate)
FROM AccountPeriod GROUP BY lngOrganizationID, intYear, q;
INSERT INTO AccountHalf
SELECT lngOrganizationID, intYear, (bytPeriod - 1) / 6 + 1 AS h, min(strStartDate), max(strEndDate)
FROM AccountPeriod GROUP BY lngOrganizationID, intYear, h;

-- No titles for the two classes: their standard names hold.
INSERT INTO Setting (strKey, strSection, lngModuleID, lngOrganizationID, strSetting) VALUES
  ('账簿抬头', '打印设置', 1, 1, '华岳培训中心'), ('凭证需复核', '凭证设置', 1, 1, '0');
INSERT INTO FlexibleUseField (lngOrganizationID, blnFieldUse02) VALUES (1, 1);
INSERT INTO FlexibleTitle (strTitle02) VALUES ('培训班次');

INSERT INTO OperatorGroup VALUES (1, '财务');
INSERT INTO Role VALUES (0, '无');
INSERT INTO Operator (lngOperatorID, strOperatorCode, strOperatorName, strPassword, lngDepartmentID,
    lngOperatorGroupID, lngRoleID, strTokenSN, blnUseDynPwd, blnUseStcPwd, blnIsSystem,
    blnIsInActive) VALUES
  (2, 'P01', '何玉珍', 'hyz', 1, 1, 0, ' ', 0, 1, 1, 0),
  (3, 'P02', '马志明', NULL, 2, 1, 0, ' ', 0, 1, 0, 0);
INSERT INTO OrgOperatorAllot (lngOrganizationID, lngOperatorID) VALUES
  (1, 2), (2, 2), (3, 2), (1, 3), (2, 3);
INSERT INTO SSCustomer (lngSSCustomerID, strSSCustomerCode, strSSCustomerName, strFullName,
    blnIsInActive) VALUES (101, 'T001', '市技能鉴定所', '市职业技能鉴定所', 0);

-- An older database: an operator's groups of rights are not yet told apart by organization.
ALTER TABLE OperatorRight DROP COLUMN lngOrganizationID;
INSERT INTO "Right" (lngRightID, strRightName) VALUES
  (12, '凭证录入'), (15, '凭证查询'), (31, '账簿查询');
INSERT INTO RightGroup (lngRightGroupID, strRightGroupName, lngOrganizationID) VALUES
  (1, '中心会计', 1), (2, '部门查询', 2);
INSERT INTO RightGroupDetail (lngRightGroupID, lngRightID) VALUES (1, 12), (1, 15), (2, 31);
INSERT INTO OperatorRight (lngOperatorID, lngRightGroupID) VALUES (2, 1), (2, 2), (3, 2);
INSERT INTO OperatorAllRight (lngOperatorID, lngOrganizationID, blnAllAccount, blnAllAccountUse,
    blnAllDepartment, blnAllDepartmentUse) VALUES (2, 1, 1, 1, 1, 1);

INSERT INTO Department (lngDepartmentID, strDepartmentCode, strDepartmentName, strFullName, intLevel,
    blnIsDetail) VALUES
  (1, '1', '办公室', '办公室', 1, 1), (2, '2', '教务处', '教务处', 1, 0),
  (3, '2-01', '电工班', '教务处-电工班', 2, 1), (4, '2-02', '钳工班', '教务处-钳工班', 2, 1);
INSERT INTO AccountType VALUES (1, '资产'), (5, '损益');
INSERT INTO Account (lngAccountID, strAccountCode, strAccountName, strFullName, intLevel,
    lngAccountTypeID, lngAccountNatureID, blnIsDetail) VALUES
  (1, '1001', '现金', '现金', 1, 1, 1, 1), (2, '5101', '培训收入', '培训收入', 1, 5, 0, 1);
INSERT INTO VoucherType (lngVoucherTypeID, strVoucherTypeCode, strVoucherTypeName)
VALUES (1, '记', '记账凭证');

-- A course fee every other day of the first quarter.
INSERT INTO Voucher (lngVoucherID, lngOrganizationID, lngVoucherTypeID, intYear, bytPeriod,
    lngVoucherNO, strDate, intAttachments, lngOperatorID, bytState, blnIsPost)
WITH RECURSIVE number(k) AS (SELECT 0 UNION ALL SELECT k + 1 FROM number WHERE k < 37)
SELECT k + 1, 2, 1, 2004, CAST(strftime('%m', day) AS INTEGER),
       row_number() OVER (PARTITION BY strftime('%m', day) ORDER BY k), day, k % 3, 2 + k % 2, 0, 0
FROM (SELECT k, date('2004-01-02', '+' || (2 * k) || ' days') AS day FROM number);
INSERT INTO VoucherDetail (lngVoucherDetailID, lngVoucherID, intLineNO, strSummary, lngAccountID,
    lngDepartmentID, lngCurrencyID, dblRate, dblDebit, dblCredit)
SELECT 2 * lngVoucherID - 1, lngVoucherID, 1, '收培训费', 1, 3 + lngVoucherID % 2, 1, 1,
       300 + 20 * (lngVoucherID % 9), 0
FROM Voucher;
INSERT INTO VoucherDetail (lngVoucherDetailID, lngVoucherID, intLineNO, strSummary, lngAccountID,
    lngDepartmentID, lngCurrencyID, dblRate, dblDebit, dblCredit)
SELECT lngVoucherDetailID + 1, lngVoucherID, 2, strSummary, 2, lngDepartmentID, 1, 1, 0, dblDebit
FROM VoucherDetail;

-- The FROM text spells OrganizationAux in its own way, which must make no difference.
INSERT INTO View1 (lngViewId, strViewName, strViewSQL, strCurTable, StrViewWhere, strPrimaryKey)
VALUES (101, '培训收入明细', 'Voucher,VoucherDetail,Account,Department,organizationaux', 'Voucher',
  'Voucher.lngVoucherID = VoucherDetail.lngVoucherID'
    || ' And VoucherDetail.lngAccountID = Account.lngAccountID'
    || ' And VoucherDetail.lngDepartmentID = Department.lngDepartmentID(+)'
    || ' And Voucher.lngOrganizationID = organizationaux.lngOrganizationID',
  'lngVoucherID');
INSERT INTO ViewField (lngViewID, lngViewFieldID, lngViewFieldNO, strViewFieldDesc, bytHead,
    strTableName, strFieldName, strFieldType, strKeyField, bytFieldDec, blnIsFixed, blnIsMust) VALUES
  (101, 1, 1, '凭证日期', 1, 'Voucher', 'Voucher.strDate', 'PERIOD', NULL, 0, 1, 0),
  (101, 2, 2, '凭证号', 1, 'Voucher', 'Voucher.lngVoucherNO', 'LONG', NULL, 0, 0, 1),
  (101, 3, 3, '摘要', 0, 'VoucherDetail', 'VoucherDetail.strSummary', 'STRING', NULL, 0, 0, 1),
  (101, 4, 4, '科目编码', 0, 'Account', 'Account.strAccountCode', 'STRING', NULL, 0, 0, 1),
  (101, 5, 5, '部门', 0, 'Department', 'Department.strDepartmentName', 'CODE', 'DEPARTMENT', 0, 0, 1),
  (101, 6, 6, '贷方金额', 0, 'VoucherDetail', 'VoucherDetail.dblCredit', 'DOUBLE', NULL, 2, 0, 1);

INSERT INTO demo_sequence (name, last)
SELECT 'VOUCHER_SEQ', max(lngVoucherID) FROM Voucher
UNION ALL SELECT 'VOUCHERDETAIL_SEQ', max(lngVoucherDetailID) FROM VoucherDetail
UNION ALL SELECT 'LIST_SEQ', 0
UNION ALL SELECT 'LISTFIELD_SEQ', 0
UNION ALL SELECT 'MMACTIVITY_SEQ', 0;
