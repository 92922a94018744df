#!/usr/bin/env python3
"""Writes a module's signature list (exports/<ModuleJNI>.sig) from a short description of
what the module exposes, in the C++ types of the native side, applying the wrapper layer's
naming and conversion rules. The description is written from the module's tables, not from
generated code, so the check compares the two.

usage: sig-gen.py DESCRIPTION > exports/<ModuleJNI>.sig

Description, one item a line ('#' comments):
  class NAME                    a class: constructors and methods follow, indented
    new(ARGS)                   a constructor (several: new_NAME__SWIG_0, _1, ... in this order)
    RESULT name(ARGS)           a member function; "static RESULT name(ARGS)" takes no handle
  record NAME                   a record: new_/delete_ and, per field, _set/_get
    TYPE field                  TYPE may be char[N], a scalar array T[N], or a record (embedded)
  constant TYPE NAME            a getter NAME_get()
A class or record gets new_NAME() (when it lists no constructor) and delete_NAME; a body line
"no new" or "no delete" leaves either out.
TYPE: void bool "signed char" "unsigned char" short "unsigned short" int long "unsigned int"
"unsigned long" "long long" float double, "enum" (any enumeration), std::string, "char*",
jbyteArray (a Java byte[] made by the native side), a declared class or record name, each
optionally "const" and "&" or "*". A non-const reference to a scalar is an out argument (a
one-element array); a class or record passed by reference or pointer is a handle followed by its
proxy object. An argument may carry a name after its type ("unsigned int& current_id"), ignored.
"""
import re
import sys

SCALARS = {
    "void": "void", "bool": "boolean", "signed char": "byte", "unsigned char": "short",
    "short": "short", "unsigned short": "int", "int": "int", "long": "int",
    "unsigned int": "long", "unsigned long": "long", "long long": "long", "float": "float",
    "double": "double", "enum": "int",
}
TEXTS = {"std::string", "char*"}


def fail(msg):
    sys.exit("sig-gen: " + msg)


class Type:
    def __init__(self, text, known):
        t = text.strip()
        self.const = bool(re.match(r"const\s", t))
        t = re.sub(r"^const\s+", "", t)
        self.ref = t.endswith("&")
        self.ptr = t.endswith("*") and not t.replace(" ", "") == "char*"
        t = t.rstrip("&").strip()
        if self.ptr:
            t = t.rstrip("*").strip()
        t = re.sub(r"^enum\s+\w+$", "enum", t)
        t = re.sub(r"\s+", " ", t)
        self.array = None
        m = re.match(r"^(.*)\[(\d+)\]$", t)
        if m:
            t, self.array = m.group(1).strip(), int(m.group(2))
        self.base = t
        if t not in SCALARS and t not in TEXTS and t != "char" and t != "jbyteArray" and t not in known:
            fail("unknown type '%s'" % text)
        self.handle = t in known

    def java(self):
        """The Java parameter types (one, or a handle and its proxy class)."""
        if self.handle:
            return ["long", self.base]
        if self.base == "char" and self.array:
            return ["String"]
        if self.base in TEXTS:
            return ["String"]
        if self.base == "jbyteArray":
            return ["byte[]"]
        j = SCALARS[self.base]
        if self.array or (self.ref and not self.const) or self.ptr:
            return [j + "[]"]
        return [j]

    def result(self):
        if self.handle:
            return "long"
        return self.java()[0]


def split_args(text):
    text = text.strip()
    if not text:
        return []
    return [a.strip() for a in text.split(",")]


def arg_type(arg):
    # Drop a trailing argument name: "unsigned int& current_id", "const X& info".
    m = re.match(r"^(.*?[\w&*\]])\s+(\w+)$", arg)
    if m and m.group(2) not in ("int", "char", "short", "long", "bool", "double", "float"):
        head = m.group(1)
        if not re.search(r"\b(unsigned|signed|const)$", head):
            return head
    return arg


def main():
    if len(sys.argv) == 2 and sys.argv[1] in ("-h", "--help"):
        print(__doc__)
        return
    if len(sys.argv) != 2:
        fail("usage: sig-gen.py DESCRIPTION (--help tells the description)")
    lines = []
    for raw in open(sys.argv[1], encoding="utf-8"):
        line = raw.split("#", 1)[0].rstrip()
        if line.strip():
            lines.append(line)
    known = set()
    for line in lines:
        m = re.match(r"^(class|record)\s+(\w+)\s*$", line)
        if m:
            known.add(m.group(2))

    out = []
    blocks = []
    for line in lines:
        if not line[0].isspace():
            blocks.append([line.strip(), []])
        elif blocks:
            blocks[-1][1].append(line.strip())
        else:
            fail("indented line outside a block: " + line)

    for head, body in blocks:
        words = head.split()
        if words[0] == "constant":
            m = re.match(r"^constant\s+(.+)\s+(\w+)$", head)
            out.append("%s %s_get()" % (Type(m.group(1), known).result(), m.group(2)))
            continue
        if words[0] not in ("class", "record") or len(words) != 2:
            fail("unknown line: " + head)
        kind, name = words
        no_new = "no new" in body
        no_delete = "no delete" in body
        body = [b for b in body if b not in ("no new", "no delete")]
        ctors = [b for b in body if re.match(r"^new\s*\(", b)]
        members = [b for b in body if b not in ctors]
        if not ctors and not no_new:
            ctors = ["new()"]
        for i, c in enumerate(ctors):
            args = split_args(re.match(r"^new\s*\((.*)\)$", c).group(1))
            jargs = [j for a in args for j in Type(arg_type(a), known).java()]
            suffix = "__SWIG_%d" % i if len(ctors) > 1 else ""
            out.append("long new_%s%s(%s)" % (name, suffix, ", ".join(jargs)))
        if not no_delete:
            out.append("void delete_%s(long)" % name)
        if kind == "record":
            for f in members:
                m = re.match(r"^(.+?)\s+(\w+)$", f)
                if not m:
                    fail("field line: " + f)
                t = Type(m.group(1), known)
                fld = m.group(2)
                out.append("void %s_%s_set(long, %s, %s)" % (name, fld, name, ", ".join(t.java())))
                out.append("%s %s_%s_get(long, %s)" % (t.result(), name, fld, name))
            continue
        parsed = []
        for mbr in members:
            m = re.match(r"^(static\s+)?(.+?)\s+(\w+)\s*\((.*)\)$", mbr)
            if not m:
                fail("member line: " + mbr)
            parsed.append((bool(m.group(1)), m.group(2), m.group(3), split_args(m.group(4))))
        counts = {}
        for p in parsed:
            counts[p[2]] = counts.get(p[2], 0) + 1
        seen = {}
        for static, result, fname, args in parsed:
            suffix = ""
            if counts[fname] > 1:
                suffix = "__SWIG_%d" % seen.get(fname, 0)
                seen[fname] = seen.get(fname, 0) + 1
            jargs = [] if static else ["long", name]
            for a in args:
                jargs += Type(arg_type(a), known).java()
            out.append("%s %s_%s%s(%s)" % (Type(result, known).result(), name, fname, suffix,
                                             ", ".join(jargs)))
    for line in out:
        print(line)


if __name__ == "__main__":
    main()
