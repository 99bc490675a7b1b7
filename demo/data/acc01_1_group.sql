-- The main account: a group of companies, its calendars, settings, operators and customers.

-- Group database type 1 with account property 1 makes an organization's property 2.
-- Every column is filled: the first Null outside the currency would end the load of this row.
INSERT INTO Business (bytAccountProperty, bytGroupDBType, bytDiscountRateDec, bytPriceDec,
    bytQuantityDec, bytType, lngCurrencyID, lngTradeID, strAccountSystem, strApplicationLabel,
    strGAUnitCode, strMessageServer, strNotes, strOldAccountSystem, strStartDate, strTaxType,
    strUserName, strVer, strDynPwdSvrIP, strDynPwdSvrPort)
VALUES (1, 1, 2, 4, 3, 2, 1, 5, '企业会计制度', '集团财务', 'HY01', 'MSGSRV',
    '集团统一账套，2003年1月启用', '工业企业会计制度', '2003-01-01', '一般纳税人', '华岳机电集团',
    '7.20', '192.0.2.10', '5050');

-- Foreign currencies stand below FC. The yen has no decimals, the dinar three; for the group code FC
-- and for the rouble none are recorded.
INSERT INTO Currencys (lngCurrencyID, strCurrencyCode, strCurrencyName, bytCurrencydec,
    blnIsInActive) VALUES
  (1, 'RMB', '人民币', 2, 0),
  (2, 'FC', '外币', NULL, 0),
  (3, 'FC-USD', '美元', 2, 0),
  (4, 'FC-JPY', '日元', 0, 0),
  (5, 'FC-KWD', '科威特第纳尔', 3, 0),
  (6, 'FC-EUR', '欧元', 2, 0),
  (7, 'FC-RUB', '卢布', NULL, 1);

-- Ids follow the order of founding and not the tree. 010 begins with 01 but is not below it.
-- 01-05 is inactive and 01-02-05-02 not yet initialised: neither can be logged into.
INSERT INTO Organization (lngOrganizationID, strOrganizationCode, strOrganizationName, strFullName,
    intLevel, strDate, strStartDate, blnIsBase, blnIsCache, blnIsCenter, blnIsControl, blnIsDetail,
    blnIsInActive, blnIsInitialized, blnIsVoucher) VALUES
  (1, '01', '华岳机电集团', '华岳机电集团有限公司', 1, '2002-10-08', '2003-01-01', 1, 0, 1, 1, 0, 0, 1, 0),
  (2, '01-01', '集团总部', '华岳机电集团有限公司总部', 2, '2002-10-08', '2003-01-01', 0, 0, 1, 0, 1, 0, 1, 1),
  (3, '01-02', '上海分公司', '华岳机电集团上海分公司', 2, '2002-10-15', '2003-01-01', 0, 1, 1, 1, 0, 0, 1, 0),
  (4, '01-02-01', '上海销售公司', '华岳机电集团上海销售公司', 3, '2002-10-15', '2003-01-01', 0, 0, 0, 0, 1, 0, 1, 1),
  (5, '01-02-05', '浦东工厂', '华岳机电集团上海浦东工厂', 3, '2002-11-01', '2003-01-01', 0, 0, 0, 1, 0, 0, 1, 0),
  (6, '01-02-05-01', '浦东一车间', '华岳机电集团上海浦东工厂一车间', 4, '2002-11-01', '2003-01-01', 0, 0, 0, 0, 1, 0, 1, 1),
  (7, '01-02-05-02', '浦东二车间', '华岳机电集团上海浦东工厂二车间', 4, '2004-02-20', '2004-07-01', 0, 0, 0, 0, 1, 0, 0, 1),
  -- Taken over from an older system, which wrote dates with dots.
  (8, '01-03', '苏州分公司', '华岳机电集团苏州分公司', 2, '2002.11.20', '2003.01.01', 0, 0, 1, 0, 1, 0, 1, 1),
  (9, '01-04', '宁波分公司', '华岳机电集团宁波分公司', 2, '2002-12-02', '2003-01-01', 0, 0, 1, 0, 1, 0, 1, 1),
  (10, '01-05', '南京办事处', '华岳机电集团南京办事处', 2, '2002-12-02', '2003-01-01', 0, 0, 0, 0, 1, 1, 1, 1),
  (11, '010', '华北机电贸易公司', '华北机电贸易有限责任公司', 1, '2002-12-16', '2003-01-01', 0, 0, 1, 0, 1, 0, 1, 1),
  (12, '01-02-03', '上海服务公司', '华岳机电集团上海技术服务公司', 3, '2003-01-06', '2003-01-01', 0, 0, 0, 0, 1, 0, 1, 1);

