"""The package as those meet it who install it.

What it is made of, looked at without making it, is in test_contents.py; its trial in clean systems begins in trial.py,
which scripts/package-test starts."""
