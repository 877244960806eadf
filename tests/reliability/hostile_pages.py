#!/usr/bin/python3
"""Pages of a collection whose every text is a payload, against those of one with harmless words.

hostile_pages.py TOOL EXAMPLES ROUNDS [RUN...]: a round gives every text another payload. The pages of
both are read by an HTML5 parser: their trees are to be equal, and the text is to be the payload.
"""

import functools
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
from xml.sax.saxutils import escape

import html5lib

PAYLOADS = pathlib.Path(__file__).with_name("payloads.json")
TEXT = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
NOT_LOADED = re.compile(r"^(https?:|//|data:|javascript:)", re.I)
XML_TEXT = re.compile(r"[\t\n\r\x20-\ud7ff\ue000-\ufffd\U00010000-\U0010ffff]*")
failures = []


def fail(text):
    failures.append(text)


@functools.lru_cache
def read_payloads():
    return json.loads(PAYLOADS.read_text(encoding="utf-8"))


def make_harmless(payload):
    """As long, with its blanks where they are."""
    return "".join(c if c.isspace() or c.isalnum() and c.isascii() else "x" for c in payload)


def quote(text):
    return "".join("\\" + c if c in '"\\' else f"\\x{ord(c):04X}" if ord(c) < 32 or ord(c) == 127
                   else c for c in text)


def unquote(text):
    return re.sub(r'\\(.)', r"\1", text)


class Suffixes:
    """Appends to each text what belongs to it, the same wherever the text stands."""

    def __init__(self, words, first):
        self.words, self.first, self.numbers = words, first, {}

    def get(self, text):
        number = self.numbers.setdefault(text, len(self.numbers))
        # Behind the least character that a text holds: the order of texts stays as it was.
        return "\t" + self.words[(self.first + number) % len(self.words)]

    def in_mof(self, mof):
        mof = re.sub(r"//[^\n]*", "", mof)
        return TEXT.sub(self.in_literal, mof)

    def in_literal(self, match):
        text = match.group(1)
        if re.fullmatch(r"\d{8,14}[\d*]*[.:][\d*:+-]+|[\d.+-]*|\.\.|\d+\.\.\d*", text):
            return match.group(0)
        if re.match(r'[A-Za-z_]\w*\.\w+=', text):
            # A path: its keys change as the texts do that they name.
            return '"' + re.sub(r'\\"((?:[^"\\]|\\\\(?:\\"|\\\\))*)\\"', self.in_key, text) + '"'
        return '"' + text + quote(self.get(text)) + '"'

    def in_key(self, match):
        text = match.group(1)
        if re.fullmatch(r"[\d.+-]*", text):
            return match.group(0)
        suffix = self.get(text)
        return '\\"' + text + quote(quote_path(suffix)) + '\\"'


def quote_path(text):
    return text.replace("\\", "\\\\").replace('"', '\\"')


def write_names(words, value):
    """Classes, properties, qualifiers and methods that are called as the payloads, in CIM-XML, which takes any name."""
    lines = []
    for number, word in enumerate(words):
        if not XML_TEXT.fullmatch(read_payloads()[number]):
            continue
        name = escape(word, {'"': "&quot;", "\t": "&#9;", "\n": "&#10;", "\r": "&#13;"})
        owner, attribute = f"C{number:03}{name}", f"P{number:03}{name}"
        lines.append(
            f'<VALUE.OBJECT><CLASS NAME="{owner}" SUPERCLASS="ZANSG_Process">'
            f'<QUALIFIER NAME="Q{name}" TYPE="string"><VALUE>q</VALUE></QUALIFIER>'
            f'<PROPERTY NAME="{attribute}" TYPE="string"><QUALIFIER NAME="Q{name}" TYPE="string">'
            f'<VALUE>q</VALUE></QUALIFIER></PROPERTY>'
            f'<METHOD NAME="M{name}" TYPE="uint32"/></CLASS></VALUE.OBJECT>'
            f'<VALUE.OBJECT><INSTANCE CLASSNAME="{owner}">'
            f'<PROPERTY NAME="Handle" TYPE="string"><VALUE>9{number:04}</VALUE></PROPERTY>'
            f'<PROPERTY NAME="{attribute}" TYPE="string"><VALUE>{value}</VALUE></PROPERTY>'
            f'</INSTANCE></VALUE.OBJECT>')
    return ("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>" + "\n".join(lines) +
            "</DECLGROUP></DECLARATION></CIM>")


