total = 1 + \
    2
if a and \
   b:
    pass
with open(a) as f, \
     open(b) as g:
    pass
