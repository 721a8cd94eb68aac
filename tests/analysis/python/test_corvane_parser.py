# -*- coding: utf-8 -*-
# SPDX-License-Identifier: MIT
"""What completion offers, in every Python that the script runs in; ^ marks the caret."""
from __future__ import unicode_literals

import io
import os
import py_compile
import random
import shutil
import sys
import tempfile
import textwrap
import threading
import time
import types
import unittest
import zipfile

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)),
                      "..", "..", "..", "analysis", "python", "corvane_parser.py")
sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(SCRIPT))
import corvane_parser  # noqa: E402
from corvane_parser import CorvaneParser, ParsedClass, ParsedFunction  # noqa: E402

LOCATOR = "__corvane_lctr_kvrt__"
PYTHON3 = sys.version_info[0] >= 3


def source_of(drawing):
    """The text that the editor hands over for a drawing."""
    text = textwrap.dedent(drawing).replace("^", LOCATOR)
    return text if PYTHON3 else text.encode("utf-8")


def parsed(drawing):
    parser = CorvaneParser()
    parser.parse_source(source_of(drawing))
    return parser


def complete(drawing, obj=None, *flags):
    return CorvaneParser().parse_source(source_of(drawing), obj and str(obj), *flags)


def public(names):
    return [name for name in names if not name.startswith("_")]


SHAPE = """
    import os, xml.dom as dom
    class Base(object):
        size = 1
        def grow(self):
            self.width = []
    class Shape(Base):
        kind = "round"
        class Nested(object): pass
        @classmethod
        def make(cls, value):
            cls.made = {}
        def draw(self, pen):
            self.pen = pen
            self.name = "x"
            self.part = Base()
            def inner(hidden): pass
            local = 1
            ^ = 0
            later = 2
        def last(self): pass
    def paint(where, *rest, **more):
        import json
        colour = 1
    shape = Shape()
    """

SAMPLES = [SHAPE, "x = ^\n", "a = b\nb = a\n", "from os import path as p\np\n",
           "try:\n  import a.b\nexcept (IOError, x), e:\n  pass\n",
           "with open('a') as f, g as h: pass\n", "class A(^): x = (1, [2, {3: 4}])\n",
           "def f(a, b=1, *c, **d):\n  if ^ < 1:\n    pass\n", "x = 'caf\u00e9'  # \u65e5\n"]


