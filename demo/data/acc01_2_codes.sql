-- The main account's code tables.

-- 010 begins with 01 but is not below it; the storehouse is closed.
INSERT INTO Department (lngDepartmentID, strDepartmentCode, strDepartmentName, strFullName, intLevel,
    blnIsDetail, blnIsInActive) VALUES
  (1, '01', '管理部', '管理部', 1, 0, 0),
  (2, '01-01', '财务科', '管理部-财务科', 2, 1, 0),
  (3, '01-02', '人事科', '管理部-人事科', 2, 1, 0),
  (4, '02', '销售部', '销售部', 1, 0, 0),
  (5, '02-01', '国内销售科', '销售部-国内销售科', 2, 1, 0),
  (6, '02-02', '国际业务科', '销售部-国际业务科', 2, 1, 0),
  (7, '03', '生产部', '生产部', 1, 0, 0),
  (8, '03-01', '一车间', '生产部-一车间', 2, 0, 0),
  (9, '03-01-01', '装配工段', '生产部-一车间-装配工段', 3, 1, 0),
  (10, '03-01-02', '喷涂工段', '生产部-一车间-喷涂工段', 3, 1, 0),
  (11, '03-02', '二车间', '生产部-二车间', 2, 1, 0),
  (12, '04', '采购部', '采购部', 1, 1, 0),
  (13, '05', '旧仓库', '旧仓库', 1, 1, 1),
  (14, '010', '总工办', '总工办', 1, 1, 0),
  -- The code of the row that stands for "none" is one blank.
  (0, ' ', ' ', ' ', 1, 1, 0);

INSERT INTO Class1 (lngClassID, strClassCode, strClassName, strFullName, intLevel, blnIsDetail,
    blnIsInActive) VALUES
  (1, '01', '水泵', '水泵', 1, 0, 0),
  (2, '01-01', '离心泵', '水泵-离心泵', 2, 0, 0),
  (3, '01-01-01', '单级离心泵', '水泵-离心泵-单级离心泵', 3, 1, 0),
  (4, '01-01-02', '多级离心泵', '水泵-离心泵-多级离心泵', 3, 1, 0),
  (5, '01-02', '潜水泵', '水泵-潜水泵', 2, 1, 0),
  (6, '02', '电机', '电机', 1, 0, 0),
  (7, '02-01', '交流电机', '电机-交流电机', 2, 1, 0),
  (8, '02-02', '直流电机', '电机-直流电机', 2, 1, 0),
  (9, '03', '配件', '配件', 1, 1, 0),
  (10, '04', '柴油机组', '柴油机组', 1, 1, 1);

INSERT INTO Class2 (lngClassID, strClassCode, strClassName, strFullName, intLevel, blnIsDetail,
    blnIsInActive) VALUES
  (1, 'A', '技改项目', '技改项目', 1, 0, 0),
  (2, 'A-01', '喷涂线改造', '技改项目-喷涂线改造', 2, 1, 0),
  (3, 'A-02', '试验台扩建', '技改项目-试验台扩建', 2, 1, 0),
  (4, 'B', '客户工程', '客户工程', 1, 0, 0),
  (5, 'B-01', '城南水厂', '客户工程-城南水厂', 2, 1, 0),
  (6, 'B-02', '临港泵站', '客户工程-临港泵站', 2, 1, 0);

INSERT INTO CustomType (lngCustomTypeID, strCustomTypeCode, strCustomTypeName, strFullName, intLevel,
    blnIsDetail, blnIsInActive) VALUES
  (1, '1', '客户', '客户', 1, 0, 0),
  (2, '1-01', '经销商', '客户-经销商', 2, 1, 0),
  (3, '1-02', '直供用户', '客户-直供用户', 2, 1, 0),
  (4, '1-03', '境外客户', '客户-境外客户', 2, 1, 0),
  (5, '2', '供应商', '供应商', 1, 0, 0),
  (6, '2-01', '原料供应商', '供应商-原料供应商', 2, 1, 0),
  (7, '2-02', '外协厂', '供应商-外协厂', 2, 1, 0),
  (8, '9', '停用类型', '停用类型', 1, 1, 1);

INSERT INTO Area (lngAreaID, strAreaCode, strAreaName) VALUES
  (1, '01', '华东'), (2, '01-01', '上海'), (3, '01-02', '江苏'), (4, '01-03', '浙江'),
  (5, '02', '华北'), (6, '09', '境外');
