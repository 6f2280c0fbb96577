#!/usr/bin/env python3
"""Runs tests by pytest: run_tests.py FILE... It ends with 77, and says so, where pytest is missing."""

import sys

try:
    import pytest
except ImportError:
    print("pytest is missing (Debian package python3-pytest)")
    sys.exit(77)

sys.exit(pytest.main(["-q", "-rs", "-p", "no:cacheprovider", *sys.argv[1:]]))