INSERT INTO OrganizationAux SELECT lngOrganizationID, strOrganizationCode, strOrganizationName
FROM Organization;

-- Calendars of 2003 to 2005 for the organizations that can be logged into -------------------------

-- Calendar months, except in Suzhou (8) and Ningbo (9).
INSERT INTO AccountPeriod
WITH RECURSIVE m(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM m WHERE n < 35)
SELECT o.lngOrganizationID, 2003 + n / 12, n % 12 + 1, date('2003-01-01', '+' || n || ' months'),
       date('2003-01-01', '+' || (n + 1) || ' months', '-1 day')
FROM Organization o, m
WHERE o.blnIsInActive = 0 AND o.blnIsInitialized = 1 AND o.lngOrganizationID NOT IN (8, 9);

-- Suzhou closes on the 25th: its January begins on December 26th, and so does its year.
INSERT INTO AccountPeriod
WITH RECURSIVE m(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM m WHERE n < 35)
SELECT 8, 2003 + n / 12, n % 12 + 1, date('2002-12-26', '+' || n || ' months'),
       date('2002-12-25', '+' || (n + 1) || ' months')
FROM m;

-- Ningbo counts 13 periods of four weeks, Monday to Sunday. Its calendar ends on 2005-12-25, so
-- the last days of 2005 lie in no period.
INSERT INTO AccountPeriod
WITH RECURSIVE m(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM m WHERE n < 38)
SELECT 9, 2003 + n / 13, n % 13 + 1, date('2002-12-30', '+' || (28 * n) || ' days'),
       date('2002-12-30', '+' || (28 * n + 27) || ' days')
FROM m;

-- A 13th period falls to the last quarter and half.
INSERT INTO AccountQuarter
SELECT lngOrganizationID, intYear, min((bytPeriod - 1) / 3 + 1, 4) AS q, min(strStartDate),
       max(strEndDate)
FROM AccountPeriod GROUP BY lngOrganizationID, intYear, q;
INSERT INTO AccountHalf
SELECT lngOrganizationID, intYear, min((bytPeriod - 1) / 6 + 1, 2) AS h, min(strStartDate),
       max(strEndDate)
FROM AccountPeriod GROUP BY lngOrganizationID, intYear, h;

-- Rows from the older system, whose dates have dots. "." sorts after "-", so as text such an end lies
-- behind, and such a start too, every date of its own year that is written with "-".
-- Here that is harmless: the end of a year's last period has no later day in that year.
UPDATE AccountPeriod SET strEndDate = '2003.12.31'
WHERE lngOrganizationID IN (1, 3) AND intYear = 2003 AND bytPeriod = 12;
-- Here it shows: in 010 a date of January 2004 is in the first period by its end, but not by its
-- start, and is in no period at all.
UPDATE AccountPeriod SET strStartDate = '2004.01.01', strEndDate = '2004.01.31'
WHERE lngOrganizationID = 11 AND intYear = 2004 AND bytPeriod = 1;

-- Settings -----------------------------------------------------------------------------------------

INSERT INTO Setting (strKey, strSection, lngModuleID, lngOrganizationID, strSetting, strNotes) VALUES
  ('统计', '标题设置', 1, 0, '产品线', '统计类别的标题'),
  ('项目', '标题设置', 1, 0, '工程项目', '项目类别的标题'),
  -- Same key and section in another module: who leaves the module out reads either row.
  ('统计', '标题设置', 3, 0, '物料统计', NULL),
  ('账簿抬头', '打印设置', 1, 0, '华岳机电集团', NULL),
  ('账簿抬头', '打印设置', 1, 3, '华岳上海分公司', '分公司自行设定'),
  ('账簿抬头', '打印设置', 1, 8, '华岳苏州分公司', '分公司自行设定'),
  ('凭证需复核', '凭证设置', 1, 3, '1', NULL),
  ('凭证需复核', '凭证设置', 1, 8, '0', NULL),
  ('最大附件数', '凭证设置', 1, 3, '99', NULL),
  -- A setting that was cleared.
  ('默认摘要', '凭证设置', 1, 3, NULL, NULL);

