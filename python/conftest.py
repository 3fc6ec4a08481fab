"""What the tests and the examples in the docstrings share."""

from pathlib import Path

import pytest

EXAMPLES = Path(__file__).resolve().parent.parent / "examples"


@pytest.fixture(autouse=True)
def _examples(doctest_namespace):
    doctest_namespace["EXAMPLES"] = EXAMPLES


@pytest.fixture
def examples():
    return EXAMPLES
