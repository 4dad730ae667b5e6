# SPDX-License-Identifier: MIT
"""One line of the report."""

import dataclasses


@dataclasses.dataclass
class Figure:
    name: str
    value: float
    unit: str
    goal: float | None = None  # at most; None: for information only
    detail: str = ""

    @property
    def verdict(self):
        if self.goal is None:
            return ""
        return "met" if self.value <= self.goal else "MISSED"

    def row(self):
        goal = "" if self.goal is None else f"<= {self.goal:g}"
        return f"{self.name:<52} {self.value:>9.2f} {self.unit:<3} {goal:>8}  {self.verdict:<7} {self.detail}"


def print_table(figures):
    print(f"{'figure':<52} {'value':>9} {'':<3} {'goal':>8}  {'verdict':<7} measured", flush=True)
    for figure in figures:
        print(figure.row(), flush=True)
