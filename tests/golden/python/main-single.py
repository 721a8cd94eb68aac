if  __name__	==  '__main__':
    print("run")
