"""Printers for gdb: the records of Torvo Utility in the words of their users.

With the Debian packages gdb loads this file by itself as soon as a program loads the library. Otherwise:

    (gdb) source tools/gdb/torvo_printers.py

What a printer shows of a structure comes from its fields. What it shows of a class comes from the class behind it, so
the debug information of the library has to be at hand; without it the object is printed as any other.
"""
import functools
import itertools
import re
import struct

import gdb
import gdb.printing

TICKS_PER_SECOND = 10_000_000
DAYS_OF_MONTHS = (31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31)


# Reading the program's memory ---------------------------------------------------------------------------------------


def read(address, size):
    return bytes(gdb.selected_inferior().read_memory(int(address), size)) if size > 0 else b""


def text_at(address, units):
    """UTF-16 as a text in quotes, of which the debugger shows no more than of any other."""
    limit = gdb.parameter("print elements") or units
    shown = read(address, 2 * min(units, limit)).decode("utf-16-le", errors="replace")
    return '"' + shown.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"' + "..." * (units > limit)


def elements_of(vector):
    """The address of a vector's elements, the size of one, and the bytes of all."""
    start, finish = (vector["_M_impl"][field] for field in ("_M_start", "_M_finish"))
    start = start.cast(start.type.strip_typedefs())
    return start, start.type.target().sizeof, read(start, int(finish) - int(start))


def words_of(data, letter):
    return struct.unpack(f"<{len(data) // struct.calcsize(letter)}{letter}", data)


def implementation(value):
    """The object behind an abstract class, by its table of virtual functions; the value itself if nothing tells."""
    if value.type.code == gdb.TYPE_CODE_REF:
        value = value.referenced_value()
    pointer = gdb.lookup_type("unsigned long").pointer()
    table = int(value.address.reinterpret_cast(pointer).dereference())
    known = re.match(r"vtable for (.*) \+ 16 in section", gdb.execute(f"info symbol {table}", to_string=True))
    try:
        return value.address.reinterpret_cast(gdb.lookup_type(known.group(1)).pointer()).dereference() if known else value
    except gdb.error:
        return value


def has_field(value, name):
    return any(field.name == name for field in value.type.strip_typedefs().fields())


# The two kinds of printers ------------------------------------------------------------------------------------------


class Text:
    """Shows a value as the text that a function makes of it."""

    def __init__(self, value, describe):
        self.value = value
        self.describe = describe

    def to_string(self):
        return self.describe(self.value)


class Items:
    """Shows a value as a text and the items behind it."""

    def __init__(self, value, describe, items):
        self.value = value
        self.describe = describe
        self.items = items

    def to_string(self):
        return self.describe(self.value)

    def children(self):
        for index, item in enumerate(self.items(self.value)):
            yield f"[{index}]", item

    def display_hint(self):
        return "array"


# Dates and times ----------------------------------------------------------------------------------------------------


def date(value):
    year, month, day = (int(value[field]) for field in ("year", "month", "day"))
    if month == 0 or day == 0:
        return "null date" if year == month == day == 0 else f"null date, holding {year}-{month}-{day}"
    valid = 0 <= year <= 9999 and 1 <= month <= 12 and 1 <= day <= DAYS_OF_MONTHS[month - 1]
    leap = year % 4 == 0 and (year % 100 != 0 or year % 400 == 0)
    if not valid or (month == 2 and day == 29 and not leap):
        return f"no date: year {year}, month {month}, day {day}"
    return f"{year:04}-{month:02}-{day:02}"


def clock(ticks):
    seconds, fraction = divmod(ticks, TICKS_PER_SECOND)
    return f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02}.{fraction:07}"


def time(value):
    return clock(int(value["ticks"]))


def span(value):
    ticks = int(value["ticks"])
    days, rest = divmod(abs(ticks), 86400 * TICKS_PER_SECOND)
    return f"{'-' if ticks < 0 else ''}{days} days {clock(rest)}"


def date_time(value):
    return f"{date(value['date'])} " + (time(value["time"]) if value["hasTime"] else "without a time part")


