"""Holds the list of operations that hosts call against what the libraries offer.

    named_operations.py <nm> <list> <header folder> <library>...
    named_operations.py --self-test

declared_members.py proves that headers and libraries agree; an operation that both forgot goes
unnoticed there. The lists beside this script name every one of them on their own; the head of
operations.txt tells the form of a line. A list that names free functions has to name them all.
"""

import collections
import pathlib
import re
import subprocess
import sys

from declared_members import matching, statements, without_comments

LINE = re.compile(r"(?P<name>(?P<owner>[\w:~]+::)?(?:operator[^\s\w]+|~?\w+))"
                  r"(?:\s+(?P<count>\d+))?"
                  r"(?:\s+(?P<kind>abstract|inline|class|from)(?:\s+(?P<base>\S.*))?)?$")

Entry = collections.namedtuple("Entry", "name count kind base")


def parsed(text):
    """The entries of a list, and what is wrong with it."""
    entries, trouble = [], []
    for number, line in enumerate(text.splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        match = LINE.match(line)
        if (not match or (match["kind"] == "from") != bool(match["base"]) or
                (match["kind"] and not match["owner"])):
            trouble.append("line %d is not understood: %s" % (number, line))
            continue
        entries.append(Entry(match["name"], int(match["count"] or 1), match["kind"] or "exported",
                             match["base"]))
    names = collections.Counter((entry.name, entry.kind) for entry in entries)
    trouble += ["listed twice: " + name for (name, _), times in names.items() if times > 1]
    if not entries:
        trouble.append("the list is empty")
    return entries, trouble


def exported(output):
    """Name to signatures of the functions in the output of nm, and the classes with a type of
    their own."""
    functions, types = collections.defaultdict(set), set()
    for line in output.splitlines():
        match = re.match(r"[0-9a-f]+ [TWVDR] (.*)", line)
        if not match:
            continue
        symbol = re.sub(r"\[abi:\w+\]", "", match.group(1))
        if symbol.startswith("typeinfo for "):
            types.add(symbol[len("typeinfo for "):])
            continue
        name = re.match(r"(?:\w+::)*(?:operator(?:\(\)|[^\s\w(]+)|~?\w+)(?=\()", symbol)
        if name:
            functions[name.group(0)].add(symbol[name.end():])
    return functions, types


class Headers:
    """Bases, and the operations declared in the body, of every class in the headers."""

    CLASS = re.compile(r"\b(?:class|struct)\s+(?:KTRCL_\w+_EXPORT\s+)?(\w+)\s*(?::([^{};]*))?\{")

    def __init__(self, texts):
        self.bases = {}
        self.members = collections.defaultdict(lambda: collections.defaultdict(list))
        for text in texts:
            text = without_comments(text)
            for match in self.CLASS.finditer(text):
                end = matching(text, match.end() - 1, "{", "}")
                self.bases[match.group(1)] = self.unspaced(match.group(2) or "")
                self.read(match.group(1), text[match.end():end - 1])

    @staticmethod
    def unspaced(text):
        return re.sub(r"\s+", "", text.replace("public ", "public:"))

    def read(self, owner, body):
        for statement, inner in statements(body):
            name = re.search(r"(operator\s*(?:\(\)|[^\s\w(]+)|~?\w+)\s*\(", statement)
            if not name:
                continue
            kind = "declared"
            if inner is not None:
                kind = "inline"
            elif re.search(r"=\s*0$", statement):
                kind = "abstract"
            self.members[owner][name.group(1).replace(" ", "")].append(kind)

    def count(self, name, kind):
        owner, operation = name.split("::")[-2:]
        return self.members[owner][operation].count(kind)

    def derives(self, name, base):
        owner = name.split("::")[0]
        return ("public:" + self.unspaced(base)) in self.bases.get(owner, "")


def missing(entry, functions, types, headers):
    """What an entry lacks, or None."""
    if entry.kind == "class":
        return None if entry.name in types else "not a type of the libraries"
    if entry.kind == "from":
        if not headers.derives(entry.name, entry.base):
            return "its class does not derive from " + entry.base
        base = re.match(r"\w+", entry.base).group(0)
        if base == "std":
            return None
        inherited = base + "::" + entry.name.split("::")[1]
        if inherited in functions or headers.count(inherited, "inline"):
            return None
        return "%s has no such operation" % base
    found = (len(functions.get(entry.name, ())) if entry.kind == "exported" else
             headers.count(entry.name, entry.kind))
    if found >= entry.count:
        return None
    return "%d %s, %d expected" % (found, entry.kind, entry.count)


def unnamed(entries, functions):
    """What is wrong with the free functions of a list; nothing if it names none."""
    named = {entry.name: entry.count for entry in entries if "::" not in entry.name}
    free = {name: len(found) for name, found in functions.items() if "::" not in name}
    return ["%s: %d exported, %d in the list" % (name, free[name], named.get(name, 0))
            for name in sorted(free) if named and free[name] > named.get(name, 0)]


def check(text, symbols, headers):
    entries, trouble = parsed(text)
    functions, types = exported(symbols)
    trouble += unnamed(entries, functions)
    for entry in entries:
        lack = missing(entry, functions, types, headers)
        if lack:
            trouble.append("%s: %s" % (entry.name, lack))
    return trouble


def self_test():
    symbols = "\n".join(("00a0 T Shape::Len() const", "00a1 T Shape::Shape()",
                         "00a2 T Shape::Shape(double const&)", "00a3 T Shape::~Shape()",
                         "00a4 T Shape::operator*(double) const", "00a5 T Text::Str[abi:cxx11]()",
                         "00a6 V typeinfo for Shape::Error", "                 U Shape::Wanted()",
                         "00a7 T Cut(double)", "00a8 T Cut(double const*, double const (*) [3])",
                         "00a9 T Turn(int)", "00aa T _init"))
    headers = Headers(["""
        class KTRCL_GEOMETRY_EXPORT Shape : public std::deque<Point*> {
         public:
          virtual bool Visit(const Point& p) = 0;
          static double Twice(double x) { return 2.0 * x; }
          double Len() const;  // and not Width()
        };
        class Round
            : public Shape {};"""])
    good = """# A comment.
        Shape::Len
        Shape::Shape 2
        Shape::~Shape
        Shape::operator*
        Text::Str
        Shape::Visit abstract
        Shape::Twice inline
        Shape::Error class
        Shape::push_back from std::deque<Point*>
        Round::Len from Shape
        Cut 2
        Turn""".replace("        ", "")
    bad = ("", "# Comments alone.", "Shape::Width", "Shape::Wanted", "Shape::Shape 3",
           "Shape::operator+", "Shape::Len abstract", "Shape::Visit", "Shape::Visit 2 abstract",
           "Shape::Len inline", "Shape::Fault class", "Shape::size from std::list<Point*>",
           "Round::Width from Shape", "Shape::Len\nShape::Len", "Shape::Len twice", "Len",
           "Cut\nTurn", "Cut 3\nTurn", "Cut 2", "Cut 2 inline\nTurn")
    trouble = ["a good list fails: " + line for line in check(good, symbols, headers)]
    trouble += ["a list of members fails: " + line
                for line in check("Shape::Len", symbols, headers)]
    trouble += ["a bad list passes: %r" % text for text in bad if not check(text, symbols, headers)]
    return trouble


def main(nm, listed, folder, *libraries):
    symbols = "".join(
        subprocess.run([nm, "-D", "-C", "--defined-only", library], check=True, capture_output=True,
                       text=True).stdout for library in libraries)
    headers = Headers(path.read_text(encoding="utf-8")
                      for path in sorted(pathlib.Path(folder).rglob("*.h")))
    return check(pathlib.Path(listed).read_text(encoding="utf-8"), symbols, headers)


if __name__ == "__main__":
    problems = self_test() if sys.argv[1:] == ["--self-test"] else main(*sys.argv[1:])
    print("\n".join(problems), end="\n" if problems else "")
    sys.exit(1 if problems else 0)
