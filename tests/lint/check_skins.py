#!/usr/bin/env python3
"""The shipped skin catalogs are JSON that a reader can rely on: complete skins with unique ids, in the right catalog, of
which nothing is passed over. What docs/ says of their keys is what the program's own tables say. Takes the path of the
skin tool."""
import json
import re
import subprocess
import sys

import jsonschema

from sources import REPO, report

CATALOGS = {
    "00-tavi-default-skins.json": """solvane board-default lumora-forge command-alloy obsidian-atelier carmine-rose
        graphite-harbor win11-auto win11-dark win11-light arctic-instrument ember-console ultraviolet-rift verdant-ops
        navy-copper-desk porcelain-ink industrial-safety kestrune kestrune-3d kestrune-rift classic""",
    "01-tavi-black-gemstone-skins.json": """emerald-black ruby-black sapphire-black amber-black neon-glass-black
        neon-rose-black""",
    "02-tavi-material-gallery-skins.json": """granite-black marble-noir onyx-vein malachite-temple lapis-lazuli-black
        alabaster-ink basalt-forge slate-circuit travertine-amber tiger-eye-console diamond-night amethyst-black
        aquamarine-depths topaz-black garnet-blood opal-dark peridot-black tanzanite-night moonstone-shadow brushed-steel
        gunmetal-blue titanium-black copper-obsidian brass-night gold-onyx rose-gold-black chrome-noir tungsten-carbon""",
    "03-tavi-windows11-modern-skins.json": "win11-modern-auto win11-modern-black win11-modern-white",
}
COLORS = """frame shell panel header control control_hot control_pressed border accent accent_hot text text_hot muted_text
    disabled_text disabled_fill""".split()
FONTS = {"ui_font_family": str, "ui_point_size": int, "ui_weight": int, "mono_font_family": str, "mono_point_size": int,
         "mono_weight": int}


def without_duplicates(pairs):
    keys = [key for key, _ in pairs]
    if len(keys) != len(set(keys)):
        raise ValueError(f"a key stands twice among {keys}")
    return dict(pairs)


def stands_on_framework_theme(skin):
    return "theme" not in skin and skin.get("use_framework_defaults") is True


def skin_problems(skin):
    for key in ("id", "name", "description", "category", "harmony", "surface_mode"):
        if not isinstance(skin.get(key), str) or not skin[key]:
            yield f"{key} is missing"
    if stands_on_framework_theme(skin):
        return
    theme = skin.get("theme", {})
    for color in COLORS:
        if not re.fullmatch(r"#[0-9A-Fa-f]{6}", str(theme.get(color))):
            yield f"theme.{color} is {theme.get(color)}"
    for font, kind in FONTS.items():
        if not isinstance(theme.get(font), kind):
            yield f"theme.{font} is {theme.get(font)}"


def luminance(color):
    channels = [int(color[i:i + 2], 16) / 255 for i in (1, 3, 5)]
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in channels]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast_problems(theme):
    """WCAG 2.1: 4.5 to 1 for text, 3 to 1 for what is secondary."""
    for text, wanted in (("text", 4.5), ("muted_text", 3.0), ("disabled_text", 3.0)):
        for ground in ("shell", "panel", "control"):
            lighter, darker = sorted((luminance(theme[text]), luminance(theme[ground])), reverse=True)
            if (lighter + 0.05) / (darker + 0.05) < wanted:
                yield f"{text} on {ground} has a contrast below {wanted}"


def printed_problems(tool):
    for command, name in {"schema": "skins.schema.json", "keys": "skin-keys.md"}.items():
        printed = subprocess.run([tool, command], capture_output=True, text=True, check=True).stdout
        if len(printed) < 1000 or printed != (REPO / "docs" / name).read_text(encoding="utf-8"):
            yield f"docs/{name} is not what the tables say: print it anew with skin_tool {command}"
    printed = subprocess.run([tool, "limits"], capture_output=True, text=True, check=True).stdout
    page = (REPO / "docs" / "surfaces.md").read_text(encoding="utf-8")
    table = re.search(r"<!-- limits -->\n(.*)<!-- /limits -->", page, re.S)
    if len(printed) < 400 or table is None or table[1] != f"\n{printed}\n":
        yield "docs/surfaces.md is not what the tables of limits say: put what skin_tool limits prints between its marks"


