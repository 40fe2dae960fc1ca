"""The program as a screen reader sees it. To be imported after a `Desktop` was entered."""

import pyatspi

from desktop import wait_until


def application(name="zelta"):
    def find():
        for child in pyatspi.Registry.getDesktop(0):
            if child is not None and child.name == name:
                return child
        return None

    return wait_until(find, f"the program {name} on the accessibility bus")


def role_of(node):
    """The role's name. Newer accessibility buses call a push button a button."""
    name = node.getRoleName()
    return "push button" if name == "button" else name


def everything_below(node, roles_to_pass_by=()):
    """The node and all that stands below it, but for nodes of these roles and what stands below them."""
    try:
        if role_of(node) in roles_to_pass_by:
            return
    except Exception:  # The node went away.
        return
    yield node
    try:
        children = [node.getChildAtIndex(i) for i in range(min(node.childCount, 500))]
    except Exception:  # The node went away while it was read.
        return
    for child in children:
        if child is not None:
            yield from everything_below(child, roles_to_pass_by)


def find_all(root, role=None, name=None):
    found = []
    for node in everything_below(root):
        try:
            if (role is None or role_of(node) == role) and (name is None or node.name == name):
                found.append(node)
        except Exception:  # Gone meanwhile.
            continue
    return found


def find(root, role=None, name=None):
    """The first such node; waits for it to appear."""
    return wait_until(lambda: (find_all(root, role, name) or [None])[0], f"a {role or 'node'} named {name}")


def find_described(root, description):
    """The first node with this description; waits for it to appear."""
    def look():
        for node in everything_below(root):
            if node.description == description:
                return node
        return None

    return wait_until(look, f"a node described as {description}")


def press(node):
    action = node.queryAction()
    for i in range(action.nActions):
        if action.getName(i).lower() in ("press", "click", "toggle"):
            action.doAction(i)
            return
    raise AssertionError(f"{node.name} has nothing to press")


def center(node):
    extents = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return extents.x + extents.width / 2, extents.y + extents.height / 2


def is_showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def is_active(node):
    return node.getState().contains(pyatspi.STATE_ACTIVE)


def is_focused(node):
    return node.getState().contains(pyatspi.STATE_FOCUSED)


def is_enabled(node):
    return node.getState().contains(pyatspi.STATE_ENABLED)


def table_texts(table):
    """What the table shows, a list of texts a row."""
    interface = table.queryTable()
    # A cell may go away while the table is read.
    return [
        [getattr(interface.getAccessibleAt(row, column), "name", "") for column in range(interface.nColumns)]
        for row in range(interface.nRows)
    ]