INSERT INTO FlexibleUseField (lngOrganizationID, blnFieldUse01, blnFieldUse05, blnFieldUse12) VALUES
  (1, 1, 1, 0), (3, 1, 1, 0), (4, 0, 1, 0), (8, 0, 0, 1);
-- Field 12 has lost its title, although Suzhou uses it.
INSERT INTO FlexibleTitle (strTitle01, strTitle05, strTitle12) VALUES ('合同号', '运输方式', NULL);

-- Operators ------------------------------------------------------------------------------------------

INSERT INTO OperatorGroup VALUES (1, '系统管理'), (2, '财务会计'), (3, '业务查询');
INSERT INTO Role VALUES (0, '无'), (1, '总账会计'), (2, '出纳'), (3, '主管');

-- Passwords: Null; padded with blanks; a text of digits, which is read as a number and so loses its
-- leading zeros. A token is one blank where there is none: only the password may be Null.
INSERT INTO Operator (lngOperatorID, strOperatorCode, strOperatorName, strPassword, lngDepartmentID,
    lngOperatorGroupID, lngRoleID, strTokenSN, blnUseDynPwd, blnUseStcPwd, blnIsSystem,
    blnIsInActive) VALUES
  (1, '0001', '系统管理员', 'manager', 1, 1, 3, ' ', 0, 1, 1, 0),
  (2, '1001', '张文静', 'zwj2004', 2, 2, 1, 'TK-20040117 ', 1, 1, 0, 0),
  (3, '1002', '李国强', NULL, 5, 2, 2, ' ', 0, 1, 0, 0),
  (4, '1003', '王秀兰', '  wxl88   ', 2, 2, 3, ' ', 0, 1, 0, 0),
  (5, '1004', '周建平', '00123', 9, 3, 0, ' ', 0, 1, 0, 0),
  -- Has left; the allotments stayed.
  (6, '1005', '赵永和', 'zyh', 2, 2, 1, ' ', 0, 1, 0, 1),
  -- Allotted to Suzhou alone.
  (7, '2001', '陈思远', 'csy2003', 2, 2, 1, ' ', 0, 1, 0, 0),
  -- Allotted nowhere.
  (8, '3001', '孙晓梅', 'sxm', 5, 3, 0, ' ', 0, 1, 0, 0),
  -- Allotted, with a group that no longer exists and a token column that was never filled.
  (9, '3002', '吴海波', 'whb', 5, 77, 0, NULL, 0, 1, 0, 0);

INSERT INTO OrgOperatorAllot (lngOrganizationID, lngOperatorID)
SELECT lngOrganizationID, 1 FROM Organization;
INSERT INTO OrgOperatorAllot (lngOrganizationID, lngOperatorID) VALUES
  (1, 2), (2, 2), (3, 2), (4, 2), (5, 2), (6, 2), (8, 2), (9, 2), (11, 2), (12, 2),
  (3, 3), (4, 3), (5, 3), (6, 3), (12, 3),
  (1, 4), (3, 4), (4, 4), (6, 4), (9, 4), (11, 4), (12, 4),
  (3, 5), (3, 6), (4, 6), (8, 7), (3, 9);

-- Service customers --------------------------------------------------------------------------------

-- 102 has no full name; 103 is inactive and is loaded all the same.
INSERT INTO SSCustomer (lngSSCustomerID, strSSCustomerCode, strSSCustomerName, strFullName,
    blnIsInActive) VALUES
  (101, 'S001', '江南水泵', '江南水泵制造有限公司', 0),
  (102, 'S002', '西塘电缆', NULL, 0),
  (103, 'S003', '长桥电器', '长桥电器股份有限公司', 1);
INSERT INTO McCustomer (lngSSCustomerID, strSSCustomerCode, strSSCustomerName, strFullName,
    blnIsInActive) VALUES
  (101, 'M001', '太湖化纤', '太湖化学纤维总厂', 0),
  (102, 'M002', '运河纺机', NULL, 1);
