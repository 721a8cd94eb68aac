"""TODO: describe"""
def f():
    '''
    TODO over
    lines
    '''
    return "TODO in a string is no note"
