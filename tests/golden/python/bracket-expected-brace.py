table = {"a": (1, 2,
class After:
    pass
