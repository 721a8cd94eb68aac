def outer():
    def inner():
        def innermost():
            return 1
        return innermost
    if True:
        def conditional():
            pass
    return inner
def next_one():
    pass
