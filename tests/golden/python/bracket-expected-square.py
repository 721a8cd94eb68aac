names = ["a",
         "b"
import os
from a import b
