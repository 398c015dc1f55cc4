"""What the tests of the documentation need of Markdown: blocks of code, prose, headings and links."""
import dataclasses
import re


@dataclasses.dataclass
class Block:
    """Code between fences, or indented."""
    line: int  # of its first line of code, from 1
    language: str
    text: str
    before: str = ""  # the prose up to the heading or the block above
    after: str = ""  # and down to those below


class Page:
    """A page, in the order of its lines."""

    def __init__(self, text):
        self.blocks = []
        self.headings = []
        self.prose = []  # (line, text), without code
        self._between = ""
        self._above = None  # the block that the prose follows
        self._read(text.split("\n"))
        self._end_prose()

    def _read(self, lines):
        number = 0
        while number < len(lines):
            line = lines[number]
            fence = re.match(r"\s*(```+|~~~+)\s*(\w*)", line)
            is_indented = line.startswith("    ") and line.strip() and (number == 0 or not lines[number - 1].strip())
            if fence:
                end = next((i for i in range(number + 1, len(lines)) if lines[i].strip() == fence[1]), len(lines))
                self._add_block(number + 2, fence[2], lines[number + 1:end])
                number = end + 1
            elif is_indented:
                end = number
                while end < len(lines) and (lines[end].startswith("    ") or not lines[end].strip()):
                    end += 1
                self._add_block(number + 1, "", [code[4:] for code in lines[number:end]])
                number = end
            else:
                self._add_prose(number + 1, line)
                number += 1

    def _add_block(self, line, language, code):
        before = self._between
        self._end_prose()
        self._above = Block(line, language, "\n".join(code).rstrip("\n"), before)
        self.blocks.append(self._above)

    def _add_prose(self, number, line):
        heading = re.match(r"#{1,6}\s+(.*?)\s*#*$", line)
        if heading:
            self._end_prose()
            self._above = None
            self.headings.append(heading[1])
        else:
            self._between += line + "\n"
        self.prose.append((number, line))

    def _end_prose(self):
        if self._above:
            self._above.after = self._between
        self._between = ""

    def anchors(self):
        """The anchors of the headings, as hosts of repositories make them."""
        known = {}
        for heading in self.headings:
            text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).replace("`", "")
            anchor = re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-")
            count = known.get(anchor, 0)
            known[anchor] = count + 1
            yield f"{anchor}-{count}" if count else anchor

    def links(self):
        """(line, target) of each link and picture; links may go on in the next line."""
        text = "\n".join(re.sub(r"`[^`]*`", lambda code: "x" * len(code[0]), line) for _, line in self.prose)
        numbers = [number for number, _ in self.prose]
        forms = r"\]\(\s*<?([^)>\s]+)>?[^)]*\)|^\[[^\]]+\]:\s*(\S+)|<(?:img|a)\s[^>]*(?:src|href)=\"([^\"]+)\""
        for match in re.finditer(forms, text, re.MULTILINE):
            yield numbers[text.count("\n", 0, match.start())], next(group for group in match.groups() if group)

    def code_spans(self):
        """(line, text) of what is between backticks in the prose; spans may go on in the next line."""
        text = "\n".join(line for _, line in self.prose)
        numbers = [number for number, _ in self.prose]
        for match in re.finditer(r"(?<!`)`([^`]+)`(?!`)", text):
            yield numbers[text.count("\n", 0, match.start())], match[1].replace("\n", " ").replace("\\|", "|")
