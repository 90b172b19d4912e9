"""Prints the controls of a process as assistive programs meet them: one a line, its role, a tab and
its name; windows are among them. Text that is typed or read follows as a line of its own, behind
"says".

accessible_tree.py PID
"""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi

# What a user works with, even where the keyboard's focus cannot be.
CONTROLS = {
    "check box",
    "combo box",
    "menu bar",
    "menu item",
    "page tab",
    "page tab list",
    "popup menu",
    "push button",
    "table column header",
    "text",
    "tree",
}


def walk(node, is_window=False):
    if node is None:  # it went meanwhile
        return
    role = node.get_role_name()
    states = node.get_state_set()
    showing = states.contains(Atspi.StateType.SHOWING)
    scrolls = role == "scroll bar" and showing
    if is_window or role in CONTROLS or scrolls or states.contains(Atspi.StateType.FOCUSABLE):
        print(role, node.get_name(), sep="\t")
    if role == "text" and showing:
        size = Atspi.Text.get_character_count(node)
        for line in Atspi.Text.get_text(node, 0, min(size, 1000)).splitlines():
            print("says", line, sep="\t")
    for index in range(node.get_child_count()):
        walk(node.get_child_at_index(index))


desktop = Atspi.get_desktop(0)
for index in range(desktop.get_child_count()):
    application = desktop.get_child_at_index(index)
    if application is not None and application.get_process_id() == int(sys.argv[1]):
        for child in range(application.get_child_count()):
            walk(application.get_child_at_index(child), is_window=True)
