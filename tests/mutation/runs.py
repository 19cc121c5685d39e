"""Runs the tests against each change: those of what a host sees, and, when these notice nothing, those
of faults and those that link the objects."""

import collections
import concurrent.futures
import os
import re
import resource
import subprocess
import tempfile

WORKERS = 2
# Of the processor; the clock may show far more on a busy machine.
SECONDS = 60
SECONDS_BY_THE_CLOCK = 900
MEMORY = 4 << 30

# About time, memory and file systems, not about rules; they would take most of the time.
LEFT_OUT = ['Shapes/HostileSizeTest*', 'Lists/HostileTagsTest*', 'HostilePropertiesTest*',
            'SaveFullDisk*', 'SaveLongPath*', 'HostileDocumentTest*',
            'Neighbour*']
# Random clips and long sequences, of which a few are enough, and every document in five encodings.
SLOW = ['Seeds/*', 'Encodings/EncodingTest*']
FEW_OF_THE_SLOW = ['Seeds/*/1', 'Encodings/EncodingTest*']

FAILED = re.compile(r'^\[  FAILED  \] ([\w/]+\.[\w/]+)', re.MULTILINE)
BEGUN = re.compile(r'^\[ RUN      \] ([\w/]+\.[\w/]+)', re.MULTILINE)


def only(patterns):
    return ':'.join(patterns)


def all_but(patterns):
    return '-' + ':'.join(patterns)


def limit_resources():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))


class Tests:
    def __init__(self, programs, tree, scratch):
        self.programs = programs
        self.tree = tree
        self.environment = {**os.environ, 'LD_LIBRARY_PATH': str(tree.library_folder),
                            'TMPDIR': scratch}
        self.environment.pop('GTEST_OUTPUT', None)
        self.successful = collections.defaultdict(list)  # suites that noticed, by file, last first

    def run(self, identity, suites, program=None):
        """The name of the test that notices; None when all pass."""
        try:
            done = subprocess.run(
                [program or self.programs.contract, '--gtest_fail_fast', '--gtest_brief=0',
                 '--gtest_filter=' + suites],
                env={**self.environment, 'KRT_PLX_MUTANT': str(identity)}, capture_output=True,
                text=True, errors='replace', timeout=SECONDS_BY_THE_CLOCK,
                check=False, preexec_fn=limit_resources)
        except subprocess.TimeoutExpired:
            return 'no end'
        if done.returncode == 0:
            return None
        names = FAILED.findall(done.stdout) or BEGUN.findall(done.stdout)[-1:]
        return names[0] if names else 'crash at the start'

    def notice(self, site, identity):
        """First what noticed other changes of the file, the slow ones last."""
        successful = self.successful[site.file]
        stages = [only(successful[:8])] if successful else []
        for suites in stages + [all_but(LEFT_OUT + SLOW), only(FEW_OF_THE_SLOW)]:
            name = self.run(identity, suites)
            if name is not None:
                self.remember(successful, name)
                return name
        return None

    def notice_otherwise(self, identity):
        """By what a host cannot do alone."""
        for program in (self.programs.faults, self.tree.unit_tests):
            name = self.run(identity, only(['*']), program)
            if name is not None:
                return name
        return None

    @staticmethod
    def remember(successful, name):
        suite = name.split('.')[0] + '.*'
        if '.' in name and not suite.startswith('Seeds/'):
            if suite in successful:
                successful.remove(suite)
            successful.insert(0, suite)


def show(site, notice, log):
    print(f'{notice or "SURVIVED"}\t{site}', file=log, flush=True)
    return site, notice


def run_switches(tree, tests, chosen, log):
    def run(site):
        identity = tree.identity(site)
        return show(site, tests.notice(site, identity) or tests.notice_otherwise(identity), log)

    with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
        return list(pool.map(run, chosen))


def run_built(tree, tests, chosen, log):
    for site in chosen:
        if tree.build_change(site) is not None:
            notice = 'compiler'
        else:
            notice = tests.notice(site, -1)
            if notice is None:
                notice = 'compiler' if tree.build_unit_tests() else tests.notice_otherwise(-1)
        yield show(site, notice, log)
        tree.restore(site)


def run_all(tree, programs, chosen):
    with tempfile.TemporaryDirectory(dir=shared_memory()) as scratch, \
            open(tree.folder / 'log.txt', 'w', encoding='utf-8') as log:
        os.chmod(scratch, 0o755)  # tests act as other users too
        tests = Tests(programs, tree, scratch)
        name = tests.run(-1, all_but(LEFT_OUT + SLOW)) or tests.run(-1, only(FEW_OF_THE_SLOW)) or \
            tests.notice_otherwise(-1)
        if name is not None:
            raise SystemExit(f'{name} fails without any change')
        switches = [site for site in chosen if tree.is_switch(site)]
        others = [site for site in chosen if not tree.is_switch(site)]
        return run_switches(tree, tests, switches, log) + \
            list(run_built(tree, tests, others, log))


def shared_memory():
    return '/dev/shm' if os.path.isdir('/dev/shm') else None
