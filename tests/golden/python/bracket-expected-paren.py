x = foo(1,
def after():
    pass
y = ]
