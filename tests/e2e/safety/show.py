"""A show as it looks from outside: which states the commands lead to that were sent, which of these states the program
has told of, and where its clock stands in each of them."""

import time
from dataclasses import dataclass, field, replace
from itertools import pairwise

from surface import ClockBounds


def name_of(title):
    """What a chapter was called before its title was edited."""
    return title.split(" ")[0]


@dataclass
class State:
    """What one command leads to. Moments are seconds since 1970."""

    titles: tuple = ()
    is_recording: bool = False
    new_title: str = None  #: Of the chapter that the command made.
    selected: str = None  #: Title of the selected row, where it is known.
    is_edit: bool = False
    sent: float = field(default_factory=time.time)
    confirmed: float = None


@dataclass
class Clock:
    """Where the clock stands. The moment since when it is paused is a pair of not before and not after."""

    zero: ClockBounds
    stopped: tuple = None
    error: float = 0.0

    @staticmethod
    def of_new_show():
        return Clock(ClockBounds(0.0, 0.0), (0.0, 0.0))

    def stop(self, moment):
        self.stopped = moment

    def go_on(self, moment):
        self.zero = self.zero.after_pause(self.stopped, moment)
        self.stopped = None

    def see_reading(self, reading, moment):
        self.zero.see_reading(reading, *moment)
        self.error = max(self.error, self.zero.contradiction())


class Show:
    """The states since the program was started, one after the other; each chapter takes the next template's title."""

    def __init__(self, templates, first=None):
        self.templates = list(templates)
        self.states = [first or State()]
        self.acknowledged = 0

    @property
    def unanswered(self):
        return len(self.states) - 1 - self.acknowledged

    def note_press(self, action):
        """A press of a button is about to be sent."""
        last = self.states[-1]
        if action == "newChapter" or (action == "toggleRecording" and not last.titles and len(self.states) == 1):
            title = self.templates.pop(0)  # The start of a recording makes the first chapter.
            self.states.append(State((*last.titles, title), True, new_title=title, selected=title))
        elif action == "removeLastChapter":
            self.states.append(State(last.titles[:-1], last.is_recording))
        else:
            self.states.append(State(last.titles, not last.is_recording, selected=last.selected))

    def note_edit(self, old_title, new_title):
        """The title of the selected row is about to be changed, or that is to be undone."""
        last = self.states[-1]
        titles = tuple(new_title if title == old_title else title for title in last.titles)
        self.states.append(State(titles, last.is_recording, selected=new_title, is_edit=True))

    def note_told(self, told):
        """The earliest state that was told of is taken, so that nothing counts as acknowledged which may not be."""
        index = self.index_of(told)
        for state in self.states[self.acknowledged + 1:index + 1]:
            state.confirmed = time.time()
        self.acknowledged = max(index, self.acknowledged)

    def index_of(self, told):
        if self.states[-1].is_edit and self.states[-1].selected == told.selected_title:
            return len(self.states) - 1  # It is sent only when everything before it was acknowledged.
        for index in range(self.acknowledged, len(self.states)):
            state = self.states[index]
            last_title = state.titles[-1] if state.titles else ""
            if (state.is_recording, last_title) == (told.is_recording, told.last_title):
                return index
        return -1

    # After a kill.

    def possible_states(self):
        """Nothing acknowledged may be missing; the rest may be there or not."""
        return self.states[self.acknowledged:]

    def indices_of(self, titles, is_recording):
        """Which states can be the one with these titles."""
        return [index for index in range(self.acknowledged, len(self.states))
                if (self.states[index].titles, self.states[index].is_recording) == (tuple(titles), is_recording)]

    def clock_in(self, index, clock, stamps, now):
        """The clock in this state, when `clock` is that of the first one. `stamps` are by the chapters' first names."""
        clock = replace(clock, zero=replace(clock.zero))
        for before, state in pairwise(self.states[:index + 1]):
            moment = (state.sent, state.confirmed or now)
            if before.is_recording and not state.is_recording:
                clock.stop(moment)
            elif state.is_recording and not before.is_recording:
                clock.go_on(moment)
            if state.new_title in stamps:
                clock.see_reading(stamps[state.new_title], moment)
        return clock


class Hands:
    """Works on a show at random: marks, removals, pauses at speed, and titles that are typed in between."""

    MOST_UNANSWERED = 12
    LEAST_TEMPLATES = 50

    def __init__(self, surface, chance):
        self.surface = surface
        self.chance = chance
        self.edits = 0

    def read(self, show, seconds=0.0):
        for told in self.surface.states(seconds):
            show.note_told(told)

    def press(self, show, program, action):
        show.note_press(action)
        self.surface.send(program.port, action)

    def work(self, show, program):
        """Until the program is gone or the templates are used up. Few commands are under way at a time, so that none is
        lost on the way."""
        while program.is_alive() and len(show.templates) > self.LEAST_TEMPLATES:
            if self.chance.random() < program.EDITS_A_PRESS:
                self.edit(show, program)
            elif show.unanswered < self.MOST_UNANSWERED:
                self.press(show, program, self.next_press(show.states[-1]))
                self.read(show)
            else:
                self.read(show, 0.01)

    def next_press(self, state):
        wanted = self.chance.random()
        if state.titles and wanted < 0.15:
            return "removeLastChapter"
        if not state.is_recording or wanted < 0.25:
            return "toggleRecording"
        return "newChapter"

    def wait_for(self, condition, show, program, what, seconds=20.0):
        """False when the program died meanwhile."""
        deadline = time.monotonic() + seconds
        while True:
            is_alive = program.is_alive()  # Before the last look.
            self.read(show, 0.01)
            if condition():
                return True
            if not is_alive:
                return False
            assert time.monotonic() < deadline, f"waited in vain for {what} to be acknowledged"

    def wait_until_told(self, show, program):
        return self.wait_for(lambda: show.unanswered == 0, show, program, show.states[-1])

    def edit(self, show, program):
        """Types another title for the selected chapter or the one before it, and undoes that now and then."""
        old_title = show.states[-1].selected
        if not old_title or not self.wait_until_told(show, program) or not self.select(old_title, show, program):
            return
        row = show.states[-1].titles.index(old_title)
        if row > 0 and self.chance.random() < 0.5:
            old_title = show.states[-1].titles[row - 1]
            self.surface.send(program.port, "selectPreviousChapter")
            if not self.select(old_title, show, program):
                return
        self.edits += 1
        self.edit_title(show, program, old_title, f"{name_of(old_title)} edit {self.edits}")

    def select(self, title, show, program):
        """Waits until it is said that the chapter is selected."""
        return self.wait_for(lambda: self.surface.told.selected_title == title, show, program, f"the selection of {title}")

    def edit_title(self, show, program, old_title, new_title):
        """Each step waits for the one before, as keyboard and control surface do not keep an order between them."""
        steps = [(lambda: program.edit_title(new_title), old_title, new_title)]
        if program.CAN_UNDO and self.chance.random() < 0.5:
            steps += [(program.undo, new_title, old_title), (program.redo, old_title, new_title)]
        for command, before, after in steps:
            show.note_edit(before, after)
            command()
            if not self.wait_until_told(show, program):
                return
