#!/usr/bin/env python3
"""Stands in for the product's web host in the update check tests.

    version-server.py MODE FOLDER

Listens on 127.0.0.1 at a free port, writes the port number to FOLDER/port
and the first request it gets to FOLDER/request, and answers every request
for the version page according to MODE:
    a file path   200 with that file of the source tree
    same          200 with a page naming version 1.0.0
    malformed     200 with an HTML page naming no version
    empty         200 with an empty page
    binary        200 with 4 KB of bytes 0 to 255
    big           200 with 10 MB of text
    silent        accepts connections and never answers
Ends when FOLDER/stop appears, or after 120 seconds.
"""
import os
import socket
import sys
import threading
import time

mode, folder = sys.argv[1], sys.argv[2]

if mode == "same":
    body = b"<html><body><pre>\nRoamwise-Version: 1.0.0\n</pre></body></html>\n"
elif mode == "malformed":
    body = b"<html><body>Roamwise, the latest news</body></html>\n"
elif mode == "empty":
    body = b""
elif mode == "binary":
    body = bytes(range(256)) * 16
elif mode == "big":
    body = b"Roamwise-Notes: padding padding padding padding padding padding\n" * 160000
elif mode != "silent":  # a file of the source tree
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")
    with open(os.path.join(root, mode), "rb") as page:
        body = page.read()


def answer(connection):
    with connection:
        request = b""
        connection.settimeout(10)
        try:
            while b"\r\n\r\n" not in request:
                chunk = connection.recv(4096)
                if not chunk:
                    return
                request += chunk
            if not os.path.exists(os.path.join(folder, "request")):
                with open(os.path.join(folder, "request"), "wb") as out:
                    out.write(request)
            head = b"HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n"
            head += b"Content-Length: %d\r\n\r\n" % len(body)
            connection.sendall(head + body)
        except OSError:
            pass


listener = socket.socket(socket.AF_INET, socket.SOCK_STREAM)
listener.bind(("127.0.0.1", 0))
listener.listen(5)
listener.settimeout(0.2)
with open(os.path.join(folder, "port.tmp"), "w") as out:
    out.write(str(listener.getsockname()[1]))
os.replace(os.path.join(folder, "port.tmp"), os.path.join(folder, "port"))

end = time.time() + 120
while time.time() < end and not os.path.exists(os.path.join(folder, "stop")):
    if mode == "silent":
        time.sleep(0.2)  # connections wait in the backlog, unanswered
        continue
    try:
        connection, _ = listener.accept()
    except socket.timeout:
        continue
    threading.Thread(target=answer, args=(connection,), daemon=True).start()
