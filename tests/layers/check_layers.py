#!/usr/bin/env python3
"""Walks the includes of src/ and fails on any that reaches a layer the
including folder may not use: the layers and what each may use, lowest
first, as docs/ARCHITECTURE.md lists them."""
import pathlib
import re
import sys

FAMILIES = {"text", "dates", "ident", "system", "messages", "db", "grid", "forms"}
BELOW_FAMILIES = {"runtime", "platform", "callers", "context"}
MAY_USE = {
    "runtime": set(),
    "platform": {"runtime"},
    "callers": {"runtime"},
    "context": {"runtime", "platform", "callers"},
    **{f: BELOW_FAMILIES | FAMILIES for f in FAMILIES},
    "frame": BELOW_FAMILIES | FAMILIES,
    "objects": {"runtime", "platform"},
    "data": {"runtime", "platform"},
    "sheet": {"runtime", "platform", "objects"},
    "host": BELOW_FAMILIES | {"objects", "data", "sheet"},
    "com": BELOW_FAMILIES | FAMILIES | {"frame", "host"},
    "cli": BELOW_FAMILIES | FAMILIES | {"frame", "objects", "data", "sheet", "host"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"/]+)/', re.M)
# Raw string literals hold the text of generated sources, not includes.
RAW_STRING = re.compile(r'R"([^(\s]*)\(.*?\)\1"', re.S)


def back_edges(src: pathlib.Path):
    for path in sorted(src.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".hpp"}:
            continue
        layer = path.relative_to(src).parts[0]
        if layer not in MAY_USE:
            yield f"{path.relative_to(src)}: folder {layer} is not a known layer"
            continue
        text = RAW_STRING.sub("", path.read_text(encoding="utf-8", errors="replace"))
        for target in INCLUDE.findall(text):
            if target != layer and target in MAY_USE and target not in MAY_USE[layer]:
                yield f"{path.relative_to(src)}: {layer} may not include {target}"


def main() -> int:
    src = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2] / "src")
    edges = list(back_edges(src))
    for edge in edges:
        print(edge)
    print(f"{0 if edges else 1} passed, {1 if edges else 0} failed")
    return 1 if edges else 0


if __name__ == "__main__":
    sys.exit(main())
