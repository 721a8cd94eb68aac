import functools

@functools.wraps(print, assigned=("__name__",))
def wrapped():
    pass

@register(
    name="exporter",
    order=3)
def over_lines():
    pass

  @indented
@ spaced.name . other
@
def after_bare():
    pass
a = b @ c
