"""Where one-line faults can be planted in C++ sources, and which they are.

This reads C++ as clang-format leaves it: binary operators stand between spaces, brackets of
templates do not. What it takes wrongly does not compile, and another line is taken.
"""

import random
import re
from dataclasses import dataclass
from pathlib import Path
from typing import Iterator

# A fault in a header costs a compilation of everything that includes it: fewer of them are drawn.
HEADER_SHARE = 0.25

# What is no code, or holds nothing a test could notice.
NO_CODE = re.compile(
    r"""//[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:\\\n|[^\n])* | R"(\w*)\(.*?\)\1"
    | "(?:\\.|[^"\\\n])*" | (?<!\w)'(?:\\.|[^'\\\n])+'""",
    re.DOTALL | re.MULTILINE | re.VERBOSE,
)
NO_BEHAVIOUR = re.compile(r"\bstatic_assert\(.*?\);", re.DOTALL)

# What a brace opens is told by the text before it.
OUTER, TYPE, DATA, CODE = "otdc"
TYPE_HEAD = re.compile(r"\b(class|struct|union|enum)\b[^()]*$")
BODY_HEAD = re.compile(
    r"[)}\]](\s*(const|noexcept|override|final|mutable|&&?|->\s*[\w:<>,&*\s]+))*\s*$"
)

OPERATOR = re.compile(r"(?<= )(?:[<>=!]=|&&|\|\||<<|>>|[-+*/&|]=|[-+*/%<>&|])(?=\s)")
OTHER_OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",), "&&": ("||",), "||": ("&&",), "<<": (">>",), ">>": ("<<",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "&": ("|",), "|": ("&",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "&=": ("|=",), "|=": ("&=",),
}  # fmt: skip
NUMBER = re.compile(r"(?<![\w.'])\d+(?=(\.\d*)?[fuUlL]*(?![\w.'>]))")
TRUTH = re.compile(r"\b(true|false)\b")
SIGN = re.compile(r"(?:(?<=[(\[{])|(?<=[=,?:] )|(?<=return ))-(?=[\w(.])|!(?=[\w(])")
STEP = re.compile(r"\+\+|--")
CONDITION = re.compile(r"\b(?:if|while) \(")
CHOICE = re.compile(r"(?<= \? )([\w:.()>-]+) : ([\w:.()>-]+)(?=[;,)])")
RETURN = re.compile(r"\breturn ([^;{}]+);")
# Memory that is asked for ahead of its use changes nothing but the time it takes.
CALL = re.compile(r"(?!static_cast\b|return\b|.*\.reserve\()[\w:.>*()\[\]-]*[\w\]>]\(.*\);")
ASSIGNMENT = re.compile(r"[^\s=]+ [-+*/|&%]?= .*;|(?:\+\+|--)\S+;")
# What {} gives, or what another fault gives already.
RETURNS_NOTHING = ("0", "true", "false", "nullptr", "std::nullopt", '""')
# The value of a constant or of a member; not a pure virtual function, not an enumerator.
VALUE = re.compile(r"[^()=]+ = ([^(){}]*);")


@dataclass(frozen=True)
class Fault:
    path: Path  # relative to the tree
    line: int  # counted from 1
    before: str
    after: str

    def plant(self, text: str) -> str:
        lines = text.split("\n")
        lines[self.line - 1] = self.after
        return "\n".join(lines)


Edit = tuple[int, int, str]  # replaces the line's characters from the first to before the second


def code_of(text: str) -> str:
    """The text with everything blank that is no code; every character keeps its place.

    >>> code_of('a = "+ 1"; // b + 1')
    'a = "___";         '
    """

    def blank(match: re.Match[str]) -> str:
        found = match[0]
        if found[0] in "\"'":
            return found[0] + "_" * (len(found) - 2) + found[0]
        return re.sub(r"[^\n]", " ", found)

    return NO_BEHAVIOUR.sub(blank, NO_CODE.sub(blank, text))


def scope_of(head: str, around: str) -> str:
    if around == CODE or BODY_HEAD.search(head):
        return CODE
    if re.search(r"\b(namespace|extern)\b", head):
        return OUTER
    return TYPE if TYPE_HEAD.search(head) else DATA


def scopes_of(code: str) -> str:
    """For every character the scope it stands in.

    >>> scopes_of("int a = 1; struct B { int c = {2}; int D() const { return c; } };")
    'oooooooooooooooooooottttttttttdddttttttttttttttttccccccccccccctto'
    """
    scopes: list[str] = []
    opened, head = [(OUTER, "")], ""
    for char in code:
        if char == "{":
            opened.append((scope_of(head, opened[-1][0]), head))
            head = ""
        scopes.append(opened[-1][0])
        if char == "}" and len(opened) > 1:
            scope, before = opened.pop()
            # A value in braces does not end the declaration it stands in.
            head = before + "}" if scope == DATA else ""
        elif char == ";":
            head = ""
        elif char != "{":
            head += char
    return "".join(scopes)


