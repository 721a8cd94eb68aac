class Rig:
    """A limb."""
    sides = ("L", "R")

    class Error(Exception):
        pass

    def build(self):
        pass

class  Old ( object ):
    def method(self):
        class Local: pass
        return Local

class	Tabbed(Rig): pass
classless = 1
class
Next:
    pass
