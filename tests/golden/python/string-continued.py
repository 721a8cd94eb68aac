a = 'one \
two (three \
four'
b = "five \
six" + 'seven'
c = 'odd \\\
eight'
d = 'even \\
e = 1
