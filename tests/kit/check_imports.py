"""The kit allocates nothing, and calls nothing of the C library but what writes and copies text.

check_imports.py NM LIBRARY
"""

import re
import subprocess
import sys

# What compilers and a hardened C library make of snprintf and of copies is the same work.
ALLOWED = {"snprintf", "__snprintf_chk", "memcpy", "memset", "strlen", "__stack_chk_fail",
           "_GLOBAL_OFFSET_TABLE_"}

nm, library = sys.argv[1:]
lines = subprocess.run([nm, "--undefined-only", library], check=True, capture_output=True,
                       text=True).stdout
undefined = set(re.findall(r"^ +U (\w+)$", lines, re.MULTILINE))
own = {name for name in undefined if re.match(r"KRT_PLX_|kit[A-Z]", name)}
assert own, "the library has no symbols"
foreign = undefined - own - ALLOWED
assert not foreign, f"the kit calls {', '.join(sorted(foreign))}"
