"""Recorded shortcuts as the settings file keeps them."""

import struct

CONTROL, OPTION = 0x40000, 0x80000
CODE_OF_F6, CODE_OF_F7, CODE_OF_M = 97, 98, 46


def stored_shortcut(key_code, modifier_flags):
    """A map of two numbers as the settings file keeps it, each byte escaped."""
    def text(value):
        encoded = value.encode("utf-16-be")
        return struct.pack(">I", len(encoded)) + encoded

    def number(value):
        return struct.pack(">Ii", 2, value)

    stream = struct.pack(">II", 8, 2) + text("modifierFlags") + number(modifier_flags) + text("keyCode") + number(key_code)
    return "@Variant(" + "".join(f"\\x{byte:x}" for byte in stream) + ")"
