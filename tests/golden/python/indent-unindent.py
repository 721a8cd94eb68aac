if a:
        b = 1
    c = 2
d = 3
