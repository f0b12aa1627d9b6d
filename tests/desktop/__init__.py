"""A private desktop on a virtual screen, and what a program meets in it.

VirtualDesktop brings the screen, the buses, the keyring and a home; Glimmet is one launch of the program there.
OwnNetwork leads the names of the services to servers of this process. The end-to-end tests, the trial of the package
and the commands that show or measure glimmet all stand on this, and it knows none of them."""
