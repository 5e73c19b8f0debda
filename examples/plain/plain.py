#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
"""plain.py [LIBRARY]: the plain names, called from Python as plain.c calls them from C.

LIBRARY is the path of libcorvane_print.so or corvane_print.dll, where the system does not find it by itself.
"""
import ctypes
import math
import os
import sys
from ctypes import POINTER, byref, c_char_p, c_double, c_int, c_ushort, c_void_p

library = ctypes.CDLL(sys.argv[1] if len(sys.argv) > 1 else
                      "corvane_print.dll" if os.name == "nt" else "libcorvane_print.so.0")

# Results and arguments are int unless told. A pointer must be, or half of it gets lost.
library.CFGetenv.restype = c_void_p
library.CFReleaseValue.argtypes = [c_void_p]
library.OLCreate.restype = c_void_p
LOOKUP = ctypes.CFUNCTYPE(c_int, POINTER(c_ushort), POINTER(c_ushort), c_int)
COMPARE = ctypes.CFUNCTYPE(c_int, POINTER(c_int), POINTER(c_int), c_void_p)


def doubles(*values):
    return (c_double * len(values))(*values)


def text_of(wide):
    """A zero-terminated wide text: 16-bit units everywhere, unlike ctypes.c_wchar."""
    length = next(i for i in range(10000) if wide[i] == 0)
    return bytes(bytearray(ctypes.string_at(wide, 2 * length))).decode("utf-16-le")


@LOOKUP
def lookup(name, buffer, capacity):
    """The host's own variables. The count is in bytes, with the terminator."""
    value = {"PLOT_FENCES": "Site;Border", "PLOT_DEBUG": "clip, fences"}.get(text_of(name), "")
    coded = value.encode("utf-16-le") + b"\0\0"
    if value and len(coded) <= capacity:
        ctypes.memmove(buffer, coded, len(coded))
    return len(coded) if value else 0


@COMPARE
def wider_first(new_pen, pen, _context):
    """Where a new pen goes in the list."""
    return pen[0] - new_pen[0]


def variables():
    # The library keeps the address of the callback, which must not be collected meanwhile.
    library.CFSetGetEnvVarCallback(lookup)
    value = library.CFGetenv(b"PLOT_FENCES")
    library.DbgTools_addDebugVar(b"PLOT_DEBUG")
    library.CFSetGetEnvVarCallback(None)
    text = ctypes.string_at(value)
    upper = ctypes.create_string_buffer(len(text) + 1)
    library.STRUpper(c_char_p(text), upper)
    print(f"fences      {text.decode()}, in upper case {upper.value.decode()}")
    library.CFReleaseValue(value)


def names():
    name, ext = ctypes.create_string_buffer(512), ctypes.create_string_buffer(512)
    library.FUParseUFS(rb"tq_plot:north\A1-plan.plt", None, None, name, ext, None)
    kind = "a plan" if library.STRMatchPatternCI(name, b"a?-*") == 1 else "no plan"
    print(f"file        {name.value.decode()}, {ext.value.decode()}, {kind}")


def geometry():
    """A rectangle is turned by a right angle, moved, and cut with the sheet."""
    turn, shift, both = doubles(*[0] * 9), doubles(*[0] * 9), doubles(*[0] * 9)
    homogeneous, corners = doubles(*[0] * 6), doubles(*[0] * 4)
    low, high = doubles(0, 0), doubles(0, 0)
    library.MATBuildRotAboutZHMat(2, c_double(math.pi / 2), turn)
    library.MATBuildTransHMat(2, c_double(70), c_double(25), c_double(0), shift)
    library.MATMulMatMat(3, turn, shift, both)
    library.MATConvertPtDimToHomog(2, 2, doubles(0, 0, 50, 20), homogeneous)
    library.MATMulVecMat(3, homogeneous, 2, both, homogeneous)
    library.MATConvertPtHomogToDim(2, 2, homogeneous, corners)
    library.GEOMComputeMinEnclRect(2, corners, low, high)
    print(f"turned      ({low[0]:.1f}, {low[1]:.1f}) to ({high[0]:.1f}, {high[1]:.1f})")
    part_low, part_high = doubles(0, 0), doubles(0, 0)
    library.GEOMComputeRectIntersection(low, high, doubles(0, 0), doubles(100, 60), part_low, part_high)
    print(f"on sheet    ({part_low[0]:.1f}, {part_low[1]:.1f}) to ({part_high[0]:.1f}, {part_high[1]:.1f})")


def pens():
    pen_list = c_void_p(library.OLCreate())
    for width in (25, 70, 35):
        library.OLItemInsert(pen_list, byref(c_int(width)), ctypes.sizeof(c_int), wider_first, None)
    count, item, widths = c_int(), POINTER(c_int)(), []
    library.OLGetNumItems(pen_list, byref(count))
    while library.OLItemGetByIndex(pen_list, len(widths), byref(item)) == 0:
        widths.append(item[0])
    print(f"{count.value} pens     ", *widths)
    library.OLDestroy(pen_list)


def debug_output():
    print(f"debug flags clip {library.DbgTools_isDebugOn(b'clip')}, grow {library.DbgTools_isDebugOn(b'grow')}")
    # It would go to the debug library, where there is one. The first text is a format.
    if library.DbgTools_isDebugOn(b"grow"):
        library.DBMSG(b"%d outlines\n", 3)


variables()
names()
geometry()
pens()
debug_output()
