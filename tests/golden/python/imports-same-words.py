import o, imp, o
import m as m
from f import f
from rom import o, rom
import abcd, bc, cd, bcd, ab.cd, d
