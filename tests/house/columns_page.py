"""Compares the tables of docs/columns.md with what `qvassembly keywords` prints of the library's own."""

import json
import re
import subprocess
import sys

DASH = "–"


def page_columns(path):
    """What the page says: {kind: {keyword: (read as, written as)}}."""
    kinds, kind, heading = {}, None, ""
    with open(path, encoding="utf-8") as page:
        for line in page:
            if line.startswith("## "):
                heading = line
                kind = kinds.setdefault(re.search(r"\(`(?:--kind )?([a-z-]+)`", line)[1], {})
            elif kind is not None and line.startswith("| ") and not line.startswith("| keyword"):
                keywords, *forms = (cell.strip() for cell in line.strip().strip("|").split("|"))
                if "read only" in heading:
                    forms = [forms[0], DASH]
                elif "written only" in heading:
                    forms = [DASH, forms[0]]
                for keyword in re.findall("`([^`]+)`", keywords):
                    kind[keyword] = forms
    return kinds


def is_said(form, words, length, said):
    """Whether the page's words stand for how a column is read or written."""
    if form == "word":
        return all(f"`{word}`" in said for word in words if word)
    if form == "text" and length:
        return said.startswith("text") and (length > 259 or "(" not in said or f"({length})" in said)
    return said.startswith(form or DASH)


def main(program, path):
    page, misses = page_columns(path), 0
    known = json.loads(subprocess.run([program, "keywords", "--as", "json"], check=True, capture_output=True).stdout)
    for column in known:
        kind, keyword = column["kind"], column["keyword"]
        if keyword.endswith(" "):  # a format file cannot hold it, so the page names the other one
            continue
        read, written = page[kind].get(keyword, ("", ""))
        written = written.replace("the same words", read)
        for form, words, said in ((column["readAs"], column.get("wordsRead"), read),
                                  (column["writtenAs"], column.get("wordsWritten"), written)):
            if not is_said(form, words, column.get("length"), said):
                print(f"{path}: {kind}: {keyword}: {form or DASH!r} {words or ''} is called {said!r}")
                misses += 1
    if len(known) < 200:
        print("too few columns; this test looks in the wrong place")
        misses += 1
    return 1 if misses else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
