#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Talks with a server as messages.txt has it, and judges every message that it sends by its version's JSON Schema.

In messages.txt a conversation begins with `session VERSION`, whose handshake goes without saying, or `session none`.
Lines after "> " are sent, lines after "< " are all that comes back; "@" stands for the `_meta` of 2026-07-28. A
conversation under `session each` is held in every version, and only judged by the schemas.
`messages_test.py SERVER --renew` prints the file with what comes back now.
"""
import json
import pathlib
import re
import subprocess
import sys

here = pathlib.Path(__file__).parent
server = sys.argv[1]
modern = "2026-07-28"
meta = '{"io.modelcontextprotocol/protocolVersion": "%s", "io.modelcontextprotocol/clientCapabilities": {}}' % modern
schemas = {path.stem[7:]: json.loads(path.read_text()) for path in sorted((here / "schemas").glob("schema-*.json"))}
result_types = {"initialize": "InitializeResult", "tools/list": "ListToolsResult", "tools/call": "CallToolResult",
                "ping": "EmptyResult", "logging/setLevel": "EmptyResult", "server/discover": "DiscoverResult",
                "subscriptions/listen": "SubscriptionsListenResult"}
notification_types = {"notifications/progress": "ProgressNotification", "notifications/message": "LoggingMessageNotification",
                      "notifications/subscriptions/acknowledged": "SubscriptionsAcknowledgedNotification"}
try:
    import jsonschema
except ImportError:
    jsonschema = None
faults = []


def no_number(word):
    raise ValueError(f"{word} is not JSON")


def read(line):
    """The message of a line, which any reader of JSON takes."""
    line.encode("utf-8")
    message = json.loads(line, parse_constant=no_number)
    json.dumps(message, ensure_ascii=False).encode("utf-8")
    return message


def judge(version, type_name, value):
    schema = schemas[version]
    definitions = "$defs" if "$defs" in schema else "definitions"
    if type_name not in schema[definitions]:
        raise ValueError(f"{version} has no {type_name}")
    if jsonschema:
        whole = {**schema, "$ref": f"#/{definitions}/{type_name}"}
        jsonschema.validators.validator_for(schema)(whole).validate(value)


def judge_message(version, message, requests):
    """Object types are open in the schemas: what must not be there is looked for as well."""
    assert set(message) <= {"jsonrpc", "id", "method", "params", "result", "error"}, "a member too many"
    assert len({"method", "result", "error"} & set(message)) == 1, "neither a notification nor a result nor an error"
    if "method" in message:
        assert "id" not in message, "a notification has an id"
        judge(version, notification_types[message["method"]], message)
        return
    request = next((sent for sent in requests if sent.get("id") == message.get("id")), None)
    params = (request or {}).get("params")
    named = params.get("_meta", {}) if isinstance(params, dict) else {}
    version = modern if any(key.startswith("io.modelcontextprotocol/") for key in named) else version
    if "result" in message:
        judge(version, "JSONRPCResultResponse" if "$defs" in schemas[version] else "JSONRPCResponse", message)
        judge(version, result_types[request["method"]], message["result"])
    elif message.get("id", 0) is None:
        assert version < "2025-11", "the version has no id null"
    else:
        judge(version, "JSONRPCErrorResponse" if "$defs" in schemas[version] else "JSONRPCError", message)
        if message["error"]["code"] == -32022:
            judge(version, "UnsupportedProtocolVersionError", message)


def spoken(text):
    """The messages of a line that are well-formed requests."""
    try:
        value = json.loads(text)
    except ValueError:
        return []
    return [item for item in (value if isinstance(value, list) else [value]) if isinstance(item, dict) and "method" in item]


def held(version, sent):
    """What a server says to these lines, and nothing more; the answer to the handshake is judged and left out."""
    lines = list(sent)
    if version not in ("none", modern):
        lines[:0] = ['{"jsonrpc": "2.0", "id": "hello", "method": "initialize", "params": {"protocolVersion": "%s", '
                     '"capabilities": {}, "clientInfo": {"name": "c", "version": "1"}}}' % version,
                     '{"jsonrpc": "2.0", "method": "notifications/initialized"}']
    text = "".join(line + "\n" for line in lines).encode("utf-8", "surrogateescape")
    run = subprocess.run([server], input=text, capture_output=True, timeout=100)
    answers = run.stdout.decode("utf-8").splitlines()
    requests = [request for line in lines for request in spoken(line)]
    if run.returncode or run.stderr:
        faults.append(f"{version}: the server ended with {run.returncode} {run.stderr.decode()}")
    for answer in answers:
        try:
            message = read(answer)
            for part in message if isinstance(message, list) else [message]:
                judge_message("2025-11-25" if version == "none" else version, part, requests)
        except Exception as fault:
            faults.append(f"{version}: {answer}\n  {str(fault)[:600]}")
    shown = [re.sub("x{100,}", lambda found: "x{%d}" % len(found[0]), answer) for answer in answers]
    return shown[1:] if lines != list(sent) else shown


def expanded(line, each=modern):
    """A line as it is sent: "x{900}" is 900 times that letter, "{200 arguments}" an object."""
    line = line.replace("@", meta).replace("%", meta if each == modern else "{}")
    line = re.sub(r"x\{(\d+)\}", lambda found: "x" * int(found[1]), line)
    return re.sub(r"\{(\d+) arguments\}", lambda found: json.dumps({f"a{n}": n for n in range(int(found[1]))}), line)


conversations, heading = [], []
for line in (here / "messages.txt").read_text("utf-8").splitlines():
    if line.startswith("> "):
        conversations[-1]["sent"].append(line[2:])
    elif line.startswith("< "):
        conversations[-1]["expected"].append(line[2:])
    elif line.startswith("session "):
        conversations.append({"heading": heading + [line], "version": line[8:], "sent": [], "expected": []})
        heading = []
    elif line:
        heading.append(line)

for conversation in conversations:
    each = conversation["version"] == "each"
    for version in sorted(schemas) if each else [conversation["version"]]:
        answers = held(version, [expanded(line, version) for line in conversation["sent"]])
        if each and not answers:
            faults.append(f"{version}: nothing was answered")
    if not each and answers != conversation["expected"]:
        shown = [*conversation["sent"], "expected:", *conversation["expected"], "but it says:", *answers]
        faults.append("\n".join([*conversation["heading"], *(line[:600] for line in shown)]))
    conversation["answers"] = [] if each else answers

if "--renew" in sys.argv:
    for conversation in conversations:
        sent = ["> " + line for line in conversation["sent"]]
        answers = ["< " + line for line in conversation["answers"]]
        print("\n".join([*conversation["heading"], *sent, *answers]) + "\n")
    print("\n".join(fault for fault in faults if not "but it says" in fault), file=sys.stderr)
    sys.exit(0)
print(f"{len(conversations)} conversations" + ("" if jsonschema else "; without python3-jsonschema no schema was tried"))
sys.exit("\n\n".join(faults) or 0)