class Visiting(unittest.TestCase):
    def test_lists_and_identity(self):
        self.assertEqual(CorvaneParser.VERSION, "1.41")
        self.assertEqual(len(set(CorvaneParser.BUILTINS)), 80)
        self.assertEqual((CorvaneParser.BUILTINS[0], CorvaneParser.BUILTINS[-1]), ("abs", "intern"))
        self.assertIn("yeild", CorvaneParser.KEYWORDS)
        self.assertNotIn("yield", CorvaneParser.KEYWORDS)

    def test_classes_hold_what_their_bodies_define(self):
        base, shape = parsed(SHAPE).classes
        self.assertIsInstance(shape, ParsedClass)
        self.assertEqual([f.name for f in shape.functions], ["make", "draw", "last"])
        self.assertEqual([c.name for c in shape.classes], ["Nested"])
        self.assertEqual(shape.variables, {"kind": ["round", "Str"]})
        self.assertEqual(sorted(shape.self_variables), ["name", "part", "pen"])
        self.assertEqual(list(shape.cls_variables), ["made"])
        self.assertEqual(public(shape.parent_members), ["grow", "size", "width"])
        self.assertEqual(public(base.parent_members), [])
        self.assertIn("__reduce__", base.parent_members)

    def test_functions_hold_arguments_decorators_and_variables(self):
        paint = parsed(SHAPE).functions[0]
        self.assertIsInstance(paint, ParsedFunction)
        self.assertEqual(paint.arguments, ["where", "rest", "more"])
        self.assertEqual(list(paint.variables), ["colour"])
        make = parsed(SHAPE).classes[1].functions[0]
        self.assertEqual((make.arguments, make.decorators), (["cls", "value"], ["classmethod"]))

    def test_imports_bind_names(self):
        parser = parsed("""
            import a.b as c, d.e
            from m import n, o as p
            from q import *
            from . import r
            def f():
                import hidden
            class G(object):
                from s import hidden
            """)
        self.assertEqual(parser.imports, ["c", "d"])
        self.assertEqual(parser.importfroms, [("m", "n"), ("m", "p"), (".", "r")])
        self.assertEqual(parser.modules,
                         {"c": "a.b", "d": "d", "n": "m.n", "p": "m.o", "r": ".r"})

    def test_variables_are_recorded_with_their_node_type(self):
        variables = parsed("""
            a, (b, c) = 1, ("x", [])
            d = e = f.g()
            h = 1; h = 2
            i = 1; i = "x"
            for j in x: k = {}
            with x as l: pass
            try: m = ()
            except E: n = None
            if x: o = p.q
            r, s = t
            """).variables
        expected = {"a": [1, "Num"], "b": ["x", "Str"], "c": [[], "List"], "d": ["f.g", "Call"],
                    "e": ["f.g", "Call"], "h": [2, "Num"], "i": [None, None],
                    "j": [["x", "Name"], "Item"], "k": [{}, "Dict"], "l": [None, None],
                    "m": [(), "Tuple"], "n": ["None", "Name"], "o": ["p.q", "Attribute"]}
        self.assertEqual(dict((k, v) for k, v in variables.items() if k in expected), expected)
        self.assertEqual((variables["r"], variables["s"]), ([None, None], [None, None]))

    def test_the_caret_is_found_wherever_an_expression_stands(self):
        rows = [("^ = 1", [-1, -1], []), ("def f(a):\n x = 1\n ^ = 1", [-1, 0], ["a", "x"]),
                ("class A(object):\n x = 1\n def f(self): pass\n ^ = 1", [0, -1], ["f", "x"]),
                ("class A(object):\n def f(self): pass\n def g(self):\n  y = 1\n  if ^: pass",
                 [0, 1], ["self", "y"]),
                ("def f(b):\n while ^ < 1: pass", [-1, 0], ["b"]),
                ("def f(b):\n if 1: pass\n elif ^ == 1: pass", [-1, 0], ["b"]),
                ("def f():\n c = 1\n print(g(1, ^))", [-1, 0], ["c"]),
                ("x = 1", [], [])]
        for drawing, position, names in rows:
            parser = parsed(drawing)
            self.assertEqual(parser.corvane_lctr, position, drawing)
            self.assertEqual([n for n in names if n not in parser.sorted_results()], [], drawing)
            self.assertNotIn(LOCATOR, parser.results + list(parser.variables), drawing)

    def test_caret_among_arguments_offers_the_members_of_the_class(self):
        names = complete("""
            class Base(object):
                width = 1
            class A(Base):
                def first(self): pass
                def second(self, ^): pass
            """)
        for name in ("first", "second", "self", "cls", "__init__", "width", "A"):
            self.assertIn(name, names)
        self.assertNotIn("cls", complete("def f(a, ^): pass"))

    def test_caret_among_bases_offers_object(self):
        parser = parsed("import os\nclass A(^): pass")
        self.assertEqual(parser.corvane_lctr, [0, -1])
        self.assertEqual(public(parser.sorted_results()), ["A", "object", "os"])

    @unittest.skipUnless(PYTHON3, "syntax of Python 3")
    def test_syntax_of_python_3(self):
        parser = parsed("""
            class A:
                async def go(self, a: int, *, key=1, **rest): self.x: int = 1
            y: list = []
            z: A
            async def main(): pass
            f = f"{y}"
            first, *others = 1, 2
            """)
        go = parser.classes[0].functions[0]
        self.assertEqual(go.arguments, ["self", "a", "key", "rest"])
        self.assertEqual(parser.classes[0].self_variables, {"x": ["int", "Annotation"]})
        unknown = parser.variables.pop("first")[0], parser.variables.pop("others")[0]
        self.assertEqual(unknown, (None, None))
        self.assertEqual(parser.variables,
                         {"y": ["list", "Annotation"], "z": ["A", "Annotation"],
                          "f": ["", "JoinedStr"]})
        self.assertEqual(parser.functions[0].name, "main")
        annotated = "class A:\n def g(self): pass\ndef f(a: %s):\n ^\n"
        for promise in ("A", "'A'", "Optional[A]", "t.Optional['A']", "A | None"):
            self.assertEqual(public(complete(annotated % promise, "a")), ["g"], promise)
        for promise in ("t.List[A]", "'List[int]'", "List", "'Optional[\"List\"]'"):
            found = complete("import typing as t\n" + annotated % promise, "a")
            self.assertEqual(set(found), set(dir([])), promise)
        own = "from mine import List\nclass A: b = 1\nclass Set: c = 1\na: List\nd: Set\n"
        self.assertEqual((complete(own, "a"), complete(own, "d")), ([], ["c"]))
        for damaged in ("'A['", "''", "'\\0'", "'x = 1'", repr("(" * 500), "'A' | " * 99 + "A"):
            self.assertEqual(public(complete(annotated % damaged, "A")), ["g"], damaged)
        for promise in ("A = None; a = 1", "Optional[A] = make()", "Final = A()", "t.Any = A()"):
            source = "class A:\n def g(self): pass\na: %s\n" % promise
            self.assertEqual(public(complete(source, "a")), ["g"], promise)
        if sys.version_info >= (3, 8):
            newer = parsed("def f(a, /, b): pass\nif (found := 'x'): pass\n")
            self.assertEqual(newer.functions[0].arguments, ["a", "b"])
            self.assertEqual(newer.variables, {"found": ["x", "Str"]})
        if sys.version_info >= (3, 10):
            match = "match x:\n case [a, *b]: pass\n case {'k': c, **d} as e: f = 1\n"
            self.assertEqual(sorted(parsed(match).variables), list("abcdef"))
        if sys.version_info >= (3, 12):
            self.assertEqual(parsed("type A = int").variables, {"A": [None, None]})

    @unittest.skipIf(PYTHON3, "syntax of Python 2")
    def test_syntax_of_python_2(self):
        parser = parsed("""
            def f(a, (b, c)): print "x"
            try: exec "y"
            except IOError, e: d = `1`
            """)
        self.assertEqual(parser.functions[0].arguments, ["a", "b", "c"])
        self.assertEqual(sorted(parser.variables), ["d", "e"])


