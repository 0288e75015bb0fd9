"""libmagic, by its C interface."""

import ctypes

MAGIC_NONE = 0
MAGIC_MIME_TYPE = 0x10
MAGIC_NO_CHECK_TEXT = 0x20000
MAGIC_NO_CHECK_ENCODING = 0x200000

LIBRARY = ctypes.CDLL("libmagic.so.1")
LIBRARY.magic_open.restype = ctypes.c_void_p
LIBRARY.magic_load.argtypes = [ctypes.c_void_p, ctypes.c_char_p]
LIBRARY.magic_load_buffers.argtypes = [ctypes.c_void_p, ctypes.POINTER(ctypes.c_void_p),
                                       ctypes.POINTER(ctypes.c_size_t), ctypes.c_size_t]
LIBRARY.magic_buffer.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_size_t]
LIBRARY.magic_buffer.restype = ctypes.c_char_p
LIBRARY.magic_getpath.argtypes = [ctypes.c_char_p, ctypes.c_int]
LIBRARY.magic_getpath.restype = ctypes.c_char_p


class Database:
    """What one database says of heads; libmagic's own unless the bytes of another are given."""

    def __init__(self, flags, compiled=None):
        self.magic = LIBRARY.magic_open(flags)
        if compiled is None:
            refused = LIBRARY.magic_load(self.magic, None)
        else:
            self.bytes = ctypes.create_string_buffer(compiled, len(compiled))
            address = ctypes.c_void_p(ctypes.addressof(self.bytes))
            size = ctypes.c_size_t(len(compiled))
            refused = LIBRARY.magic_load_buffers(self.magic, ctypes.byref(address),
                                                 ctypes.byref(size), 1)
        if refused:
            raise SystemExit("libmagic refuses a database")

    def ask(self, head):
        answer = LIBRARY.magic_buffer(self.magic, head, len(head))
        if answer is None:
            raise SystemExit(f"libmagic fails on {head[:64].hex(' ')}")
        return answer.decode("latin-1")


def path_of_own_database():
    """The file that libmagic's own database is read from."""
    return LIBRARY.magic_getpath(None, 0).decode().split(":")[-1] + ".mgc"
