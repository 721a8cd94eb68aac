a = 'one \
two' + """opens
here""" + "x \
y" + '''then
closed'''