class Candidates(unittest.TestCase):
    def test_names_in_scope_are_sorted_private_ones_last(self):
        self.assertEqual(complete("_z = B = a = C = __a = 1\nb = 1\ndef __kedefloc__(): pass\n"),
                         ["a", "B", "b", "C", "__a", "_z"])
        self.assertEqual(complete(SHAPE), ["Base", "dom", "local", "os", "paint", "pen", "self",
                                           "Shape", "shape"])

    def test_keywords_and_builtins_come_on_request_and_never_as_members(self):
        self.assertEqual(complete("x = 1", None, 0, 0), ["x"])
        self.assertEqual(len(complete("x = 1", None, 1, 0)), 35)
        self.assertEqual(len(complete("x = 1", None, 1, 1)), 35 + 79)  # print is in both lists
        self.assertEqual(complete("x = ''", "x", 1, 1), complete("x = ''", "x"))

    def test_self_and_cls_have_the_members_of_their_class(self):
        expected = ["draw", "grow", "kind", "last", "made", "make", "name", "Nested", "part", "pen",
                    "size", "width"]
        self.assertEqual(public(complete(SHAPE, "self")), expected)
        in_make = SHAPE.replace("^ = 0", "").replace("cls.made", "^ = 1; cls.made")
        self.assertEqual(public(complete(in_make, "cls")),
                         [n for n in expected if n not in ("name", "part", "pen")])
        self.assertEqual(complete(in_make, "self"), [])
        self.assertEqual(complete("class A(object):\n def f(this):\n  ^\n", "self"), [])

    def test_paths_are_followed_to_a_value(self):
        text, items = public(dir(str(""))), public(dir([]))
        rows = [(SHAPE, "self.name", text), (SHAPE, "self.part.width", items),
                (SHAPE, "self.width", items), (SHAPE, "self.unknown", []),
                (SHAPE, "self.draw", []), (SHAPE, "shape.name", text),
                (SHAPE, "Shape.kind", text), (SHAPE, "Shape.nothing", []),
                ("a = b\nb = c\nc = []\n", "a", items), ("a = b\nb = a\n", "a", []),
                ("a = a\n", "a", []), ("a = a.b\n", "a", []), ("a = b.c\nb = a.c\n", "a", []),
                ("class A(object): x = A.x\n", "A.x", []), ("a = 1\n", "a", public(dir(1))),
                ("def f():\n a = ''\n ^\na = 1\n", "a", text),
                ("a = {}\n", "a", public(dir({}))), ("a = (1,)\n", "a", public(dir(()))),
                ("import os as a\na = ''\n", "a", text),
                ("a = 1\na = ''\n", "a", []), ("a = dict()\n", "a", public(dir({}))),
                ("a = ['x']\nb = a[0]\n", "b", text), ("", "str.split", items),
                ("a = x.y().split('|')[-1]\n", "a", []), ("a = b + '%s_x' % c\n", "a", text),
                ("a = sorted(b)\n", "a", items), ("def open(): pass\na = open()\n", "a", []),
                ("from os import path as p\na = p.join(b)\n", "a", text),
                (SHAPE, "self.__class__", public(complete(SHAPE, "self"))),
                ("a = ''.join(b).split()\n", "a.[]", text),
                ("for a in ['x']: ^\n", "a", text), ("for a in b: ^\n", "a.lower", text),
                ("def f():\n for a in ['']: pass\ndef g(a):\n ^\n", "a", []),
                ("def f():\n for a in ['']: ^\na = 1\n", "a", text),
                ("for a in b: ^\n", "a", []), ("for i, a in enumerate(['']): ^\n", "a", text),
                ("a = b() or c or []\n", "a", items), ("a = None if b else ''\n", "a", text),
                ("import maya.cmds as c\nfor a in c.ls() or []: ^\n", "a", text),
                ("class A:\n def f(self, a=''): self.a = a\n def g(self): ^", "self.a", text),
                ("with open(a) as b: ^\n", "b.readlines", items),
                ("import maya.cmds as c\na = c.ls()\n", "a", items),
                ("from maya import cmds as c\nfor a in c.ls(): ^\n", "a", text),
                ("import maya.cmds as c\na = c.polySphere()\n", "a", []),
                ("def f(a='', *b, **c):\n ^\n", "a", text),
                ("def f(a='', *b, **c):\n ^\n", "c", public(dir({}))),
                ("a = 1\ndef f(a=None):\n ^\n", "a", []),
                ("try: pass\nexcept IOError as a: ^\n", "a", public(dir(IOError())))]
        for drawing, obj, expected in rows:
            self.assertEqual(set(public(complete(drawing, obj))), set(expected), (drawing, obj))

    def test_variable_of_a_class_has_its_members(self):
        expected = public(complete(SHAPE, "Shape"))
        self.assertIn("width", expected)
        self.assertEqual(public(complete(SHAPE, "shape")), expected)
        self.assertEqual(public(complete(SHAPE + "other = shape\n", "other")), expected)

    def test_modules_are_followed_through_their_aliases(self):
        for drawing, obj, module in [
                ("import os\n", "os", os), ("import os\n", "os.path", os.path),
                ("import os.path as p\n", "p", os.path), ("from os import path\n", "path", os.path),
                ("import os\nx = os.path\n", "x", os.path), ("import os\no = os\n", "o", os),
                ("x = os.path\n", "x", os.path),
                ("try: import os\nexcept ImportError: os = None\n", "os.path", os.path),
                ("try: import os as o\nexcept E: import cv_other as o\n", "o.path", os.path),
                ("import threading as o\nimport os as o\n", "o", os),
                ("import threading\nx = threading.Thread()\n", "x", threading.Thread)]:
            self.assertEqual(set(complete(drawing, obj)), set(dir(module)), drawing)
        self.assertEqual(complete("", "os"), [])

    def test_kinds_of_names_are_noted(self):
        rows = [("import os\n", "os", "module path|class error|function getcwd|variable sep"),
                (SHAPE, "self", "function draw|variable kind|class Nested|variable pen"),
                ("a = ''\n", "a", "function join"),
                ("import threading\n", "threading.Thread", "function start|variable daemon")]
        for drawing, obj, expected in rows:
            kinds = CorvaneParser().with_kinds("parse_source", source_of(drawing), obj)
            self.assertEqual([k for k in expected.split("|") if k not in kinds], [], obj)
        self.assertIn("class error", CorvaneParser().with_kinds("exported_names", "os"))
        self.assertIn("name abc", CorvaneParser().with_kinds("module_names"))  # os has one, too

    def test_super_has_what_is_inherited(self):
        shape = "class A(object):\n  def f(self): pass\nclass B(A):\n  def g(self):\n    ^\n"
        self.assertEqual(public(complete(shape, "super")), ["f"])
        self.assertEqual(complete("class A(object): pass\n^", "super"), [])

    def test_functions_have_no_members(self):
        for drawing, obj in [("def f(): pass\n", "f"), ("import os\n", "os.getcwd"),
                             ("from os import getcwd\n", "getcwd"),
                             ("def f(): pass\nx = f()\n", "x"),
                             ("import os\nx = os.getcwd()\n", "x"), ("def dict(): pass\n", "dict"),
                             ("def textwrap(): pass\nx = textwrap()\n", "x"),
                             ("class A(object):\n def __call__(self): pass\n", "A")]:
            self.assertEqual(complete(drawing, obj), [], (drawing, obj))

    def test_base_class_from_a_module_is_looked_up(self):
        drawing = "import threading as t\nclass A(t.Thread):\n def f(self):\n  ^\n"
        self.assertIn("setDaemon", complete(drawing, "self"))
        self.assertIn("update", complete("class A(dict): pass\n", "A"))

    def test_a_broken_source_completes_its_well_formed_statements(self):
        rows = [("import os\nx = 1\nos.\n", None, ["os", "x"]),
                ("import os\nx = 1\n)\n", None, ["os", "x"]),
                ("import os\ndef f(:\n    pass\ny = 3\n", None, ["os", "y"]),
                ("class A(object):\n    b = 1\n    def f(self): pass\nfoo(\n", "A", ["b", "f"]),
                ("if 1:\n    a = 1\nelse:\n    b = (\nc = 1\n", None, ["c"]),
                ("class A(object):\n  def f(self):\n    a = 1\n    self.\n  def g(self): pass\n",
                 "A", ["f", "g"]),
                ("@x\ndef f(): pass\nz = 1 +\n", None, ["f"])]
        for drawing, obj, expected in rows:
            self.assertEqual([n for n in expected if n not in complete(drawing, obj)], [], drawing)


