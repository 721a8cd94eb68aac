and as assert break class continue def del elif else except exec finally for from
global if import in is lambda None not or pass print raise return True try while with
yield False nonlocal async await match none TRUE iffy
