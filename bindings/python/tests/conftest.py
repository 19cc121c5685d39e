"""What the tests share. They run on the package as it is made by the build:

    PYTHONPATH=build/release/python KRT_PLX_LIBRARY=build/release/bin \\
        KRT_PLX_INTERFACE=build/release/generated/interface/krt_plx.api.json \\
        python3 -m pytest bindings/python/tests

KRT_PLX_EFFORT multiplies the random cases: scripts/test runs a sample, scripts/python the whole.
"""

import itertools
import json
import os
import pathlib

import hypothesis
import pytest

import korvel_plx as plx
from living import Living

EFFORT = int(os.environ.get("KRT_PLX_EFFORT", "1"))
TREE = pathlib.Path(__file__).resolve().parents[3]
LIBRARY = TREE / "examples/library"
IDS = (f"test-{number}" for number in itertools.count())

hypothesis.settings.register_profile(
    "tests", deadline=None, database=None, max_examples=20 * EFFORT, derandomize=EFFORT == 1,
    suppress_health_check=list(hypothesis.HealthCheck))
hypothesis.settings.load_profile("tests")


@pytest.fixture(scope="session")
def interface():
    return json.loads(pathlib.Path(os.environ["KRT_PLX_INTERFACE"]).read_text(encoding="utf-8"))


@pytest.fixture
def library(tmp_path):
    """A manager of the example clips, with an empty user folder."""
    with plx.Manager(next(IDS), LIBRARY / "system", tmp_path / "user") as manager:
        yield manager


@pytest.fixture
def living(library):
    return Living(library)


@pytest.fixture(scope="module")
def untouched(tmp_path_factory):
    """Living objects for tests that must not change anything; checked at the end."""
    folder = tmp_path_factory.mktemp("user")
    with plx.Manager(next(IDS), LIBRARY / "system", folder) as manager:
        objects = Living(manager)
        before = objects.snapshot()
        yield objects
        assert objects.snapshot() == before


def pytest_sessionfinish(session):
    """Writes a report in the format of the other test programs, case by case."""
    target = os.environ.get("KRT_PLX_RESULTS")
    if target:
        report = {"testsuites": [{"name": "python", "testsuite": CASES}]}
        pathlib.Path(target).write_text(json.dumps(report), encoding="utf-8")


CASES = []


def pytest_runtest_logreport(report):
    if report.when == "call" or report.failed or report.skipped:
        case = {"name": report.nodeid, "result": "SKIPPED" if report.skipped else "COMPLETED"}
        CASES.append(case | ({"failures": [str(report.longrepr)]} if report.failed else {}))
