-- The tables of an account. Column prefixes: lng, int, byt and bln are integers (flags are 0 or 1),
-- dbl floating, str text, dtm a date. Every date is a text "yyyy-MM-dd".
-- No empty text is ever stored: in this dialect it is Null, and a loader that meets a Null where it
-- expects a text stops there. Where a column has nothing to say but must not be Null it holds one
-- blank.

CREATE TABLE DUAL (DUMMY TEXT);
INSERT INTO DUAL VALUES ('X');

-- One row per sequence, its name in upper case; last is the number drawn last.
CREATE TABLE demo_sequence (name TEXT PRIMARY KEY, last INTEGER NOT NULL);

-- Account, organizations and calendars ---------------------------------------------------------

CREATE TABLE Business (
  bytAccountProperty INTEGER, bytGroupDBType INTEGER, bytDiscountRateDec INTEGER,
  bytPriceDec INTEGER, bytQuantityDec INTEGER, bytType INTEGER, lngCurrencyID INTEGER,
  lngTradeID INTEGER, strAccountSystem TEXT, strApplicationLabel TEXT, strGAUnitCode TEXT,
  strMessageServer TEXT, strNotes TEXT, strOldAccountSystem TEXT, strStartDate TEXT,
  strTaxType TEXT, strUserName TEXT, strVer TEXT, strDynPwdSvrIP TEXT, strDynPwdSvrPort TEXT
);

CREATE TABLE Currencys (
  lngCurrencyID INTEGER PRIMARY KEY, strCurrencyCode TEXT, strCurrencyName TEXT,
  bytCurrencydec INTEGER, blnIsInActive INTEGER DEFAULT 0
);

CREATE TABLE Organization (
  lngOrganizationID INTEGER PRIMARY KEY, strOrganizationCode TEXT, strOrganizationName TEXT,
  strFullName TEXT, intLevel INTEGER, strDate TEXT, strStartDate TEXT, blnIsBase INTEGER,
  blnIsCache INTEGER, blnIsCenter INTEGER, blnIsControl INTEGER, blnIsDetail INTEGER,
  blnIsInActive INTEGER, blnIsInitialized INTEGER, blnIsVoucher INTEGER
);

-- What list views join to be held to the login organization; one row per organization.
CREATE TABLE OrganizationAux (
  lngOrganizationID INTEGER PRIMARY KEY, strOrganizationCode TEXT, strOrganizationName TEXT
);

CREATE TABLE AccountPeriod (
  lngOrganizationID INTEGER, intYear INTEGER, bytPeriod INTEGER, strStartDate TEXT,
  strEndDate TEXT, PRIMARY KEY (lngOrganizationID, intYear, bytPeriod)
);
CREATE TABLE AccountQuarter (
  lngOrganizationID INTEGER, intYear INTEGER, bytquarter INTEGER, strStartDate TEXT,
  strEndDate TEXT, PRIMARY KEY (lngOrganizationID, intYear, bytquarter)
);
CREATE TABLE AccountHalf (
  lngOrganizationID INTEGER, intYear INTEGER, bythalf INTEGER, strStartDate TEXT,
  strEndDate TEXT, PRIMARY KEY (lngOrganizationID, intYear, bythalf)
);

-- Settings ---------------------------------------------------------------------------------------

-- lngOrganizationID 0 marks a setting that all organizations share.
CREATE TABLE Setting (
  strKey TEXT, strSection TEXT, lngModuleID INTEGER, lngOrganizationID INTEGER, strSetting TEXT,
  strNotes TEXT
);

CREATE TABLE FlexibleUseField (
  lngOrganizationID INTEGER PRIMARY KEY,
  blnFieldUse01 INTEGER DEFAULT 0, blnFieldUse02 INTEGER DEFAULT 0, blnFieldUse03 INTEGER DEFAULT 0,
  blnFieldUse04 INTEGER DEFAULT 0, blnFieldUse05 INTEGER DEFAULT 0, blnFieldUse06 INTEGER DEFAULT 0,
  blnFieldUse07 INTEGER DEFAULT 0, blnFieldUse08 INTEGER DEFAULT 0, blnFieldUse09 INTEGER DEFAULT 0,
  blnFieldUse10 INTEGER DEFAULT 0, blnFieldUse11 INTEGER DEFAULT 0, blnFieldUse12 INTEGER DEFAULT 0,
  blnFieldUse13 INTEGER DEFAULT 0, blnFieldUse14 INTEGER DEFAULT 0, blnFieldUse15 INTEGER DEFAULT 0,
  blnFieldUse16 INTEGER DEFAULT 0, blnFieldUse17 INTEGER DEFAULT 0, blnFieldUse18 INTEGER DEFAULT 0,
  blnFieldUse19 INTEGER DEFAULT 0, blnFieldUse20 INTEGER DEFAULT 0, blnFieldUse21 INTEGER DEFAULT 0,
  blnFieldUse22 INTEGER DEFAULT 0, blnFieldUse23 INTEGER DEFAULT 0, blnFieldUse24 INTEGER DEFAULT 0,
  blnFieldUse25 INTEGER DEFAULT 0, blnFieldUse26 INTEGER DEFAULT 0, blnFieldUse27 INTEGER DEFAULT 0,
  blnFieldUse28 INTEGER DEFAULT 0, blnFieldUse29 INTEGER DEFAULT 0, blnFieldUse30 INTEGER DEFAULT 0
);

