x = (1))
def after(): pass
y = }
