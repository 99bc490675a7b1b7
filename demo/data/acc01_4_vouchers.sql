-- The main account's vouchers: 32 a month in each organization that keeps books, from the start of
-- the account to the login date 2004-03-17. Everything follows from the running number k, so every
-- run fills the same books.

INSERT INTO Voucher (lngVoucherID, lngOrganizationID, lngVoucherTypeID, intYear, bytPeriod,
    lngVoucherNO, strDate, strCheckDate, strPostDate, intAttachments, lngOperatorID, lngCheckerID,
    bytState, blnIsPost)
WITH RECURSIVE
  number(k) AS (SELECT 0 UNION ALL SELECT k + 1 FROM number WHERE k < 15 * 32 - 1),
  entry AS (
    SELECT k, lngOrganizationID AS org,
           date('2003-01-01', '+' || (k / 32) || ' months', '+' || (k % 32 * 27 / 31) || ' days')
             AS day,
           -- Receipts, payments and transfers: two, two and four in every eight.
           CASE WHEN (k * 5 + k / 8 + lngOrganizationID) % 8 IN (1, 6) THEN 1
                WHEN (k * 5 + k / 8 + lngOrganizationID) % 8 IN (3, 4) THEN 2 ELSE 3 END AS type
    FROM number, Organization
    WHERE blnIsDetail = 1 AND blnIsInActive = 0 AND blnIsInitialized = 1),
  -- Vouchers are checked in the middle and at the end of a month, and posted at its end.
  dated AS (
    SELECT *, strftime('%Y-%m-', day) AS month,
           CASE WHEN strftime('%d', day) <= '15' THEN date(day, 'start of month', '+14 days')
                ELSE date(day, 'start of month', '+1 month', '-1 day') END AS checked,
           date(day, 'start of month', '+1 month', '-1 day') AS posted
    FROM entry WHERE day <= '2004-03-17')
SELECT row_number() OVER (ORDER BY day, org, k), org, type, p.intYear, p.bytPeriod,
       row_number() OVER (PARTITION BY org, month, type ORDER BY k), day,
       CASE WHEN checked <= '2004-03-17' THEN checked END,
       CASE WHEN posted <= '2004-03-17' THEN posted END,
       (k * 7 + k / 10 + org) % 10,
       CASE WHEN org = 8 THEN 7 WHEN org IN (4, 6, 12) THEN 2 + k % 2 ELSE 2 END,
       CASE WHEN checked <= '2004-03-17' THEN 4 END,
       CASE WHEN posted <= '2004-03-17' THEN 2 WHEN checked <= '2004-03-17' THEN 1 ELSE 0 END,
       posted <= '2004-03-17'
FROM dated LEFT JOIN AccountPeriod p
  ON p.lngOrganizationID = org AND day BETWEEN replace(p.strStartDate, '.', '-')
                                           AND replace(p.strEndDate, '.', '-');

-- Two or three lines a voucher by kind of business; percent is the line's share of the amount, debit
-- positive. The shares of a kind sum to nothing.
INSERT INTO VoucherDetail (lngVoucherDetailID, lngVoucherID, intLineNO, strSummary, lngAccountID,
    lngDepartmentID, lngEmployeeID, lngCustomerID, lngClassID1, lngClassID2, lngCurrencyID, dblRate,
    dblQuantity, dblDebit, dblCredit, strContractNO)
WITH
  line(kind, no, account, percent, summary) AS (VALUES
    (0, 1, '1131', 117, '销售产品'), (0, 2, '5101', -100, '销售产品'),
    (0, 3, '2171-01', -17, '销售产品'),
    (1, 1, '1002-01', 100, '收到货款'), (1, 2, '1131', -100, '收到货款'),
    (2, 1, '1211', 100, '采购原材料'), (2, 2, '2171-02', 17, '采购原材料'),
    (2, 3, '2121', -117, '采购原材料'),
    (3, 1, '2121', 100, '支付货款'), (3, 2, '1002-02', -100, '支付货款'),
    (4, 1, '5502-01', 100, '报销办公费'), (4, 2, '1001', -100, '报销办公费'),
    (5, 1, '5502-02', 100, '计提工资'), (5, 2, '2151', -100, '计提工资'),
    (6, 1, '1002-03-01', 100, '收到境外货款'), (6, 2, '1131', -100, '收到境外货款'),
    (7, 1, '4101', 100, '生产领料'), (7, 2, '1211', -100, '生产领料')),
  -- A receipt is from a customer at home or abroad, a payment to a supplier or for office needs, a
  -- transfer a sale, a purchase, wages or material.
  head AS (
    SELECT lngVoucherID AS id, strDate,
           CASE lngVoucherTypeID WHEN 1 THEN CASE WHEN lngVoucherID % 3 = 0 THEN 6 ELSE 1 END
                                 WHEN 2 THEN 3 + lngVoucherID % 2
                                 ELSE CASE lngVoucherID % 4 WHEN 0 THEN 0 WHEN 1 THEN 2
                                                            WHEN 2 THEN 5 ELSE 7 END END AS kind,
           100 * (lngVoucherID * 7919 % 997 + 1) AS amount
    FROM Voucher)
SELECT row_number() OVER (ORDER BY id, no), id, no, summary, lngAccountID,
       CASE kind WHEN 0 THEN 5 + id % 2 WHEN 1 THEN 5 - id % 2 * 3 WHEN 6 THEN 6 WHEN 2 THEN 12 WHEN 3 THEN 12
                 WHEN 4 THEN 2 + id % 2 WHEN 5 THEN 9 + id % 3 ELSE 9 + id % 2 END,
       CASE WHEN blnIsEmployee = 1 THEN 1 + id % 8 END,
       CASE WHEN kind = 6 THEN 6 WHEN kind IN (0, 1) THEN 1 + id % 5
            WHEN kind IN (2, 3) THEN 7 + id % 4 END,
       CASE WHEN blnIsClass1 = 1 THEN 3 + id % 7 END,
       CASE WHEN blnIsClass2 = 1 THEN 2 + id / 4 % 2 * 3 + id / 8 % 2 END,
       CASE WHEN kind = 6 AND no = 1 THEN 3 ELSE 1 END,
       CASE WHEN kind = 6 AND no = 1 THEN 8.277 ELSE 1 END,
       CASE WHEN account = '1211' THEN 1 + id % 250 END,
       CASE WHEN percent > 0 THEN amount * percent / 100.0 ELSE 0 END,
       CASE WHEN percent < 0 THEN amount * -percent / 100.0 ELSE 0 END,
       -- Most lines belong to no contract; a number of blanks alone was typed in now and then.
       CASE WHEN kind IN (0, 2) AND id % 3 = 0 THEN 'HT' || substr(strDate, 1, 4) || '-' || id
            WHEN id % 17 = 0 THEN '  ' END
FROM head JOIN line USING (kind) JOIN Account ON strAccountCode = account;