-- A single row: titles are the account's, use is each organization's.
CREATE TABLE FlexibleTitle (
  strTitle01 TEXT DEFAULT '智能字段01', strTitle02 TEXT DEFAULT '智能字段02',
  strTitle03 TEXT DEFAULT '智能字段03', strTitle04 TEXT DEFAULT '智能字段04',
  strTitle05 TEXT DEFAULT '智能字段05', strTitle06 TEXT DEFAULT '智能字段06',
  strTitle07 TEXT DEFAULT '智能字段07', strTitle08 TEXT DEFAULT '智能字段08',
  strTitle09 TEXT DEFAULT '智能字段09', strTitle10 TEXT DEFAULT '智能字段10',
  strTitle11 TEXT DEFAULT '智能字段11', strTitle12 TEXT DEFAULT '智能字段12',
  strTitle13 TEXT DEFAULT '智能字段13', strTitle14 TEXT DEFAULT '智能字段14',
  strTitle15 TEXT DEFAULT '智能字段15', strTitle16 TEXT DEFAULT '智能字段16',
  strTitle17 TEXT DEFAULT '智能字段17', strTitle18 TEXT DEFAULT '智能字段18',
  strTitle19 TEXT DEFAULT '智能字段19', strTitle20 TEXT DEFAULT '智能字段20',
  strTitle21 TEXT DEFAULT '智能字段21', strTitle22 TEXT DEFAULT '智能字段22',
  strTitle23 TEXT DEFAULT '智能字段23', strTitle24 TEXT DEFAULT '智能字段24',
  strTitle25 TEXT DEFAULT '智能字段25', strTitle26 TEXT DEFAULT '智能字段26',
  strTitle27 TEXT DEFAULT '智能字段27', strTitle28 TEXT DEFAULT '智能字段28',
  strTitle29 TEXT DEFAULT '智能字段29', strTitle30 TEXT DEFAULT '智能字段30'
);

-- Operators, customers and rights ----------------------------------------------------------------

CREATE TABLE OperatorGroup (lngOperatorGroupID INTEGER PRIMARY KEY, strOperatorGroupName TEXT);
CREATE TABLE Role (lngRoleID INTEGER PRIMARY KEY, strRoleName TEXT);
CREATE TABLE Operator (
  lngOperatorID INTEGER PRIMARY KEY, strOperatorCode TEXT, strOperatorName TEXT, strPassword TEXT,
  lngDepartmentID INTEGER, lngOperatorGroupID INTEGER, lngRoleID INTEGER, strTokenSN TEXT,
  blnUseDynPwd INTEGER, blnUseStcPwd INTEGER, blnIsSystem INTEGER, blnIsInActive INTEGER
);
CREATE TABLE OrgOperatorAllot (
  lngOrganizationID INTEGER, lngOperatorID INTEGER, PRIMARY KEY (lngOrganizationID, lngOperatorID)
);

CREATE TABLE SSCustomer (
  lngSSCustomerID INTEGER PRIMARY KEY, strSSCustomerCode TEXT, strSSCustomerName TEXT,
  strFullName TEXT, blnIsInActive INTEGER
);
-- The same columns under the same names; read for the other kind of account.
CREATE TABLE McCustomer (
  lngSSCustomerID INTEGER PRIMARY KEY, strSSCustomerCode TEXT, strSSCustomerName TEXT,
  strFullName TEXT, blnIsInActive INTEGER
);

