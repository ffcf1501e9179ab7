# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""A stand-in for the coding agents' model servers: one prompt, one call of the shell, one answer.

It speaks as much of the Messages, Responses, Chat Completions and Gemini interfaces as that takes. What belongs to the
turn is answered only when the test says so; what agents ask on the side (titles, quota) is answered at once.
"""
import http.server
import json
import queue
import threading

ANSWER = "All done. Final answer from the model."
TOOL_OUTPUT = "hello-from-42"
# Its output is not part of it, and none of the agents finds anything in it to object to.
TOOL_COMMAND = "printf 'hello-from-%d' 42"
SHELLS = ("Bash", "bash", "Execute", "shell", "shell_command", "exec_command", "run_shell_command")
PATIENCE = 60


class Turn:
    """A request that waits for its answer. `has_result`: the shell's output has come back, `text` is the request."""

    def __init__(self, text, has_result):
        self.text = text
        self.has_result = has_result
        self.may_be_answered = threading.Event()

    def answer(self):
        self.may_be_answered.set()


class Model:
    """The server, on a free port of the loopback interface."""

    def __init__(self):
        self.turns = queue.Queue()
        self.requests = []
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        self._server.model = self
        self.url = f"http://127.0.0.1:{self._server.server_port}"
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def next_turn(self, patience=PATIENCE):
        """The next request of the turn; None when there is none in time."""
        try:
            return self.turns.get(timeout=patience)
        except queue.Empty:
            return None

    def close(self):
        self._server.shutdown()
        self._server.server_close()

    def decide(self, text, shell, has_result):
        """The arguments with which to call the shell, or None for the final answer."""
        if shell is None:
            return None
        turn = Turn(text, has_result)
        self.turns.put(turn)
        turn.may_be_answered.wait(PATIENCE)
        return None if has_result else arguments_for(shell)


def arguments_for(shell):
    """The command, and something for whatever else the tool's schema asks for."""
    _name, schema = shell
    values = {}
    for key, kind in schema.get("properties", {}).items():
        if key in ("command", "cmd"):
            values[key] = ["bash", "-c", TOOL_COMMAND] if kind.get("type") == "array" else TOOL_COMMAND
        elif key in schema.get("required", ()):
            values[key] = placeholder(kind)
    return values


def placeholder(kind):
    if "enum" in kind:
        return kind["enum"][0]
    return {"boolean": False, "integer": 60, "number": 60}.get(str(kind.get("type")).lower(), "say hello")


