import os, sys
import os ,re,  json.decoder
import a, b as c
import a, b;
import x,,y,
import sys, os # both
import z ,