INSERT INTO BusinessAddress (lngBusinessAddressID, strBusinessAddressCode, strBusinessAddressName)
VALUES (1, '01', '浦东厂区'), (2, '01-01', '浦东厂区东门'), (3, '02', '苏州厂区');

INSERT INTO Customer (lngCustomerID, strCustomerCode, strCustomerName, strFullName,
    lngCustomerTypeID, lngAreaID, strCategory, blnIsInActive) VALUES
  (1, 'C001', '城南自来水', '城南自来水有限公司', 3, 2, '2', 0),
  (2, 'C002', '临港建设', '临港建设开发公司', 3, 2, '2', 0),
  (3, 'C003', '恒通五金', '恒通五金机电商行', 2, 3, '2', 0),
  (4, 'C004', '钱塘机电', '钱塘机电设备经营部', 2, 4, '2', 0),
  (5, 'C005', '东海船厂', '东海船舶修造厂', 3, 4, '3', 0),
  (6, 'C006', '南洋贸易', '南洋贸易行', 4, 6, '2', 0),
  (7, 'V001', '北铸钢铁', '北铸钢铁有限公司', 6, 5, '1', 0),
  (8, 'V002', '沪江铜材', '沪江铜材加工厂', 6, 2, '1', 0),
  (9, 'V003', '吴江紧固件', '吴江紧固件厂', 6, 3, '1', 0),
  (10, 'V004', '昆山精铸', '昆山精密铸造厂', 7, 3, '3', 0),
  (11, 'V005', '旧城五金', '旧城五金厂', 6, 2, '1', 1),
  (12, 'Z001', '职工食堂', '职工食堂', 1, 2, '0', 0);

INSERT INTO EmployeeType (lngEmployeeTypeID, strEmployeeTypeCode, strEmployeeTypeName) VALUES
  (1, '1', '管理人员'), (2, '2', '业务人员'), (3, '2-01', '外勤人员'), (4, '3', '生产工人');
INSERT INTO Employee (lngEmployeeID, strEmployeeCode, strEmployeeName, lngDepartmentID,
    lngEmployeeTypeID, blnIsInActive) VALUES
  (1, 'E001', '张文静', 2, 1, 0), (2, 'E002', '李国强', 5, 2, 0), (3, 'E003', '王秀兰', 2, 1, 0),
  (4, 'E004', '周建平', 9, 4, 0), (5, 'E005', '赵永和', 2, 1, 1), (6, 'E006', '钱立新', 6, 3, 0),
  (7, 'E007', '郑雅芳', 12, 2, 0), (8, 'E008', '冯大勇', 10, 4, 0);

INSERT INTO AccountType VALUES (1, '资产'), (2, '负债'), (3, '权益'), (4, '成本'), (5, '损益');
-- The flags: customer, department, employee, class 1, class 2.
INSERT INTO Account (lngAccountID, strAccountCode, strAccountName, strFullName, intLevel,
    lngAccountTypeID, lngAccountNatureID, blnIsDetail, blnIsCustomer, blnIsDepartment, blnIsEmployee,
    blnIsClass1, blnIsClass2) VALUES
  (1, '1001', '现金', '现金', 1, 1, 1, 1, 0, 0, 0, 0, 0),
  (2, '1002', '银行存款', '银行存款', 1, 1, 2, 0, 0, 0, 0, 0, 0),
  (3, '1002-01', '工行基本户', '银行存款-工行基本户', 2, 1, 2, 1, 0, 0, 0, 0, 0),
  (4, '1002-02', '建行一般户', '银行存款-建行一般户', 2, 1, 2, 1, 0, 0, 0, 0, 0),
  (5, '1002-03', '外币存款', '银行存款-外币存款', 2, 1, 2, 0, 0, 0, 0, 0, 0),
  (6, '1002-03-01', '中行美元户', '银行存款-外币存款-中行美元户', 3, 1, 2, 1, 0, 0, 0, 0, 0),
  (7, '1131', '应收账款', '应收账款', 1, 1, 3, 1, 1, 0, 0, 0, 0),
  (8, '1133', '其他应收款', '其他应收款', 1, 1, 0, 1, 0, 1, 1, 0, 0),
  (9, '1211', '原材料', '原材料', 1, 1, 5, 1, 0, 0, 0, 0, 0),
  (10, '2121', '应付账款', '应付账款', 1, 2, 4, 1, 1, 0, 0, 0, 0),
  (11, '2151', '应付工资', '应付工资', 1, 2, 0, 1, 0, 1, 0, 0, 0),
  (12, '2171', '应交税金', '应交税金', 1, 2, 0, 0, 0, 0, 0, 0, 0),
  (13, '2171-01', '销项税额', '应交税金-销项税额', 2, 2, 0, 1, 0, 0, 0, 0, 0),
  (14, '2171-02', '进项税额', '应交税金-进项税额', 2, 2, 0, 1, 0, 0, 0, 0, 0),
  (15, '3101', '实收资本', '实收资本', 1, 3, 0, 1, 0, 0, 0, 0, 0),
  (16, '4101', '生产成本', '生产成本', 1, 4, 0, 1, 0, 1, 0, 0, 1),
  (17, '5101', '主营业务收入', '主营业务收入', 1, 5, 0, 1, 0, 1, 0, 1, 0),
  (18, '5502', '管理费用', '管理费用', 1, 5, 0, 0, 0, 0, 0, 0, 0),
  (19, '5502-01', '办公费', '管理费用-办公费', 2, 5, 0, 1, 0, 1, 1, 0, 0),
  (20, '5502-02', '工资', '管理费用-工资', 2, 5, 0, 1, 0, 1, 0, 0, 0);
