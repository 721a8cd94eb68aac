def f():
# a comment at the left
    x = 1

  # another one
    
	
    y = 2
        # deeper
    return x
