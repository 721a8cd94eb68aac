if a:
        if b:
                c = 1
	d = 1
e = 2
