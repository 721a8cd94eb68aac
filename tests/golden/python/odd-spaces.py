 def a(): pass
class　B: pass
def c(): pass
import os
x = 1 if x else 2