class Modules(unittest.TestCase):
    """Files in a folder on sys.path that would leave a mark if they were run."""

    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.mark = os.path.join(self.folder, "was_run")
        sys.path.insert(0, str(self.folder))
        self.addCleanup(shutil.rmtree, self.folder)
        self.addCleanup(sys.path.remove, str(self.folder))
        before = set(sys.modules)
        self.addCleanup(lambda: [sys.modules.pop(n) for n in set(sys.modules) - before])

    def tearDown(self):
        self.assertFalse(os.path.exists(self.mark), "a file of the user's was run")

    def write(self, path, text, encoding="utf-8", head=b"", harmless=False):
        path = os.path.join(self.folder, path)
        if not os.path.isdir(os.path.dirname(path)):
            os.makedirs(os.path.dirname(path))
        text += "" if harmless else "\nopen(%s, 'w')\n" % repr(str(self.mark))
        with io.open(path, "wb") as file:
            file.write(head + text.encode(encoding))

    def names(self, module):
        return CorvaneParser().parse_module(str(module))

    def test_names_come_from_the_file_of_a_module_or_class(self):
        self.write("cv_pack/__init__.py", "from .deep.part import Part\nfrom . import deep as d\n"
                                          "level = 1\n")
        self.write("cv_pack/deep/__init__.py", "below = 1\r\nclass Q(object):\r\n  pass\r\n")
        self.write("cv_pack/deep/part.py", "from .. import deep\nclass Part(deep.Q):\n"
                                           "    size = []\n    def turn(self): pass\n")
        rows = [("cv_pack", ["d", "level", "Part"]), ("cv_pack.deep", ["below", "Q"]),
                ("cv_pack.deep.part", ["deep", "Part"]),
                ("cv_pack.deep.part.Part", ["size", "turn"]), ("cv_pack.Part", ["size", "turn"]),
                ("cv_pack.d.Q", []), ("cv_pack.Part.size", public(dir([]))),
                ("cv_pack.nothing", []), ("cv_none", []), ("cv_pack.level.x", [])]
        for module, expected in rows:
            self.assertEqual(sorted(public(self.names(module))), sorted(expected), module)
        self.assertIn("__reduce__", self.names("cv_pack.Part"))
        self.assertEqual(public(complete("import cv_pack.deep.part\n", "cv_pack")),
                         ["d", "deep", "level", "Part"])
        self.assertEqual([n for n in sys.modules if n.startswith("cv_")], [])

    def test_imports_name_modules_and_what_is_in_them(self):
        self.write("cv_top/__init__.py", "size = 1\n")
        for path in ("_part.py", "inner/__init__.py", "no module.py", "data/readme.txt"):
            self.write("cv_top/" + path, "")
        self.write("cv_one.py", "a = ['']\n")
        module_names, importable = CorvaneParser().module_names, CorvaneParser().importable_names
        names = module_names()
        self.assertEqual([n for n in names if n.startswith("cv_")], ["cv_one", "cv_top"])
        self.assertIn("xml", names)
        self.assertIn("sys", names)
        self.assertEqual(module_names("cv_top"), ["inner", "_part"])
        self.assertEqual(importable("cv_top"), ["inner", "size", "_part"])
        self.assertEqual(module_names("cv_one") + module_names("cv_none.x"), [])
        self.assertIn("path", importable("os"))
        self.write("cv_all.py", "from cv_top import *\nfrom cv_one import *\nb = 1\n")
        self.write("cv_some.py", "from cv_all import *\n__all__ = ['b', '_c']\n")
        exported = CorvaneParser().exported_names
        self.assertEqual(exported("cv_all"), ["a", "b", "size"])
        self.assertEqual((exported("cv_some"), sorted(public(self.names("cv_some")))),
                         (["b", "_c"], ["a", "b", "size"]))
        self.write("cv_odd.py", "f = g = 1\n__all__ = ['f', g]\n")
        self.write("cv_none.py", "f = 1\n__all__ = []\n")
        self.assertEqual((exported("cv_odd"), exported("cv_none")), (["f", "g"], []))
        self.assertNotIn("re", exported("textwrap"))
        self.assertEqual(self.names("cv_all.a"), dir([]))
        self.assertEqual([n for n in sys.modules if n.startswith("cv_")], [])

    def test_of_long_files_an_outline_is_read(self):
        text = '''import os.path as p
from a import (b,
  c)
async def later(x,
    y): pass
class A(object):
    x = (1,
    2)
    def f(self):
        def g(): pass
    z = 1
class B(A): pass
v = [
1]
'''
        many = "".join("def many%d():\n    pass\n" % i for i in range(3000))
        self.write("cv_long.py", text + many + "broken (\n")
        names = [n for n in self.names("cv_long") if not n.startswith("many")]
        self.assertEqual(sorted(names), ["A", "B", "later", "p", "v"])
        self.assertEqual(sorted(public(self.names("cv_long.B"))), ["f", "x", "z"])

    def test_no_more_files_are_read_once_it_took_long(self):
        self.write("cv_a.py", "x = 1\n")
        self.addCleanup(setattr, corvane_parser, "_PATIENCE", corvane_parser._PATIENCE)
        corvane_parser._PATIENCE = -1
        self.assertEqual(complete("import cv_a\n", "cv_a"), [])
        self.assertEqual(self.names("cv_a"), ["x"])

    def test_a_changed_file_is_read_again(self):
        self.write("cv_new.py", "a = 1")
        self.assertEqual(self.names("cv_new"), ["a"])
        self.write("cv_new.py", "b = 1; bb = 1")
        self.assertEqual(sorted(self.names("cv_new")), ["b", "bb"])

    def test_modules_that_import_each_other_end(self):
        self.write("cv_a.py", "import cv_b\nfrom cv_b import X as Y\nclass A(cv_b.B): a = 1\n"
                              "from cv_a import me\nz = cv_b.z.z\n")
        self.write("cv_b.py", "import cv_a\nfrom cv_a import Y as X\nclass B(cv_a.A): b = 1\n"
                              "z = cv_a.z.z\n")
        self.assertEqual(sorted(public(self.names("cv_a.A"))), ["a", "b"])
        for path in ("cv_a.Y", "cv_a.me", "cv_a.z", "cv_b.z.q"):
            self.assertEqual(self.names(path), [])

    def test_encodings_are_honoured(self):
        self.write("cv_latin.py", "# -*- coding: latin-1 -*-\nx = 'caf\xe9'\n", "latin-1")
        self.write("cv_bom.py", "y = 'caf\xe9'\n", head=b"\xef\xbb\xbf")
        self.write("cv_bad.py", "z = 1\n", head=b"# \xff\xfe\n")
        self.write("cv_unknown.py", "w = 1\n", head=b"# coding: no-such-thing\n")
        for module, name in [("latin", "x"), ("bom", "y"), ("bad", "z"), ("unknown", "w")]:
            self.assertEqual(self.names("cv_" + module), [name], module)
        if PYTHON3:
            self.write("cv_name.py", "caf\xe9 = 1\n", "latin-1", b"# vim: fileencoding=latin-1\r\n")
            self.assertEqual(self.names("cv_name"), ["caf\xe9"])

    def test_compiled_modules_are_imported(self):
        name, file = self.unloaded_library_module()
        installed = os.path.join(self.folder, "site-packages")
        for path in ("", "cv_user", "site-packages/cv_installed"):
            if path:
                self.write(path + "/__init__.py", "", harmless=path != "cv_user")
            shutil.copy(file, os.path.join(self.folder, path))
        sys.path.insert(0, str(installed))
        self.addCleanup(sys.path.remove, str(installed))
        self.addCleanup(setattr, sys, "prefix", sys.prefix)
        self.assertEqual(self.names("cv_user." + name), [])
        self.assertEqual(self.names("cv_installed." + name), [])
        sys.prefix = str(self.folder)
        for module in (name, "cv_installed." + name):
            self.assertEqual(self.names(module), dir(sys.modules[module]))
            self.assertEqual(sys.modules[module].__file__[:len(self.folder)], self.folder)

    def test_archives_of_the_library_are_imported(self):
        archive = os.path.join(self.folder, "python27.zip")
        for path in (archive, os.path.join(self.folder, "other.zip")):
            with zipfile.ZipFile(path, "w") as file:
                file.writestr(str("cv_zip_%s.py" % os.path.basename(path)[:5]), b"part = 1")
            sys.path.insert(0, str(path))
            self.addCleanup(sys.path.remove, str(path))
        self.assertEqual(public(self.names("cv_zip_pytho")), ["part"])
        self.assertEqual(self.names("cv_zip_other"), [])

    def test_compiled_python_of_the_users_is_not_run(self):
        self.write("cv_source.py", "x = 1")
        py_compile.compile(os.path.join(self.folder, "cv_source.py"),
                           os.path.join(self.folder, "cv_compiled.pyc"))
        self.assertEqual(self.names("cv_compiled"), [])

    def unloaded_library_module(self):
        folder = next((f for f in sys.path if os.path.basename(f) in ("lib-dynload", "DLLs")), None)
        for file in sorted(os.listdir(folder)) if folder else ():
            name = str(file.split(".")[0])
            if name.startswith(("_lsprof", "_multibytecodec", "_uuid", "_curses")):
                if name not in sys.modules:
                    return name, os.path.join(folder, file)
        return self.skipTest("every compiled module is part of the interpreter")

    def test_loaded_objects_run_no_code_of_their_own(self):
        marked = []

        class Lazy(types.ModuleType):
            def __getattribute__(self, name):
                marked.append(name)
                return object.__getattribute__(self, name)

            __dir__ = __getattr__ = lambda self, *name: marked.append(name)

        class Thing(object):
            @property
            def value(self):
                marked.append("value")

            __class__ = __dict__ = value

        module = Lazy(str("cv_lazy"))
        sys.modules[str("cv_lazy")] = module
        vars(types.ModuleType)["__dict__"].__get__(module).update(thing=Thing(), kind=Thing)
        self.assertIn("thing", self.names("cv_lazy"))
        self.assertIn("value", self.names("cv_lazy.thing"))
        self.assertIn("value", self.names("cv_lazy.kind"))
        self.assertEqual(self.names("cv_lazy.thing.value"), [])
        self.assertEqual(self.names("cv_lazy.missing"), [])
        self.assertEqual(marked, [])

    def test_loaded_modules_and_objects_have_what_dir_says(self):
        for name, value in [("os", os), ("os.path", os.path), ("os.environ", os.environ),
                            ("threading.Thread", threading.Thread), ("object", object),
                            ("unittest.TestCase", unittest.TestCase), ("sys.flags", sys.flags)]:
            self.assertEqual(sorted(self.names(name)), dir(value), name)

    def test_host_modules_may_make_their_names_up(self):
        class Host(types.ModuleType):
            def __dir__(self):
                return [str("polySphere")]

            def __getattr__(self, name):
                raise AttributeError(name)

        class Tool(object):
            def __getattribute__(self, name):
                raise KeyError("the user's code was run")

            __dir__ = property(__getattribute__)

        sys.modules[str("maya")] = types.ModuleType(str("maya"))
        sys.modules[str("maya")].tool = Tool()
        sys.modules[str("maya.cmds")] = Host(str("maya.cmds"))
        self.assertEqual(complete("import maya.cmds as cmds\n", "cmds"), ["polySphere"])
        self.assertIn("__class__", complete("import maya\n", "maya.tool"))

    def test_the_packages_of_the_host_are_imported(self):
        sys.modules.pop(str("maya"), None)
        self.write("maya/__init__.py", "", harmless=True)
        self.write("maya/api/__init__.py", "", harmless=True)
        self.write("maya/api/OpenMaya.py", "globals()['MPoint'] = int\n", harmless=True)
        self.write("maya/tool.py", "")
        self.assertEqual(public(complete("from maya.api import OpenMaya as om\n", "om")),
                         ["MPoint"])
        self.assertEqual(public(complete("import maya.tool as t\n", "t")), [])


