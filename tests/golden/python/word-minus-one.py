x = not-1; return-1; return - 1
$if -in $ for
y = in-1 in
