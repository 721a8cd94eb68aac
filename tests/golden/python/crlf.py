import os
def f():
	if x: # TODO
		return """a
b"""
# TODO last
