"""Module text."""
def f():
    '''Over
    lines with ( and [ and #
    '''
    return ""

def g(): """one line"""; return ''
x = """a "quoted" 'word' """ + '''it's'''
y = """"four quotes"""
z = ''
w = """ends \""" here"""
v = """two \\"""
u = 1
"""
