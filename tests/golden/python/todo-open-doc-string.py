def f():
    """TODO never closed
    x = 1
