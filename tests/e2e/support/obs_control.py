"""Requests to OBS Studio, as a remote control of another make would send them (Debian's python3-websocket)."""

import base64
import hashlib
import json


def digest(text):
    return base64.b64encode(hashlib.sha256(text.encode()).digest()).decode()


class Control:
    def __init__(self, port, password):
        import websocket  # Here alone: it is installed only where OBS is.

        self._socket = websocket.create_connection(f"ws://127.0.0.1:{port}", timeout=20)
        wanted = json.loads(self._socket.recv())["d"]["authentication"]
        answer = digest(digest(password + wanted["salt"]) + wanted["challenge"])
        self._send(1, rpcVersion=1, authentication=answer, eventSubscriptions=0)
        self._socket.recv()

    def _send(self, kind, **data):
        self._socket.send(json.dumps({"op": kind, "d": data}))

    def request(self, name, **data):
        self._send(6, requestType=name, requestId=name, requestData=data)
        answer = json.loads(self._socket.recv())["d"]
        if not answer["requestStatus"]["result"]:
            raise AssertionError(f"{name}: {answer['requestStatus']}")
        return answer.get("responseData", {})
