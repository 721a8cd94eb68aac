result = call(a,
    b,
  c)
matrix = [
    [1, 0],

# TODO in a comment between
    [0, 1],
]
definitions = {
    "default": 1, 'class': 2,
    "def" : lambda x: x }
def after(a,
          b):
    return a
