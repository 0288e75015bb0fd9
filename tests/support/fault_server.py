"""Runs of one command in which a call fails. The program is loaded once, with the library that
faults/fault_preload.cpp makes; each run is forked from there, before the program begins."""

import os
import select
import signal
import socket
import subprocess
import sys
import time


class FaultServer:
    """`command` with this environment, in the current folder and without input."""

    def __init__(self, command, preload, environment):
        self.command = command
        self.socket, theirs = socket.socketpair(socket.AF_UNIX, socket.SOCK_SEQPACKET)
        with theirs:
            self.process = subprocess.Popen(  # pylint: disable=consider-using-with
                command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, pass_fds=[theirs.fileno()],
                env={**environment, 'LD_PRELOAD': preload, 'FAULT_SERVER': str(theirs.fileno())})

    def run(self, fault, error, report, time_limit):
        """The number of the run's first process, and how it went. `report` is there afterwards if the fault
        was reached."""
        out, err = os.pipe(), os.pipe()
        request = b'\0'.join(text.encode() for text in (fault, str(error), report))
        socket.send_fds(self.socket, [request], [out[1], err[1]])
        os.close(out[1])
        os.close(err[1])
        self.socket.settimeout(time_limit)
        leader = self.answer()
        try:
            printed = read_to_end([out[0], err[0]], time_limit)
            status = self.answer()
        except TimeoutError as late:
            os.killpg(leader, signal.SIGKILL)
            self.answer()
            raise subprocess.TimeoutExpired(self.command, time_limit) from late
        finally:
            os.close(out[0])
            os.close(err[0])
        return leader, subprocess.CompletedProcess(self.command, os.waitstatus_to_exitcode(status), *printed)

    def answer(self):
        number = self.socket.recv(4)
        if len(number) != 4:
            raise RuntimeError(f'{self.command}: no runs can be forked')
        return int.from_bytes(number, sys.byteorder)

    def close(self):
        self.socket.close()
        self.process.wait()


def read_to_end(descriptors, time_limit):
    texts = {descriptor: [] for descriptor in descriptors}
    waiting = select.poll()
    for descriptor in descriptors:
        waiting.register(descriptor, select.POLLIN)
    left, deadline = len(descriptors), time.monotonic() + time_limit
    while left:
        ready = waiting.poll(max(deadline - time.monotonic(), 0) * 1000)
        if not ready:
            raise TimeoutError
        for descriptor, _ in ready:
            text = os.read(descriptor, 1 << 16)
            texts[descriptor].append(text)
            if not text:
                waiting.unregister(descriptor)
                left -= 1
    return [b''.join(texts[descriptor]) for descriptor in descriptors]