def checked_problems(tool, catalogs):
    """The tool is silent on the catalogs, and not on a skin with a slip in it: its silence says something."""
    run = subprocess.run([tool, "check", *catalogs], capture_output=True, text=True)
    yield from run.stdout.splitlines()
    yield from run.stderr.splitlines()
    slip = '{"id": "a", "name": "b", "materials": {"strenght": 1, "depth": "deep"}, "styles": {"buton": {"x": {"y": 1}}}}'
    noticed = subprocess.run([tool, "check", "/dev/stdin"], input=slip, capture_output=True, text=True)
    for expected in ("materials.strenght: no such key; did you mean \"strength\"?", "materials.depth: \"deep\" is not",
                     "no such control type; did you mean \"button\"?", "warning: no control reads it"):
        if noticed.returncode != 1 or expected not in noticed.stdout:
            yield f"the skin tool does not say '{expected}' but {noticed.returncode}: {noticed.stdout}"
    paths = """{"$schema": "x", "id": "a", "name": "b", "styles": {"button": {"primary_action":
        {"surface": {"hott": {"fill": "#000000"}, "hot": {"fil": "#000000"}}, "header": {"hot": {"fill": "#000000"}}}}}}"""
    noticed = subprocess.run([tool, "check", "/dev/stdin"], input=paths, capture_output=True, text=True)
    for expected in ("surface.hott.fill: warning: no control reads it; did you mean \"hot\"?",
                     "surface.hot.fil: warning: no control reads it; did you mean \"fill\"?",
                     "header.hot.fill: warning: no control reads it"):
        if noticed.returncode != 0 or noticed.stdout.count("\n") != 3 or expected not in noticed.stdout:
            yield f"the skin tool does not warn '{expected}' alone but {noticed.returncode}: {noticed.stdout}"
    cut = subprocess.run([tool, "check", "/dev/stdin"], input='{"id": "a",\n "name" 1}', capture_output=True, text=True)
    if cut.returncode != 1 or "line 2, column 9" not in cut.stdout:
        yield f"the skin tool does not say where a document is broken: {cut.stdout}"


def schema_problems(name, document, schema):
    for error in jsonschema.Draft202012Validator(schema).iter_errors(document):
        yield f"{name}: {error.json_path}: {error.message[:200]}"


def main():
    tool = sys.argv[1]
    problems, seen = list(printed_problems(tool)), set()
    schema = json.loads((REPO / "docs" / "skins.schema.json").read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    if not list(schema_problems("", {"id": "a", "name": "b", "theme": {"frame": "#12345"}}, schema)):
        problems.append("the schema takes what it should not")
    folder = REPO / "resources" / "skins"
    if sorted(path.name for path in folder.iterdir()) != sorted(CATALOGS):
        problems.append(f"the catalogs are {sorted(path.name for path in folder.iterdir())}")
    for name, ids in CATALOGS.items():
        try:
            document = json.loads((folder / name).read_text(encoding="utf-8"), object_pairs_hook=without_duplicates)
        except ValueError as error:
            problems.append(f"{name}: {error}")
            continue
        problems += schema_problems(name, document, schema)
        found = [skin.get("id") for skin in document["skins"]]
        if found != ids.split():
            problems.append(f"{name}: has the skins {found}, should have {ids.split()}")
        seen |= set(found)
        for skin in document["skins"]:
            found_problems = list(skin_problems(skin))
            if not found_problems and not stands_on_framework_theme(skin):
                found_problems = list(contrast_problems(skin["theme"]))
            problems += [f"{name}: {skin.get('id')}: {problem}" for problem in found_problems]
    problems += checked_problems(tool, [str(folder / name) for name in CATALOGS])
    return report(problems, f"{len(seen)} skins")


if __name__ == "__main__":
    sys.exit(main())
