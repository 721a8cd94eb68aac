#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Renders the icons and writes the two resource lists from the tables below.

Usage: render_icons.py PACKAGE_DIR [ROOT]

PACKAGE_DIR is the unpacked npm package `lucide-static` (the folder with `icons/` and `LICENSE`);
`npm pack lucide-static@1.62.0` fetches the version that was used. Needs rsvg-convert.
"""

import json
import os
import re
import struct
import subprocess
import sys
import zlib

LIGHT, DIM = "#d0d0d0", "#858585"
GREEN, AMBER, RED, BLUE = "#7ccf6b", "#f0b440", "#f07068", "#6cb4f0"
VIOLET, TEAL = "#c39af0", "#5ccfc0"

# Marks laid over a source where colour alone would not tell: one half of a split window.
CROSS = '<path stroke="%s" d="M9.8 %s l4.4 4.4 M14.2 %s l-4.4 4.4"/>'
SHADE = '<rect x="5" y="%s" width="14" height="5" stroke="none" fill="%s"/>'
CROSS_TOP, CROSS_BOTTOM = CROSS % (RED, "5.3", "5.3"), CROSS % (RED, "14.3", "14.3")
SHADE_TOP, SHADE_BOTTOM = SHADE % ("5", BLUE), SHADE % ("14", BLUE)
# A corner of the class that a member belongs to, and a member that needs no instance.
OF_CLASS = f'<rect x="15" y="15" width="8" height="8" stroke="none" fill="{AMBER}"/>'
STATIC = f'<circle cx="19" cy="19" r="4.5" stroke="none" fill="{TEAL}"/>'


def icon(source, colour=LIGHT, accents=None, fill=(), extra=""):
    """`accents` gives single elements of the source, by position, a colour; `fill` fills some."""
    return {"source": source, "colour": colour, "accents": accents or {}, "fill": fill,
            "extra": extra}


TOOL_BAR = {
    "new": icon("file-plus", accents={2: GREEN, 3: GREEN}),
    "openScript": icon("folder-open", AMBER),
    "save": icon("save", accents={1: BLUE}),
    "saveToShelf": icon("grid-2x2-plus", accents={1: GREEN, 2: GREEN}),
    "sourceScript": icon("file-input", accents={2: GREEN, 3: GREEN}),
    "clearHistory": icon("rows-2", extra=CROSS_TOP),
    "clearInput": icon("rows-2", extra=CROSS_BOTTOM),
    "clearAll": icon("rows-2", extra=CROSS_TOP + CROSS_BOTTOM),
    "echoCommands": icon("message-square-text", accents={1: GREEN, 2: GREEN, 3: GREEN}),
    "echoCommandsOff": icon("message-square-text", DIM),
    "execute": icon("play", GREEN, fill={0}),
    "execute_line": icon("list-video", accents={3: GREEN}, fill={3}),
    "executeAll": icon("fast-forward", GREEN, fill={0, 1}),
    "showTabsAndSpaces": icon("pilcrow", BLUE),
    "showTabsAndSpacesOff": icon("pilcrow", DIM),
    "showHistory": icon("rows-2", extra=SHADE_TOP),
    "showInput": icon("rows-2", extra=SHADE_BOTTOM),
    "showBoth": icon("rows-2", extra=SHADE_TOP + SHADE_BOTTOM),
    "find": icon("search"),
    "undo": icon("undo-2"),
    "redo": icon("redo-2"),
    "cut": icon("scissors"),
    "copy": icon("copy"),
    "paste": icon("clipboard-paste"),
    "close": icon("x"),
    "about": icon("info", BLUE),
    "help": icon("circle-question-mark", BLUE),
    "lock": icon("lock", AMBER),
    "file": icon("file"),
    "fileMel": icon("file-terminal", accents={2: GREEN, 3: GREEN}),
    "filePython": icon("file-code", accents={2: BLUE, 3: BLUE}),
    "fileText": icon("file-text"),
    "folder": icon("folder", AMBER),
    "newFile": icon("file-plus-corner", accents={2: GREEN, 3: GREEN}),
    "newFolder": icon("folder-plus", AMBER, accents={0: GREEN, 1: GREEN}),
    "showInFolder": icon("folder-search", AMBER, accents={1: LIGHT, 2: LIGHT}),
    "refresh": icon("refresh-cw"),
}

# The gutter, whose bar of icons is 14 pixels wide.
GUTTER = {
    "error": icon("circle-x", RED),
    "warning": icon("triangle-alert", AMBER),
    "info": icon("info", BLUE),
}

# The outline, and lists of words.
SMALL = {
    "mel_global_proc": icon("globe", GREEN),
    "mel_proc": icon("square-terminal", GREEN),
    "mel_global_var": icon("dollar-sign", TEAL),
    "python_import": icon("import", LIGHT),
    "python_main": icon("house", GREEN),
    "python_class": icon("box", AMBER),
    "python_method": icon("square-function", VIOLET),
    "python_static_method": icon("square-function", VIOLET, extra=STATIC),
    "python_class_method": icon("square-function", VIOLET, extra=OF_CLASS),
    "python_variable": icon("variable", TEAL),
    "python_class_variable": icon("variable", TEAL, extra=OF_CLASS),
    "sort_alpha": icon("arrow-down-a-z", accents={0: BLUE, 1: BLUE}),
    "expand_all": icon("unfold-vertical", accents={0: GREEN, 1: GREEN, 6: GREEN, 7: GREEN}),
    "collapse_all": icon("fold-vertical", accents={0: GREEN, 1: GREEN, 6: GREEN, 7: GREEN}),
    "view_menu": icon("eye"),
    "todo": icon("list-todo", BLUE),
    "result": icon("corner-down-right", GREEN),
    "function": icon("square-function", BLUE),
    "module": icon("package", BLUE),
    "keyword": icon("key", VIOLET),
    "builtin": icon("puzzle", TEAL),
    "flag": icon("flag", AMBER),
    "command": icon("terminal", BLUE),
    "argument": icon("at-sign", LIGHT),
}

APPLICATION = icon("bird", TEAL)

# size, icons
EDITOR_SETS = [
    (20, TOOL_BAR),
    (14, GUTTER),
    (16, SMALL),
    (16, {"corvane": APPLICATION}),
    (32, {"corvane32": APPLICATION}),
    (64, {"corvane64": APPLICATION}),
    (128, {"corvane128": APPLICATION}),
]
STANDIN_SETS = [
    (20, {"scriptEditor": icon("square-terminal", accents={0: GREEN, 1: GREEN})}),
    (32, {
        "commandButtonMel": icon("file-terminal", accents={2: GREEN, 3: GREEN}),
        "commandButtonPython": icon("file-code", accents={2: BLUE, 3: BLUE}),
        "standin": icon("app-window", accents={1: TEAL, 2: TEAL, 3: TEAL}),
    }),
    (16, {"gear": icon("settings"), "trash": icon("trash-2")}),
]
# folder of the list, its name, prefix, icons
TARGETS = [
    ("resources", "corvane", "/", EDITOR_SETS),
    ("standin/ui/resources", "standin", "/standin", STANDIN_SETS),
]

ELEMENT = re.compile(r"<(path|rect|circle|line|polyline|polygon|ellipse)\b")


def coloured(svg, look):
    """The source's text with the colours of `look`."""
    count = -1

    def paint(match):
        nonlocal count
        count += 1
        colour = look["accents"].get(count, look["colour"])
        fill = f' fill="{colour}"' if count in look["fill"] else ""
        return f'{match.group(0)} stroke="{colour}"{fill}'

    svg = ELEMENT.sub(paint, svg)
    highest = max([*look["accents"], *look["fill"], 0])
    if highest > count:
        raise SystemExit(f"{look['source']} has no element {highest}")
    return svg.replace("</svg>", look["extra"] + "</svg>")


