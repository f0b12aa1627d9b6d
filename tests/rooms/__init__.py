"""Clean minimal systems of a Debian release, and the namespaces with which everything in them ends.

scripts/clean-room runs a command of a fresh clone in one, the trial of the package installs and removes packages."""
