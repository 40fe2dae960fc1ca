"""A server on this computer that speaks the protocol of OBS Studio's websocket, records nothing and misbehaves on demand."""

import base64
import hashlib
import json
import socket
import struct
import threading
import time

from obs_control import digest

KEY = "258EAFA5-E914-47DA-95CA-C5AB0DC85B11"
TEXT, CLOSE = 1, 8
SALT, CHALLENGE = "salt", "challenge"
WRONG_PASSWORD = 4009
FRAMES_PER_SECOND = 30
FRAMES_HELD_BACK = 17


class Connection:
    """One websocket, from its handshake on."""

    def __init__(self, accepted):
        self.socket = accepted
        self.may_write = threading.Lock()
        self.input = accepted.makefile("rb")
        lines = iter(self.input.readline, b"\r\n")
        fields = dict(line.decode().strip().lower().split(": ", 1) if b"key" not in line.lower() else
                      ("key", line.decode().split(": ", 1)[1].strip()) for line in lines if b": " in line)
        accept = base64.b64encode(hashlib.sha1((fields["key"] + KEY).encode()).digest()).decode()
        accepted.sendall(("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                          f"Sec-WebSocket-Accept: {accept}\r\n\r\n").encode())

    def send(self, kind, data):
        self.send_frame(TEXT, json.dumps({"op": kind, "d": data}).encode())

    def send_frame(self, opcode, payload):
        length = bytes([len(payload)]) if len(payload) < 126 else b"\x7e" + struct.pack(">H", len(payload))
        with self.may_write:
            self.socket.sendall(bytes([0x80 | opcode]) + length + payload)

    def refuse(self, code):
        self.send_frame(CLOSE, struct.pack(">H", code))

    def messages(self):
        """Until the connection ends."""
        while True:
            opcode, length = struct.unpack(">BB", self.input.read(2))
            length &= 0x7f
            if length == 126:
                length = struct.unpack(">H", self.input.read(2))[0]
            mask = self.input.read(4)
            payload = bytes(byte ^ mask[index % 4] for index, byte in enumerate(self.input.read(length)))
            if opcode & 0xf == CLOSE:
                return
            yield json.loads(payload)

    def close(self):
        try:
            self.socket.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass
        self.socket.close()


class StandInOBS:
    """Its recording begins when it is told so, by the test or by a client."""

    def __init__(self, password=""):
        self.password = password
        # Takes connections and keeps them, and says nothing: as when the network is gone.
        self.is_mute = False
        self.began = None
        self.path = ""
        self.chapters = []
        self.connections = []
        self.server = None
        self.port = 0
        self.listen()

    def listen(self):
        """On the same port as before."""
        self.server = socket.create_server(("127.0.0.1", self.port))
        self.port = self.server.getsockname()[1]
        threading.Thread(target=self._accept, args=[self.server], daemon=True).start()

    def kill(self):
        """As when the program is killed: its recording is gone too."""
        self.began = None
        self.server.shutdown(socket.SHUT_RDWR)
        self.server.close()
        for connection in list(self.connections):
            connection.close()

    def start_recording(self, path):
        self.path = path
        self._tell_state("STARTING")
        self.began = time.monotonic() + 0.01
        self._tell_state("STARTED", path)

    def stop_recording(self):
        self._tell_state("STOPPING")
        self.began = None
        self._tell_state("STOPPED", self.path)

    def split_to(self, path):
        self.path = path
        self._tell("RecordFileChanged", {"newOutputPath": path})

    def send_garbage(self, text):
        for connection in list(self.connections):
            connection.send_frame(TEXT, text)

    def position_at(self, moment):
        return moment - self.began

    def _accept(self, server):
        while True:
            try:
                accepted, _ = server.accept()
            except OSError:
                return
            threading.Thread(target=self._serve, args=[accepted], daemon=True).start()

    def _serve(self, accepted):
        connection = None
        try:
            self._wait_while_mute()
            connection = Connection(accepted)
            self.connections.append(connection)
            wanted = {"authentication": {"challenge": CHALLENGE, "salt": SALT}} if self.password else {}
            connection.send(0, {"obsWebSocketVersion": "5.5.0", "rpcVersion": 1, **wanted})
            for message in connection.messages():
                self._wait_while_mute()
                self._answer(connection, message["op"], message["d"])
        except (OSError, ValueError, KeyError, struct.error):
            pass  # The client is gone.
        finally:
            if connection in self.connections:
                self.connections.remove(connection)
            accepted.close()

    def _wait_while_mute(self):
        while self.is_mute:
            time.sleep(0.05)

    def _answer(self, connection, kind, data):
        if kind == 1:
            right = digest(digest(self.password + SALT) + CHALLENGE) if self.password else None
            if data.get("authentication") == right:
                connection.send(2, {"negotiatedRpcVersion": 1})
            else:
                connection.refuse(WRONG_PASSWORD)
        elif kind == 6:
            answer = self._carry_out(data["requestType"], data.get("requestData", {}))
            connection.send(7, {"requestType": data["requestType"], "requestId": data["requestId"],
                                "requestStatus": {"result": True, "code": 100}, "responseData": answer})
        elif kind == 8:
            results = [{"requestType": each["requestType"], "responseData": self._carry_out(each["requestType"], {})}
                       for each in data["requests"]]
            connection.send(9, {"requestId": data["requestId"], "results": results})

    def _carry_out(self, request, data):
        frames = int((time.monotonic() - self.began) * FRAMES_PER_SECOND) if self.began else 0
        answers = {
            "GetVersion": {"availableRequests": ["GetVersion", "CreateRecordChapter"]},
            "GetRecordStatus": {"outputActive": self.began is not None, "outputPaused": False,
                                "outputDuration": max(0, frames - FRAMES_HELD_BACK) * 1000 // FRAMES_PER_SECOND},
            "GetStats": {"outputTotalFrames": max(0, frames)},
            "GetVideoSettings": {"fpsNumerator": FRAMES_PER_SECOND, "fpsDenominator": 1},
            "GetOutputSettings": {"outputSettings": {"path": self.path}},
        }
        if request == "CreateRecordChapter":
            self.chapters.append(data.get("chapterName", "Unnamed"))
        return answers.get(request, {})

    def _tell_state(self, state, path=None):
        self._tell("RecordStateChanged", {"outputState": f"OBS_WEBSOCKET_OUTPUT_{state}", "outputPath": path})

    def _tell(self, event, data):
        for connection in list(self.connections):
            connection.send(5, {"eventType": event, "eventData": data})