CREATE TABLE "Right" (lngRightID INTEGER PRIMARY KEY, strRightName TEXT);
-- Organization 0: a group of rights for the whole account, which counts in the organizations that
-- an assignment names. Any other organization: a group of that organization alone.
CREATE TABLE RightGroup (
  lngRightGroupID INTEGER PRIMARY KEY, strRightGroupName TEXT, lngOrganizationID INTEGER
);
CREATE TABLE RightGroupDetail (lngRightGroupID INTEGER, lngRightID INTEGER);
CREATE TABLE OperatorRight (
  lngOperatorID INTEGER, lngRightGroupID INTEGER, lngOrganizationID INTEGER
);

-- "blnAll" KIND: may query every code of the kind; "blnAll" KIND "Use": may use every one.
CREATE TABLE OperatorAllRight (
  lngOperatorID INTEGER, lngOrganizationID INTEGER,
  blnAllAccount INTEGER DEFAULT 0, blnAllAccountUse INTEGER DEFAULT 0,
  blnAllDepartment INTEGER DEFAULT 0, blnAllDepartmentUse INTEGER DEFAULT 0,
  blnAllClass1 INTEGER DEFAULT 0, blnAllClass1Use INTEGER DEFAULT 0,
  blnAllClass2 INTEGER DEFAULT 0, blnAllClass2Use INTEGER DEFAULT 0,
  blnAllCustomer INTEGER DEFAULT 0, blnAllCustomerUse INTEGER DEFAULT 0,
  blnAllCustomType INTEGER DEFAULT 0, blnAllCustomTypeUse INTEGER DEFAULT 0,
  blnAllEmployee INTEGER DEFAULT 0, blnAllEmployeeUse INTEGER DEFAULT 0,
  blnAllFunctional INTEGER DEFAULT 0, blnAllFunctionalUse INTEGER DEFAULT 0,
  blnAllGovernmentECO INTEGER DEFAULT 0, blnAllGovernmentECOUse INTEGER DEFAULT 0,
  blnAllDepartmentECO INTEGER DEFAULT 0, blnAllDepartmentECOUse INTEGER DEFAULT 0,
  blnAllFBDutyCenter INTEGER DEFAULT 1, blnAllFBDutyCenterUse INTEGER DEFAULT 1,
  blnAllFBScheme INTEGER DEFAULT 1, blnAllFBSchemeUse INTEGER DEFAULT 1,
  blnAllFBType INTEGER DEFAULT 1, blnAllFBTypeUse INTEGER DEFAULT 1,
  blnAllFBSystem INTEGER DEFAULT 1, blnAllFBSystemUse INTEGER DEFAULT 1,
  blnAllFBTarget INTEGER DEFAULT 1, blnAllFBTargetUse INTEGER DEFAULT 1,
  blnAllFBItem INTEGER DEFAULT 1, blnAllFBItemUse INTEGER DEFAULT 1,
  PRIMARY KEY (lngOperatorID, lngOrganizationID)
);

-- Which code tables a group of rights opens, and for what.
CREATE TABLE SelGroupRight (
  lngRightGroupID INTEGER, strTableName TEXT, blnQuery INTEGER, blnUse INTEGER,
  PRIMARY KEY (lngRightGroupID, strTableName)
);
-- The codes that the group then reaches; lngKeyID is the code table's key. Organization 0: the code
-- is reached in every organization. Table names are spelt as the table is.
CREATE TABLE GroupToRightDetail (
  lngRightGroupID INTEGER, strTableName TEXT, lngKeyID INTEGER, lngOrganizationID INTEGER,
  PRIMARY KEY (lngRightGroupID, strTableName, lngKeyID, lngOrganizationID)
);
-- Codes allotted to an organization. One without any row for a table may use all of its codes.
CREATE TABLE OrgCodeAllot (
  lngOrganizationID INTEGER, strTableName TEXT, lngKeyID INTEGER, blnUse INTEGER,
  PRIMARY KEY (lngOrganizationID, strTableName, lngKeyID)
);

-- Code tables --------------------------------------------------------------------------------------
-- A code is below another when it begins with that code and "-".

