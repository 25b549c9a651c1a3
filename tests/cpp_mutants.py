"""Where a C++ source can be changed by one token so that it means something else, and what it can be changed to.

Nothing is parsed: the source is cut into tokens, and clang-format's blanks tell what a sign is. A binary operator has
one on either side; the bracket of a template, a reference and an unary minus have not.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""(?P<skipped>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
      |(?P<string>(?:u8|[uUL])?R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)"
                 |(?:u8|[uUL])?"(?:\\.|[^"\\\n])*"|(?:u8|[uUL])?'(?:\\.|[^'\\\n])*')
      |(?P<number>\.?\d(?:'?[\w.]|(?<=[eEpP])[+-])*)
      |(?P<name>[A-Za-z_]\w*)
      |(?P<sign><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])""",
    re.DOTALL | re.MULTILINE | re.VERBOSE)

# `<` is answered by both its neighbours: one of them shows where the other does not.
BINARY = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "%=": ["*="], "&=": ["|="], "|=": ["&="],
}
STEP = {"++": ["--"], "--": ["++"]}
WORD = {"true": ["false"], "false": ["true"]}
CALL = {
    "min": ["max"], "max": ["min"], "lower_bound": ["upper_bound"], "upper_bound": ["lower_bound"],
    "any_of": ["all_of"], "all_of": ["any_of"], "none_of": ["any_of"], "front": ["back"], "back": ["front"],
}
CHECKS = {"assert", "static_assert"}  # what they hold is never compiled into the program, or never compiles
COMPARISONS = {"<", "<=", ">", ">=", "==", "!="}
KEYWORDS = {"if", "for", "while", "do", "switch", "return", "break", "continue", "case", "default", "else", "throw",
            "sizeof", "alignas", "constexpr", "const", "static", "auto", "using", "template", "delete", "new"}
