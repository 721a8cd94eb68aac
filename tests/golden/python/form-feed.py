def a():
    pass

def b():
    pass
class C:
    pass
importos
classD: pass
  x = 1
