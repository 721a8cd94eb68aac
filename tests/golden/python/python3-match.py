def pick(event):
    match event:
        case {"type": "key", "code": code}:
            return code
        case [x, y] | (x, y):
            return x
        case _:
            return None