# What is hard to cut: text that looks like code, lines that are joined, blocks that go on.
PIECES = """
    from __future__ import print_function
    print("a", file=None)
    TEXT = '''
    def not_code(
    '''
    @decorator(
        1)
    @other
    class A(object):
        # A note.
        '''Says
        class B(: no code
        '''
        x = 1
        @staticmethod
        def f():
            return (1 +
        2)
        if x:
            y = 1
        else:
            y = 2
        def g(self): pass

    if TEXT:
        pass
    else:
        TEXT = 1 + \\
    2
    try:
        pass
    finally:
        pass
    """

DAMAGES = [
    lambda line: [line + " )"], lambda line: ["  " + line], lambda line: [line[1:]], lambda line: [],
    lambda line: [line, "else:", "    pass"], lambda line: [line + " (", "x"],
    lambda line: [line.replace(":", "")], lambda line: [line + " \\"], lambda line: ["'''" + line],
]


def written_answer(source):
    """What the editor reads from the file of a check."""
    handle, path = tempfile.mkstemp()
    os.close(handle)
    try:
        corvane_parser._write_syntax_answer(source, path)
        with io.open(path, "rb") as answer:
            word, line, message, end = answer.read().decode("utf-8").split("\n")
    finally:
        os.remove(path)
    assert word in ("answer", "unknown") and end == "", word
    return [message, line] if word == "answer" else []


