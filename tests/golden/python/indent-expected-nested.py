for side in "LR":
    if side:
    print(side)
