// Chinese text and the ANSI code page, late-bound. The last line is what the caller checks.
var utility = new ActiveXObject("FetchKit.Utility");
var failures = 0;

function check(what, got, wanted) {
  if (got === wanted) return;
  failures += 1;
  WScript.Echo("FAILED: " + what + ": " + escape(got) + " instead of " + escape(wanted));
}

check("bytes in code page 936", utility.StrLen("\u4e2d\u6587b"), 5);
check("a piece", utility.GetStrAfter("\u952e=\u503c", "=", true), "\u503c");
check("an inner NUL", utility.GetStrAfter("k=a\u0000b", "=", true), "a\u0000b");
check("an operator's code", new ActiveXObject("FetchKit.ListSet").CondStrToNum("\u4ecb\u4e8e") !== "", true);

WScript.Echo(failures + " late-bound checks failed");
