x = '''Never closed "quoted"
def inside(a):
    pass
