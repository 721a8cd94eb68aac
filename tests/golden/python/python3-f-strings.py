name = "arm"
label = f"{name}_{side!r:>10}"
nested = f"{names['left']}"
clash = f'{names['left']}'
raw = rb"\d+" + Rb'\\'
path = r'C:\temp\'
print(f"""{name}
{side}""", file=out)
