def f():
    """Never closed
def inside():
    pass
