-- The main account's rights.

-- A right is looked for by the beginning of its number: who holds 12 seems to hold 1 as well.
INSERT INTO "Right" (lngRightID, strRightName) VALUES
  (1, '系统管理'), (12, '凭证录入'), (15, '凭证查询'), (16, '凭证复核'), (20, '凭证记账'),
  (31, '账簿查询'), (32, '报表编制'), (45, '工资管理'), (101, '取数公式'), (102, '公式设置');

INSERT INTO RightGroup (lngRightGroupID, strRightGroupName, lngOrganizationID) VALUES
  (1, '集团会计', 0), (2, '集团查询', 0), (3, '上海主管', 3), (4, '苏州会计', 8), (5, '集团管理', 0);
-- A right may be in several groups. Right 99 was deleted but not its detail row, which then counts
-- for nothing.
INSERT INTO RightGroupDetail (lngRightGroupID, lngRightID) VALUES
  (1, 12), (1, 15), (1, 101),
  (2, 15), (2, 31),
  (3, 16), (3, 20), (3, 31), (3, 99),
  (4, 12), (4, 45),
  (5, 1), (5, 12), (5, 15), (5, 16), (5, 20), (5, 31), (5, 32), (5, 45), (5, 101), (5, 102);

-- Operator 2: in 01-02 (3) the group of accountants by assignment, and the Shanghai leaders although
-- the assignment names the group's head office (1), for that is a group of 01-02 itself. The
-- group-wide query rights are assigned for the head office and count only there.
-- In 01-03 (8) the Suzhou accountants alone.
-- Operator 3 may only look; operator 5 holds no right at all.
INSERT INTO OperatorRight (lngOperatorID, lngRightGroupID, lngOrganizationID) VALUES
  (1, 5, 1), (1, 5, 3), (1, 5, 8), (1, 5, 9), (1, 5, 11),
  (2, 1, 3), (2, 3, 1), (2, 2, 1), (2, 4, 8),
  (3, 2, 3),
  (4, 1, 9), (4, 3, 3);

-- No row for operator 5: nothing is open to him as a whole.
INSERT INTO OperatorAllRight (lngOperatorID, lngOrganizationID, blnAllAccount, blnAllAccountUse,
    blnAllDepartment, blnAllDepartmentUse, blnAllClass1, blnAllClass1Use, blnAllClass2,
    blnAllClass2Use, blnAllCustomer, blnAllCustomerUse, blnAllCustomType, blnAllCustomTypeUse,
    blnAllEmployee, blnAllEmployeeUse)
SELECT 1, lngOrganizationID, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 FROM Organization;
INSERT INTO OperatorAllRight (lngOperatorID, lngOrganizationID, blnAllAccount, blnAllAccountUse,
    blnAllDepartment, blnAllDepartmentUse, blnAllClass1, blnAllClass1Use, blnAllClass2,
    blnAllClass2Use, blnAllCustomer, blnAllCustomerUse, blnAllCustomType, blnAllCustomTypeUse,
    blnAllEmployee, blnAllEmployeeUse) VALUES
  -- All accounts may be seen, not all used; departments are held to those of the groups of rights.
  (2, 3, 1, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1),
  (2, 8, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1),
  (2, 9, 1, 1, 1, 1, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1),
  (3, 3, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1);

INSERT INTO SelGroupRight (lngRightGroupID, strTableName, blnQuery, blnUse) VALUES
  (1, 'Department', 1, 1), (1, 'Account', 1, 1), (2, 'Department', 1, 0), (2, 'Account', 1, 0),
  (2, 'Class1', 1, 0), (3, 'Department', 1, 1), (4, 'Department', 1, 1);
-- The accountants reach the sales departments everywhere, the workshops in 01-02 alone.
INSERT INTO GroupToRightDetail (lngRightGroupID, strTableName, lngKeyID, lngOrganizationID) VALUES
  (1, 'Department', 4, 0), (1, 'Department', 5, 0), (1, 'Department', 6, 0),
  (1, 'Department', 8, 3), (1, 'Department', 9, 3), (1, 'Department', 10, 3),
  (2, 'Department', 2, 0), (2, 'Department', 5, 0),
  (3, 'Department', 2, 0), (3, 'Department', 12, 0),
  (4, 'Department', 11, 0), (4, 'Department', 14, 0),
  (2, 'Class1', 1, 0), (2, 'Class1', 2, 0), (2, 'Class1', 3, 0), (2, 'Class1', 9, 0);
INSERT INTO GroupToRightDetail (lngRightGroupID, strTableName, lngKeyID, lngOrganizationID)
SELECT g.lngRightGroupID, 'Account', a.lngAccountID, 0 FROM RightGroup g, Account a
WHERE g.lngRightGroupID = 1 AND a.strAccountCode NOT LIKE '2151%'
   OR g.lngRightGroupID = 2 AND a.strAccountCode LIKE '1%';

-- Shanghai does not buy on its own: department 12 is allotted to it but not for use. Suzhou has two
-- of the products. For every other table and organization nothing is allotted, so all may be used.
INSERT INTO OrgCodeAllot (lngOrganizationID, strTableName, lngKeyID, blnUse)
SELECT 3, 'Department', lngDepartmentID, lngDepartmentID <> 12 FROM Department
WHERE lngDepartmentID NOT IN (0, 14);
INSERT INTO OrgCodeAllot (lngOrganizationID, strTableName, lngKeyID, blnUse) VALUES
  (8, 'Class1', 3, 1), (8, 'Class1', 5, 1);