class EntryPoints(unittest.TestCase):
    def test_syntax_check_names_message_and_line(self):
        check = CorvaneParser.syntax_check
        self.assertEqual(check(str("x = 1\n")), [])
        message, line = check(str("def f(a:\n"))
        self.assertEqual(line, "1")
        self.assertTrue(message and " (" not in message)
        self.assertEqual(check(str("x = 1\ny = = 2\n"))[1], "2")

    def test_long_sources_are_checked_in_pieces(self):
        self.addCleanup(setattr, corvane_parser, "_STEP", corvane_parser._STEP)
        corvane_parser._STEP = 30  # cuts through everything
        self.assertEqual(CorvaneParser.syntax_check(textwrap.dedent(str(PIECES))), [])
        generator = random.Random(7)
        for _ in range(100):
            lines = textwrap.dedent(PIECES).split("\n")
            for _ in range(generator.randrange(3)):
                place = generator.randrange(len(lines))
                lines[place:place + 1] = generator.choice(DAMAGES)(lines[place])
            source = str("\n".join(lines))
            self.assertEqual(written_answer(source), CorvaneParser.syntax_answer(source), source)

    def test_what_the_parser_cannot_tell_is_not_called_valid(self):
        answer = CorvaneParser.syntax_answer
        self.assertEqual(answer(str("x = 1\n")), ["", "0"])
        self.assertEqual(answer(str("x = 1\ny = = 2\n"))[1], "2")
        with_null = str("x = 1\0\n")
        self.assertNotEqual(answer(with_null), ["", "0"])
        self.assertEqual(written_answer(with_null), answer(with_null))
        nested = str("-" * 9000 + "1")  # too deep for some versions
        self.assertEqual(written_answer(nested), answer(nested))
        if sys.version_info[:2] == (3, 11):
            self.assertEqual(answer(nested), [])

    def test_a_source_that_nobody_waits_for_is_given_up(self):
        folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, folder)
        started = CorvaneParser.start_syntax_check(
            str("x = 1\n" * 200000), str(os.path.join(folder, "gone")))
        self.assertEqual(started, 1)
        began = time.time()
        while threading.active_count() > 1 and time.time() - began < 60:
            time.sleep(0.01)
        self.assertEqual(threading.active_count(), 1)
        self.assertEqual(os.listdir(folder), [])

    def test_the_answer_file_may_have_any_name(self):
        folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, folder)
        path = os.path.join(folder, str("\xe9") if PYTHON3 else b"\xc3\xa9")
        io.open(path, "wb").close()
        self.assertEqual(CorvaneParser.start_syntax_check(str("x = = 1\n"), path), 1)
        began = time.time()
        while not os.path.getsize(path) and time.time() - began < 60:
            time.sleep(0.01)
        with io.open(path, "rb") as answer:
            self.assertTrue(answer.read().startswith(b"answer\n1\n"))

    def test_a_declared_encoding_is_not_that_of_the_text_handed_over(self):
        for cookie in ("latin-1", "shift_jis", "utf-16", "hex", "no-such-thing"):
            source = "\ufeff#!python\r\n# -*- coding: %s -*-\r\nx = ''  # \u65e5\r\n" % cookie
            text = source if PYTHON3 else source.encode("utf-8")
            self.assertEqual(CorvaneParser.syntax_check(text), [], cookie)
            self.assertEqual(CorvaneParser().parse_source(text, str("x")), complete("x = ''", "x"))

    def test_statements_run_among_the_names_of_the_script(self):
        run = CorvaneParser.exec_statement
        self.assertEqual(run(str("cv_probe = 41 + 1")), 1)
        self.assertEqual(corvane_parser.__dict__.pop("cv_probe"), 42)
        for failing in ("1 / 0", "import sys; sys.exit()", "raise KeyboardInterrupt", "x ="):
            self.assertEqual(run(str(failing)), 0, failing)

    def test_the_names_of_the_user_and_of_the_script_are_apart(self):
        with io.open(SCRIPT, "rb") as file:
            text = file.read().decode("ascii")
        names = {"__name__": "__main__", "__doc__": "mine", "_re": 5, "_find": 6}
        mine = dict(names)
        exec(compile(str(text), str("<string>"), "exec", 0, True), names)
        interface = ["BUILTINS", "CorvaneParser", "KEYWORDS", "ParsedClass", "ParsedFunction"]
        names.pop("__builtins__")
        self.assertEqual(dict((n, names[n]) for n in names if n not in interface), mine)
        self.assertEqual(sorted(set(names) - set(mine)), interface)
        parser = names["CorvaneParser"]
        for name in set(corvane_parser.__dict__) - set(["__builtins__"]):
            names[name] = None
        parser.initialize()
        self.assertEqual(parser().parse_source(str("a = 1"), None, 1)[:2], ["a", "and"])
        self.assertEqual(parser.exec_statement(str("cv_probe = 41 + 1")), 1)
        self.assertEqual(names["cv_probe"], 42)

    def test_what_a_thread_binds_while_the_script_loads_stays(self):
        with io.open(SCRIPT, "rb") as file:
            code = compile(str(file.read().decode("ascii")), str("<string>"), "exec", 0, True)
        names = {"__name__": "__main__"}

        def bind(*_):
            names.setdefault("cv_thread", 1)
        sys.setprofile(bind)
        try:
            exec(code, names)
        finally:
            sys.setprofile(None)
        self.assertEqual(names.get("cv_thread"), 1)
        self.assertEqual([name for name in names if name.startswith("_corvane")], [])

    def test_nothing_raises_on_damaged_sources(self):
        dice = random.Random(5)
        for sample in SAMPLES:
            whole = source_of(sample).encode("utf-8") if PYTHON3 else source_of(sample)
            for _ in range(60):
                damaged = bytearray(whole)
                for _ in range(dice.randint(1, 6)):
                    damaged[dice.randrange(len(damaged))] = dice.randrange(256)
                self.assert_answers(bytes(damaged), dice.choice([None, "self", "x", "a.b"]))

    def test_nothing_raises_on_absurd_requests(self):
        for source in (None, 5, b"\xff\xfe\x00", b"a\x00b", b"(" * 5000,
                       b"x = " + b"-" * 5000 + b"1", b"x = 1" + b"+1" * 20000,
                       b"if a: pass\n" + b"elif a: pass\n" * 3000,
                       "x = '\ud800'"):
            self.assert_answers(source, "x")
        for obj in ("." * 9, "a" * 9 + ".b" * 100000, "../x", "\u00e9", 5, "\0", "x\n"):
            self.assert_answers(b"import a\nx = 1\n", obj)
            self.assertEqual(CorvaneParser().parse_module(obj), [], repr(obj)[:40])

    def assert_answers(self, source, obj):
        text = source
        if isinstance(source, bytes) and PYTHON3:
            text = source.decode("utf-8", "replace")
        names = CorvaneParser().parse_source(text, obj)
        self.assertTrue(all(isinstance(name, str) for name in names), names)
        self.assertIn(len(CorvaneParser.syntax_check(text)), (0, 2))

    def test_long_sources_and_modules_end_quickly(self):
        count = 4000
        chain = "class C0(object): x0 = 1\n" + "".join(
            "class C%d(C%d): x%d = 1\n" % (i, i - 1, i) for i in range(1, count))
        names = "".join("a%d = a%d\n" % (i, i + 1) for i in range(count)) + "a%d = ''\n" % count
        choices = "".join("a%d = a%d.b or a%d.c\n" % (i, i + 1, i + 1) for i in range(count))
        module = types.ModuleType(str("cv_cmds"))
        module.__dict__.update((str("command%d" % i), len) for i in range(2500))
        sys.modules[str("cv_cmds")] = module
        self.addCleanup(sys.modules.pop, "cv_cmds")
        began = time.time()
        self.assertEqual(len(public(complete(chain, "C%d" % (count - 1)))), count)
        self.assertEqual(public(complete(names, "a0")), public(dir(str(""))))
        self.assertEqual(complete(choices, "a0"), [])
        for _ in range(20):
            self.assertEqual(len(complete("import cv_cmds as c\n", "c")), len(dir(module)))
        self.assertLess(time.time() - began, 20)  # about one second; quadratic work takes minutes


if __name__ == "__main__":
    unittest.main()
