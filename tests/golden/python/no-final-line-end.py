def f():
    pass
# TODO at the very end