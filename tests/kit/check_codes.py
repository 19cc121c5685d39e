"""Every value of every enumeration has words in the kit: check_codes.py API_JSON PLX_KIT_H CODES_C"""

import collections
import json
import pathlib
import re
import sys


def enumerations(interface, header):
    found = {each["name"]: {value["name"] for value in each["values"]}
             for each in interface["enums"]}
    code = re.sub(r"/\*.*?\*/", "", header, flags=re.S)
    for body, name in re.findall(r"typedef enum \w+ \{(.*?)\} (\w+);", code, flags=re.S):
        found[name] = set(re.findall(r"(KRT_PLX_\w+) *=", body))
    return found


def main():
    interface = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    header, source = (pathlib.Path(each).read_text(encoding="utf-8") for each in sys.argv[2:])
    families = dict(re.findall(r"(KRT_PLX_KIT_\w+) = \d+, *\/\*\*< #(\w+) \*/", header)
                    + re.findall(r"(KRT_PLX_KIT_\w+) = \d+ *\/\*\*< #(\w+) \*/", header))
    words = re.findall(r'WORD\((\w+),\s*(\w+),\s*"([^"]+)"\)', source)
    faults = []
    known = enumerations(interface, header)
    for family, enumeration in families.items():
        named = collections.Counter(code for each, code, _ in words if each == family)
        faults += [f"{family}: {code} has no words" for code in known[enumeration] - set(named)]
        faults += [f"{family}: {code} is not in {enumeration}"
                   for code in set(named) - known[enumeration]]
        faults += [f"{family}: {code} stands twice" for code, times in named.items() if times > 1]
    worded = set(families.values())
    # No function of the library or of the kit hands these out: a host passes them in.
    passed_in = {"KRT_PLX_KitCodes", "KRT_PLX_KitKeep", "KRT_PLX_KitTagList"}
    faults += [f"{name} has no words" for name in set(known) - worded - passed_in]
    if len(words) != sum(len(known[name]) for name in worded):
        faults.append(f"{len(words)} rows were read")
    print("\n".join(faults) or f"{len(words)} codes have words")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