CREATE TABLE Department (
  lngDepartmentID INTEGER PRIMARY KEY, strDepartmentCode TEXT, strDepartmentName TEXT,
  strFullName TEXT, intLevel INTEGER, blnIsDetail INTEGER, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE Class1 (
  lngClassID INTEGER PRIMARY KEY, strClassCode TEXT, strClassName TEXT, strFullName TEXT,
  intLevel INTEGER, blnIsDetail INTEGER, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE Class2 (
  lngClassID INTEGER PRIMARY KEY, strClassCode TEXT, strClassName TEXT, strFullName TEXT,
  intLevel INTEGER, blnIsDetail INTEGER, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE CustomType (
  lngCustomTypeID INTEGER PRIMARY KEY, strCustomTypeCode TEXT, strCustomTypeName TEXT,
  strFullName TEXT, intLevel INTEGER, blnIsDetail INTEGER, blnIsInActive INTEGER DEFAULT 0
);
-- The keyword of this table is longer than its name; who builds column names from the keyword
-- reads this view.
CREATE VIEW CustomerType AS
  SELECT lngCustomTypeID AS lngCustomerTypeID, strCustomTypeCode AS strCustomerTypeCode,
         strCustomTypeName AS strCustomerTypeName, strFullName, blnIsInActive
  FROM CustomType;
-- strCategory: 1 supplier, 2 customer, 3 both, 0 neither.
CREATE TABLE Customer (
  lngCustomerID INTEGER PRIMARY KEY, strCustomerCode TEXT, strCustomerName TEXT, strFullName TEXT,
  lngCustomerTypeID INTEGER, lngAreaID INTEGER, strCategory TEXT, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE Area (
  lngAreaID INTEGER PRIMARY KEY, strAreaCode TEXT, strAreaName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE BusinessAddress (
  lngBusinessAddressID INTEGER PRIMARY KEY, strBusinessAddressCode TEXT,
  strBusinessAddressName TEXT, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE EmployeeType (
  lngEmployeeTypeID INTEGER PRIMARY KEY, strEmployeeTypeCode TEXT, strEmployeeTypeName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE Employee (
  lngEmployeeID INTEGER PRIMARY KEY, strEmployeeCode TEXT, strEmployeeName TEXT,
  lngDepartmentID INTEGER, lngEmployeeTypeID INTEGER, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE AccountType (lngAccountTypeID INTEGER PRIMARY KEY, strAccountTypeName TEXT);
-- lngAccountNatureID: 1 cash, 2 bank, 3 receivable, 4 payable, 5 stock, 0 other. The flags tell by
-- what the account is broken down.
CREATE TABLE Account (
  lngAccountID INTEGER PRIMARY KEY, strAccountCode TEXT, strAccountName TEXT, strFullName TEXT,
  intLevel INTEGER, lngAccountTypeID INTEGER, lngAccountNatureID INTEGER DEFAULT 0,
  blnIsDetail INTEGER, blnIsInActive INTEGER DEFAULT 0, blnIsCustomer INTEGER DEFAULT 0,
  blnIsDepartment INTEGER DEFAULT 0, blnIsEmployee INTEGER DEFAULT 0, blnIsClass1 INTEGER DEFAULT 0,
  blnIsClass2 INTEGER DEFAULT 0, blnIsFunctional INTEGER DEFAULT 0,
  blnIsGovernmentECO INTEGER DEFAULT 0, blnIsDepartmentECO INTEGER DEFAULT 0,
  blnUseFlexibleCheck INTEGER DEFAULT 0
);
CREATE TABLE Custom0 (
  lngCustomID INTEGER PRIMARY KEY, strCustomCode TEXT, strCustomName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE FlexibleField05 (
  lngFieldID INTEGER PRIMARY KEY, strFieldCode TEXT, strFieldName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE Functional (
  lngFunctionalID INTEGER PRIMARY KEY, strFunctionalCode TEXT, strFunctionalName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE GovernmentECO (
  lngGovernmentECOID INTEGER PRIMARY KEY, strGovernmentECOCode TEXT, strGovernmentECOName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE DepartmentECO (
  lngDepartmentECOID INTEGER PRIMARY KEY, strDepartmentECOCode TEXT, strDepartmentECOName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE FBScheme (
  lngFBSchemeID INTEGER PRIMARY KEY, strFBSchemeCode TEXT, strFBSchemeName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE FBItem (
  lngFBItemID INTEGER PRIMARY KEY, strFBItemCode TEXT, strFBItemName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE FBPeriod (
  lngFBPeriodID INTEGER PRIMARY KEY, strFBPeriodName TEXT, blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE RTScheme (
  lngRTSchemeID INTEGER PRIMARY KEY, strRTSchemeCode TEXT, strRTSchemeName TEXT,
  blnIsInActive INTEGER DEFAULT 0
);
CREATE TABLE RTPeriod (
  lngRTPeriodID INTEGER PRIMARY KEY, strRTPeriodName TEXT, blnIsInActive INTEGER DEFAULT 0
);
-- Has no blnIsInActive: its codes come from the shorter of the two code statements.
CREATE TABLE VoucherType (
  lngVoucherTypeID INTEGER PRIMARY KEY, strVoucherTypeCode TEXT, strVoucherTypeName TEXT
);

-- Values of an enumeration, found by the caption of the column that shows it.
CREATE TABLE EnumTable (
  lngEnumID INTEGER PRIMARY KEY, strViewFieldDesc TEXT, strEnumNumber TEXT
);

-- Vouchers -------------------------------------------------------------------------------------

-- bytState: 0 entered, 1 checked, 2 posted.
CREATE TABLE Voucher (
  lngVoucherID INTEGER PRIMARY KEY, lngOrganizationID INTEGER, lngVoucherTypeID INTEGER,
  intYear INTEGER, bytPeriod INTEGER, lngVoucherNO INTEGER, strDate TEXT, strCheckDate TEXT,
  strPostDate TEXT, intAttachments INTEGER, lngOperatorID INTEGER, lngCheckerID INTEGER,
  bytState INTEGER, blnIsPost INTEGER
);
CREATE INDEX VoucherByDate ON Voucher (lngOrganizationID, strDate);
CREATE TABLE VoucherDetail (
  lngVoucherDetailID INTEGER PRIMARY KEY, lngVoucherID INTEGER, intLineNO INTEGER,
  strSummary TEXT, lngAccountID INTEGER, lngDepartmentID INTEGER, lngEmployeeID INTEGER,
  lngCustomerID INTEGER, lngClassID1 INTEGER, lngClassID2 INTEGER, lngCurrencyID INTEGER,
  dblRate REAL, dblQuantity REAL, dblDebit REAL, dblCredit REAL, strContractNO TEXT
);
CREATE INDEX VoucherDetailByVoucher ON VoucherDetail (lngVoucherID);

-- Views and lists --------------------------------------------------------------------------------

-- strViewSQL stands behind FROM and StrViewWhere behind WHERE, both without the word.
CREATE TABLE View1 (
  lngViewId INTEGER PRIMARY KEY, strViewName TEXT, strViewSQL TEXT, strCurTable TEXT,
  StrViewWhere TEXT, strPrimaryKey TEXT
);
CREATE TABLE ViewField (
  lngViewID INTEGER, lngViewFieldID INTEGER PRIMARY KEY, lngViewFieldNO INTEGER,
  strViewFieldDesc TEXT, bytHead INTEGER DEFAULT 0, bytFieldSize INTEGER DEFAULT 20,
  blnIsMust INTEGER DEFAULT 0, blnIsPrep INTEGER DEFAULT 0, strKeyField TEXT,
  bytPrepOrder INTEGER DEFAULT 0, strTableName TEXT, strFieldName TEXT, strFieldType TEXT,
  bytFieldDec INTEGER DEFAULT 0, blnIsFilter INTEGER DEFAULT 1, blnIsChoose INTEGER DEFAULT 1,
  blnIsFixed INTEGER DEFAULT 0, blnIsFind INTEGER DEFAULT 0, blnIsNotList INTEGER DEFAULT 0,
  blnIsFilt INTEGER DEFAULT 0, bytFormat INTEGER DEFAULT 0, blnNotZero INTEGER DEFAULT 0,
  strBiaTableName TEXT
);
CREATE TABLE List (
  lngListID INTEGER PRIMARY KEY, lngViewID INTEGER, strOtherKey TEXT, strListName TEXT,
  lngOperatorID INTEGER, lngOrganizationID INTEGER
);
CREATE TABLE ListField (
  lngListFieldID INTEGER PRIMARY KEY, lngListID INTEGER, lngViewFieldID INTEGER,
  lngListFieldNO INTEGER, strListFieldDesc TEXT, lngDisplayWidth INTEGER, bytSort INTEGER,
  blnIsChoosed INTEGER
);
-- Operator codes are texts even where the statements write them as numbers.
CREATE TABLE ListCond (
  lngListID INTEGER, lngViewFieldID INTEGER, strPath TEXT, strOthTableName TEXT,
  blnHavefathernode INTEGER, strStringOp TEXT, strString1 TEXT, strString2 TEXT, strDateOp TEXT,
  dtmDate1 TEXT, dtmDate2 TEXT, strDoubleOP TEXT, dbldouble1 REAL, dbldouble2 REAL,
  blnBoolean INTEGER, blnIsMuliCond INTEGER
);
CREATE TABLE ListMultiIDCond (
  lngListID INTEGER, strPath TEXT, strCodeID TEXT, strKeyName TEXT, bLNISCODETYPE INTEGER
);
