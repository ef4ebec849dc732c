"""Reads the documents: their marked blocks, their commands, and the code within their text."""

import re
from typing import NamedTuple

LANGUAGES = ("sh", "yaml", "text", "cmake", "cpp", "xml", "json")


class Block(NamedTuple):
    language: str
    line: int  # of its first line of text
    lines: list
    file: str  # the file that it shows: the line before it is "`FILE`:"
    section: int  # counts the headings before it

    def text(self):
        return "\n".join(self.lines) + "\n"


class Inline(NamedTuple):
    line: int
    text: str


class Problem(Exception):
    """Something wrong at a line of the document."""

    def __init__(self, line, what):
        super().__init__(what)
        self.line = line


def markdown_blocks(text):
    """The fenced blocks of a Markdown document. Nothing else may look like one."""
    blocks = []
    open_block = None
    said = ""  # the last line of text
    previous = ""
    section = 0
    for number, line in enumerate(text.splitlines(), 1):
        if line.startswith("```") and open_block:
            open_block = None
        elif line.startswith("```"):
            language = line[3:].strip()
            if language not in LANGUAGES:
                raise Problem(number, "a block is marked with one of " + ", ".join(LANGUAGES))
            file = re.fullmatch(r"`([^` ]+)`:", said)
            open_block = Block(language, number + 1, [], file.group(1) if file else "", section)
            blocks.append(open_block)
        elif open_block:
            open_block.lines.append(line)
        elif line.startswith("    ") and not previous:
            raise Problem(number, "an indented block: fence it, and say what it is")
        elif line.startswith("## "):
            section += 1
        said = line or said
        previous = line
    if open_block:
        raise Problem(open_block.line, "a block without an end")
    return blocks


def markdown_inline(text):
    """The code within the text, and headings that name a command."""
    lines = text.splitlines()
    fenced = False
    for number, line in enumerate(lines, 1):
        fenced = fenced != line.startswith("```")
        if not fenced:
            yield from (Inline(number, code) for code in re.findall(r"`([^`]+)`", line))
            heading = re.fullmatch(r"#+ (vellora .*)", line)
            if heading:
                yield Inline(number, heading.group(1))


def man_blocks(text):
    """The examples of a man page, as one block."""
    lines = text.splitlines()
    if ".SH EXAMPLES" not in lines:
        return []
    first = lines.index(".nf", lines.index(".SH EXAMPLES")) + 1
    examples = lines[first:lines.index(".fi", first)]
    return [Block("sh", first + 1, [line.replace("\\-", "-") for line in examples], "", 0)]


def commands(block):
    """The commands of a block, each with its line. A line that ends with a backslash goes on."""
    command = ""
    for number, line in enumerate(block.lines, block.line):
        if not command:
            first = number
        command += line
        if line.endswith("\\"):
            command += "\n"
        elif command.strip() and not command.startswith("#"):
            yield first, command
            command = ""
        else:
            command = ""
