"""The copy of the tree in which the changes are made, and its builds."""

import re
import subprocess

import sites

JOBS = '2'
FLAGS = ('-O0 -w -D_GLIBCXX_ASSERTIONS -ferror-limit=0 -fmacro-backtrace-limit=1 '
         '-Wno-invalid-constexpr -Wno-c++11-narrowing -include ')
# The messages that give the place of an error, and those that may.
DEFINITE = '(?:error|note: declared here|note: initializer of)'
ANY = '(?:error|note)'


class Programs:
    """Tests that load the shipped library, and so also every changed one."""

    def __init__(self, folder):
        self.contract = folder / 'contract_tests'
        self.faults = folder / 'fault_tests'

    def build(self, root):
        subprocess.run(['cmake', '--preset', 'release'], cwd=root, check=True,
                       stdout=subprocess.DEVNULL)
        subprocess.run(['cmake', '--build', '--preset', 'release', '--target', self.contract.name,
                        self.faults.name, '--', '--quiet'], cwd=root, check=True)


class CopyOfTree:
    """Contains every change as a switch, except those at places where C++ needs a constant."""

    def __init__(self, root, everything):
        self.root = root
        self.folder = root / 'build' / 'mutants'
        self.tree = self.folder / 'tree'
        self.build_folder = self.folder / 'build'
        self.everything = everything
        self.fixed = set()  # (file, line) where a constant is needed
        self.originals = {site.file: self.original(site.file) for site in everything}

    @property
    def library_folder(self):
        return self.build_folder / 'bin'

    @property
    def unit_tests(self):
        return self.build_folder / 'bin' / 'unit_tests'

    def identity(self, site):
        return self.everything.index(site)

    def is_switch(self, site):
        return (site.file, site.line) not in self.fixed

    def prepare(self):
        self.copy_everything()
        subprocess.run(['cmake', '-S', self.tree, '-B', self.build_folder, '-G', 'Ninja',
                        '-DCMAKE_BUILD_TYPE=None', '-DCMAKE_C_COMPILER=clang',
                        '-DCMAKE_CXX_COMPILER=clang++', '-DKRT_PLX_TESTS=ON',
                        '-DKRT_PLX_TOOLS=OFF', '-DKRT_PLX_EXAMPLES=OFF',
                        '-DKRT_PLX_JOINT_UNITS=OFF',  # but each layer as one
                        '-DCMAKE_UNITY_BUILD=ON', '-DCMAKE_UNITY_BUILD_BATCH_SIZE=0',
                        f'-DCMAKE_CXX_FLAGS={FLAGS}{self.tree}/tests/mutation/switch.h'],
                       check=True, stdout=subprocess.DEVNULL)
        self.fixed = set(self.remembered_fixed())
        self.build_with_switches()

    def copy_everything(self):
        listed = subprocess.run(
            ['git', 'ls-files', '-z', '--cached', '--others', '--exclude-standard'],
            cwd=self.root, check=True, capture_output=True, text=True).stdout
        written_here = {site.file for site in self.everything}
        files = {file for file in listed.split('\0') if file and (self.root / file).is_file()}
        for file in files - written_here:
            self.write(file, (self.root / file).read_bytes())
        self.remove_others(files)

    def remove_others(self, files):
        """Removes files of an earlier copy. Otherwise the build would use sources that no longer
        exist."""
        for path in self.tree.rglob('*'):
            if path.is_file() and str(path.relative_to(self.tree)) not in files:
                path.unlink()

    def write(self, file, content):
        """Does not touch a file that already has this content, so that it is not built again."""
        path = self.tree / file
        if not path.is_file() or path.read_bytes() != content:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)

    def original(self, file):
        return (self.root / file).read_text(encoding='utf-8')

    def source(self, file, change=None):
        """The source with all switches, or with none and one change."""
        source = self.originals[file]
        kept = {line for fixed, line in self.fixed if fixed == file}
        if change is not None:
            return sites.with_change(source, change)
        own = [(number, site) for number, site in enumerate(self.everything)
               if site.file == file and self.is_switch(site)]
        return sites.without_constants(sites.with_switches(source, own), kept)

    def write_source(self, file, change=None):
        """With this one change and no switches, if there is one."""
        self.write(file, self.source(file, change).encode('utf-8'))

    def build_with_switches(self):
        """Removes switches where the compiler reports errors, until there are none."""
        while True:
            for file in {site.file for site in self.everything}:
                self.write_source(file)
            messages = self.build('krt_plx', 'unit_tests')
            if messages is None:
                self.remember_fixed()
                return
            blamed = self.blamed(messages, DEFINITE) - self.fixed or self.blamed(messages, ANY)
            if blamed <= self.fixed:
                raise SystemExit('The copy cannot be built:\n' + messages[-4000:])
            self.fixed |= blamed

    def line_text(self, file, line):
        lines = self.original(file).split('\n') if (self.root / file).is_file() else []
        return lines[line - 1] if line <= len(lines) else ''

    def remember_fixed(self):
        """Finding these places takes a build, which the next run can skip."""
        rows = [f'{file}:{line}:{self.line_text(file, line)}\n'
                for file, line in sorted(self.fixed)]
        (self.folder / 'fixed.txt').write_text(''.join(rows), encoding='utf-8')

    def remembered_fixed(self):
        path = self.folder / 'fixed.txt'
        rows = path.read_text(encoding='utf-8').splitlines() if path.is_file() else []
        for file, line, text in (row.split(':', 2) for row in rows):
            if self.line_text(file, int(line)) == text:
                yield file, int(line)

    def blamed(self, messages, kinds):
        """The places to which these messages point. Their paths may be relative to the build."""
        pattern = re.compile(rf'\b{re.escape(self.tree.name)}/(src/[\w/.]+):(\d+):\d+: {kinds}')
        return {(file, int(line)) for file, line in pattern.findall(messages)}

    def build(self, *targets):
        """Returns the compiler's output if it fails."""
        done = subprocess.run(['cmake', '--build', self.build_folder, '--parallel', JOBS,
                               '--target', *targets, '--', '-k', '0', '--quiet'],
                              capture_output=True, text=True, check=False)
        return None if done.returncode == 0 else done.stdout + done.stderr
