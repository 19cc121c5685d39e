"""Runs the tests against each change: first those of what a host sees and, when these notice
nothing, those of faults and those that link the objects."""

import collections
import concurrent.futures
import contextlib
import os
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import time

# Processor time; on a busy machine the clock may show far more.
SECONDS = 60
SECONDS_BY_THE_CLOCK = 300
MEMORY = 4 << 30
# Of what is free where the tests write, which may be memory: a change can make a copy endless.
SHARE_OF_THE_DISK = 0.25

# Tests about time, memory and file systems, not about rules; they would take most of the time.
LEFT_OUT = ['Shapes/HostileSizeTest*', 'Lists/HostileTagsTest*', 'HostilePropertiesTest*',
            'SaveFullDisk*', 'SaveLongPath*', 'HostileDocumentTest*',
            'Neighbour*',
            # The copy is compiled without optimisation, where Clang looks at one bit of a bool.
            'ForeignBool*']
# Random clips and long sequences, of which a few are enough, and tests of every document in five
# encodings.
SLOW = ['Seeds/*', 'Encodings/EncodingTest*']
FEW_OF_THE_SLOW = ['Seeds/*/1', 'Encodings/EncodingTest*']

FAILED = re.compile(r'^\[  FAILED  \] ([\w/]+\.[\w/]+)', re.MULTILINE)
BEGUN = re.compile(r'^\[ RUN      \] ([\w/]+\.[\w/]+)', re.MULTILINE)


# For code that reads and writes files: the tests that observe a disk.
UNITS_OF_STEPS = ['Fs*', 'Rewrite*', 'Patience*', 'SaveFolder*']
UNITS_FIRST = ('src/fs/', 'src/format/rewrite.cpp')
# For code whose own tests are much faster than those of a host.
UNITS_ABOUT = {'src/format/number.cpp': ['Number*', 'Seeds/Number*'],
               'src/format/decimal.cpp': ['Number*', 'Seeds/Number*'],
               'src/format/decimal.h': ['Number*', 'Seeds/Number*']}
# For all other code: the tests of faults that do not observe a disk but memory.
FAULTS_OF_MEMORY = ['*Allocation*', '*Build*', '*EditableList*', 'Operations*', 'Reading*', 'Scan*']
CONTRACTS_OF_STEPS = ['Catalogue*', 'ManagerCreation*', 'Neighbour*', 'PropertyEditor*', 'Remove*',
                      'Save*', 'ReadPart*', 'Registry*']


def only(patterns):
    return ':'.join(patterns)


def all_but(patterns):
    return '-' + ':'.join(patterns)


def limit_resources():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))


def watch(process, folder):
    """Its output, and why it had to be ended, or None."""
    end = time.monotonic() + SECONDS_BY_THE_CLOCK
    least = shutil.disk_usage(folder).free * (1 - SHARE_OF_THE_DISK)
    while True:
        try:
            return process.communicate(timeout=0.5)[0], None
        except subprocess.TimeoutExpired:
            pass
        reason = 'no end' if time.monotonic() > end else \
            'endless file' if shutil.disk_usage(folder).free < least else None
        if reason is not None:
            os.killpg(process.pid, signal.SIGKILL)  # tests have children
            return process.communicate()[0], reason