def shell_of(tools):
    """The first (name, schema) that is a shell."""
    return next(((name, schema) for name, schema in tools if name in SHELLS), None)


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        self.reply("application/json", "{}")

    def do_POST(self):
        text = self.body().decode("utf-8", "replace")
        path = self.path.partition("?")[0]
        self.server.model.requests.append((path, text))
        request = json.loads(text or "{}")
        if path.endswith("/messages"):
            self.answer_messages(request, text)
        elif path.endswith("/responses"):
            self.answer_responses(request, text)
        elif path.endswith("/chat/completions"):
            self.answer_chat(request, text)
        elif path.endswith("enerateContent"):
            self.answer_gemini(request, text)
        else:
            self.reply("application/json", json.dumps({"input_tokens": 1, "totalTokens": 1}))

    def body(self):
        if self.headers.get("Transfer-Encoding", "").lower() != "chunked":
            return self.rfile.read(int(self.headers.get("Content-Length", 0)))
        data = b""
        while size := int(self.rfile.readline().split(b";")[0], 16):
            data += self.rfile.read(size)
            self.rfile.readline()
        self.rfile.readline()
        return data

    def decide(self, text, shell, has_result):
        return self.server.model.decide(text, shell, has_result)

    def answer_messages(self, request, text):
        shell = shell_of((tool.get("name"), tool.get("input_schema", {})) for tool in request.get("tools", ()))
        blocks = [block for message in request["messages"] if isinstance(message["content"], list) for block in message["content"]]
        arguments = self.decide(text, shell, any(block.get("type") == "tool_result" for block in blocks))
        if arguments is None:
            block, delta, reason = {"type": "text", "text": ""}, {"type": "text_delta", "text": ANSWER}, "end_turn"
        else:
            block = {"type": "tool_use", "id": "toolu_1", "name": shell[0], "input": {}}
            delta, reason = {"type": "input_json_delta", "partial_json": json.dumps(arguments)}, "tool_use"
        message = {"id": "msg_1", "type": "message", "role": "assistant", "model": request.get("model"), "content": [],
                   "stop_reason": None, "stop_sequence": None, "usage": {"input_tokens": 1, "output_tokens": 1}}
        if not request.get("stream"):
            message |= {"content": [{"type": "text", "text": ANSWER}], "stop_reason": "end_turn"}
            self.reply("application/json", json.dumps(message))
            return
        self.reply_events([
            {"type": "message_start", "message": message},
            {"type": "content_block_start", "index": 0, "content_block": block},
            {"type": "content_block_delta", "index": 0, "delta": delta},
            {"type": "content_block_stop", "index": 0},
            {"type": "message_delta", "delta": {"stop_reason": reason, "stop_sequence": None}, "usage": {"output_tokens": 1}},
            {"type": "message_stop"},
        ])

    def answer_responses(self, request, text):
        shell = shell_of((tool.get("name"), tool.get("parameters", {})) for tool in request.get("tools", ()))
        has_result = any(item.get("type") == "function_call_output" for item in request["input"])
        arguments = self.decide(text, shell, has_result)
        if arguments is None:
            item = {"type": "message", "role": "assistant", "id": "msg_1", "content": [{"type": "output_text", "text": ANSWER}]}
        else:
            item = {"type": "function_call", "id": "fc_1", "call_id": "call_1", "name": shell[0], "arguments": json.dumps(arguments)}
        usage = {"input_tokens": 1, "input_tokens_details": None, "output_tokens": 1, "output_tokens_details": None, "total_tokens": 2}
        self.reply_events([
            {"type": "response.created", "response": {"id": "resp_1"}},
            {"type": "response.output_item.done", "output_index": 0, "item": item},
            {"type": "response.completed", "response": {"id": "resp_1", "usage": usage}},
        ])

    def answer_chat(self, request, text):
        functions = [tool["function"] for tool in request.get("tools") or () if "function" in tool]
        shell = shell_of((function["name"], function.get("parameters", {})) for function in functions)
        arguments = self.decide(text, shell, any(message["role"] == "tool" for message in request["messages"]))
        if arguments is None:
            message, reason = {"role": "assistant", "content": ANSWER}, "stop"
        else:
            function = {"name": shell[0], "arguments": json.dumps(arguments)}
            call = {"index": 0, "id": "call_1", "type": "function", "function": function}
            message, reason = {"role": "assistant", "content": None, "tool_calls": [call]}, "tool_calls"
        common = {"id": "chat_1", "created": 1, "model": request.get("model"),
                  "usage": {"prompt_tokens": 1, "completion_tokens": 1, "total_tokens": 2}}
        if request.get("stream"):
            chunk = common | {"object": "chat.completion.chunk"}
            self.reply_events([
                chunk | {"choices": [{"index": 0, "delta": message, "finish_reason": None}]},
                chunk | {"choices": [{"index": 0, "delta": {}, "finish_reason": reason}]},
            ], end="data: [DONE]\n\n")
        else:
            choice = {"index": 0, "message": message, "finish_reason": reason}
            self.reply("application/json", json.dumps(common | {"object": "chat.completion", "choices": [choice]}))

    def answer_gemini(self, request, text):
        declarations = [entry for tool in request.get("tools", ()) for entry in tool.get("functionDeclarations", ())]
        shell = shell_of((entry["name"], entry.get("parametersJsonSchema") or entry.get("parameters", {})) for entry in declarations)
        parts = [part for content in request.get("contents", ()) for part in content.get("parts", ())]
        arguments = self.decide(text, shell, any("functionResponse" in part for part in parts))
        part = {"text": ANSWER} if arguments is None else {"functionCall": {"name": shell[0], "args": arguments}}
        candidate = {"content": {"role": "model", "parts": [part]}, "finishReason": "STOP", "index": 0}
        usage = {"promptTokenCount": 1, "candidatesTokenCount": 1, "totalTokenCount": 2}
        answer = {"candidates": [candidate], "usageMetadata": usage}
        if "streamGenerateContent" in self.path:
            self.reply_events([answer])
        else:
            self.reply("application/json", json.dumps(answer))

    def reply_events(self, events, end=""):
        """Server-sent events; those that have a type are named by it."""
        text = ""
        for event in events:
            name = f"event: {event['type']}\n" if "type" in event else ""
            text += f"{name}data: {json.dumps(event)}\n\n"
        self.reply("text/event-stream", text + end)

    def reply(self, kind, text):
        data = text.encode()
        self.send_response(200)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(data)))
        self.end_headers()
        self.wfile.write(data)

    def log_message(self, *_):
        pass
