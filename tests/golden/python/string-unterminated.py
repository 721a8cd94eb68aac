name = "no end
    indented = 1
x = 'neither
def listed():
    s = "tail \