OPEN, CLOSE = {"(": ")", "[": "]", "{": "}"}, {")", "]", "}"}
# What follows the name that a statement begins with, where it is no declaration.
STATEMENT_SIGNS = {"(", "=", ".", "->", "[", "++", "--", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclass(frozen=True)
class Site:
    """A piece of a source and what may stand there instead, in as many lines: no other line changes its number."""
    start: int
    end: int
    replacements: tuple


@dataclass(frozen=True)
class Mutant:
    path: str
    line: int
    before: str  # the lines that change, joined and without their indentation
    after: str
    source: str  # the whole file with the change


def tokens_of(source):
    found = [Token(match.lastgroup if match.lastgroup != "mark" else "string", match.group(), match.start(),
                   match.end()) for match in TOKEN.finditer(source)]
    return [token for token in found if token.kind != "skipped"]


def partners_of(tokens):
    """Index of each opening bracket's closing one, and of the innermost bracket that each token stands in (or None)."""
    closing, inside, open_ones = {}, [], []
    for index, token in enumerate(tokens):
        if token.kind == "sign" and token.text in CLOSE and open_ones:
            closing[open_ones.pop()] = index
        inside.append(open_ones[-1] if open_ones else None)
        if token.kind == "sign" and token.text in OPEN:
            open_ones.append(index)
    return closing, inside


def mutants_of(path, source):
    """All of them, site by site: a list of lists."""
    return [[mutant_at(path, source, site, text) for text in site.replacements] for site in sites_of(source)]


def mutant_at(path, source, site, text):
    mutated = source[:site.start] + text + source[site.end:]
    first = source.rfind("\n", 0, site.start) + 1
    lines = source.count("\n", first, site.end) + 1

    def shown(whole):
        return " ".join(line.strip() for line in whole[first:].split("\n")[:lines] if line.strip())

    return Mutant(path, source.count("\n", 0, first) + 1, shown(source), shown(mutated), mutated)


def sites_of(source):
    tokens = tokens_of(source)
    closing, inside = partners_of(tokens)
    checked = checked_tokens(tokens, closing)
    found = []
    for index, token in enumerate(tokens):
        if index in checked:
            continue
        found += token_sites(source, tokens, index)
        found += condition_sites(source, tokens, index, closing)
        found += statement_sites(source, tokens, index, closing, inside)
    return found


def checked_tokens(tokens, closing):
    """Indices of all that stands in an assertion."""
    checked = set()
    for index, token in enumerate(tokens):
        if token.text in CHECKS and index + 1 in closing:
            checked.update(range(index, closing[index + 1] + 1))
    return checked


def text_at(tokens, index):
    return tokens[index].text if 0 <= index < len(tokens) else ""


def token_sites(source, tokens, index):
    token = tokens[index]
    before, behind = text_at(tokens, index - 1), text_at(tokens, index + 1)
    replacements = []
    if token.kind == "number":
        replacements = neighbours(token.text)
    elif token.kind == "name" and token.text in WORD:
        replacements = WORD[token.text]
    elif token.kind == "name" and behind == "(" and before in {"::", "."}:
        if before == "." or text_at(tokens, index - 2) in {"std", "ranges"}:
            replacements = CALL.get(token.text, [])
    elif token.kind == "sign" and before != "operator":
        blanks = source[token.start - 1].isspace() and source[token.end:token.end + 1].isspace()
        replacements = STEP.get(token.text, []) or (BINARY.get(token.text, []) if blanks else [])
        if token.text == "!":
            replacements = [""]
    return [Site(token.start, token.end, tuple(replacements))] if replacements else []


def neighbours(number):
    """Of a whole number, written as it is: one more and one less."""
    parts = re.fullmatch(r"(0[xX])?([0-9a-fA-F']+?)([uUlLzZ]*)", number)
    if not parts or (not parts[1] and not parts[2].replace("'", "").isdigit()):
        return []
    prefix, digits, suffix = parts[1] or "", parts[2].replace("'", ""), parts[3]
    value = int(digits, 16 if prefix else 10)
    written = "{}{:X}{}" if prefix else "{}{:d}{}"
    return [written.format(prefix, other, suffix) for other in (value + 1, value - 1) if other >= 0]


def condition_sites(source, tokens, index, closing):
    """The negation of what an `if` or `while` asks, but where it declares something, or is one comparison or "not"."""
    if tokens[index].text not in {"if", "while"} or index + 1 not in closing:
        return []
    asked = [token.text for token in tokens[index + 2:closing[index + 1]]]
    is_declaration = asked[0] in {"const", "auto"} or ";" in asked
    is_negated_elsewhere = not {"&&", "||"} & set(asked) and ("!" in asked[:1] or COMPARISONS & set(asked))
    if is_declaration or is_negated_elsewhere:
        return []
    start, end = tokens[index + 1].start, tokens[closing[index + 1]].end
    return [Site(start, end, ("(!" + source[start:end] + ")",))]


def statement_sites(source, tokens, index, closing, inside):
    """A statement that may be left out: a call, an assignment, a step, a jump. Declarations are needed to compile."""
    if not begins_statement(tokens, index, closing, inside) or not may_be_left_out(tokens, index, closing, inside):
        return []
    first = tokens[index]
    end = index
    while end < len(tokens) and tokens[end].text != ";":
        if tokens[end].text in CLOSE:
            return []
        end = closing.get(end, end) + 1
    if end == len(tokens):
        return []
    removed = source[first.start:tokens[end].end]
    return [Site(first.start, tokens[end].end, ("{}" + "\n" * removed.count("\n"),))]


def begins_statement(tokens, index, closing, inside):
    """Is it in a block, behind another statement, a bracket of one, or the condition that it hangs on?"""
    if inside[index] is None or tokens[inside[index]].text != "{" or tokens[index].text in CHECKS:
        return False
    before = text_at(tokens, index - 1)
    if before in {";", "{", "}", "else", "do"}:
        return True
    if before == ":":
        return any(tokens[at].text in {"case", "default"} for at in range(max(0, index - 6), index))
    return ends_condition(tokens, index - 1, closing)


def may_be_left_out(tokens, index, closing, inside):
    first, behind = tokens[index], index + 1
    if first.text == "return" and text_at(tokens, behind) != ";":  # the last one of a procedure is needed
        return text_at(tokens, index - 1) == "else" or any(
            ends_condition(tokens, at, closing) for at in (index - 1, inside[index] - 1))
    if first.text in KEYWORDS:
        return first.text in {"return", "break", "continue"}
    while text_at(tokens, behind) == "::":
        behind += 2
    return first.text in {"++", "--", "*"} or first.kind == "name" and text_at(tokens, behind) in STATEMENT_SIGNS


def ends_condition(tokens, index, closing):
    """Is this the bracket behind what an `if` or a loop asks?"""
    opening = next((at for at in range(index - 1, -1, -1) if closing.get(at) == index), 0)
    return text_at(tokens, opening - 1) in {"if", "for", "while", "constexpr"}
