if a:
	if b:
	    c = 1
	    d = 2
    	e = 3