def run(tool, command, sources, folder, suffixes):
    inputs = []
    for source in sources:
        target = folder / pathlib.Path(source).name
        target.mkdir()
        files = sorted(pathlib.Path(source).glob("*.mof")) if os.path.isdir(source) else [source]
        for file in files:
            text = pathlib.Path(file).read_text(encoding="utf-8")
            (target / pathlib.Path(file).name).write_text(suffixes.in_mof(text), encoding="utf-8")
        # Another value in each of the systems that are compared.
        (target / "names.xml").write_text(write_names(suffixes.words, target.name), encoding="utf-8")
        inputs.append(str(target))
    done = subprocess.run([tool, *command, *inputs, "-q", "-o", str(folder / "out")],
                          capture_output=True, text=True)
    if done.returncode != 0:
        fail(f"{command}: exit code {done.returncode}: {done.stderr[:500]}")
    return folder / "out"


def walk(node, path=""):
    """(path, attributes, text) of all elements, in document order."""
    name = node.tag if isinstance(node.tag, str) else "comment"
    path += "/" + name
    yield path, dict(node.attrib), (node.text or "") + (node.tail or "")
    for child in node:
        yield from walk(child, path)


def parse(page):
    parser = html5lib.HTMLParser(namespaceHTMLElements=False)
    return list(walk(parser.parse(page)))


def check_policy(name, elements, page):
    policies = [attributes.get("content", "") for path, attributes, _ in elements
                if attributes.get("http-equiv", "").lower() == "content-security-policy"]
    if len(policies) != 1 or "unsafe-inline" in policies[0] or "default-src 'none'" not in policies[0]:
        fail(f"{name}: policy {policies}")
    for path, attributes, text in elements:
        for attribute, value in attributes.items():
            if attribute.lower().startswith("on") or attribute == "style":
                fail(f"{name}: {path} has {attribute}={value[:60]}")
            if attribute in ("href", "src", "action", "data") and NOT_LOADED.match(value.strip()):
                fail(f"{name}: {path} leads to {value[:60]}")
        if path.endswith("/script") and "src" not in attributes and text.strip():
            if attributes.get("type") != "application/json":
                fail(f"{name}: a script in the page")
        if path.endswith(("/style", "/iframe", "/object", "/embed", "/base", "/form")):
            fail(f"{name}: {path}")
    control = re.search("[\x00-\x08\x0b-\x1f\x7f-\x9f]", page)
    if control:
        fail(f"{name}: control character {control.group(0)!r}")


def compare_pages(name, harmless, hostile):
    plain, attacked = parse(harmless), parse(hostile)
    check_policy(name, attacked, hostile)
    if len(plain) != len(attacked):
        fail(f"{name}: {len(plain)} elements and {len(attacked)} with payloads")
    for (path, attributes, text), (other, values, content) in zip(plain, attacked):
        if path != other or sorted(attributes) != sorted(values):
            return fail(f"{name}: {path} {sorted(attributes)} is {other} {sorted(values)}, "
                        f"text {content[:80]!r}")
        if not is_payload(text, content):
            fail(f"{name}: {path}: {text[:300]!r} is {content[:300]!r}")
    return None


def is_payload(harmless, hostile):
    """The same text with payloads where the words stand, character by character."""
    # The size of a file beside the pages: other bytes.
    harmless, hostile = (re.sub(r", [\d,.]+ (bytes|KB|MB)\.", "", each) for each in (harmless, hostile))
    # The path of a repaired instance: quoted as paths are.
    if re.match(r"\w+\.\w+=\"", harmless):
        hostile = unquote(hostile)
    if len(harmless) != len(hostile):
        return False
    return all(a == b or a == "x" for a, b in zip(harmless, hostile))


def pair_files(harmless, hostile):
    """Some pages are named after a text. The front pages lead to both in the same order."""
    links = [[attributes["href"].split("#")[0] for _, attributes, _ in
              parse((folder / "index.html").read_text(encoding="utf-8")) if "href" in attributes]
             for folder in (harmless, hostile)]
    pairs = dict(zip(*links))
    for file in harmless.rglob("*.*"):
        name = str(file.relative_to(harmless))
        if (hostile / name).is_file():
            pairs.setdefault(name, name)
    return sorted(pairs.items())


def check_script(name, file):
    done = subprocess.run(["node", "--check", str(file)], capture_output=True, check=False)
    if done.returncode != 0:
        fail(f"{name}: {done.stderr.decode()[:300]}")


def compare_runs(label, harmless, hostile):
    pages = 0
    for name, attacked in pair_files(harmless, hostile):
        if (harmless / name).is_file() != (hostile / attacked).is_file():
            fail(f"{label}: only one of {name} and {attacked} is there")
        if not (harmless / name).is_file() or not (hostile / attacked).is_file():
            continue
        content = (hostile / attacked).read_bytes().decode("utf-8")
        if name.endswith(".html"):
            compare_pages(f"{label}/{name}", (harmless / name).read_text(encoding="utf-8"), content)
            pages += 1
        if name.endswith(".js"):
            check_script(f"{label}/{name}", hostile / attacked)
        if name.endswith(".json"):
            json.loads(content)
    return pages


