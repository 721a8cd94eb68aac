if __name__ == "__main__": print(1)
if (__name__ == "__main__"):
    pass
if __name__=="__main__":
    pass
if "__main__" == __name__:
    pass
if True:
    if __name__ == "__main__":
        pass
if __name__ == "__main__': print(1)
