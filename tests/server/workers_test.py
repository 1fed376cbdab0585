#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Calls that run beside the reading: the order of answers, cancellation, bounds, and the end of the input."""
import json
import os
import select
import signal
import subprocess
import sys
import time

patience = 30


class Dialogue:
    def __init__(self, workers, call_time=0):
        self.server = subprocess.Popen([sys.argv[1], str(workers), str(call_time)], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.say("initialize", "hello", protocolVersion="2025-11-25")
        self.hear("hello")

    def say(self, method, number=None, **params):
        message = {"jsonrpc": "2.0", "method": method, "params": params}
        self.write(json.dumps(message if number is None else {**message, "id": number}) + "\n")

    def write(self, text):
        self.server.stdin.write(text.encode())
        self.server.stdin.flush()

    def call(self, number, tool, **arguments):
        self.say("tools/call", number, name=tool, arguments=arguments)

    def cancel(self, number):
        self.say("notifications/cancelled", requestId=number)

    def line(self):
        line = b""
        while not line.endswith(b"\n"):
            assert select.select([self.server.stdout], [], [], patience)[0], f"nothing comes after {line}"
            byte = os.read(self.server.stdout.fileno(), 1)
            if not byte:
                return None
            line += byte
        return json.loads(line)

    def hear(self, number):
        """The words of the next answer, which is to have that id."""
        message = self.line()
        assert message and message["id"] == number, f"{message} instead of the answer to {number}"
        result = message["result"] if "result" in message else message["error"]
        return result.get("message") or (result["content"][0]["text"] if "content" in result else result)

    def end(self):
        """The lines that still come, and the exit status."""
        self.server.stdin.close()
        rest = []
        while (line := self.line()) is not None:
            rest.append(line)
        return rest, self.server.wait(patience)


def expect(found, expected):
    assert found == expected, f"{found!r} instead of {expected!r}"


def answers_come_as_they_are_ready():
    talk = Dialogue(2)
    talk.call(1, "wait")
    talk.call(2, "wait", milliseconds=1)
    expect(talk.hear(2), "waited")
    talk.say("ping", 3)
    expect(talk.hear(3), {})
    talk.cancel(1)
    expect(talk.end(), ([], 0))


def a_cancelled_call_is_not_answered():
    talk = Dialogue(1)
    talk.call(1, "wait")
    talk.call(2, "wait")  # waits for the first
    talk.call("1", "wait", milliseconds=1)  # "1" is another id than 1
    talk.cancel(2)
    talk.cancel(9)
    talk.call(2, "wait", milliseconds=2)  # its id is free again
    talk.call(2, "plain")
    expect(talk.hear(2), "a request with this id is under way")
    talk.cancel(1.0)
    expect(talk.hear("1"), "waited")
    expect(talk.hear(2), "waited")
    expect(talk.end(), ([], 0))


def a_batch_is_answered_when_its_last_call_is():
    talk = Dialogue(2)
    talk.say("initialize", "again", protocolVersion="2025-03-26")
    talk.hear("again")
    calls = [{"jsonrpc": "2.0", "id": number, "method": "tools/call",
              "params": {"name": "wait", "arguments": {"milliseconds": time}}} for number, time in ((1, 60), (2, 1), (3, 20000))]
    talk.write(json.dumps(calls) + "\n")
    talk.cancel(3)
    expect([answer["id"] for answer in talk.line()], [1, 2])
    talk.write(json.dumps(calls[2:]) + "\n")
    talk.cancel(3)
    talk.say("ping", 4)
    expect(talk.hear(4), {})
    expect(talk.end(), ([], 0))


def calls_are_bounded():
    talk = Dialogue(1)
    for number in range(4):
        talk.call(number, "wait")
    talk.call(4, "wait")
    expect(talk.hear(4), "4 calls are under way: send this one again when one of them is answered")
    talk.cancel(2)
    talk.call(5, "wait", milliseconds=1)
    for number in (0, 1, 3):
        talk.cancel(number)
    expect(talk.hear(5), "waited")
    expect(talk.end(), ([], 0))


def what_runs_at_the_end_is_finished():
    talk = Dialogue(2)
    for number, time in enumerate((300, 1, 200)):
        talk.call(number, "wait", milliseconds=time)
    rest, status = talk.end()
    expect(sorted(answer["id"] for answer in rest), [0, 1, 2])
    expect(status, 0)


def or_cancelled():
    talk = Dialogue(1)
    talk.call(1, "wait")
    talk.call(2, "wait")
    began = time.monotonic()
    rest, status = talk.end()
    words = {answer["id"]: answer["result"]["content"][0]["text"] for answer in rest}
    expect(words, {1: "cancelled", 2: "the input ended before this call was made"})
    expect(status, 0)
    assert 0.9 < time.monotonic() - began < 10, "the deadline"


def or_given_up():
    talk = Dialogue(1)
    talk.call(1, "wait", stubborn=True, milliseconds=60000)
    time.sleep(0.1)
    expect(talk.end(), ([], 3))


def a_call_that_takes_too_long_is_answered_while_its_handler_goes_on():
    for workers, goes_on in ((1, True), (0, False)):
        talk = Dialogue(workers, call_time=500)
        began = time.monotonic()
        talk.call(1, "wait", stubborn=goes_on, milliseconds=2500)
        talk.call(1 if goes_on else 2, "plain")
        if goes_on:
            expect(talk.hear(1), "a request with this id is under way")
        expect(talk.hear(1), "wait was cancelled: a call may take at most 500 ms")
        assert time.monotonic() - began < 2.5, "it was answered when its handler was done"
        talk.call(1, "wait", milliseconds=1)
        if not goes_on:
            expect(talk.hear(2), '{"text": "", "root": "context"}')
        expect(talk.hear(1), "waited")
        expect(talk.end(), ([], 0))


def a_call_in_the_reading_thread_is_answered_before_the_next_is_read():
    talk = Dialogue(0)
    talk.call(1, "wait", milliseconds=50)
    talk.say("ping", 2)
    expect(talk.hear(1), "waited")
    expect(talk.hear(2), {})
    expect(talk.end(), ([], 0))


def nobody_reads_the_answers():
    talk = Dialogue(1)
    talk.server.stdout.close()
    talk.say("ping", 1)
    talk.call(2, "wait")
    talk.server.stdin.close()
    expect(talk.server.wait(patience), 0)


for test in (answers_come_as_they_are_ready, a_cancelled_call_is_not_answered, a_batch_is_answered_when_its_last_call_is,
             calls_are_bounded, a_call_that_takes_too_long_is_answered_while_its_handler_goes_on,
             what_runs_at_the_end_is_finished, or_cancelled, or_given_up,
             a_call_in_the_reading_thread_is_answered_before_the_next_is_read, nobody_reads_the_answers):
    print(test.__name__, flush=True)
    signal.signal(signal.SIGPIPE, signal.SIG_IGN)
    try:
        test()
    except BrokenPipeError:
        assert test is nobody_reads_the_answers, "the server ended early"