-- One account each for the flags that hardly any company sets.
UPDATE Account SET blnUseFlexibleCheck = 1 WHERE strAccountCode = '1133';
UPDATE Account SET blnIsFunctional = 1, blnIsGovernmentECO = 1, blnIsDepartmentECO = 1
WHERE strAccountCode = '3101';

INSERT INTO Custom0 (lngCustomID, strCustomCode, strCustomName) VALUES
  (1, '1', '公路'), (2, '1-01', '自备车'), (3, '1-02', '外包车'), (4, '2', '水路');
INSERT INTO FlexibleField05 (lngFieldID, strFieldCode, strFieldName) VALUES
  (1, '1', '自提'), (2, '2', '送货'), (3, '2-01', '送货上门'), (4, '2-02', '送到码头');
INSERT INTO Functional (lngFunctionalID, strFunctionalCode, strFunctionalName) VALUES
  (1, '201', '一般公共服务'), (2, '201-01', '行政运行');
INSERT INTO GovernmentECO (lngGovernmentECOID, strGovernmentECOCode, strGovernmentECOName) VALUES
  (1, '501', '机关工资福利支出'), (2, '501-01', '工资奖金津补贴');
INSERT INTO DepartmentECO (lngDepartmentECOID, strDepartmentECOCode, strDepartmentECOName) VALUES
  (1, '301', '工资福利支出'), (2, '301-01', '基本工资');
INSERT INTO FBScheme (lngFBSchemeID, strFBSchemeCode, strFBSchemeName) VALUES
  (1, '01', '年度预算'), (2, '02', '滚动预算');
INSERT INTO FBItem (lngFBItemID, strFBItemCode, strFBItemName) VALUES
  (1, '01', '销售收入'), (2, '02', '期间费用');
INSERT INTO FBPeriod (lngFBPeriodID, strFBPeriodName) VALUES (1, '2004年'), (2, '2004年一季度');
INSERT INTO RTScheme (lngRTSchemeID, strRTSchemeCode, strRTSchemeName) VALUES (1, '01', '管理报表');
INSERT INTO RTPeriod (lngRTPeriodID, strRTPeriodName) VALUES (1, '2004年3月');
INSERT INTO VoucherType (lngVoucherTypeID, strVoucherTypeCode, strVoucherTypeName) VALUES
  (1, '收', '收款凭证'), (2, '付', '付款凭证'), (3, '转', '转账凭证');

-- Captions are compared trimmed: older rows are padded with blanks.
INSERT INTO EnumTable (lngEnumID, strViewFieldDesc, strEnumNumber) VALUES
  (1, '凭证状态', '未复核'), (2, '凭证状态', '已复核'), (3, '凭证状态', '已记账'),
  (4, ' 余额方向  ', '借'), (5, ' 余额方向  ', '贷'),
  (6, '辅助核算', '单位'), (7, '辅助核算', '部门'), (8, '辅助核算', '职员'),
  (9, '辅助核算', '统计'), (10, '辅助核算', '项目'), (11, '辅助核算', '功能分类科目'),
  (12, '辅助核算', '政府经济分类科目'), (13, '辅助核算', '部门经济分类科目'),
  (14, '辅助核算', '智能核算');
