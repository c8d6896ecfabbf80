"""Holds the declarations of the public headers against what the library exports.

    declared_members.py <nm> <library> <header folder>

Every function that an exported class declares, and every exported free function, must be defined in
the library, and no other function may leave it. The list of symbols beside this script cannot tell
the first: a member that is declared and never defined has no symbol that could go missing.
"""

import pathlib
import re
import subprocess
import sys

EXPORT = re.compile(r"\bKTRCL_[A-Z]+_EXPORT\b")

# What a class of its own names shortly; the compiler names it in full.
NESTED = {
    "eNmbSegmentsMode": "GXLAContour::eNmbSegmentsMode",
    "eReversedGeometry": "GXLAContour::eReversedGeometry",
    "ePointInContourResult": "GXGeometry::ePointInContourResult",
    "GXLAContourDirection": "GXLAContourParameters::GXLAContourDirection",
    "ArcPoints": "std::list<std::pair<double, GX2DPoint*>>",
}


def without_comments(text):
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.S)
    text = re.sub(r"//[^\n]*", "", text)
    return re.sub(r"^\s*#.*(?:\\\n.*)*$", "", text, flags=re.M)


def matching(text, start, opening, closing):
    """The position behind the bracket that closes the one at `start`."""
    depth = 0
    for position in range(start, len(text)):
        depth += (text[position] == opening) - (text[position] == closing)
        if depth == 0:
            return position + 1
    raise ValueError("unbalanced " + opening)


def statements(body):
    """The declarations of a class body, each up to its semicolon or with its braces behind it."""
    begin = position = 0
    while position < len(body):
        if body[position] == "(":
            position = matching(body, position, "(", ")")
        elif body[position] == "{":
            end = matching(body, position, "{", "}")
            yield body[begin:position].strip(), body[position:end]
            begin = position = end
        elif body[position] == ";":
            yield body[begin:position].strip(), None
            begin = position = position + 1
        else:
            position += 1


def split_parameters(text):
    parts, depth, current = [], 0, ""
    for letter in text:
        depth += letter in "(<"
        depth -= letter in ")>"
        if letter == "," and depth == 0:
            parts.append(current)
            current = ""
        else:
            current += letter
    return [part for part in parts + [current] if part.strip()]


def parameter_type(text):
    """A parameter as the compiler spells its type: no name, `const` behind, none at the top."""
    text = re.sub(r"\s*=.*", "", text.strip())
    array = re.match(r"(.*)\(\s*([*&])\s*(?:const)?\s*\w*\s*\)\s*(\[\d+\])$", text)
    if array:
        return "%s (%s) %s" % (spelled(array.group(1)), array.group(2), array.group(3))
    text = re.sub(r"\*\s*const(\s+\w+)?$", "*", text)
    if not re.search(r"[&*>]$", text):
        words = re.match(r"(.*[&*>\s])\w+$", text, flags=re.S)
        if words and words.group(1).strip() not in ("", "const", "unsigned"):
            text = words.group(1)
    return spelled(text)


def spelled(text):
    text = " ".join(text.split())
    text = re.sub(r"(?<![\w>])::", "", text)
    for short, full in NESTED.items():
        text = re.sub(r"(?<![\w:])%s\b" % short, full, text)
    text = re.sub(r"\w+::(?=GX\w+::|GXLAContour::e)", "", text)
    text = re.sub(r"\bconst ([\w:]+(?:<(?:[^<>]|<[^<>]*>)*>)?)", r"\1 const", text)
    text = re.sub(r"\s*([&*<>,])\s*", r"\1", text)
    return text.replace("std::uint64_t", "unsigned long")


