import os
import sys
