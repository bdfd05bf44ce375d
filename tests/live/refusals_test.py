"""What the server of the live screen refuses, tried with plain sockets."""

import base64
import json
import os
import pathlib
import re
import socket
import struct
import subprocess
import unittest

from browser import PARLOR, PATIENCE, Phone, wait_until


# What is freed shall be given back at once where memory is watched.
os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"


class RefusalsTest(unittest.TestCase):
    def setUp(self):
        self.phone = Phone()
        self.addCleanup(lambda: self.phone.process.poll() is None and self.phone.end())

    def connect(self):
        connection = socket.create_connection(("127.0.0.1", self.phone.port), timeout=PATIENCE)
        self.addCleanup(connection.close)
        return connection

    def host(self):
        return f"127.0.0.1:{self.phone.port}"

    def ask(self, target, method="GET", body=b"", **headers):
        """(status, head, body) of the answer; None when the connection was closed without one."""
        headers = {"Host": self.host(), "Connection": "close", "Content-Length": len(body), **headers}
        head = f"{method} {target} HTTP/1.1\r\n"
        head += "".join(f"{name.replace('_', '-')}: {value}\r\n" for name, value in headers.items() if value is not None)
        return self.send(head.encode() + b"\r\n" + body)

    def send(self, request):
        connection = self.connect()
        answer = b""
        try:
            connection.sendall(request)
            while chunk := connection.recv(65536):
                answer += chunk
        except ConnectionError:
            pass
        if not answer:
            return None
        head, _, body = answer.partition(b"\r\n\r\n")
        return int(head.split()[1]), head.decode(), body

    def page(self, name=""):
        return f"/{self.phone.token}/{name}"

    def upgrade(self, **headers):
        connection = self.connect()
        fields = {"Host": self.host(), "Origin": f"http://{self.host()}", "Connection": "Upgrade",
                  "Upgrade": "websocket", "Sec-WebSocket-Version": "13",
                  "Sec-WebSocket-Key": base64.b64encode(os.urandom(16)).decode(), **headers}
        head = f"GET {self.page('socket')} HTTP/1.1\r\n"
        head += "".join(f"{name}: {value}\r\n" for name, value in fields.items() if value is not None)
        connection.sendall(head.encode() + b"\r\n")
        answer = b""
        while b"\r\n\r\n" not in answer:
            chunk = connection.recv(1)
            if not chunk:
                break
            answer += chunk
        return connection, int(answer.split()[1])

    def frame(self, text, kind=1):
        data = text if isinstance(text, bytes) else text.encode()
        mask = os.urandom(4)
        length = len(data)
        size = bytes([0x80 | length]) if length < 126 else \
            b"\xfe" + struct.pack(">H", length) if length < 65536 else b"\xff" + struct.pack(">Q", length)
        return bytes([0x80 | kind]) + size + mask + bytes(byte ^ mask[i % 4] for i, byte in enumerate(data))

    def closing_status(self, connection):
        """The status of the closing frame; 0 when the connection just ends. Other frames are passed over."""
        def read(count):
            data = b""
            while len(data) < count:
                chunk = connection.recv(count - len(data))
                if not chunk:
                    raise ConnectionError
                data += chunk
            return data
        try:
            while True:
                kind, length = read(2)
                length = struct.unpack(">H", read(2))[0] if length == 126 else \
                    struct.unpack(">Q", read(8))[0] if length == 127 else length
                data = read(length)
                if kind & 0xF == 8:
                    return struct.unpack(">H", data[:2])[0] if data else 0
        except ConnectionError:
            return 0

    def test_serves_its_own_parts_only_and_nothing_from_elsewhere_may_run(self):
        status, head, body = self.ask(self.page())
        self.assertEqual(status, 200)
        self.assertIn(b"<title>", body)
        self.assertIn("default-src 'none'", head)
        self.assertIn("no-store", head)
        self.assertEqual(self.ask(self.page("main.js"))[0], 200)
        for name in ("../CMakeCache.txt", "..%2f..%2fetc/passwd", "/etc/passwd", "none.js", "main.js/", "main.js%00"):
            self.assertEqual(self.ask(self.page(name))[0], 404, name)
        self.assertEqual(self.ask(self.page(), method="POST", body=b"x")[0], 405)
        self.assertEqual(self.ask(self.page(), method="HEAD")[2], b"")

    def test_refuses_who_has_no_token_another_host_or_another_origin(self):
        wrong = "0" * 32
        for target in ("/", f"/{wrong}/", f"/{self.phone.token}", f"/{self.phone.token[:-1]}/", f"/{self.phone.token}0/",
                       f"/{wrong}/socket", "*", f"//{self.phone.token}/"):
            status, _, body = self.ask(target)
            self.assertEqual(status, 404, target)
            self.assertNotIn(b"<title>", body)
        for host in ("evil.example", f"evil.example:{self.phone.port}", "127.0.0.1", None):
            self.assertEqual(self.ask(self.page(), Host=host)[0], 421, host)
        self.assertEqual(self.ask(self.page(), Origin="http://evil.example")[0], 403)
        for origin in ("http://evil.example", f"https://{self.host()}", "null", None):
            self.assertEqual(self.upgrade(Origin=origin)[1], 403, origin)
        status, said = self.phone.end()
        self.assertEqual(status, 0)
        lines = said.splitlines()
        self.assertEqual(len(lines), 17)
        self.assertTrue(all(line.startswith("parlor: refused: ") for line in lines), said)
        self.assertNotIn(self.phone.token, said)

    def test_refuses_what_is_too_large_or_no_http(self):
        too_large = self.ask(self.page(), method="POST", body=b"x" * (2 << 20))
        self.assertIn(too_large and too_large[0], (None, 413))
        self.assertIsNone(self.send(b"GARBAGE\x1b[31m\r\n\r\n"))
        self.assertIsNone(self.send(b"GET / HTTP/1.1\r\nX: " + b"y" * 100_000 + b"\r\n\r\n"))
        self.assertEqual(self.ask(self.page())[0], 200)
        _, said = self.phone.end()
        self.assertEqual(said.count("parlor: refused: "), 3, said)
        self.assertNotIn("\x1b", said)

    def test_closes_a_socket_that_says_what_nobody_understands(self):
        cases = ["", "[]", "{}", "nonsense", '{"type": "format"}', '{"type": "shown", "number": 77}',
                 '{"type": "touch", "phase": "began", "x": "1", "y": 2}', '{"type": "touch", "phase": "hovers", "x": 1, "y": 2}',
                 '{"type": "tap", "x": 1e300, "y": 2}', '{"type": "set", "device": "16"}', '{"type": "set"}',
                 "[" * 10_000, b"\xff\xfe", '{"type": "message", "from": "A", "text": "", "link": "a b"}']
        for text in cases:
            connection, status = self.upgrade()
            self.assertEqual(status, 101)
            connection.sendall(self.frame(text))
            self.assertIn(self.closing_status(connection), (1008, 1007), text[:60])
        connection, _ = self.upgrade()
        try:
            connection.sendall(self.frame("x" * ((1 << 20) + 1)))
        except ConnectionError:
            pass
        self.assertIn(self.closing_status(connection), (0, 1009))
        self.assertEqual(self.ask(self.page())[0], 200)

    def messages(self, connection):
        """What comes over a page's socket, frame by frame: (kind, data)."""
        stream = connection.makefile("rb")
        while head := stream.read(2):
            length = head[1]
            if length >= 126:
                length = int.from_bytes(stream.read(2 if length == 126 else 8), "big")
            yield head[0] & 0xF, stream.read(length)

    def next_picture(self, messages):
        """The number of the next picture."""
        return next(int.from_bytes(data[6:10], "little") for kind, data in messages if kind == 2)

    def say(self, connection, **message):
        connection.sendall(self.frame(json.dumps(message)))

    def memory(self):
        """In MB, of the phone's process."""
        status = pathlib.Path(f"/proc/{self.phone.process.pid}/status").read_text(encoding="ascii")
        return int(re.search(r"VmRSS:\s+(\d+)", status)[1]) / 1024

    def wait_until_expanded(self):
        """Whoever scrolls while the list moves from under the finger may come to its end, where nothing more happens."""
        page, _ = self.upgrade()
        for kind, data in self.messages(page):
            if kind == 2:
                self.say(page, type="shown", number=self.next_picture([(kind, data)]))
            elif b'"presentation":"expanded"' in data:
                break
        page.close()

    def test_outlives_pages_that_misbehave_and_keeps_nothing_of_them(self):
        def reload(times):
            for _ in range(times):
                connection, status = self.upgrade()
                self.assertEqual(status, 101)
                self.next_picture(self.messages(connection))
                self.say(connection, type="touch", phase="began", x=200, y=700)
                connection.close()  # in the middle of a stroke

        def scroll(times):
            """A page that reads while another one does not, and a touch that never ends."""
            deaf, _ = self.upgrade()
            page, _ = self.upgrade()
            messages = self.messages(page)
            self.say(page, type="touch", phase="began", x=200, y=700)
            for step in range(times):
                self.say(page, type="shown", number=self.next_picture(messages))
                self.say(page, type="touch", phase="moved", x=200, y=600 + 60 * (step % 2))
            deaf.close()
            page.close()

        self.wait_until_expanded()
        reload(20)
        scroll(20)
        before = self.memory()
        reload(100)
        scroll(300)
        if "libtsan" not in pathlib.Path(f"/proc/{self.phone.process.pid}/maps").read_text(encoding="utf-8"):
            # A picture is 9 MB, and the allocator may keep one that was freed.
            wait_until(lambda: self.memory() < before + 20, "as little memory as before")
        self.assertEqual(self.ask(self.page())[0], 200)
        self.assertEqual(self.phone.end()[0], 0)

    def test_binds_the_loopback_address_only(self):
        with open("/proc/net/tcp", encoding="ascii") as table:
            bound = [line.split()[1] for line in table if line.split()[3] == "0A"]
        port = f"{self.phone.port:04X}"
        self.assertEqual([address for address in bound if address.endswith(":" + port)], ["0100007F:" + port])

    def test_a_port_in_use_is_told_in_one_line(self):
        taken = subprocess.run([PARLOR, "open", "--no-browser", "--port", str(self.phone.port)], capture_output=True,
                               text=True, timeout=PATIENCE, check=False)
        self.assertEqual(taken.returncode, 2)
        self.assertEqual(len(taken.stderr.splitlines()), 1)
        self.assertIn(str(self.phone.port), taken.stderr)


if __name__ == "__main__":
    unittest.main()
