"""Runs of a program in which a call fails, by the library that faults/fault_preload.cpp makes."""

import os
import resource
import signal
import subprocess
import time
from collections import Counter
from pathlib import Path

from fault_server import FaultServer

TIME_LIMIT = 20  # seconds
MIB = 1024 * 1024

LIMITS = {  # by what runs short: the limit, and the amounts that are tried
    'descriptors': (resource.RLIMIT_NOFILE, range(3, 24)),
    'memory': (resource.RLIMIT_AS, range(8 * MIB, 120 * MIB, 3 * MIB)),
    'data': (resource.RLIMIT_DATA, range(MIB // 2, 24 * MIB, MIB)),
}


def limit(kind, most):
    """What a process does before it becomes the program."""
    return lambda: resource.setrlimit(kind, (most, most))


class FaultRuns:
    """`failures` holds what went wrong, `runs` how many runs there were of each kind of fault."""

    def __init__(self, program, preload, environment):
        self.program = program
        self.preload = preload
        self.environment = {**environment,
                            'ASAN_OPTIONS': 'detect_leaks=0:verify_asan_link_order=0:malloc_context_size=1'}
        with open(program, 'rb') as file:
            # An allocation that fails under the address sanitizer ends in its own report.
            self.can_fail_malloc = b'__asan_init' not in file.read()
        self.failures = []
        self.runs = Counter()
        self.server = None

    def run(self, command, environment=None, answers=b'', prepare=None):
        """One run, of whose processes none may be left."""
        process = subprocess.Popen(command, env={**self.environment, **(environment or {})},
                                   stdin=subprocess.PIPE if answers else subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   start_new_session=True, preexec_fn=prepare)
        try:
            out, err = process.communicate(answers or None, timeout=TIME_LIMIT)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            raise
        self.expect_no_processes(process.pid, command)
        return subprocess.CompletedProcess(command, process.returncode, out, err)

    def expect_no_processes(self, leader, command):
        if leaves_processes(leader):
            self.failures.append(f'{" ".join(command)}: processes are left behind')

    def run_with_fault(self, arguments, fault, error, report, answers=b'', prepare=None):
        """One run in which the preloaded library makes calls fail."""
        command = [self.program, *arguments]
        if answers or prepare:  # which a run that is forked cannot have
            return self.run(command, {'LD_PRELOAD': self.preload, 'FAULT': fault, 'FAULT_ERRNO': str(error),
                                      'FAULT_REPORT': report}, answers, prepare)
        if self.server is None or self.server.command != command:
            self.close_server()
            self.server = FaultServer(command, self.preload, self.environment)
        leader, result = self.server.run(fault, error, report, TIME_LIMIT)
        self.expect_no_processes(leader, command)
        return result

    def close_server(self):
        if self.server is not None:
            self.server.close()

    def preloaded(self, arguments, fault, error, judge, **run):
        """One run with a fault, given to judge(what, result); whether the call was reached."""
        report = os.path.join(os.getcwd(), 'report')
        what = f'{fault} errno {error} {" ".join(arguments)}'
        try:
            result = self.run_with_fault(arguments, fault, error, report, **run)
        except subprocess.TimeoutExpired:
            self.failures.append(f'{what}: did not end')
            return True
        if not os.path.exists(report):
            return False
        os.unlink(report)
        self.runs[what.split(':')[0]] += 1
        judge(what, result)
        return True

    def each_in_turn(self, arguments, kind, error, judge, step=1, onward='', **run):
        number = 1
        while self.preloaded(arguments, f'{kind}:{number}{onward}', error, judge, **run):
            number += step
        if number == 1:
            self.failures.append(f'no {kind} in {arguments}')

    def each_shortage(self, arguments, judge, **run):
        """The program short of descriptors, memory and data, each by a step more."""
        if not self.can_fail_malloc:
            return  # the sanitizers take some themselves, and blame the program when they find none
        for name, (kind, amounts) in LIMITS.items():
            for most in amounts:
                if not self.starts(limit(kind, most)):
                    continue
                what = f'{name}: {most}, {" ".join(arguments)}'
                try:
                    result = self.run([self.program, *arguments], prepare=limit(kind, most), **run)
                except subprocess.TimeoutExpired:
                    self.failures.append(f'{what}: did not end')
                    continue
                self.runs[name] += 1
                judge(what, result)

    def starts(self, prepare):
        """Whether the program comes to its beginning at all."""
        result = self.run([self.program, '--no-such-option'], prepare=prepare)
        return result.returncode in (1, 2) and b'no-such-option' in result.stderr

    def report(self):
        """Prints what was tried and what went wrong; the exit status."""
        self.close_server()
        print(', '.join(f'{kind} {count}' for kind, count in sorted(self.runs.items())),
              'runs with a fault')
        print(*self.failures, sep='\n')
        return 1 if self.failures else 0


def leaves_processes(leader):
    """Whether a process of this run goes on, with a short wait; it is ended then."""
    pause = 0.001
    while pause < 2:
        try:
            os.killpg(leader, 0)
        except ProcessLookupError:
            return False
        time.sleep(pause)
        if not has_living_process(leader):
            return False  # the system has still to take the dead away
        pause *= 2
    os.killpg(leader, signal.SIGKILL)
    return True


def has_living_process(leader):
    for folder in Path('/proc').glob('[0-9]*'):
        try:
            fields = (folder / 'stat').read_text(errors='replace').rpartition(')')[2].split()
        except OSError:
            continue
        if int(fields[3]) == leader and fields[0] not in 'ZX':
            return True
    return False
