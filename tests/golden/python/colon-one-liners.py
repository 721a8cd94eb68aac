if a: b = 1
else: b = 2
class E(Exception): pass
for x in y: pass ; z = {1: 2}
lambda: 0
while x: # comment
    pass
d = x[1:]
if x:	 
    pass
try:
    pass
except:pass