class Tests:
    def __init__(self, programs, tree, scratch):
        self.scratch = scratch
        self.programs = programs
        self.tree = tree
        self.environment = {**os.environ, 'LD_LIBRARY_PATH': str(tree.library_folder),
                            'KRT_PLX_TEST_LIBRARY_FILE': str(tree.library_folder / 'libkrt_plx.so')}
        self.environment.pop('GTEST_OUTPUT', None)
        self.successful = collections.defaultdict(list)  # (program, suite) that noticed, by file, last first

    def run(self, identity, suites, program):
        """The name of the test that notices the change; None when all pass."""
        with scratch_folder(self.scratch) as folder:
            process = subprocess.Popen(
                [program, '--gtest_fail_fast', '--gtest_brief=0', '--gtest_filter=' + suites],
                env={**self.environment, 'KRT_PLX_MUTANT': str(identity), 'TMPDIR': folder},
                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, errors='replace',
                start_new_session=True, preexec_fn=limit_resources)
            output, reason = watch(process, folder)
        if reason is not None or process.returncode == 0:
            return reason
        names = FAILED.findall(output) or BEGUN.findall(output)[-1:]
        return names[0] if names else 'crash at the start'

    def stages(self, site):
        """(program, suites): first those that noticed other changes of the file, last the slow
        ones."""
        contract, faults, unit = self.programs.contract, self.programs.faults, self.tree.unit_tests
        successful = self.successful[site.file][:8]
        if site.file in UNITS_ABOUT:
            yield unit, only(UNITS_ABOUT[site.file])
        for program in dict.fromkeys(program for program, _ in successful):
            yield program, only([suite for of, suite in successful if of == program])
        if site.is_of_steps:
            units, contracts = (unit, only(UNITS_OF_STEPS)), (contract, only(CONTRACTS_OF_STEPS))
            yield from [units, contracts] if site.file.startswith(UNITS_FIRST) else [contracts, units]
        yield contract, all_but(LEFT_OUT + SLOW)
        yield contract, only(FEW_OF_THE_SLOW)
        yield faults, only(['*'] if site.is_of_steps else FAULTS_OF_MEMORY)
        yield unit, only(['*']) if site.is_of_steps else all_but(UNITS_OF_STEPS)

    def notice(self, site, identity, programs=None):
        """The test that notices the change, among those of all programs or of some."""
        for program, suites in self.stages(site):
            if programs is not None and program not in programs:
                continue
            name = self.run(identity, suites, program)
            if name is not None:
                self.remember(self.successful[site.file], program, name)
                return name
        return None

    def notice_nothing(self):
        """The tests that fail without any change."""
        known = [(self.programs.contract, all_but(LEFT_OUT + SLOW)),
                 (self.programs.contract, only(CONTRACTS_OF_STEPS)),
                 (self.programs.contract, only(FEW_OF_THE_SLOW)),
                 (self.programs.faults, only(['*'])), (self.tree.unit_tests, only(['*']))]
        return next(filter(None, (self.run(-1, suites, program) for program, suites in known)), None)

    @staticmethod
    def remember(successful, program, name):
        found = (program, name.split('.')[0] + '.*')
        if '.' in name and not name.startswith('Seeds/'):
            if found in successful:
                successful.remove(found)
            successful.insert(0, found)


def show(site, notice, log):
    print(f'{notice or "SURVIVED"}\t{site}', file=log, flush=True)
    return site, notice


def run_switches(tree, tests, chosen, log, jobs):
    def run(site):
        return show(site, tests.notice(site, tree.identity(site)), log)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        return list(pool.map(run, chosen))


def notice_built(tree, tests, site):
    """Most of these changes are in headers: the library is built again much faster than the unit
    tests, which need not be when a host notices the change."""
    for target, programs in (('krt_plx', [tests.programs.contract, tests.programs.faults]),
                             ('unit_tests', [tree.unit_tests])):
        name = 'compiler' if tree.build(target) is not None else tests.notice(site, -1, programs)
        if name is not None:
            return name
    return None


def run_built(tree, tests, chosen, log):
    for site in chosen:
        tree.write_source(site.file, site)
        yield show(site, notice_built(tree, tests, site), log)
        tree.write_source(site.file)


@contextlib.contextmanager
def scratch_folder(parent):
    folder = tempfile.mkdtemp(dir=parent)
    os.chmod(folder, 0o755)  # tests act as other users too
    try:
        yield folder
    finally:
        # A test that was ended may leave folders deeper than Python can remove.
        subprocess.run(['rm', '-rf', folder], stderr=subprocess.DEVNULL, check=False)


def run_all(tree, programs, chosen, jobs):
    with scratch_folder(shared_memory()) as scratch, \
            open(tree.folder / 'log.txt', 'w', encoding='utf-8') as log:
        tests = Tests(programs, tree, scratch)
        name = tests.notice_nothing()
        if name is not None:
            raise SystemExit(f'{name} fails without any change')
        switches = [site for site in chosen if tree.is_switch(site)]
        others = [site for site in chosen if not tree.is_switch(site)]
        return run_switches(tree, tests, switches, log, jobs) + \
            list(run_built(tree, tests, others, log))


def shared_memory():
    return '/dev/shm' if os.path.isdir('/dev/shm') else None