def render(package, look, size, path):
    with open(os.path.join(package, "icons", look["source"] + ".svg"), encoding="utf-8") as file:
        svg = coloured(file.read(), look)
    subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), "-o", path],
                   input=svg.encode(), check=True)


def chunks(data):
    """The (type, content) pairs of a PNG file."""
    position = 8
    while position < len(data):
        length, kind = struct.unpack_from(">I4s", data, position)
        yield kind, data[position + 8:position + 8 + length]
        position += length + 12


def unfiltered(rows, width, height):
    """The bytes of an RGBA image without the filters of PNG (PNG specification, clause 9)."""
    stride = 4 * width
    above, result = bytes(stride), []
    for y in range(height):
        kind, *line = rows[y * (stride + 1):(y + 1) * (stride + 1)]
        for i in range(stride):
            left = line[i - 4] if i >= 4 else 0
            corner = above[i - 4] if i >= 4 else 0
            estimate = left + above[i] - corner
            paeth = min((left, above[i], corner), key=lambda value: abs(estimate - value))
            line[i] = (line[i] + (0, left, above[i], (left + above[i]) // 2, paeth)[kind]) % 256
        above = line
        result.append(bytes(line))
    return result


def store(path):
    """Rewrites a PNG uncompressed. A window full of icons is shown at once, and unpacking takes
    most of the time that reading a small image does."""
    with open(path, "rb") as file:
        data = file.read()
    parts = dict(chunks(data))
    width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", parts[b"IHDR"])
    if (depth, colour, interlace) != (8, 6, 0):
        raise SystemExit(f"{path} is not a plain RGBA image")
    packed = b"".join(content for kind, content in chunks(data) if kind == b"IDAT")
    rows = unfiltered(zlib.decompress(packed), width, height)
    stored = zlib.compress(b"".join(b"\0" + row for row in rows), 0)
    with open(path, "wb") as file:
        file.write(data[:8])
        for kind, content in ((b"IHDR", parts[b"IHDR"]), (b"IDAT", stored), (b"IEND", b"")):
            check = zlib.crc32(kind + content)
            file.write(struct.pack(">I", len(content)) + kind + content + struct.pack(">I", check))


def write_list(folder, name, prefix, files):
    rows = "".join(f"    <file>icons/{file}</file>\n" for file in sorted(files))
    with open(os.path.join(folder, name + ".qrc"), "w", encoding="utf-8") as file:
        file.write("<!-- SPDX-License-Identifier: MIT; written by tools/render_icons.py -->\n"
                   f'<RCC>\n  <qresource prefix="{prefix}">\n{rows}  </qresource>\n</RCC>\n')


def write_licence(package, folder):
    with open(os.path.join(package, "package.json"), encoding="utf-8") as file:
        version = json.load(file)["version"]
    with open(os.path.join(package, "LICENSE"), encoding="utf-8") as file:
        text = file.read()
    with open(os.path.join(folder, "icons", "LICENSE"), "w", encoding="utf-8") as file:
        file.write(f"The icons in this folder are rendered from Lucide (npm package lucide-static,"
                   f"\nversion {version}), recoloured and in part with added marks, by\n"
                   f"tools/render_icons.py. Lucide's licence follows.\n\n{text}")


def main():
    if len(sys.argv) not in (2, 3):
        raise SystemExit(__doc__)
    package = sys.argv[1]
    root = sys.argv[2] if len(sys.argv) == 3 else os.path.join(os.path.dirname(__file__), "..")
    for place, name, prefix, sets in TARGETS:
        folder = os.path.join(root, place)
        os.makedirs(os.path.join(folder, "icons"), exist_ok=True)
        files = []
        for size, looks in sets:
            for title, look in looks.items():
                for suffix, scale in (("", 1), ("@2x", 2)):
                    files.append(f"{title}{suffix}.png")
                    path = os.path.join(folder, "icons", files[-1])
                    render(package, look, size * scale, path)
                    if scale == 1 and size < 32:
                        store(path)
        write_list(folder, name, prefix, files)
        write_licence(package, folder)


if __name__ == "__main__":
    main()
