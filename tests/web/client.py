"""HTTP requests byte by byte: what a library would repair or refuse is sent and seen as it is."""
import socket
import struct
from typing import NamedTuple

TIMEOUT = 60


class Response(NamedTuple):
    status: int
    headers: list  # (name as it came, value)
    body: bytes

    def header(self, name):
        return ", ".join(value for other, value in self.headers if other.lower() == name.lower())


def connect(port, receive_buffer=None):
    connection = socket.socket()
    if receive_buffer is not None:
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, receive_buffer)
    connection.settimeout(TIMEOUT)
    connection.connect(("127.0.0.1", port))
    return connection


def send(connection, target, method="GET", headers=()):
    lines = [f"{method} {target} HTTP/1.1", "Host: guide.example.org", "Connection: close",
             *(f"{name}: {value}" for name, value in headers), "", ""]
    connection.sendall("\r\n".join(lines).encode("latin-1"))


def receive(connection, begun=b""):
    parts = [begun]
    while part := connection.recv(1 << 16):
        parts.append(part)
    return b"".join(parts)


def abort(connection):
    """Closes with a reset, as a client that goes away."""
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    connection.close()


def join_chunks(text):
    parts, begin = [], 0
    while True:
        end_of_size = text.index(b"\r\n", begin)
        length = int(text[begin:end_of_size], 16)
        if length == 0:
            return b"".join(parts)
        begin = end_of_size + 2
        parts.append(text[begin:begin + length])
        begin += length + 2


def parse(text):
    head, _, body = text.partition(b"\r\n\r\n")
    status, *lines = head.decode("latin-1").split("\r\n")
    headers = [tuple(line.split(": ", 1)) for line in lines]
    response = Response(int(status.split()[1]), headers, body)
    if response.header("Transfer-Encoding") == "chunked" and body:
        return response._replace(body=join_chunks(body))
    return response


def fetch(port, target, method="GET", headers=()):
    with connect(port) as connection:
        send(connection, target, method, headers)
        return parse(receive(connection))