def system_time(value):
    fields = ("wYear", "wMonth", "wDay", "wHour", "wMinute", "wSecond", "wMilliseconds")
    return "{:04}-{:02}-{:02} {:02}:{:02}:{:02}.{:03}".format(*(int(value[field]) for field in fields))


# Points, rectangles, names ------------------------------------------------------------------------------------------


def coordinate(value):
    """An integer, or the fewest digits that are read as this double again."""
    if value.type.strip_typedefs().code == gdb.TYPE_CODE_FLT:
        return repr(float(value)).removesuffix(".0")
    return str(int(value))


def point(value):
    return f"({coordinate(value['x'])}, {coordinate(value['y'])})"


def rectangle(value):
    x1, y1, x2, y2 = (value[field] for field in ("x1", "y1", "x2", "y2"))
    sides = f"x {coordinate(x1)} to {coordinate(x2)}, y {coordinate(y1)} to {coordinate(y2)}"
    return sides if x1 <= x2 and y1 <= y2 else sides + ", not sorted"


def guid(value):
    last = "".join(f"{int(value['Data4'][index]):02X}" for index in range(8))
    return f"{{{int(value['Data1']):08X}-{int(value['Data2']):04X}-{int(value['Data3']):04X}-{last[:4]}-{last[4:]}}}"


def cache_entry(value):
    handle, block, count = (int(value[field]) for field in ("handle", "block", "count"))
    if handle == 0:
        return "nothing"
    return f"block {block} of file {handle}, {count} bytes" + (", dirty" if int(value["flags"]) & 1 else "")


# Sets of numbers: shown by their runs of consecutive values ---------------------------------------------------------


def joined(runs):
    """Runs that touch, as one."""
    low = high = None
    for first, last in runs:
        if high is not None and first == high + 1:
            high = last
            continue
        if high is not None:
            yield low, high
        low, high = first, last
    if high is not None:
        yield low, high


def texts_of(runs):
    return (str(low) if low == high else f"{low}..{high}" for low, high in runs)


PLACES = 1 << 18  # of a page


def sparse_set_runs(value):
    """Page by page, since a set may have many and the debugger shows a few."""
    slots = int(value["capacity"]) if int(value["pages"]) != 0 else 0
    for page, (count, bitmap) in enumerate(struct.iter_unpack("<I4xQ", read(value["pages"], 16 * slots))):
        first = page * PLACES
        if count == PLACES:
            yield first, first + PLACES - 1
        elif count > 0:
            bits = f"{int.from_bytes(read(bitmap, PLACES // 8), 'little'):b}"[::-1]
            for run in re.finditer("1+", bits):
                yield first + run.start(), first + run.end() - 1


def sparse_set(value):
    if int(value["capacity"]) == 0:
        return "invalid flist"
    return f"flist of {int(value['count'])}"


def sparse_set_items(value):
    return texts_of(joined(sparse_set_runs(value))) if int(value["count"]) > 0 else iter(())