def write_manifests(folder, words):
    """A machine for each payload, with it as all its texts; every twentieth manifest is broken."""
    for number, word in enumerate(words):
        def text(place, word=word):
            return f"{place}{number:03}\t{word}"

        machine = {key: text(key) for key in ("name", "serialNumber", "system", "collected")}
        level = number % 10 == 0 and number % 7
        manifest = {
            "manifest": 1, "kind": "report", "verdict": ("failed", "attention", "ok", word)[number % 4],
            "machine": {"product": f"{number % 5}\t{words[number % 5]}", **machine},
            "findings": {"failed": number, "attention": 1}, "worst": [{"text": text("w")}],
            "subsystems": [{"name": "Memory", "state": "failed"}, {"name": word, "state": "failed"}],
            "firmware": [{"name": words[7], "version": f"{level:d}\t{words[level]}"},
                         {"name": text("n"), "version": text("v")}]}
        # No name of a folder holds these.
        place = folder / f"{number:03}{re.sub('[/{}]'.format(chr(0)), '-', word)}"
        place.mkdir(parents=True)
        (place / "manifest.json").write_text("{" if number % 20 == 19 else json.dumps(manifest))


def compare_fleets(tool, place, words, payloads):
    """The index over both. How many pages there are."""
    harmless, hostile = (place / name / "fleet" for name in ("harmless", "hostile"))
    for folder, texts in ((harmless, words), (hostile, payloads)):
        write_manifests(folder, texts)
        done = subprocess.run([tool, "fleet-index", str(folder)], capture_output=True, check=False)
        if done.returncode != 5 or done.stderr.count(b"no JSON") != len(words) // 20:
            fail(f"fleet: exit code {done.returncode}: {done.stderr[:500]}")
    pages = [page.relative_to(hostile) for page in hostile.glob("fleet-index/*.html")]
    for page in pages:
        compare_pages(f"fleet/{page.name}", (harmless / page).read_text(), (hostile / page).read_text())
    for script in hostile.glob("fleet-index/**/*.js"):
        check_script(f"fleet/{script.name}", script)
    return len(pages)


def check_other_formats(label, tool, command, place, payloads):
    """JSON and plain text of the hostile collection, which a run before has written."""
    inputs = sorted(str(path) for path in place.iterdir() if path.name != "out")
    for name in ("json", "text"):
        out = place / name
        done = subprocess.run([tool, *command, *inputs, "-q", "--format", name, "-o", str(out)],
                              capture_output=True, text=True, check=False)
        if done.returncode != 0:
            fail(f"{label} {name}: exit code {done.returncode}: {done.stderr[:300]}")
        for file in (path for path in place.glob(name + "/**/*") if path.is_file()):
            if "_results" in file.name:
                continue
            content = file.read_bytes().decode("utf-8")
            control = re.search("[\x00-\x08\x0b-\x1f\x7f-\x9f]", content)
            if control:
                fail(f"{label} {file.name}: control character {control.group(0)!r}")
            if file.suffix == ".json":
                json.loads(content)


def main():
    tool, examples = sys.argv[1], pathlib.Path(sys.argv[2])
    rounds, wanted = int(sys.argv[3]), sys.argv[4:]
    payloads = read_payloads()
    words = [make_harmless(payload) for payload in payloads]
    runs = {
        "windows": (["report", "--mode", "mek", "--kmc"], ["windows-server"]),
        "debian": (["report"], ["debian-host"]),
        "esx": (["report", "--mode", "mek"], ["esx-server"]),
        "hypervisor": (["hypervisor"], ["esxi-host"]),
        "compare": (["compare"], ["compare/one-server-two-times/before.mof",
                                  "compare/one-server-two-times/after.mof"]),
    }
    pages = 0
    for number in range(rounds):
        for label in wanted or [*runs, "fleet"]:
            with tempfile.TemporaryDirectory() as folder:
                if label == "fleet":
                    pages += compare_fleets(tool, pathlib.Path(folder), words, payloads)
                    continue
                command, sources = runs[label]
                outputs = []
                for kind, suffixes in (("harmless", words), ("hostile", payloads)):
                    place = pathlib.Path(folder) / kind
                    place.mkdir()
                    outputs.append(run(tool, command, [examples / source for source in sources],
                                       place, Suffixes(suffixes, number * 37)))
                if not failures:
                    pages += compare_runs(f"{label} {number}", *outputs)
                check_other_formats(label, tool, command, pathlib.Path(folder) / "hostile", payloads)
    print(f"{len(payloads)} payloads, {pages} pages, {len(failures)} failures")
    for failure in failures[:20]:
        print(failure)
    return 1 if failures else 0


sys.exit(main())
