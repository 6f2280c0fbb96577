import doctest
import os
import re
import shutil

import pytest

from conftest import SOURCE

PAGE = SOURCE / "docs/python.md"
PICTURE = SOURCE / "docs/pictures/drill-holes.png"


def test_the_examples_of_the_page_run(tmp_path, monkeypatch):
    """Every block of the page in one go, in a folder of its own. IPC2581_UPDATE_GOLDEN=1 makes the picture anew."""
    pytest.importorskip("pandas")
    pytest.importorskip("matplotlib")
    from matplotlib.testing import compare

    (tmp_path / "examples").symlink_to(SOURCE / "examples")
    monkeypatch.chdir(tmp_path)
    blocks = re.findall(r"```python\n(.*?)```", PAGE.read_text(), re.DOTALL)
    assert len(blocks) > 5
    examples = doctest.DocTestParser().get_doctest("".join(blocks), {}, PAGE.name, str(PAGE), 0)
    told = []
    runner = doctest.DocTestRunner()
    runner.run(examples, out=told.append)
    assert runner.failures == 0, "".join(told)
    if os.environ.get("IPC2581_UPDATE_GOLDEN"):
        shutil.copy("drill-holes.png", PICTURE)
    shutil.copy(PICTURE, "expected.png")
    assert compare.compare_images("expected.png", "drill-holes.png", tol=5) is None
