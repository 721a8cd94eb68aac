def build(name, size=1.0):
    return name

def	tabbed():
    pass
def  two_spaces ():
    pass
defnot():
    pass
def (missing):
    pass
definition = 3
def one_line(): return 1
