class Limb(object):
    def __init__(self, name):
        self.name = name

    @staticmethod
    def mirror(name):
        return name.replace("L_", "R_")

    @classmethod
    def create(cls):
        return cls("arm")

    @property
    def size(self):
        return 3

    @size.setter
    def size(self, value):
        pass

@staticmethod
def at_module_level():
    pass