def function(owner, statement, body):
    """The declared function as `Owner::Name(types) const`, or None for what exports nothing."""
    statement = re.sub(r"^\s*(public|protected|private)\s*:(?!:)", "", statement).strip()
    while re.match(r"(public|protected|private)\s*:(?!:)", statement):
        statement = statement.split(":", 1)[1].strip()
    if body is not None:
        return None
    if re.match(r"(using|friend|enum|class|struct|template|typedef)\b", statement):
        return None
    match = re.search(r"(operator\s*(?:\(\)|[^\s\w(]+)|~?\w+)\s*\(", statement)
    if not match:
        return None
    end = matching(statement, match.end() - 1, "(", ")")
    tail = statement[end:].strip()
    if re.search(r"=\s*(0|delete|default)$", tail):
        return None
    name = match.group(1).replace(" ", "")
    types = [parameter_type(part) for part in split_parameters(statement[match.end():end - 1])]
    constant = " const" if re.match(r"const\b", tail) else ""
    prefix = owner + "::" if owner else ""
    return "%s%s(%s)%s" % (prefix, name, ",".join(types), constant)


def declared(folder):
    functions = set()
    for header in sorted(pathlib.Path(folder).rglob("*.h")):
        text = without_comments(header.read_text(encoding="utf-8"))
        done = 0
        for match in EXPORT.finditer(text):
            if match.start() < done:
                continue
            line = text[text.rfind("\n", 0, match.start()) + 1:match.start()]
            if re.search(r"\b(class|struct)\s*$", line):
                begin = text.index("{", match.end())
                done = matching(text, begin, "{", "}")
                # A template is made where it is used.
                if not re.search(r"\btemplate\b[^;}]*$", text[:match.start()]):
                    name = re.match(r"\s*(\w+)", text[match.end():]).group(1)
                    functions |= members(name, text[begin + 1:done - 1])
            else:
                done = text.index(";", match.end())
                functions.add(function("", text[match.end():done], None))
    return functions - {None}


def members(name, body):
    found = set()
    for statement, inner in statements(body):
        nested = re.search(r"\b(?:class|struct)\s+(?:KTRCL_[A-Z]+_EXPORT\s+)?(\w+)", statement)
        if inner is not None and nested:
            found |= members(name + "::" + nested.group(1), inner[1:-1])
        else:
            found.add(function(name, statement, inner))
    return found


# Iterators of the containers that a class derives from are written shortly in its declarations.
DEQUE = "std::_Deque_iterator<GX2DElement*,GX2DElement*&,GX2DElement**>"
VECTOR = "std::vector<%s*,std::allocator<%s*>>"
IN_VECTORS = ("GXLAElement", "GX2DSurroundPoint")


def exported(nm, library):
    output = subprocess.run([nm, "-D", "-C", "--defined-only", library], check=True,
                            capture_output=True, text=True).stdout
    functions = set()
    for line in output.splitlines():
        match = re.match(r"[0-9a-f]+ T (.*)", line)
        if not match or match.group(1) in ("_init", "_fini") or "thunk to " in match.group(1):
            continue
        name = re.sub(r"\[abi:\w+\]", "", match.group(1))
        const = " const" if name.endswith(" const") else ""
        name = re.sub(r"\s*([&*<>,])\s*", r"\1", name.removesuffix(" const"))
        name = name.replace(DEQUE, "iterator")
        for element in IN_VECTORS:
            for stars, word in (("*const*", "const_iterator"), ("**", "iterator")):
                plain = "__gnu_cxx::__normal_iterator<%s%s,%s>" % (
                    element, stars, VECTOR % (element, element))
                backward = word.replace("iterator", "reverse_iterator")
                name = name.replace("std::reverse_iterator<%s>" % plain, backward)
                name = name.replace(plain, word)
        name = re.sub(r"std::__cxx11::basic_string<char,[^>]*>,std::allocator<char>>",
                      "std::string", name)
        name = re.sub(r"(iterator|string)const\b", r"\1 const", name.replace("__cxx11::", ""))
        # Arguments that the container adds to what was written.
        name = re.sub(r",std::allocator<(?:[^<>]|<[^<>]*>)*>", "", name)
        name = re.sub(r",std::(?:less|char_traits)<[^<>]*>", "", name)
        functions.add(name + const)
    return functions


def main(nm, library, folder):
    wanted, found = declared(folder), exported(nm, library)
    for name in sorted(wanted - found):
        print("declared, not defined: " + name)
    for name in sorted(found - wanted):
        print("exported, not declared: " + name)
    if not wanted:
        print("no declaration found in " + folder)
    return 0 if wanted and wanted == found else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
