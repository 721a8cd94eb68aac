# -*- coding: utf-8 -*-
print "hello", name
print >>sys.stderr, "failed: %s" % name
exec "x = 1" in scope
try:
    raise ValueError, "old"
except ValueError, e:
    print `e`
x = 0777L; y = u'text'; z = ur"raw"
if a <> b: print
