"""Meets the windows of a process as assistive programs do.

accessible_tree.py PID                    prints the controls, one a line: its role, a tab and its
                                          name. Windows are among them. Text that is typed or read
                                          follows as a line of its own, behind "says".
accessible_tree.py PID WINDOW NAME        presses a button or tab of the window with that title.
accessible_tree.py PID WINDOW NAME TEXT   replaces the text of one of its boxes.
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


def windows(pid):
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        if application is not None and application.get_process_id() == pid:
            for child in range(application.get_child_count()):
                yield application.get_child_at_index(child)


def find(node, name, roles):
    """The control of that name that is seen, or None."""
    if node is None:
        return None
    seen = node.get_state_set().contains(Atspi.StateType.SHOWING)
    if seen and node.get_name() == name and node.get_role_name() in roles:
        return node
    children = (node.get_child_at_index(index) for index in range(node.get_child_count()))
    return next((found for child in children if (found := find(child, name, roles))), None)


def find_in_window(pid, title, name, roles):
    for window in windows(pid):
        if window.get_name() == title and (found := find(window, name, roles)):
            return found
    sys.exit(f"no {name} in {title}")


def press(button):
    """Has no effect on a disabled one."""
    if button.get_state_set().contains(Atspi.StateType.SENSITIVE):
        Atspi.Action.do_action(button, 0)


def fill(box, text):
    """Half at once and half at the end, which are different requests."""
    half = len(text) // 2
    Atspi.EditableText.set_text_contents(box, text[:half])
    Atspi.EditableText.insert_text(box, half, text[half:], len(text[half:].encode()))


if len(sys.argv) == 2:
    for window in windows(int(sys.argv[1])):
        walk(window, is_window=True)
elif len(sys.argv) == 4:
    press(find_in_window(int(sys.argv[1]), *sys.argv[2:4], ("push button", "page tab")))
else:
    fill(find_in_window(int(sys.argv[1]), *sys.argv[2:4], ("text", "password text")), sys.argv[4])
