"""The order in which the measures of a score are played: repeats, endings, and jumps."""

from __future__ import annotations

import bisect
import dataclasses
from typing import List, Set, Tuple

from .model import Song

MOST_MEASURES = 100_000


@dataclasses.dataclass
class Signs:
    """The signs in a measure that decide the order of playing."""

    opens: bool = False  # a repeat begins here
    closes: int = 0  # how many times the repeated section is played
    ending: Tuple[int, ...] = ()  # in which turns the measure is played
    segno: bool = False
    coda: bool = False
    jump: str = ""  # "capo" or "segno", after the measure
    to_coda: bool = False
    fine: bool = False


def order_of(measures: List[Signs], song: Song) -> List[Tuple[int, int]]:
    """The indexes of the measures in the order of playing, each with its turn."""
    player = Player(measures)
    while player.at < len(measures) and len(player.played) < MOST_MEASURES:
        player.step()
    if len(player.played) >= MOST_MEASURES:
        song.lose(f"measures after the first {MOST_MEASURES} as they are played")
    return player.played


def last_endings(measures: List[Signs]) -> List[bool]:
    """For each measure, whether no other ending follows it directly."""
    found = [True] * len(measures)
    for place in range(len(measures) - 2, -1, -1):
        behind = measures[place + 1].ending
        found[place] = not behind or (behind == measures[place].ending and found[place + 1])
    return found


class Player:
    def __init__(self, measures: List[Signs]) -> None:
        self.measures = measures
        self.is_last_ending = last_endings(measures)
        self.codas = [place for place, signs in enumerate(measures) if signs.coda]
        self.played: List[Tuple[int, int]] = []
        self.at = self.opened = 0
        self.turn = 1
        self.jumped: Set[int] = set()
        self.closed: Set[int] = set()
        self.after_jump = False

    def step(self) -> None:
        signs = self.measures[self.at]
        if signs.opens and self.opened != self.at:
            self.opened, self.turn = self.at, 1
        if signs.ending and not self.takes_ending(signs):
            self.at += 1
            return
        self.played.append((self.at, self.turn))
        self.go_on(signs)

    def takes_ending(self, signs: Signs) -> bool:
        """After a jump, repeats are not played again, and the last ending is taken."""
        if self.after_jump:
            return self.is_last_ending[self.at]
        return self.turn in signs.ending

    def go_on(self, signs: Signs) -> None:
        here = self.at
        if signs.closes and here not in self.closed and not self.after_jump:
            if self.turn < signs.closes:
                self.turn += 1
                self.at = self.opened
                return
            self.closed.add(here)
            self.leave(here)
        if self.after_jump and signs.fine:
            self.at = len(self.measures)
        elif self.after_jump and signs.to_coda and self.coda_behind() is not None:
            self.at = self.coda_behind() or 0
        elif signs.jump and here not in self.jumped:
            self.jumped.add(here)
            self.jump(signs.jump)
        else:
            self.at = here + 1
            if signs.ending and self.at < len(self.measures) and not self.measures[self.at].ending:
                self.leave(here)

    def leave(self, here: int) -> None:
        """After a repeat the turns start again at 1, except for the endings that still belong to
        it."""
        behind = self.measures[here + 1] if here + 1 < len(self.measures) else Signs()
        if not behind.ending:
            self.opened, self.turn = here + 1, 1

    def coda_behind(self) -> "int | None":
        behind = bisect.bisect_right(self.codas, self.at)
        return self.codas[behind] if behind < len(self.codas) else None

    def jump(self, target: str) -> None:
        self.after_jump = True
        places = [place for place, signs in enumerate(self.measures) if signs.segno]
        self.at = places[0] if target == "segno" and places else 0
        self.opened, self.turn = self.at, 1
