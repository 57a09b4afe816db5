"""The folders of the house and their order, as cmake/folders.txt has them."""

from pathlib import Path

FOLDERS_FILE = Path(__file__).resolve().parent.parent / "cmake" / "folders.txt"


class House:
    """Which folder a file is in, and which folders may use which."""

    def __init__(self, text):
        lines = [line.split() for line in text.splitlines()]
        lines = [words for words in lines if words and not words[0].startswith("#")]
        self.order = [words[0] for words in lines]
        self._rank = {folder: at for at, folder in enumerate(self.order)}
        self._with_qt = {words[0] for words in lines if "Qt" in words[1:]}

    def folder_of(self, path):
        """The folder of the list that a file is in; None for tests, tools, programs."""
        while "/" in path:
            path = path.rpartition("/")[0]
            if path in self._rank:
                return path
        return None

    def has_qt(self, folder):
        return folder in self._with_qt

    def fault_of_arrow(self, own, included):
        """Why a file of the folder may not include that path; None when it may."""
        other = self.folder_of(included)
        if other is None:
            if "/" not in included:  # made from a form
                return None
            return f"{included} lies in no folder of the house"
        if self._rank[other] > self._rank[own]:
            return f"{own} stands below {other} and may not use it; see cmake/folders.txt"
        if other == "tool" and own != "tool":
            return "tool is a top of its own: nothing stands on it"
        return None


HOUSE = House(FOLDERS_FILE.read_text(encoding="utf-8"))
