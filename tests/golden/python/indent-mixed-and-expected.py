if a:
    	b = 1
if c:
x = 1
