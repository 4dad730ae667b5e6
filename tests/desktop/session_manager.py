# SPDX-License-Identifier: MIT
"""A small session manager of the X kind, which ends a session as desktops do: it asks every program
to save itself, and when all have done so tells them to die.

    with SessionManager() as manager:
        client = desktop.start_client(environment={"SESSION_MANAGER": manager.address})
        ...
        manager.end_session()
"""

import ctypes
import queue
import select
import threading
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

ACCEPTED = 1  # of a connection
SAVE_BOTH, INTERACT_NONE = 2, 0
STEP = 0.05  # seconds between two looks at what there is to do

HOST_IS_TRUSTED = CFUNCTYPE(c_int, c_char_p)
IO_ERROR = CFUNCTYPE(None, c_void_p)


class PropertyValue(ctypes.Structure):
    _fields_ = [("length", c_int), ("value", c_void_p)]


class Property(ctypes.Structure):
    _fields_ = [("name", c_char_p), ("type", c_char_p), ("count", c_int),
                ("values", POINTER(PropertyValue))]


# What a program may say, in the library's order.
CALLBACKS = (
    ("register_client", CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)),
    ("interact_request", CFUNCTYPE(None, c_void_p, c_void_p, c_int)),
    ("interact_done", CFUNCTYPE(None, c_void_p, c_void_p, c_int)),
    ("save_request", CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_int, c_int, c_int, c_int)),
    ("second_phase_request", CFUNCTYPE(None, c_void_p, c_void_p)),
    ("save_done", CFUNCTYPE(None, c_void_p, c_void_p, c_int)),
    ("close_connection", CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)),
    ("set_properties", CFUNCTYPE(None, c_void_p, c_void_p, c_int, POINTER(POINTER(Property)))),
    ("delete_properties", CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)),
    ("get_properties", CFUNCTYPE(None, c_void_p, c_void_p)),
)


class Callbacks(ctypes.Structure):
    _fields_ = [field for name, kind in CALLBACKS
                for field in ((name, kind), (f"{name}_data", c_void_p))]


NEW_CLIENT = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(Callbacks),
                       POINTER(c_char_p))


class SessionManager:
    """Serves programs in a thread of its own."""

    def __init__(self):
        self.properties = {}  # what the last program has said of itself
        self.ready = set()  # the programs that have joined the session
        self._requests = queue.SimpleQueue()
        self._is_ending = False
        self._load_libraries()
        self._kept = [NEW_CLIENT(self._new_client), HOST_IS_TRUSTED(lambda _: 1),
                      IO_ERROR(lambda _: None)]
        self._callbacks = {name: kind(getattr(self, f"_{name}", lambda *_: 1))
                           for name, kind in CALLBACKS}
        self._thread = threading.Thread(target=self._serve, daemon=True)

    def _load_libraries(self):
        self._ice, self._sm = ctypes.CDLL("libICE.so.6"), ctypes.CDLL("libSM.so.6")
        self._ice.IceAcceptConnection.restype = c_void_p
        self._ice.IceComposeNetworkIdList.restype = c_void_p
        self._sm.SmsGenerateClientID.restype = c_void_p

    def __enter__(self):
        trusts, on_error = self._kept[1], self._kept[2]
        text = ctypes.create_string_buffer(256)
        self._ice.IceSetIOErrorHandler(on_error)
        if not self._sm.SmsInitialize(b"test", b"1", self._kept[0], None, trusts, 256, text):
            raise RuntimeError(text.value)
        count, listeners = c_int(), POINTER(c_void_p)()
        if not self._ice.IceListenForConnections(byref(count), byref(listeners), 256, text):
            raise RuntimeError(text.value)
        self._listeners = [c_void_p(listeners[i]) for i in range(count.value)]
        for listener in self._listeners:
            self._ice.IceSetHostBasedAuthProc(listener, trusts)
        self.address = ctypes.string_at(
            self._ice.IceComposeNetworkIdList(count, listeners)).decode()
        self._listener_array = count, listeners
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._requests.put(None)
        self._thread.join(5.0)
        self._ice.IceFreeListenObjs(*self._listener_array)

    def end_session(self):
        """Asks every program to save itself, and then to die."""
        self._requests.put(self._ask_to_save)

    # In the thread

    def _serve(self):
        connections = {}
        listeners = {self._ice.IceGetListenConnectionNumber(one): one for one in self._listeners}
        while True:
            ready, _, _ = select.select([*listeners, *connections], [], [], STEP)
            for descriptor in ready:
                if descriptor in listeners:
                    self._accept(listeners[descriptor], connections)
                elif self._ice.IceProcessMessages(connections[descriptor], None, None) != 0:
                    del connections[descriptor]
            while not self._requests.empty():
                request = self._requests.get()
                if request is None:
                    return
                request()

    def _accept(self, listener, connections):
        status = c_int()
        connection = c_void_p(self._ice.IceAcceptConnection(listener, byref(status)))
        if connection:
            connections[self._ice.IceConnectionNumber(connection)] = connection

    def _ask_to_save(self):
        self._is_ending = True
        for program in self.ready:
            self._sm.SmsSaveYourself(c_void_p(program), SAVE_BOTH, 1, INTERACT_NONE, 0)

    # What programs say

    def _new_client(self, _program, _data, mask, callbacks, _reason):
        mask[0] = (1 << len(CALLBACKS)) - 1
        for name, callback in self._callbacks.items():
            setattr(callbacks[0], name, callback)
        return 1

    def _register_client(self, program, _data, _previous):
        program = c_void_p(program)
        name = c_void_p(self._sm.SmsGenerateClientID(program))
        self._sm.SmsRegisterClientReply(program, name)
        self._sm.SmsSaveYourself(program, SAVE_BOTH, 0, INTERACT_NONE, 0)  # as for each new one
        return 1

    def _set_properties(self, _program, _data, count, properties):
        for i in range(count):
            one = properties[i][0]
            value = one.values[0]
            self.properties[one.name.decode()] = ctypes.string_at(value.value, value.length)

    def _save_done(self, program, _data, _success):
        if self._is_ending:
            self._sm.SmsDie(c_void_p(program))
        else:
            self._sm.SmsSaveComplete(c_void_p(program))
            self.ready.add(program)

    def _close_connection(self, program, _data, _count, _reasons):
        self.ready.discard(program)