def value_edits(line: str) -> Iterator[Edit]:
    for match in NUMBER.finditer(line):
        number = int(match[0])
        yield match.start(), match.end(), str(number + 1)
        if number > 0:
            yield match.start(), match.end(), str(number - 1)
    for match in TRUTH.finditer(line):
        yield match.start(), match.end(), "false" if match[0] == "true" else "true"


def operator_edits(line: str) -> Iterator[Edit]:
    for match in OPERATOR.finditer(line):
        for other in OTHER_OPERATORS[match[0]]:
            yield match.start(), match.end(), other
    for match in SIGN.finditer(line):
        yield match.start(), match.end(), ""
    if "for (" not in line:  # a loop that counts away from its end tells nothing about the tests
        for match in STEP.finditer(line):
            yield match.start(), match.end(), "--" if match[0] == "++" else "++"


def closing(line: str, begin: int) -> int:
    """Where the bracket that is open before `begin` closes, -1 when not on this line."""
    depth = 1
    for place in range(begin, len(line)):
        depth += {"(": 1, ")": -1}.get(line[place], 0)
        if depth == 0:
            return place
    return -1


def condition_edits(line: str, text: str) -> Iterator[Edit]:
    for match in CONDITION.finditer(line):
        end = closing(line, match.end())
        if end > 0 and not re.search(r";| = |^!", line[match.end() : end]):
            yield match.end(), end, f"!({text[match.end() : end]})"
    for match in CHOICE.finditer(line):
        if all(side.count("(") == side.count(")") for side in match.groups()):
            yield match.start(), match.end(), f"{match[2]} : {match[1]}"


def statement_edits(line: str, starts_here: bool) -> Iterator[Edit]:
    for match in RETURN.finditer(line):
        if match[1] not in RETURNS_NOTHING:
            yield match.start(1), match.end(1), "{}"
    bare = line.strip()
    whole = bare.count("(") == bare.count(")")
    if starts_here and whole and (CALL.fullmatch(bare) or ASSIGNMENT.fullmatch(bare)):
        begin = line.index(bare)
        yield begin, begin + len(bare), ";"


def line_edits(path: Path, text: str, line: str, scopes: str, starts_here: bool) -> list[Edit]:
    """The faults of one line; `line` is its code, `text` itself."""
    in_code = [
        *value_edits(line),
        *operator_edits(line),
        *condition_edits(line, text),
        *statement_edits(line, starts_here),
    ]
    edits = [edit for edit in in_code if scopes[edit[0]] == CODE]
    value = VALUE.fullmatch(line.strip())
    # What a header gives a name to is known to the tests under that name.
    is_name = path.suffix == ".h" and (scopes[:1] == OUTER or "constexpr" in line)
    if value and not is_name and set(scopes) <= {OUTER, TYPE}:
        edits += [edit for edit in value_edits(line) if edit[0] > line.index(" = ")]
    return edits


def faults_by_line(path: Path, text: str) -> Iterator[list[Fault]]:
    """For every line that can have a fault all that it can have.

    >>> source = "int F(int a) {\\n  if (a < 2) return 0;\\n  G(a);\\n  return H(a + 1);\\n}\\n"
    >>> for faults in faults_by_line(Path("f.cpp"), source):
    ...     print(faults[0].line, " | ".join(fault.after.strip() for fault in faults))
    2 if (a < 3) return 0; | if (a < 1) return 0; | if (a < 2) return 1; | if (a <= 2) return 0; | \
if (a >= 2) return 0; | if (!(a < 2)) return 0;
    3 ;
    4 return H(a + 2); | return H(a + 0); | return H(a - 1); | return {};
    """
    code = code_of(text)
    scopes = scopes_of(code)
    begin, before = 0, ""
    for number, (raw, line) in enumerate(zip(text.split("\n"), code.split("\n")), 1):
        here = scopes[begin : begin + len(line)]
        begin += len(line) + 1
        starts_here = before.endswith((";", "{", "}", ")", ":", "else"))
        edits = line_edits(path, raw, line, here, starts_here)
        before = line.strip() or before
        changed = [raw[:first] + new + raw[end:] for first, end, new in edits]
        if changed:
            yield [Fault(path, number, raw, after) for after in changed]


def draw(tree: Path, paths: list[Path], seed: int) -> list[Fault]:
    """One fault for each line that can have one, in the order in which to try them.

    The order depends on the sources, the paths and the seed alone.
    """
    chance = random.Random(seed)
    faults = []
    for path in sorted(paths):
        for choice in faults_by_line(path, (tree / path).read_text(encoding="utf-8")):
            fault = chance.choice(choice)
            if path.suffix != ".h" or chance.random() < HEADER_SHARE:
                faults.append(fault)
    chance.shuffle(faults)
    return faults
