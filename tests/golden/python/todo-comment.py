# TODO: rename
x = 1 # TODO later
#TODO glued
# TODOS todo _TODO
def f(): # TODO behind a colon is skipped
    pass
y = {'a': 1} # a TODO(me)
if x: pass # TODO after code