def tagged_runs(runs):
    """Of a list of signed values: a lone value is one word, a run is two; the highest bit is set where one ends."""
    blocks, size, data = elements_of(runs["blocks_"])
    for index in range(len(data) // size):
        words = blocks[index]["words_"]
        rest = iter(words_of(read(words + 1, 4 * (int(words[0]) & 0x7FFFFFFF)), "I"))
        for word in rest:
            low = word & 0x7FFFFFFF
            yield (low, low) if word != low else (low, next(rest) & 0x7FFFFFFF)


def paired_runs(runs):
    """Of a list of unsigned values: pairs of the lowest and the highest value, in blocks."""
    owners, _, data = elements_of(runs["blocks_"])
    block = owners.type.target().strip_typedefs().template_argument(0).pointer()
    for address in words_of(data, "Q"):
        _, size, pairs = elements_of(gdb.Value(address).cast(block)["runs"])
        values = words_of(pairs, "I" if size == 8 else "Q")
        yield from zip(values[::2], values[1::2])


def integer_list(value):
    return f"ZUList of {int(value['runs_']['count_'])}"


def integer_list_items(value):
    runs = value["runs_"]
    return texts_of(paired_runs(runs) if "PairRuns" in runs.type.name else tagged_runs(runs))


# Linked lists, queues, points ---------------------------------------------------------------------------------------


def along(pointer, link):
    while int(pointer) != 0:
        yield pointer
        pointer = pointer[link]


def linked_list_items(value):
    return (node["data"] for node in along(value["head"], "next"))


def queue_items(value):
    return (f"{element.dynamic_type.target()} at {int(element):#x}" for element in along(value["head"], "next"))


def point_container(value):
    return f"DPNTContainer of {int(value['used_'])}"


def point_container_items(value):
    return (value["points_"][index] for index in range(int(value["used_"])))


# The error list -----------------------------------------------------------------------------------------------------


def error_texts(value, record):
    """Format, prefix and parameters of a record, those that it has."""
    units = record["format"]["_M_string_length"]
    if int(units) > 0:
        yield "format " + text_at(record["format"]["_M_dataplus"]["_M_p"], int(units))
    pool = value["textPool"]["_M_dataplus"]["_M_p"]
    for name in ("prefix", "param0", "param1"):
        place = record[name]
        if int(place["length"]) > 0:
            yield f"{name} " + text_at(pool + int(place["start"]), int(place["length"]))


def error_record(value, record):
    if int(record["errorNumber"]) == -1 and int(record["level"]) == 0:
        return "end of group"
    parts = [f"error {int(record['errorNumber'])}", f"level {int(record['level'])}"]
    if int(record["resourceId"]) != -1:
        parts.append(f"resource {int(record['resourceId'])}")
    return ", ".join(itertools.chain(parts, error_texts(value, record)))


def error_list(value):
    return f"error list of {int(value['storedCount'])}" + (", information lost" if value["overflowed"] else "")


def error_list_items(value):
    records = value["records"]["_M_elems"]
    return (error_record(value, records[index]) for index in range(int(value["storedCount"])))


# Which printer for which type ---------------------------------------------------------------------------------------

RECORDS = {
    "zuDATE": date,
    "SYSTEMTIME": system_time,
    "GUID": guid,
    "CacheEntry": cache_entry,
    "LPNT": point,
    "DPNT": point,
    "LRECT": rectangle,
    "DRECT": rectangle,
    "SRECT": rectangle,
}
CONTAINERS = {
    "flist": (sparse_set, sparse_set_items),
    "LINKEDLIST": (lambda value: "LINKEDLIST", linked_list_items),
    "QUEUE": (lambda value: "QUEUE", queue_items),
}
# The abstract class, the names by which it and those behind it are known, and a field that those have.
CLASSES = {
    "zuTime": ("Torvo::zuTime|zuTimeImpl", "fraction", time),
    "zuTimeSpan": ("Torvo::zuTimeSpan|zuTimeSpanImpl", "ticks", span),
    "zuDateTime": ("Torvo::zuDateTime|zuDateTimeImpl", "hasTime", date_time),
    "ZUList": (r"Torvo::(ZUList<.*>|\(anonymous namespace\)::(ZUListImpl|PairListImpl<.*>))", "runs_", integer_list,
               integer_list_items),
    "DPNTContainer": (r"Torvo::(DPNTContainer|\(anonymous namespace\)::DPNTContainerImpl)", "points_", point_container,
                      point_container_items),
    "cErrorSystem": ("Torvo::cErrorSystem(Impl)?", "storedCount", error_list, error_list_items),
}


def printer_of(value, describe, items=None):
    return Items(value, describe, items) if items else Text(value, describe)


def printer_behind(value, field, *functions):
    """A printer for the object behind an abstract class; none where that is somebody else's, or not known."""
    behind = implementation(value)
    return printer_of(behind, *functions) if has_field(behind, field) else None


def all_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("torvo-utility")
    for name, describe in RECORDS.items():
        printers.add_printer(name, f"^Torvo::{name}$", functools.partial(printer_of, describe=describe))
    for name, (describe, items) in CONTAINERS.items():
        printers.add_printer(name, f"^Torvo::{name}$", functools.partial(printer_of, describe=describe, items=items))
    for name, (names, *functions) in CLASSES.items():
        printers.add_printer(name, f"^({names})$", lambda value, functions=functions: printer_behind(value, *functions))
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), all_printers(), replace=True)
