def a():     pass # TODO x = "open import os
 import sys
