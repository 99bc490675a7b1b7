-- The server's own database: which accounts exist. The user name is stored in upper case and is
-- matched against the upper-cased database user of a login.
CREATE TABLE GaBaseInfo (
  lngAccountID INTEGER PRIMARY KEY,
  strAccountName TEXT,
  strVersion TEXT,
  strGaUnitCode TEXT,
  strUserName TEXT
);

INSERT INTO GaBaseInfo (lngAccountID, strAccountName, strVersion, strGaUnitCode, strUserName) VALUES
  (1, '华岳机电集团账套', '7.20', 'HY01', 'ACC01'),
  (2, '华岳培训中心账套', '7.10', 'HY02', 'ACC02');
