if a:
    if b:
        c = 1
def at_left():
    pass
  def two():
    pass
