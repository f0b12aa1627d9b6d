"""Servers that mean harm, or are broken in every way, and the shipped program that asks them.

`wire` is one connection, down to its bytes; `handshakes`, `heads`, `bodies` and `packings` are what servers do with
one; `cases` is the table of all of them with what must come of each. A `Lane` is a desktop with one program, which it
sends to one server after the other and measures; `lanes` runs several side by side and has the `results`, which
`report` writes down. `histories` are many pages of a real `nginx`."""
